#include "program/log.h"

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "platform/file_lock.h"
#include "platform/files.h"
#include "program/log_record.h"
#include "support/append_count.h"
#include "support/fakes.h"

namespace morvane {
namespace {

using test::TestDesk;
using ::testing::ElementsAre;

TEST(Log, IsAMonthlyFileWithoutLeadingZero) {
  TestDesk desk;
  EXPECT_EQ(desk.Prog.Log.Path(), JoinPath(desk.Prog.Paths.Data, "Log_2026_3.txt"));
}

TEST(Log, EveryLineEndsWithCrLfAndLinesAdd) {
  TestDesk desk;
  desk.Prog.Log.WriteLine("---");
  desk.Prog.Log.WriteTime(" Edit: ");
  EXPECT_EQ(test::Content(desk.Prog.Log.Path()), "---\r\n Edit: 3:04:05 PM\r\n");
}

TEST(Log, ALineIsAddedUnderTheFoldersLock) {
  TestDesk desk;
  desk.Prog.Log.WriteLine("before");
  auto held = FileLock::Try(JoinPath(desk.Prog.Paths.Data, "morvane.lock"));
  ASSERT_TRUE(held);
  std::vector<std::string> whileHeld;
  desk.Ui.OnWaiting = [&](const std::string& what) {
    if (what.empty()) return;
    whileHeld = desk.LogLines();
    held.reset();
  };
  desk.Prog.Log.WriteLine("behind");
  EXPECT_THAT(whileHeld, ElementsAre("before"));
  EXPECT_THAT(desk.LogLines(), ElementsAre("before", "behind"));
  EXPECT_THAT(desk.Ui.Waits, ElementsAre("Waiting for another program: log and history", ""));
}

TEST(Log, AFolderThatCannotBeEnteredLeavesItOff) {
  TestDesk desk;
  Log log(desk.Ui, desk.Clock, desk.Prog.Locks);
  RuntimeError error;
  EXPECT_FALSE(log.Start(desk.Folder / "none", error));
  EXPECT_EQ(error.Number, ENOENT);
  log.WriteLine("lost");
  EXPECT_TRUE(desk.Ui.Boxes.empty());
}

TEST(Log, APlainFileInPlaceOfTheFolderLeavesItOff) {
  TestDesk desk;
  test::WriteContent(desk.Folder / "plain", "x");
  Log log(desk.Ui, desk.Clock, desk.Prog.Locks);
  RuntimeError error;
  EXPECT_FALSE(log.Start(desk.Folder / "plain", error));
  EXPECT_EQ(error.Number, ENOTDIR);
  EXPECT_EQ(error.Description, "Not a directory");
  EXPECT_FALSE(log.On());
}

TEST(Log, ATextWithLineEndsStaysOneLineSoThatItCannotForgeARecord) {
  TestDesk desk;
  const std::string record = "   007 : AT62.J73.Q84.K95 ";
  for (const char* lineEnd : {"\r\n", "\n", "\r"}) {
    desk.Prog.Log.WriteLine("  Load: /events/evening" + (lineEnd + record) + lineEnd);
  }
  EXPECT_EQ(test::Content(desk.Prog.Log.Path()), "  Load: /events/evening  " + record + "  \r\n" +
                                                     "  Load: /events/evening " + record + " \r\n" +
                                                     "  Load: /events/evening " + record + " \r\n");
}

#ifndef _WIN32  // no count of what is opened
TEST(Log, LinesThatBelongTogetherAreOneAppend) {
  TestDesk desk;
  desk.Prog.Log.WriteLine("---");
  test::AppendCount appends(desk.Prog.Log.Path());
  desk.Prog.Log.Lines(std::vector<std::string>{" one", "two\r\n   three", ""});
  EXPECT_EQ(appends.Get(), 1);
  EXPECT_EQ(test::Content(desk.Prog.Log.Path()), "---\r\n one\r\ntwo     three\r\n\r\n");
  desk.Prog.Log.WriteLine("four");
  desk.Prog.Log.WriteLine("five");
  EXPECT_EQ(appends.Get(), 2);
}

TEST(Log, NoLinesAreNoAppend) {
  TestDesk desk;
  desk.Prog.Log.WriteLine("---");
  test::AppendCount appends(desk.Prog.Log.Path());
  desk.Prog.Log.Lines({});
  desk.Prog.Log.Boards(desk.Prog.Set, 2, 1, true);
  EXPECT_EQ(appends.Get(), 0);
}

TEST(Log, LinesThatCannotBeWrittenAreOneFailure) {
  TestDesk desk;
  Log log(desk.Ui, desk.Clock, desk.Prog.Locks);
  RuntimeError error;
  ASSERT_TRUE(log.Start("/proc/self", error));
  log.Lines(std::vector<std::string>{"one", "two"});
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_FALSE(log.On());
}

TEST(Log, TheFirstFailureToWriteTellsTheOperatorAndTurnsItOff) {
  TestDesk desk;
  Log log(desk.Ui, desk.Clock, desk.Prog.Locks);
  RuntimeError error;
  ASSERT_TRUE(log.Start("/proc/self", error));  // a folder that no one can write into
  log.WriteLine("one");
  log.WriteLine("two");
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Log Write Error");
  EXPECT_EQ(desk.Ui.Boxes[0].Flags, kOkCritical);
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "Error: 2, No such file or directory\r\nFile Name: /proc/self/Log_2026_3.txt");
  EXPECT_FALSE(log.On());
}
#endif

TEST(Log, AMessageIsSeenWithTextFlagsAndCaptionAndThenLeavesOneLine) {
  TestDesk desk;
  std::vector<std::string> before = {"nothing was seen"};
  desk.Ui.OnBox = [&] { before = desk.LogLines(); };
  desk.Prog.ShowMessage(desk.Prog.Texts.Msg013, kOkCritical, "Load Error");
  EXPECT_TRUE(before.empty());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(test::FakeUi::Box{
                                 "      File format error     \r\n      File is empty      "
                                 "\r\n\r\n      Load operation aborted!      ",
                                 16, "Load Error"}));
  EXPECT_THAT(
      desk.LogLines(),
      ElementsAre("    Load Error: File format error: File is empty :  : Load operation aborted!"));
}

TEST(Log, AQuestionLeavesNone) {
  TestDesk desk;
  desk.Ui.Answers = {kNo};
  EXPECT_EQ(desk.Prog.Ask(desk.Prog.Texts.Msg062, kYesNoCancelExclamation, "Exit"), kNo);
  EXPECT_TRUE(desk.LogLines().empty());
}

TEST(BoardRecord, HasTheFixedColumns) {
  TestDesk desk;
  test::FillSet(desk.Prog.Set, 7, 7);
  desk.Prog.Set.At(7) = test::RoundBoard(7);
  desk.Prog.Log.Boards(desk.Prog.Set, 7, 7, false);
  // Card c goes to hand (c - 1) mod 4: North has A 9 5 of spades ..., counted out by hand.
  const std::vector<std::string> lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0],
            "   007 : AT62.J73.Q84.K95 K95.AT62.J73.Q84 Q84.K95.AT62.J73 J73.Q84.K95.AT62 ");
  EXPECT_EQ(lines[0].size(), 77U);
}

#ifndef _WIN32  // there nobody tells who opens a file
TEST(BoardRecord, RecordsOfASetAndTheirHeadingAreOneAppend) {
  TestDesk desk;
  test::FillSet(desk.Prog.Set, 1, 640);
  desk.Prog.Log.WriteLine("---");
  test::AppendCount appends(desk.Prog.Log.Path());
  desk.Prog.Log.Boards(desk.Prog.Set, 1, 640, true, "  Generate: 1,640 : 0,0,0 : 0,0,0");
  EXPECT_EQ(appends.Get(), 1);
  const std::vector<std::string> lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 2U + 640U);
  EXPECT_EQ(lines[1], "  Generate: 1,640 : 0,0,0 : 0,0,0");
  EXPECT_EQ(lines[2].substr(0, 9), "   001 : ");
  EXPECT_EQ(lines[641].substr(0, 9), "   640 : ");
}
#endif

TEST(BoardRecord, TheLongFormCarriesTheDealsIdentity) {
  Board board = test::SuitBoard(1);
  board.DealNumber[0] = 0xAD;
  board.DealNumber[11] = 0x01;
  board.DealCounter = {0, 0, 1, 2};
  EXPECT_EQ(FormatBoardForLog(board, true),
            "AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432 "
            " AD0000000000000000000001  00000102");
}

TEST(BoardRecord, AnIncompleteBoardIsShorter) {
  EXPECT_EQ(FormatBoardForLog(Board{}, false), "... ... ... ... ");
}

}  // namespace
}  // namespace morvane
