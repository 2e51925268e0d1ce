// What a machine with `store=` still knows when its program is started again.

#include <gmock/gmock.h>

#include "platform/files.h"
#include "simulator/download_frames.h"
#include "support/fakes.h"

namespace morvane::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

const Bytes kEraseRecord{44, 93, 0, 192, 0, 0, 0};

class MemoryKept : public testing::Test {
 protected:
  test::TempFolder folder;
  std::string path = folder / "machine.txt";

  [[nodiscard]] Options WithStore() const {
    Options options = Talk::Fast();
    options.Store = path;
    return options;
  }
  [[nodiscard]] std::string Text() const {
    std::string text;
    EXPECT_FALSE(ReadFile(path, text));
    return text;
  }
  static void WriteRecord(Talk& talk) {
    Bytes frame{173, 92, 0, 192, 0, 0, 0, 0, 0x04, 0xD2, 0, 0x2F, 31, 12, 0x07, 0xE8};
    EXPECT_EQ(talk.Ask(kEraseRecord).at(1), 0);
    frame.resize(136);
    EXPECT_EQ(talk.Ask(frame).at(1), 0);
  }
};

TEST_F(MemoryKept, TheRecordWithItsBitFive) {
  {
    Talk talk(WithStore());
    WriteRecord(talk);
  }
  Options options = WithStore();
  options.Serial = 9;
  Talk again(options);
  EXPECT_EQ(again.Ask({18, 1, 0}), (Bytes{18, 1, 0x04, 0xD2, 0, 0x2F, 0, 0xE7}));
  EXPECT_EQ(again.Ask({18, 2, 0}), (Bytes{18, 2, 31, 12, 0x07, 0xE8, 0, 0xD1}));
}

TEST_F(MemoryKept, ARecordThatWasOnlyErased) {
  {
    Talk talk(WithStore());
    EXPECT_EQ(talk.Ask(kEraseRecord).at(1), 0);
  }
  Talk again(WithStore());
  EXPECT_EQ(again.Ask({18, 1, 0}).at(2), 255);
  WriteRecord(again);
}

TEST_F(MemoryKept, WithoutAWrittenRecordTheOptionsSayWhatItIs) {
  {
    Talk talk(WithStore());
    talk.Write(ToWire({19, 1, 11, 12, 13, 14}));
  }
  Options options = WithStore();
  options.Serial = 9;
  options.FirmwareMinor = 0x50;
  Talk again(options);
  EXPECT_EQ(again.Ask({18, 1, 0}).at(3), 9);
  EXPECT_EQ(again.Ask({26}).at(2), 0x50);
}

TEST_F(MemoryKept, BoardsAndStops) {
  {
    Talk talk(WithStore());
    talk.Write(ToWire({52, 0, 0, 0, 0, 41, 99}));
    ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
    EXPECT_EQ(talk.PollToEnd(), 0);
    talk.Machine.CauseFault(34);
    ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
    EXPECT_EQ(talk.PollToEnd(), 34);
  }
  Talk again(WithStore());
  EXPECT_EQ(again.Ask({51, 0, 0}).at(11), 42);
  EXPECT_EQ(again.Ask({51, 0, 1}).at(8 + 4 * 2 + 3), 1);
  EXPECT_EQ(again.Ask({43, 90, 0, 99, 99, 99, 99}).at(1), 0);
  EXPECT_THAT(Text(), EndsWith("\nboards 42\nend\n"));
}

TEST_F(MemoryKept, AStopByHandIsThereAtOnce) {
  Talk talk(WithStore());
  talk.Machine.InsertBoard(1);
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
  talk.Machine.RemoveBoard();
  EXPECT_THAT(Text(), EndsWith("\nstops 58 1\nend\n"));
}

TEST_F(MemoryKept, TheFirmwareThatWasLoaded) {
  {
    Talk talk(WithStore());
    EXPECT_EQ(Send(talk, DownloadOf(CodeOfVersion(2, 0x8F), Bytes(300, 2))), 0);
    DropLatch(talk);
    EXPECT_THAT(Text(), HasSubstr("\nfirmware 2.8F\n"));
  }
  Options options = WithStore();
  options.BootMajor = options.BootMinor = 0;
  Talk again(options);
  EXPECT_THAT(VersionOf(again), ElementsAre(2, 0x8F, 1, 0x20));
  EXPECT_FALSE(again.Ask({18, 1, 0}).empty());
}

TEST_F(MemoryKept, ADownloadThatEndedWithItsProgramLeavesNoFirmware) {
  for (std::size_t sent = 1; sent <= SmallDownload().size(); ++sent) {
    const std::vector<Bytes> frames = SmallDownload();
    {
      Talk talk(WithStore());
      EXPECT_EQ(Send(talk, {frames.begin(), frames.begin() + static_cast<std::ptrdiff_t>(sent)}),
                0);
    }
    Talk again(WithStore());
    EXPECT_THAT(VersionOf(again), ElementsAre(2, 0x90, 0, 0)) << sent;
    EXPECT_TRUE(again.Ask({18, 1, 0}).empty()) << sent;
    DropLatch(again);
    EXPECT_FALSE(HasFirmware(again)) << sent;
    EXPECT_EQ(Send(again, frames), 0);
    DropLatch(again);
    EXPECT_TRUE(HasFirmware(again)) << sent;
  }
}

TEST_F(MemoryKept, AnExchangeThatChangesNothingWritesNothing) {
  Talk talk(WithStore());
  talk.Status();
  EXPECT_EQ(talk.Ask({43, 90, 0, 99, 99, 99, 99}).at(1), 0);
  std::string bytes;
  EXPECT_TRUE(ReadFile(path, bytes));
}

}  // namespace
}  // namespace morvane::simulator
