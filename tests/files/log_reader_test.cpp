// The log read back with the operator, who is asked which records to take.

#include "files/log_reader.h"

#include <filesystem>

#include "files/load_desk.h"
#include "files/log_records.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A desk at which logs may be loaded, and on which an older set lies.
struct LogDesk : LoadDesk {
  LogDesk() { Prog.ServiceLevel = 1; }

  /// Loads a log of these lines; whether that went well.
  bool LoadLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    test::WriteContent(Path, text);
    return LoadFile(Prog, History, Path);
  }
  const std::string Path = Folder / "Log_2026_2.txt";
};

FakeUi::Box Question(int line) {
  return {"      Found Board Set record at line: " + std::to_string(line) +
              "      \r\n      \r\n      Click YES to process, NO to skip, or Cancel to abort "
              "loading    \r\n",
          67, "Read Log File"};
}

FakeUi::Box SyntaxError(int line) {
  return {"      Syntax error in Log file at line: " + std::to_string(line) +
              "      \r\n      \r\n      Load operation aborted!      \r\n",
          16, "Load Log Error"};
}

FakeUi::Box RuntimeErrorBox(const std::string& number, const std::string& words, int line) {
  return {"      Error: " + number + " in line: " + std::to_string(line) +
              " during loading of the log file.       \r\n      " + words +
              "   \r\n      \r\n      Load operation aborted!      \r\n",
          16, "Load Log Error"};
}

/// Two runs of the program, with boards 1 and 2, then 5 and 6.
const std::vector<std::string> kTwoRuns = {"---Start 2/3/2026 7:00:00 PM",
                                           " File-Load: 7:01:00 PM",
                                           "  Load: /club.pbn",
                                           Record("001"),
                                           Record("002"),
                                           " Exit: 8:00:00 PM",
                                           "---Start 2/4/2026 7:00:00 PM",
                                           " File-Load: 7:01:00 PM",
                                           "  Load: /club.pbn",
                                           Record("005", kRoundHands),
                                           Record("006", kRoundHands),
                                           " Exit: 8:00:00 PM"};

TEST(LogReader, AsksAtTheFirstRecordOfARunAndTakesTheRun) {
  LogDesk desk;
  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(desk.LoadLines(kTwoRuns));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Question(4)));
  const BoardSet& set = desk.Prog.Set;
  EXPECT_EQ(set.FirstBoard, 1);
  EXPECT_EQ(set.LastBoard, 2);
  EXPECT_EQ(set.At(2), test::SuitBoard(2));
  EXPECT_EQ(set.At(5), Board{});  // of a later run
  EXPECT_EQ(set.EventName, "");
  EXPECT_EQ(set.BoardSetFile, desk.Path);
  EXPECT_EQ(set.BoardSetChanged, "0");
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Boards loaded: 2"));
  EXPECT_THAT(desk.LogLines(), ElementsAre("  Load: " + desk.Path, Record("001"), Record("002")));
}

TEST(LogReader, ANoOffersTheNextRun) {
  LogDesk desk;
  desk.Ui.Answers = {kNo, kYes};
  EXPECT_TRUE(desk.LoadLines(kTwoRuns));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Question(4), Question(10)));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 5);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 6);
  EXPECT_EQ(desk.Prog.Set.At(1), Board{});
  EXPECT_EQ(desk.Prog.Set.At(6), test::RoundBoard(6));
}

TEST(LogReader, ANoToEveryRunLoadsAnEmptySet) {
  LogDesk desk;
  desk.Ui.Answers = {kNo, kNo};
  EXPECT_TRUE(desk.LoadLines(kTwoRuns));
  EXPECT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 0);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Boards loaded: 0"));
}

TEST(LogReader, ALogWithoutRecordsLoadsAnEmptySetWithoutAQuestion) {
  LogDesk desk;
  EXPECT_TRUE(desk.LoadLines({"---Start 2/3/2026 7:00:00 PM", " Exit: 8:00:00 PM"}));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_FALSE(desk.Prog.Set.Exists());
}

TEST(LogReader, CancelEndsItWithoutAWordAndWithoutASet) {
  for (const bool afterNo : {false, true}) {
    LogDesk desk;
    if (afterNo) desk.Ui.Answers = {kNo};
    desk.Ui.Answers.push_back(kCancel);
    EXPECT_FALSE(desk.LoadLines(kTwoRuns));
    EXPECT_EQ(desk.Ui.Boxes.back(), Question(afterNo ? 10 : 4));
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Ready"));
    EXPECT_THAT(desk.LogLines(), ElementsAre("  Load: " + desk.Path));
    EXPECT_FALSE(desk.Prog.Set.Exists());
    EXPECT_EQ(desk.Prog.Set.BoardSetFile, "");
  }
}

TEST(LogReader, ARecordBehindOneOfOtherLengthBelongsToTheNextRun) {
  LogDesk desk;
  desk.Ui.Answers = {kNo, kYes};
  EXPECT_TRUE(desk.LoadLines({Record("001"), "   002 : ... ... ... ... ", Record("003")}));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Question(1), Question(3)));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 3);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 3);
}

TEST(LogReader, ASyntaxErrorNamesItsLineAndNothingSurvives) {
  LogDesk desk;
  desk.Ui.Answers = {kYes};
  EXPECT_FALSE(desk.LoadLines({" File-Load: 7:01:00 PM", Record("001"),
                               Record("002",
                                      "AKQJT9876543.... .AKQJT98765432.. ..AKQJT98765432. "
                                      "...AKQJT98765432 ")}));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Question(2), SyntaxError(3)));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Ready"));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre("  Load: " + desk.Path,
                          "    Load Log Error: Syntax error in Log file at line: 3 :  : Load "
                          "operation aborted! : "));
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_EQ(desk.Prog.Set.At(1), Board{});
}

TEST(LogReader, ASyntaxErrorInRecordsThatAreSkippedIsNone) {
  LogDesk desk;
  desk.Ui.Answers = {kNo};
  std::string wrong = Record("002");
  wrong[9] = 'x';
  EXPECT_TRUE(desk.LoadLines({Record("001"), wrong, Record("999")}));
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
}

TEST(LogReader, ANumberAbove640IsARunTimeError) {
  LogDesk desk;
  desk.Ui.Answers = {kYes};
  EXPECT_FALSE(desk.LoadLines({Record("640"), Record("641")}));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(Question(1), RuntimeErrorBox("34", "Numerical result out of range", 2)));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre("  Load: " + desk.Path,
                          "    Load Log Error: Error: 34 in line: 2 during loading of the log "
                          "file.  : Numerical result out of range    :  : Load operation aborted! "
                          ": "));
  EXPECT_FALSE(desk.Prog.Set.Exists());
}

TEST(LogReader, AMissingFileIsARunTimeErrorBeforeTheFirstLine) {
  LogDesk desk;
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, desk.Folder / "none.txt"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(RuntimeErrorBox("2", "No such file or directory", 0)));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Ready"));
  EXPECT_FALSE(desk.Prog.Set.Exists());
}

TEST(LogReader, ItsErrorsAreNotThoseOfTheOtherFormats) {
  // Those show the first one's words for ever; the log shows its own each time.
  LogDesk desk;
  std::filesystem::create_directory(desk.Folder / "x.txt");
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, desk.Folder / "none.txt"));
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, desk.Folder / "x.txt"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(RuntimeErrorBox("2", "No such file or directory", 0),
                                         RuntimeErrorBox("21", "Is a directory", 0)));
}

TEST(LogReader, WithoutAFileNameItEndsWithoutAWord) {
  LogDesk desk;
  FileNotes notes;
  EXPECT_FALSE(ReadLogFile(desk.Prog, *FindFormat("TXT"), "", notes));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, IsEmpty());
}

TEST(LogReader, AMarkThatAnEditorLeftInFrontHidesNoRecord) {
  LogDesk desk;
  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(desk.LoadLines({"\xEF\xBB\xBF" + Record("001")}));
  EXPECT_EQ(desk.Prog.Set.LastBoard, 1);
}

TEST(LogReader, ColumnsAreCountedInCharactersInEitherEncoding) {
  for (const std::string accent : {"\xE9", "\xC3\xA9", "\xE2\x82\xAC"}) {
    // In a hand: 77 characters are a record, 76 are none.
    LogDesk whole;
    whole.Ui.Answers = {kYes};
    std::string line = Record("001");
    EXPECT_FALSE(whole.LoadLines({line.replace(10, 1, accent)})) << accent;
    EXPECT_THAT(whole.Ui.Boxes, ElementsAre(Question(1), SyntaxError(1)));
    LogDesk shorter;
    EXPECT_TRUE(shorter.LoadLines({line.erase(9, 1)})) << accent;
    EXPECT_THAT(shorter.Ui.Boxes, IsEmpty());
    EXPECT_FALSE(shorter.Prog.Set.Exists());
    // Behind a hand, where nothing is read.
    LogDesk between;
    between.Ui.Answers = {kYes};
    line = Record("001");
    EXPECT_TRUE(between.LoadLines({line.replace(25, 1, accent)})) << accent;
    EXPECT_EQ(between.Prog.Set.At(1), test::SuitBoard(1));
  }
}

TEST(LogReader, ReadsTheLogThatIsBeingWritten) {
  LogDesk desk;
  test::FillSet(desk.Prog.Set, 3, 8);
  const BoardSet before = desk.Prog.Set;
  desk.Prog.Log.Boards(before, 3, 5, false);
  desk.Prog.Log.Boards(before, 6, 8, true);
  desk.Prog.Log.WriteTime(" Exit: ");
  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(LoadFile(desk.Prog, desk.History, desk.Prog.Log.Path()));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 3);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 8);
  EXPECT_TRUE(desk.Prog.Set.Boards == before.Boards);
  // Six records, the exit, the load, and the boards loaded.
  EXPECT_EQ(desk.LogLines().size(), 14U);
}

}  // namespace
}  // namespace morvane::files
