#include "files/format_frame.h"

#include <filesystem>

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
  TestDesk desk;
  EXPECT_FALSE(ReadThrough(desk.Prog, desk.Folder / "none", [](const std::string&) {
    ADD_FAILURE() << "parsed";
    return std::nullopt;
  }));
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
}

/// A desk on which `WriteThrough` makes a file of what cannot be the whole set.
struct WriteDesk : FrameDesk {
  WriteDesk() {
    test::FillSet(Prog.Set, 2, 3);
    Ui.Default = kNo;
  }
  bool Write(const char* extension, const std::string& incomplete = "") {
    return WriteThrough(Prog, *FindFormat(extension), Path, incomplete, [this] {
      ++Composed;
      EXPECT_TRUE(Ui.HourglassNow);
      return std::string("new");
    });
  }
  int Composed = 0;
};

TEST(WriteThrough, ANoToAnyQuestionEndsTheSaveInSilenceBeforeTheFileIsTouched) {
  struct Case {
    const char* Extension;
    std::string Incomplete;
    int YesBefore;
  };
  // Each question of each format in its turn: incomplete boards, events, numbers.
  for (const auto& [extension, incomplete, yesBefore] :
       {Case{"BRI", "", 0}, Case{"BRI", "", 1}, Case{"DGE", "", 0}, Case{"DGE", "", 1},
        Case{"ALL", "", 0}, Case{"ALL", "", 1}, Case{"DUP", "", 0}, Case{"CSV", "", 0},
        Case{"BRE", "2", 0}, Case{"BRE", "2", 1}, Case{"BRE", "", 0}, Case{"PBN", "2", 0}}) {
    WriteDesk desk;
    desk.Ui.Answers.assign(static_cast<std::size_t>(yesBefore), kYes);
    EXPECT_FALSE(desk.Write(extension, incomplete)) << extension << yesBefore;
    EXPECT_EQ(desk.Ui.Boxes.size(), static_cast<std::size_t>(yesBefore) + 1) << extension;
    EXPECT_EQ(desk.Composed, 0);
    EXPECT_EQ(test::Content(desk.Path), "bytes");
    EXPECT_THAT(desk.LogLines(), IsEmpty()) << "questions leave no line";
  }
}

TEST(WriteThrough, IncompleteBoardsAreAnErrorBeforeAnyQuestion) {
  for (const char* extension : {"BRI", "DGE", "DUP", "ALL", "CSV"}) {
    WriteDesk desk;
    EXPECT_FALSE(desk.Write(extension, "2, 3"));
    ASSERT_EQ(desk.Ui.Boxes.size(), 1U) << extension;
    EXPECT_EQ(desk.Ui.Boxes[0].Flags, 16);
    EXPECT_EQ(desk.Ui.Boxes[0].Title, "Save Error");
    EXPECT_EQ(test::Content(desk.Path), "bytes");
  }
}

TEST(WriteThrough, AfterAYesToEveryQuestionTheFileIsWritten) {
  struct Case {
    const char* Extension;
    std::string Incomplete;
    std::vector<std::string> Titles;
  };
  const std::string loss = "Save Boards Set";
  const std::string incomplete = "Save Board Set";
  for (const auto& [extension, list, titles] :
       {Case{"BRI", "", {loss, loss}}, Case{"DGE", "", {loss, loss}}, Case{"ALL", "", {loss, loss}},
        Case{"DUP", "", {loss}}, Case{"CSV", "", {loss}}, Case{"BRE", "2", {incomplete, loss}},
        Case{"BRE", "", {loss}}, Case{"PBN", "2", {incomplete}}, Case{"PBN", "", {}}}) {
    WriteDesk desk;
    desk.Ui.Default = kYes;
    EXPECT_TRUE(desk.Write(extension, list)) << extension;
    std::vector<std::string> asked;
    for (const auto& box : desk.Ui.Boxes) asked.push_back(box.Title);
    EXPECT_EQ(asked, titles) << extension;
    EXPECT_FALSE(desk.Ui.HourglassNow);
    EXPECT_EQ(test::Content(desk.Path), "new");
  }
}

TEST(WriteThrough, WithoutTheSettingsNothingIsAsked) {
  for (const char* extension : {"BRI", "DGE", "ALL", "DUP", "CSV", "BRE", "PBN"}) {
    WriteDesk desk;
    for (const SettingKey& key : {kSaveEvent, kSaveNumbers, kSaveIncomplete}) {
      desk.Store.Set(key, "0");
    }
    const bool holdsIncomplete = FindFormat(extension)->IncompleteBoards;
    EXPECT_TRUE(desk.Write(extension, holdsIncomplete ? "2" : "")) << extension;
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty()) << extension;
  }
}

TEST(WriteThrough, AFileThatCannotBeWrittenIsTold) {
  WriteDesk desk;
  const std::string path = desk.Folder / "none/set.pbn";
  EXPECT_FALSE(
      WriteThrough(desk.Prog, *FindFormat("PBN"), path, "", [] { return std::string("new"); }));
  EXPECT_EQ(desk.Ui.Boxes.at(0).Title, "Save Error");
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace morvane::files
