#include "files/format_frame.h"

#include <filesystem>
#include <new>

#include "files/file_boxes.h"
#include "files/load_desk.h"

namespace morvane::files {
namespace {

using test::TestDesk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct FrameDesk : TestDesk {
  FrameDesk() { test::WriteContent(Path, "bytes"); }
  bool Read(const std::optional<FormatFault>& fault) {
    return ReadThrough(Prog, Path, [&](const std::string& bytes) {
      EXPECT_EQ(bytes, "bytes");
      EXPECT_TRUE(Ui.HourglassNow);
      return fault;
    });
  }
  const std::string Path = Folder / "set.bin";
};

TEST(ReadThrough, TheHourglassShowsOverTheFileAndNoLonger) {
  FrameDesk desk;
  EXPECT_TRUE(desk.Read(std::nullopt));
  EXPECT_EQ(desk.Ui.Hourglasses, 1);
  EXPECT_FALSE(desk.Ui.HourglassNow);
}

TEST(ReadThrough, AFaultIsToldWithItsLine) {
  FrameDesk desk;
  EXPECT_FALSE(desk.Read(FormatFault{desk.Prog.Texts.Msg015, 7, FormatFault::Counting::kLines}));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Load operation aborted"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadError(Told("Invalid character: ***  in line: 7"))));
}

TEST(ReadThrough, AFaultOfRecordsKeepsTheirWord) {
  FrameDesk desk;
  EXPECT_FALSE(desk.Read(
      FormatFault{Fill(desk.Prog.Texts.Msg015, "***", "4 "), 3, FormatFault::Counting::kRecords}));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadError(Told("Invalid character: 4   in record: 3"))));
}

TEST(ReadThrough, AFaultWithoutATextFailsInSilence) {
  FrameDesk desk;
  EXPECT_FALSE(desk.Read(FormatFault{"", 4}));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, IsEmpty());
  EXPECT_THAT(desk.LogLines(), IsEmpty());
}

TEST(ReadThrough, BytesThatAreRightAreTakenWithoutAWord) {
  FrameDesk desk;
  EXPECT_TRUE(desk.Read(std::nullopt));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, IsEmpty());
}

TEST(ReadThrough, AFileThatCannotBeReadIsNotParsed) {
  FrameDesk desk;
  EXPECT_FALSE(ReadThrough(desk.Prog, desk.Folder / "none", [](const std::string&) {
    ADD_FAILURE() << "parsed";
    return std::nullopt;
  }));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadFailure("2", "No such file or directory")));
}

TEST(ReadThrough, MemoryThatDoesNotDoForTheFileIsToldAsAFailedLoad) {
  FrameDesk desk;
  EXPECT_FALSE(ReadThrough(
      desk.Prog, desk.Path,
      [](const std::string&) -> std::optional<FormatFault> { throw std::bad_alloc(); }));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadFailure("12", "Cannot allocate memory")));
  EXPECT_FALSE(desk.Ui.HourglassNow);
}

/// A desk on which `WriteThrough` makes a BRI file of a set that starts later, about which it asks
/// twice.
struct WriteDesk : FrameDesk {
  WriteDesk() { test::FillSet(Prog.Set, 2, 3); }
  bool Write(const std::string& incomplete = "") {
    return WriteThrough(Prog, *FindFormat("BRI"), Path, incomplete, [this] {
      ++Composed;
      EXPECT_EQ(Ui.Boxes.size(), 2U);
      EXPECT_TRUE(Ui.HourglassNow);
      return std::string("new");
    });
  }
  int Composed = 0;
};

TEST(WriteThrough, ANoToAnyQuestionEndsTheSaveInSilenceBeforeTheFileIsMade) {
  for (const std::size_t yesBefore : {0U, 1U}) {
    WriteDesk desk;
    desk.Ui.Answers.assign(yesBefore, kYes);
    desk.Ui.Answers.push_back(kNo);
    EXPECT_FALSE(desk.Write());
    EXPECT_EQ(desk.Ui.Boxes.size(), yesBefore + 1);
    EXPECT_EQ(desk.Composed, 0);
    EXPECT_EQ(desk.Ui.Hourglasses, 0);
    EXPECT_EQ(test::Content(desk.Path), "bytes");
    EXPECT_THAT(desk.Ui.Statuses, IsEmpty());
    EXPECT_THAT(desk.LogLines(), IsEmpty()) << "questions leave no line";
  }
}

TEST(WriteThrough, WhatTheFormatCannotHoldIsToldBeforeTheFileIsMade) {
  WriteDesk desk;
  EXPECT_FALSE(desk.Write("2, 3"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Refusal("Boards number: 2, 3 are", "BRI")));
  EXPECT_EQ(desk.Composed, 0);
  EXPECT_EQ(desk.Ui.Hourglasses, 0);
  EXPECT_EQ(test::Content(desk.Path), "bytes");
}

TEST(WriteThrough, TheFileIsMadeBehindTheQuestionsUnderTheHourglass) {
  WriteDesk desk;
  desk.Ui.Default = kYes;
  EXPECT_TRUE(desk.Write());
  EXPECT_EQ(desk.Composed, 1);
  EXPECT_EQ(desk.Ui.Hourglasses, 1);
  EXPECT_FALSE(desk.Ui.HourglassNow);
  EXPECT_EQ(test::Content(desk.Path), "new");
}

TEST(WriteThrough, AFailureIsToldBehindTheHourglass) {
  WriteDesk desk;
  desk.Ui.Default = kYes;
  std::filesystem::remove(desk.Path);
  std::filesystem::create_directory(desk.Path);
  EXPECT_FALSE(desk.Write());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(EventWarning("BRI"), NumbersWarning("BRI"),
                                         SaveFailure("21", "Is a directory")));
}

}  // namespace
}  // namespace morvane::files
