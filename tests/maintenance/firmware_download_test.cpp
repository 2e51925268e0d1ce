#include "maintenance/firmware_download.h"

#include <limits>

#include "maintenance/paper_flash.h"
#include "maintenance/service_desk.h"
#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Outcome = FirmwareDownload::Outcome;
using Phase = FirmwareDownload::Phase;

/// The transfer alone, into a flash on paper.
class FirmwareTransfer : public ServiceDesk {
 protected:
  /// Shows nothing but what a test wants to see.
  struct NotedView final : FirmwareView {
    std::function<void()> OnShow;
    void ShowDownload() override {
      if (OnShow) OnShow();
    }
  };

  PaperFlash flash;
  NotedView view;
  std::optional<FirmwareFile> file;
  std::optional<FirmwareDownload> download;
  bool leaving = false;
  /// Frames, counted from 0 as they are sent, whose answer is lost or has a wrong check byte.
  std::vector<int> silent;
  std::vector<int> spoilt;

  void SetUp() override {
    ServiceDesk::SetUp();
    RuntimeError error;
    ASSERT_TRUE(desk.Prog.Log.Start(desk.Folder.Path(), error));
    Damage = [this](const Bytes& plain, const Bytes& wire) { return Reply(plain, wire); };
    // Code blocks 0, 1, 2, the bitstream's 0, 1.
    Prepare(CodeOf(2, 0x90, 240), std::string(200, 'b'));
  }
  void Prepare(const std::string& code, const std::string& bitstream) {
    file = FirmwareIn(FileOf(code, bitstream), "/f/new.adc");
    ASSERT_TRUE(file);
    download.emplace(desk.Prog, link, machine, *file, [this] { return leaving; });
  }
  Outcome Run() {
    flash.Heard.clear();
    download->Run(view);
    return download->Result();
  }
  /// A second one of the same file.
  Outcome RunAgain() {
    download.emplace(desk.Prog, link, machine, *file, [this] { return leaving; });
    return Run();
  }
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const FakeUi::Box& box : desk.Ui.Boxes) texts.push_back(box.Text + box.Title);
    return texts;
  }

 private:
  Bytes Reply(const Bytes& plain, const Bytes& wire) {
    const auto frame = static_cast<int>(flash.Heard.size());
    Bytes reply = flash.ReplyTo(plain);
    if (reply.empty()) return wire;
    if (std::find(silent.begin(), silent.end(), frame) != silent.end()) return {};
    if (std::find(spoilt.begin(), spoilt.end(), frame) != spoilt.end()) reply[3] ^= 1U;
    return reply;
  }
};

TEST_F(FirmwareTransfer, TheHeadersGoLastAndNothingBehindThem) {
  EXPECT_EQ(Run(), Outcome::kDone);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1, 2, 0x201, 0x200, 0));
  EXPECT_THAT(bridge.Sent, SizeIs(6));
  EXPECT_EQ(download->Now(), Phase::kOver);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(FirmwareTransfer, ASmallFirmwareIsItsHeadersAndTheBitstreamsBlocks) {
  Prepare(std::string(20, '\x01'), std::string(300, 'b'));
  EXPECT_EQ(Run(), Outcome::kDone);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 0x201, 0x202, 0x200, 0));
  const Bytes& header = bridge.Sent.back();
  EXPECT_EQ((Bytes{header.begin(), header.begin() + 4}), (Bytes{170, 98, 0, 0}));
  EXPECT_EQ((Bytes{header.begin() + 8, header.begin() + 16}),
            (Bytes{0, 0x24, 0, 0, 0, 0, 0x0A, 0x2E}));
  EXPECT_EQ((Bytes{bridge.Sent[0].begin(), bridge.Sent[0].begin() + 2}), (Bytes{41, 95}));
}

TEST_F(FirmwareTransfer, ABlockCarriesItsBytesOfTheImage) {
  Prepare(CodeOf(2, 0x90) + std::string(92, 'a') + "last" + std::string(124, 'c'), "");
  EXPECT_EQ(Run(), Outcome::kDone);
  const Bytes& block = bridge.Sent[1];  // from the file's byte 112 on
  EXPECT_EQ(std::string(block.begin() + 8, block.begin() + 13), "lastc");
  const Bytes& behind = bridge.Sent[2];
  EXPECT_EQ(behind[3], 2);
  EXPECT_EQ(Bytes(behind.begin() + 8, behind.end()), Bytes(128, 0));
}

TEST_F(FirmwareTransfer, TheFillerIsRandom) {
  Run();
  EXPECT_NE((Bytes{bridge.Sent[1].begin() + 4, bridge.Sent[1].begin() + 7}),
            (Bytes{bridge.Sent[2].begin() + 4, bridge.Sent[2].begin() + 7}));
}

TEST_F(FirmwareTransfer, AnyOfTheFourCodesAnswers) {
  for (const int code : {41, 42, 44, 45}) {
    flash.BlockCode = static_cast<std::uint8_t>(code);
    EXPECT_EQ(RunAgain(), Outcome::kDone) << code;
  }
}

TEST_F(FirmwareTransfer, AnotherFrameIsNoAnswer) {
  flash.BlockCode = 43;
  EXPECT_EQ(Run(), Outcome::kPartial);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1, 1));
  EXPECT_EQ(download->CommErrors(), 2);
  EXPECT_EQ(download->SumErrors(), 0);
}

TEST_F(FirmwareTransfer, TheBarCountsTheBlocksOfBothLoops) {
  std::vector<int> bars;
  view.OnShow = [&] {
    if (bars.empty() || bars.back() != download->Download_bar()) {
      bars.push_back(download->Download_bar());
    }
  };
  Run();  // of 456 bytes: 128, 256, 384
  EXPECT_THAT(bars, ElementsAre(0, 28, 56, 84));
  EXPECT_EQ(download->Blocks(), 5);
  EXPECT_EQ(download->BlocksSent(), 5);
  EXPECT_EQ(download->FramesCount(), 5) << "the start is not one of them";
}

TEST_F(FirmwareTransfer, TheBarIsAt100AtMost) {
  Prepare(std::string(112, 'x'), "");  // the file has 128 bytes, and one block is sent in the loop
  Run();
  EXPECT_EQ(download->Download_bar(), 100);
  Prepare(std::string(240, 'x'), std::string(240, 'x'));  // 4 x 128 of 496
  Run();
  EXPECT_EQ(download->Download_bar(), 100);
}

TEST_F(FirmwareTransfer, PhasesFollowEachOther) {
  std::vector<Phase> phases;
  view.OnShow = [&] {
    if (phases.empty() || phases.back() != download->Now()) phases.push_back(download->Now());
  };
  Run();
  EXPECT_THAT(phases, ElementsAre(Phase::kStart, Phase::kCode, Phase::kBitstream, Phase::kHeaders,
                                  Phase::kOver));
}

TEST_F(FirmwareTransfer, ARefusedStartIsToldWithoutAPosition) {
  flash.Status[-1] = 5;
  EXPECT_EQ(Run(), Outcome::kUntouched);
  EXPECT_THAT(flash.Heard, ElementsAre(-1));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{"      Error: 5 during programming .      ",
                                                     kOkCritical, "Download Error"}));
  EXPECT_EQ(desk.LogLines().back(),
            "   Firmware download not completed: Error 5 before the first block");
  EXPECT_EQ(recoveries, 0);
}

TEST_F(FirmwareTransfer, AnyStatusRefusesTheStart) {
  for (const int status : {1, 3, 4, 255}) {
    flash.Status[-1] = status;
    EXPECT_EQ(RunAgain(), Outcome::kUntouched) << status;
    EXPECT_THAT(flash.Heard, ElementsAre(-1));
  }
}

TEST_F(FirmwareTransfer, AStartThatIsRefusedAtItsRepetitionMayHaveBeenTaken) {
  silent = {0};
  flash.Status[-1] = 2;
  EXPECT_EQ(Run(), Outcome::kUnknown);
  EXPECT_EQ(
      desk.LogLines().back(),
      "   Firmware download: not known what the machine holds: Error 2 before the first block");
}

TEST_F(FirmwareTransfer, TheLastBlockThatFailsAtItsRepetitionMayHaveBeenTaken) {
  silent = {5};
  flash.Status[0] = 1;
  EXPECT_EQ(Run(), Outcome::kUnknown);
  silent = {};
  EXPECT_EQ(RunAgain(), Outcome::kPartial) << "at its first answer it was not";
}

TEST_F(FirmwareTransfer, WhoLeavesBeforeItBeginsSendsNothing) {
  leaving = true;
  EXPECT_EQ(Run(), Outcome::kNotBegun);
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_EQ(desk.LogLines().back(), "   Firmware download not completed: cancelled");
}

TEST_F(FirmwareTransfer, CancelBeforeItBeginsSendsNothing) {
  desk.Loop.After(0, [this] { download->Cancel(); });
  EXPECT_EQ(Run(), Outcome::kNotBegun);
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(FirmwareTransfer, Status1And2EndItWithTheBlockOnTheWire) {
  flash.Status[2] = 1;
  EXPECT_EQ(Run(), Outcome::kPartial);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1, 2));
  EXPECT_THAT(Texts(), ElementsAre("      Error: 1 during programming at 2      Download Error"));
  EXPECT_EQ(download->FramesCount(), 2) << "it was answered";
  EXPECT_EQ(download->Fault(), "Error 1 at block 2");
}

TEST_F(FirmwareTransfer, ASecondFaultIsToldWithTheNumbersOfTheFirstAndItsOwnBesideThem) {
  flash.Status[2] = 1;
  Run();
  flash.Status = {{0x201, 2}};
  EXPECT_EQ(RunAgain(), Outcome::kPartial);
  EXPECT_EQ(desk.Ui.Boxes[1], desk.Ui.Boxes[0]);
  EXPECT_EQ(download->Fault(), "Error 2 at block 513");
  EXPECT_EQ(desk.LogLines().back(), "   Firmware download not completed: Error 2 at block 513");
}

TEST_F(FirmwareTransfer, EitherHeaderCanFail) {
  flash.Status = {{0x200, 2}};
  EXPECT_EQ(Run(), Outcome::kPartial);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1, 2, 0x201, 0x200));
  flash.Status = {{0, 1}};
  EXPECT_EQ(RunAgain(), Outcome::kPartial);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1, 2, 0x201, 0x200, 0));
}

TEST_F(FirmwareTransfer, Status3OnEveryBlockIsCountedAndPassedOver) {
  flash.Status = {{1, 3}, {2, 3}, {0x201, 3}, {0x200, 3}, {0, 3}};
  EXPECT_EQ(Run(), Outcome::kDone);
  EXPECT_EQ(download->ProgErrors(), 5);
  EXPECT_EQ(desk.LogLines().back(), "   Firmware download: blocks that could not be written: 5");
  EXPECT_EQ(download->FramesCount(), 5);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(FirmwareTransfer, AnotherStatusPassesButNotAsTheLastWord) {
  flash.Status = {{1, 4}, {0x201, 255}};
  EXPECT_EQ(Run(), Outcome::kDone);
  EXPECT_EQ(download->ProgErrors(), 0);
  flash.Status = {{0, 4}};
  EXPECT_EQ(RunAgain(), Outcome::kUnknown);
  EXPECT_EQ(desk.LogLines().back(),
            "   Firmware download: not known what the machine holds: the last answer was 4");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(FirmwareTransfer, OneBadReceiveOnEachFrameIsRepeatedAndCounted) {
  silent = {0, 4, 8};
  spoilt = {2, 6, 10};
  EXPECT_EQ(Run(), Outcome::kDone);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, -1, 1, 1, 2, 2, 0x201, 0x201, 0x200, 0x200, 0, 0));
  EXPECT_EQ(download->CommErrors(), 6);
  EXPECT_EQ(download->SumErrors(), 3);
  EXPECT_EQ(download->FramesCount(), 5);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(FirmwareTransfer, TwoInARowOnOneFrameAreALostLink) {
  struct Case {
    int Frame;
    Outcome Known;
    std::vector<int> Heard;
  };
  for (const Case& lost :
       {Case{0, Outcome::kUnknown, {-1, -1}}, Case{1, Outcome::kPartial, {-1, 1, 1}},
        Case{2, Outcome::kPartial, {-1, 1, 2, 2}},
        Case{3, Outcome::kPartial, {-1, 1, 2, 0x201, 0x201}},
        Case{4, Outcome::kPartial, {-1, 1, 2, 0x201, 0x200, 0x200}},
        Case{5, Outcome::kUnknown, {-1, 1, 2, 0x201, 0x200, 0, 0}}}) {
    recoveries = 0;
    desk.Ui.Boxes.clear();
    ServiceLink fresh(desk.Prog, machine, [this] { ++recoveries; });
    download.emplace(desk.Prog, fresh, machine, *file, [] { return false; });
    silent = {lost.Frame, lost.Frame + 1};
    EXPECT_EQ(Run(), lost.Known) << lost.Frame;
    EXPECT_EQ(flash.Heard, lost.Heard);
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{desk.Prog.Texts.Msg055, kOkCritical,
                                                       "Communication Error"}));
    EXPECT_EQ(recoveries, 1);
    EXPECT_EQ(download->CommErrors(), 2);
    EXPECT_EQ(desk.LogLines().back(),
              (lost.Known == Outcome::kPartial
                   ? "   Firmware download not completed: the link was lost"
                   : "   Firmware download: not known what the machine holds: the link was lost"));
  }
}

TEST_F(FirmwareTransfer, CancelEndsItBehindTheBlock) {
  view.OnShow = [this] {
    if (download->FramesCount() == 2) download->Cancel();
  };
  EXPECT_EQ(Run(), Outcome::kPartial);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1, 2));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_EQ(desk.LogLines().back(), "   Firmware download not completed: cancelled");
}

TEST_F(FirmwareTransfer, TheLastBlockOfTheLoopsIsTheLastThatCanBeCancelledBehind) {
  view.OnShow = [this] {
    if (download->FramesCount() == 3) download->Cancel();
  };
  EXPECT_EQ(Run(), Outcome::kPartial);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1, 2, 0x201));
}

TEST_F(FirmwareTransfer, TheHeadersAreNotCancelled) {
  view.OnShow = [this] {
    if (download->Now() != Phase::kHeaders) return;
    EXPECT_FALSE(download->MayCancel());
    download->Cancel();
  };
  EXPECT_EQ(Run(), Outcome::kDone);
}

TEST_F(FirmwareTransfer, WhoLeavesCancelsIt) {
  OnFrame = [this](const Bytes& plain) { leaving = plain[0] == 170; };
  EXPECT_EQ(Run(), Outcome::kPartial);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1));
  EXPECT_TRUE(download->CancelRequested());
}

}  // namespace
}  // namespace morvane::maintenance
