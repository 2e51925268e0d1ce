#include <deque>
#include <filesystem>

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

struct Work {
  const char* Name;
  const char* Options;
  std::deque<int> Answers;
  void (*Do)(Maintenance& console);
  const char* Logged;
};

void PrintTo(const Work& work, std::ostream* out) { *out << work.Name; }

void ChangeAParameter(Maintenance& console) {
  console.Get_param();
  FilteredBox typed{"77", 2};
  console.Boxes().Box(maintenance::Parameter::pos_x).Change(typed);
  console.save_param();
}

void LookAtACard(Maintenance& console) {
  console.Bench().Capture();
  console.Bench().Showb();
  console.Bench().Reco();
}

/// What was made, one behind the other.
std::string FilesOf(LinkSession& at) {
  std::string all;
  for (const auto& file : std::filesystem::directory_iterator(at.Desk.Prog.Paths.Data)) {
    all += test::Content(file.path().string());
  }
  return all;
}

/// What a technician does with a button of the console.
class ReplayedWork : public ReplayedService, public ::testing::WithParamInterface<Work> {};

TEST_P(ReplayedWork, IsDoneAgain) {
  const Work& work = GetParam();
  const Script script = [&](LinkSession& at) {
    std::filesystem::create_directory(at.Desk.Prog.Paths.Data);
    at.Desk.Ui.Default = kCancel;
    at.Desk.Ui.Answers = work.Answers;
    Visit(at, [&](Maintenance& console) {
      console.Console().Outputs = wire::OutputsCommand::kCamLeds | wire::OutputsCommand::kCamPower;
      at.Desk.Loop.WaitMs(300);
      work.Do(console);
    });
  };
  Trace(",speed=0,seed=5" + std::string(work.Options), script);
  EXPECT_THAT(first.LogLines(), Contains(HasSubstr(work.Logged)));
  EXPECT_TRUE(first.Desk.Ui.Answers.empty()) << "all boxes came";
  ASSERT_EQ(Replay(script), "");
  ExpectTheSame();
  EXPECT_EQ(playback->LeftOver(), "");
  EXPECT_EQ(FilesOf(first), FilesOf(second));
}

INSTANTIATE_TEST_SUITE_P(
    Each, ReplayedWork,
    ::testing::Values(Work{"Parameters", "", {kYes}, ChangeAParameter, "Parameters updated OK"},
                      Work{"Picture", ",card=HQ", {}, LookAtACard, ""},
                      Work{"Calibration",
                           "",
                           {kOk},
                           [](Maintenance& console) { console.Calibrate_Board_Switch(); },
                           "Calibration"},
                      Work{"TestDeal",
                           ",deck=flashed,swap=9:10",
                           {kOk, kCancel},
                           [](Maintenance& console) { console.DealTest(); },
                           "Test Deal  62 expected: ST"},
                      Work{"ServiceFile",
                           ",card=D3",
                           {kOk},
                           [](Maintenance& console) { console.Email(); },
                           "Service file: "}),
    [](const auto& each) { return std::string(each.param.Name); });

}  // namespace
}  // namespace morvane::bridges
