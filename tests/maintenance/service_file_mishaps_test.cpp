#include <filesystem>

#include "maintenance/service_file_desk.h"
#include "maintenance/service_gathering.h"

namespace morvane::maintenance {
namespace {

/// Nothing is left of a run that came to nothing, but its number.
class ServiceFileMishaps : public ServiceFileDesk {
 protected:
  void ExpectNothingLeft() {
    EXPECT_THAT(Files(), ::testing::IsEmpty());
    EXPECT_EQ(desk.Store.Get(kServiceFileId), "1") << "the number has moved on";
    EXPECT_EQ(console->Console().Outputs, 0);
    EXPECT_FALSE(machine.PollLock);
    EXPECT_EQ(console->ServiceFiles().Written, "");
  }
  /// The last that the machine has heard of its outputs.
  [[nodiscard]] int LastOutputs() const {
    for (auto frame = bridge.Sent.rbegin(); frame != bridge.Sent.rend(); ++frame) {
      if ((*frame)[0] == 0x17) return (*frame)[1];
    }
    return -1;
  }
};

TEST_F(ServiceFileMishaps, WithoutAnOkNothingIsSent) {
  Begin();
  desk.Ui.Answers = {kCancel};
  console->Email();
  EXPECT_THAT(bridge.Sent, ::testing::IsEmpty());
  EXPECT_THAT(LinesWith("Service file"), ::testing::IsEmpty());
  ExpectNothingLeft();
}

TEST_F(ServiceFileMishaps, ACancelAtEachLine) {
  // Two stages of settling, the capture, 192 lines, and 192 more.
  for (int at = 0; at < 387; ++at) {
    SCOPED_TRACE(at);
    desk.Store.Set(kServiceFileId, "0");
    Begin();
    int shown = 0;
    view.OnGathering = [&] {
      if (shown++ == at) view.Gathering->Cancel();
    };
    console->Email();
    EXPECT_EQ(shown, at + 1) << "nothing more is shown";
    ExpectNothingLeft();
    EXPECT_EQ(LastOutputs(), 0) << "the machine knows it";
    EXPECT_THAT(desk.Ui.Boxes, ::testing::SizeIs(1)) << "the prompt alone";
    EXPECT_FALSE(console->Closed());
    console.reset();
  }
}

TEST_F(ServiceFileMishaps, ACancelWhileTheFeederSettlesIsHeardAtOnce) {
  Begin();
  std::chrono::microseconds cancelled{};
  desk.Loop.After(300, [&] {
    view.Gathering->Cancel();
    cancelled = desk.Clock.Elapsed();
  });
  console->Email();
  EXPECT_LT(desk.Clock.Elapsed() - cancelled, std::chrono::milliseconds(100));
  ExpectNothingLeft();
}

TEST_F(ServiceFileMishaps, BehindThePicturesNothingIsCancelledAnyMore) {
  Begin();
  bool last = false;
  view.OnGathering = [&] {
    last = !view.Gathering->MayCancel();
    if (last) view.Gathering->Cancel();
  };
  console->Email();
  EXPECT_TRUE(last);
  EXPECT_EQ(Lines().size(), 415U);
}

TEST_F(ServiceFileMishaps, WhoLeavesCancels) {
  Begin();
  int lines = 0;
  OnAsked = [&](const test::Bytes& plain) {
    if (plain[0] == 1 && ++lines == 50) console->Exit();
  };
  console->Email();
  EXPECT_EQ(lines, 50);
  EXPECT_TRUE(console->Closed());
  EXPECT_EQ(LastOutputs(), 0);
  ExpectNothingLeft();
}

TEST_F(ServiceFileMishaps, AQuitCancels) {
  Begin();
  int lines = 0;
  OnAsked = [&](const test::Bytes& plain) {
    if (plain[0] == 1 && ++lines == 250) desk.Loop.Quit();
  };
  console->Email();
  EXPECT_LE(lines, 251);
  EXPECT_EQ(LastOutputs(), 0);
  ExpectNothingLeft();
}

TEST_F(ServiceFileMishaps, ALinkThatIsLostAtAnyFrame) {
  Begin();
  console->Email();
  const std::size_t frames = bridge.Sent.size();
  ASSERT_EQ(frames, 432U) << "2 + 192 + 1 + 192 + 6 + 2 + 24 + 8 + 4 + 1";
  std::filesystem::remove(Path());
  for (std::size_t at = 0; at < frames - 1; ++at) {
    SCOPED_TRACE(at);
    console.reset();
    desk.Store.Set(kServiceFileId, "0");
    Silent.reset();
    Begin();
    Silent = at;
    console->Email();
    EXPECT_TRUE(console->Closed());
    EXPECT_EQ(bridge.Sent.size(), at + 2) << "both tries, and nothing behind them";
    EXPECT_THAT(Files(), ::testing::IsEmpty());
    EXPECT_FALSE(machine.PollLock);
    ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
    EXPECT_EQ(desk.Ui.Boxes[1],
              (test::FakeUi::Box{desk.Prog.Texts.Msg055, 16, "Communication Error"}));
  }
}

TEST_F(ServiceFileMishaps, ALinkThatIsLostBehindTheFileLeavesTheFile) {
  Begin();
  Silent = 431;  // the outputs are switched off
  console->Email();
  EXPECT_EQ(Lines().size(), 415U);
  EXPECT_TRUE(console->Closed());
}

TEST_F(ServiceFileMishaps, AReplyThatIsLostOnceDoesNoHarm) {
  Begin();
  console->Email();
  std::string whole = test::Content(Path());
  whole.erase(0, whole.find("\r\n"));
  for (std::size_t at = 0; at < 431; at += at < 3 || at > 384 ? 1 : 61) {
    SCOPED_TRACE(at);
    console.reset();
    desk.Store.Set(kServiceFileId, "0");
    SilentOnce.reset();
    Begin();
    SilentOnce = at;
    console->Email();
    std::string file = test::Content(Path());
    file.erase(0, file.find("\r\n"));
    EXPECT_EQ(file, whole);
  }
}

#ifndef _WIN32  // no limit for files, no device that is full
TEST_F(ServiceFileMishaps, AFullDiskIsToldAndLeavesNothing) {
  Begin();
  std::filesystem::create_symlink("/dev/full", Path());
  console->Email();
  ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_EQ(desk.Ui.Boxes[1],
            (test::FakeUi::Box{
                "      Error: 28 during writing service file - No space left on device      ", 16,
                "Service File Error"}));
  std::filesystem::remove(Path());
  EXPECT_EQ(LastOutputs(), 0);
  ExpectNothingLeft();
}
#endif

TEST_F(ServiceFileMishaps, WhereNothingCanBeWrittenNothingIsGathered) {
  Begin();
  std::filesystem::create_directory(Path());  // nobody can replace a folder by a file
  console->Email();
  ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_EQ(desk.Ui.Boxes[1].Title, "Service File Error");
  EXPECT_EQ(desk.Ui.Boxes[1].Text,
            "      Error: 21 during writing service file - Is a directory      ");
  EXPECT_EQ(bridge.Sent.size(), 1U) << "the outputs alone";
  std::filesystem::remove(Path());
  ExpectNothingLeft();
}

TEST_F(ServiceFileMishaps, NothingElseTakesTheLinkMeanwhile) {
  Begin();
  int frames = 0;
  view.OnGathering = [&] {
    console->Email();
    console->Feed_card();
    console->Get_param();
    console->Bench().Capture();
    console->DealTest();
    console->Calibrate_Board_Switch();
    ++frames;
  };
  console->Email();
  EXPECT_EQ(frames, 388);
  EXPECT_EQ(bridge.Sent.size(), 432U);
  EXPECT_EQ(desk.Store.Get(kServiceFileId), "1");
}

TEST_F(ServiceFileMishaps, BeforeTheMachineIsKnownTheButtonDoesNothing) {
  Open();
  console->Email();
  EXPECT_THAT(desk.Ui.Boxes, ::testing::IsEmpty());
  EXPECT_EQ(desk.Store.Get(kServiceFileId), "0");
}

}  // namespace
}  // namespace morvane::maintenance
