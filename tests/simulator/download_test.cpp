// Firmware into the simulated machine's flash, against frames on paper.

#include <gmock/gmock.h>

#include "simulator/download_frames.h"

namespace morvane::simulator {
namespace {

using ::testing::ElementsAre;

Bytes Head(const Bytes& image) { return {image.begin(), image.begin() + 8}; }

/// A machine whose flash was told to answer so.
Talk Planned(std::vector<FlashFault> plan) {
  Options options = Talk::Fast();
  options.FlashFaults = std::move(plan);
  return Talk(options);
}

/// Whether the download is booted behind the latch.
bool Boots(const std::vector<Bytes>& frames) {
  Talk talk;
  EXPECT_EQ(Send(talk, frames), 0);
  DropLatch(talk);
  return HasFirmware(talk);
}

// The code: 24h, and ten words 0101h. The bitstream: 13Ch, and 150 words 0202h: 12D2Ch + 13Ch.
TEST(Download, TheSmallOneIsAsOnPaper) {
  EXPECT_THAT(Head(CodeImage(Bytes(20, 1))), ElementsAre(0, 0x24, 0, 0, 0, 0, 0x0A, 0x2E));
  EXPECT_THAT(Head(BitImage(Bytes(300, 2))), ElementsAre(0, 0, 1, 0x3C, 0, 1, 0x2E, 0x68));
  const std::vector<Bytes> frames = SmallDownload();
  ASSERT_EQ(frames.size(), 5U);
  EXPECT_EQ(frames[0][0], 41);
  EXPECT_EQ(256 * frames[1][2] + frames[1][3], 0x201);
  EXPECT_EQ(256 * frames[2][2] + frames[2][3], 0x202);
  EXPECT_EQ(256 * frames[3][2] + frames[3][3], 0x200);
  EXPECT_EQ(256 * frames[4][2] + frames[4][3], 0);
}

TEST(Download, IsAnsweredWith41And42AndBootsItsVersionBehindTheLatch) {
  Talk talk;
  talk.Machine.TakeLatch(true);
  const std::vector<Bytes> frames = SmallDownload();
  EXPECT_THAT(talk.Ask(frames[0]), ElementsAre(41, 0, 0, 0, 0, 0, 0, 255 - 41));
  for (std::size_t i = 1; i < frames.size(); ++i) {
    EXPECT_THAT(talk.Ask(frames[i]), ElementsAre(42, 0, 0, 0, 0, 0, 0, 255 - 42)) << i;
  }
  EXPECT_FALSE(HasFirmware(talk)) << "it has not been started again yet";
  talk.Machine.TakeLatch(false);
  EXPECT_THAT(VersionOf(talk), ElementsAre(1, 1, 1, 0x20));
}

TEST(Download, ALatchThatDropsWithoutOneChangesNothing) {
  Talk talk;
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(3))));
  DropLatch(talk);
  EXPECT_THAT(VersionOf(talk), ElementsAre(2, 0x90, 1, 0x20));
  EXPECT_EQ(talk.Machine.StateText(), "dealing card 1 of 52");
}

TEST(Download, BrokenOffBehindAnyFrameNothingBootsAndASecondOneDoes) {
  const std::vector<Bytes> frames = SmallDownload();
  for (std::size_t sent = 1; sent < frames.size(); ++sent) {
    Talk talk;
    EXPECT_EQ(Send(talk, {frames.begin(), frames.begin() + static_cast<std::ptrdiff_t>(sent)}), 0);
    DropLatch(talk);
    EXPECT_THAT(VersionOf(talk), ElementsAre(2, 0x90, 0, 0)) << sent;
    EXPECT_EQ(talk.Machine.StateText(), "without firmware") << sent;
    DropLatch(talk);
    EXPECT_FALSE(HasFirmware(talk)) << sent;
    EXPECT_EQ(Send(talk, frames), 0) << sent;
    DropLatch(talk);
    EXPECT_THAT(VersionOf(talk), ElementsAre(1, 1, 1, 0x20)) << sent;
  }
}

TEST(Download, AnyBlockLeftOutNothingBoots) {
  for (std::size_t out = 1; out < SmallDownload().size(); ++out) {
    std::vector<Bytes> frames = SmallDownload();
    frames.erase(frames.begin() + static_cast<std::ptrdiff_t>(out));
    EXPECT_FALSE(Boots(frames)) << out;
  }
  EXPECT_TRUE(Boots(SmallDownload()));
}

TEST(Download, AStartErasesWhatAnEarlierOneHasWritten) {
  const std::vector<Bytes> frames = SmallDownload();
  Talk talk;
  EXPECT_EQ(Send(talk, frames), 0);
  EXPECT_EQ(Send(talk, {kStartFrame}), 0);
  DropLatch(talk);
  EXPECT_FALSE(HasFirmware(talk));
}

TEST(Download, WhileItIsLoadedItAnswersAsOneWithoutFirmwareAndDealsNoMore) {
  Talk talk;
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(3))));
  talk.Status();
  EXPECT_EQ(Send(talk, {kStartFrame}), 0);
  EXPECT_EQ(talk.Machine.StateText(), "being loaded");
  EXPECT_FALSE(talk.Machine.Busy());
  EXPECT_FALSE(HasFirmware(talk));
  EXPECT_EQ(talk.Ask({50}).size(), 136U);
  EXPECT_EQ(talk.Ask({35}).size(), 8U);
  for (const std::uint8_t code : Bytes{17, 18, 25, 30, 43, 44, 51}) {
    EXPECT_TRUE(talk.Ask({code, 1}).empty()) << int{code};
  }
}

TEST(Download, APowerCycleBootsWhatIsThereToo) {
  for (const bool whole : {false, true}) {
    std::vector<Bytes> frames = SmallDownload();
    if (!whole) frames.pop_back();
    Talk talk;
    EXPECT_EQ(Send(talk, frames), 0);
    talk.Machine.PowerOff();
    talk.Machine.PowerOn();
    EXPECT_EQ(HasFirmware(talk), whole);
  }
}

TEST(Download, TheBootedVersionDecidesWhatTheMachineKnows) {
  struct Known {
    std::uint8_t Minor;
    bool Speeds, Climate, Label, Small, Video;
  };
  for (const Known& row :
       {Known{0x19, false, false, false, false, false},
        Known{0x23, true, false, false, false, false}, Known{0x66, true, true, true, true, false},
        Known{0x80, true, true, true, true, true}}) {
    Talk talk;
    EXPECT_EQ(Send(talk, DownloadOf(CodeOfVersion(2, row.Minor), Bytes(300, 2))), 0);
    DropLatch(talk);
    EXPECT_EQ(!talk.Ask({27, 0}).empty(), row.Speeds) << int{row.Minor};
    EXPECT_EQ(!talk.Ask({27, 2}).empty(), row.Climate) << int{row.Minor};
    EXPECT_EQ(!talk.Ask({27, 4}).empty(), row.Label) << int{row.Minor};
    EXPECT_EQ(!talk.Ask({17, 10}).empty(), row.Small) << int{row.Minor};
    EXPECT_EQ(!talk.Ask({17, 14}).empty(), row.Video) << int{row.Minor};
    EXPECT_EQ(talk.Ask({10, 0, 0, 0x17, 60, 80}).empty(), !row.Video) << int{row.Minor};
  }
}

TEST(Download, ItsMachineDealsAsBefore) {
  Talk talk;
  EXPECT_EQ(Send(talk, SmallDownload()), 0);
  DropLatch(talk);
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_TRUE(LiesAs(talk.Machine, board));
}

TEST(Download, TheBootCodeIsTheOptionsOneAndThatOfANewMachineWithoutIt) {
  for (const auto& [major, minor, booted] :
       {std::tuple{2, 0x01, Bytes{1, 1, 2, 0x01}}, std::tuple{0, 0, Bytes{1, 1, 1, 0x20}}}) {
    Options options = Talk::Fast();
    options.BootMajor = static_cast<std::uint8_t>(major);
    options.BootMinor = static_cast<std::uint8_t>(minor);
    Talk talk(options);
    EXPECT_EQ(Send(talk, SmallDownload()), 0);
    DropLatch(talk);
    EXPECT_EQ(VersionOf(talk), booted);
  }
}

// 25h, ten words 0101h and half of one: B2Fh. What stands behind the end belongs to nobody.
TEST(Download, AnOddPieceEndsWithHalfAWord) {
  EXPECT_THAT(Head(CodeImage(Bytes(21, 1))), ElementsAre(0, 0x25, 0, 0, 0, 0, 0x0B, 0x2F));
  std::vector<Bytes> frames = DownloadOf(Bytes(21, 1), Bytes(301, 2));
  EXPECT_TRUE(Boots(frames));
  frames.back().at(8 + 37) = 0xEE;
  EXPECT_TRUE(Boots(frames));
  frames.back().at(8 + 36) = 0xEE;
  EXPECT_FALSE(Boots(frames));
}

TEST(Download, AHeaderThatIsOffByOneDoesNotBoot) {
  const std::size_t code = SmallDownload().size() - 1;
  for (const std::size_t byte : {1U, 0U, 4U, 5U, 6U, 7U}) {  // length and sum
    std::vector<Bytes> frames = SmallDownload();
    ++frames[code].at(8 + byte);
    EXPECT_FALSE(Boots(frames)) << byte;
  }
  for (const std::size_t byte : {3U, 2U, 4U, 5U, 6U, 7U}) {
    std::vector<Bytes> frames = SmallDownload();
    --frames[code - 1].at(8 + byte);
    EXPECT_FALSE(Boots(frames)) << byte;
  }
}

TEST(Download, NeitherErasedNorZeroedFlashBoots) {
  EXPECT_FALSE(Boots({kStartFrame}));
  const Bytes zeros(128);
  EXPECT_FALSE(Boots({kStartFrame, BlockFrame(zeros, 0, 2), BlockFrame(zeros, 0)}));
}

TEST(Download, ThePieceThatFillsAllItsBlocksBoots) {
  const Bytes code = CodeOfVersion(2, 0x91, 65519);
  const std::vector<Bytes> frames = DownloadOf(code, Bytes(54981, 3));
  EXPECT_EQ(frames[511][2], 1) << "the last block of the code is 511";
  EXPECT_EQ(frames[511][3], 255);
  Talk talk;
  EXPECT_EQ(Send(talk, frames), 0);
  DropLatch(talk);
  EXPECT_THAT(VersionOf(talk), ElementsAre(2, 0x91, 1, 0x20));
}

TEST(Download, WithoutAStartNoBlockIsTaken) {
  const Bytes block = SmallDownload().back();
  Talk talk;
  EXPECT_THAT(talk.Ask(block), ElementsAre(42, 1, 0, 0, 0, 0, 0, 255 - 43));
  DropLatch(talk);
  EXPECT_THAT(VersionOf(talk), ElementsAre(2, 0x90, 1, 0x20));
  EXPECT_EQ(Send(talk, SmallDownload()), 0);
  DropLatch(talk);
  EXPECT_EQ(Send(talk, {block}), 1) << "it is over";
}

TEST(Download, ABlockThatIsNotThereIsRefused) {
  Talk talk;
  EXPECT_EQ(Send(talk, {kStartFrame}), 0);
  Bytes frame = BlockFrame(Bytes(128), 0, 3);
  frame[3] = 0xFF;
  EXPECT_EQ(Send(talk, {frame}), 0) << "3FF";
  frame[2] = 4;
  frame[3] = 0;
  EXPECT_EQ(Send(talk, {frame}), 1) << "400";
}

TEST(Download, AFrameThatCanBeNoneIsNotAnswered) {
  Talk talk;
  EXPECT_TRUE(talk.Ask({41, 94}).empty());
  EXPECT_TRUE(HasFirmware(talk));
  EXPECT_EQ(Send(talk, {kStartFrame}), 0);
  Bytes frame = BlockFrame(Bytes(256), 1);
  frame[1] = 99;
  EXPECT_TRUE(talk.Ask(frame).empty());
}

TEST(Download, AnAnswerThatIsLostDoesNoHarm) {
  for (int lost = 1; lost <= 5; ++lost) {
    Talk talk;
    talk.Machine.Faults().AtExchange(2 * lost - 1, LinkFault::LoseReply());
    for (const Bytes& frame : SmallDownload()) {
      if (talk.Ask(frame).empty()) {
        EXPECT_EQ(talk.Ask(frame).at(1), 0);
      }
    }
    DropLatch(talk);
    EXPECT_TRUE(HasFirmware(talk)) << lost;
  }
}

TEST(Download, AStartThatIsRefusedLeavesTheFirmware) {
  Talk talk = Planned({{FlashFault::kStart, 5}});
  EXPECT_THAT(talk.Ask(kStartFrame), ElementsAre(41, 5, 0, 0, 0, 0, 0, 255 - 46));
  EXPECT_EQ(Send(talk, {SmallDownload()[1]}), 1);
  DropLatch(talk);
  EXPECT_THAT(VersionOf(talk), ElementsAre(2, 0x90, 1, 0x20));
  EXPECT_EQ(Send(talk, SmallDownload()), 0) << "it happens once";
}

TEST(Download, ABlockAtFaultIsNotStored) {
  for (const std::uint8_t status : Bytes{1, 2, 3}) {
    for (const int block : {0x201, 0x202, 0x200, 0}) {
      Talk talk = Planned({{block, status}});
      for (const Bytes& frame : SmallDownload()) {
        const bool planned = frame[0] == 170 && 256 * frame[2] + frame[3] == block;
        EXPECT_EQ(talk.Ask(frame).at(1), planned ? status : 0) << block;
      }
      DropLatch(talk);
      EXPECT_FALSE(HasFirmware(talk)) << block << " " << int{status};
    }
  }
}

TEST(Download, AnotherStatusIsOnlySaid) {
  for (const std::uint8_t status : Bytes{4, 255}) {
    Talk talk = Planned({{0x202, status}, {0, status}});
    EXPECT_EQ(Send(talk, SmallDownload()), status);
    DropLatch(talk);
    EXPECT_TRUE(HasFirmware(talk)) << int{status};
  }
}

TEST(Download, APlannedStatusHappensOnceEach) {
  Talk talk = Planned({{0x201, 3}, {0x201, 2}});
  const std::vector<Bytes> frames = SmallDownload();
  EXPECT_EQ(Send(talk, {frames[0], frames[1]}), 3);
  EXPECT_EQ(Send(talk, {frames[1]}), 2);
  EXPECT_EQ(Send(talk, {frames.begin() + 1, frames.end()}), 0);
  DropLatch(talk);
  EXPECT_TRUE(HasFirmware(talk));
}

}  // namespace
}  // namespace morvane::simulator
