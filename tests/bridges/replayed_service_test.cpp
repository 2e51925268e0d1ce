#include "bridges/link_session.h"
#include "maintenance/console_desk.h"
#include "maintenance/paper_flash.h"

namespace morvane::bridges {
namespace {

using maintenance::Maintenance;
using ::testing::Contains;
using ::testing::HasSubstr;

class ReplayedService : public LinkSessions {
 protected:
  int watchingMs = 1000;
  std::string firmware = folder / "new.adc";

  /// Opens the console, lets `work` be done there and leaves it.
  void Visit(LinkSession& at, const std::function<void(Maintenance&)>& work) {
    if (!at.Open(Maintenance::kLinkTimeoutMs)) return;
    const auto pictures = std::make_unique<maintenance::PictureStore>();
    maintenance::NotedView view;
    Maintenance console(at.Desk.Prog, at.TheMachine(), *pictures);
    console.Open(view);
    at.Desk.Loop.WaitMs(Maintenance::kFirstContactMs + watchingMs);
    work(console);
    at.Desk.Loop.WaitMs(watchingMs);
    if (!console.Closed()) console.Exit();
  }
};

TEST_F(ReplayedService, AConsoleThatWatchedTheSensors) {
  const Script watch = [this](LinkSession& at) {
    Visit(at, [&](Maintenance& console) {
      console.Console().Outputs = wire::OutputsCommand::kMotors;
      at.Desk.Loop.WaitMs(300);
      console.Feed_card();
    });
  };
  Trace(",seed=5", watch);
  ASSERT_EQ(Replay(watch), "");
  ExpectTheSame();
}

TEST_F(ReplayedService, WhoWatchesLongerOrShorterSeesTheSame) {
  const Script watch = [this](LinkSession& at) {
    Visit(at, [](Maintenance& console) { console.Feed_card(); });
  };
  Trace(",seed=5", watch);
  for (const int ms : {600, 3000}) {
    watchingMs = ms;
    ASSERT_EQ(Replay(watch), "") << ms;
    EXPECT_EQ(playback->Trace().Next(), nullptr) << ms;
    second.Disconnect();
  }
}

TEST_F(ReplayedService, AFirmwareThatWasLoaded) {
  test::WriteContent(
      firmware, maintenance::FileOf(maintenance::CodeOf(2, 0x91, 2000), std::string(500, 'b')));
  const Script load = [this](LinkSession& at) {
    at.Desk.Ui.Default = kYes;
    Visit(at, [&](Maintenance& console) { console.Download(firmware); });
  };
  Trace(",seed=5", load);
  EXPECT_THAT(first.LogLines(), Contains(HasSubstr("ownload")));
  ASSERT_EQ(Replay(load), "");
  ExpectTheSame();
}

}  // namespace
}  // namespace morvane::bridges
