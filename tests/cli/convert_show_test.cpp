#include <filesystem>

#include "cli/cli_desk.h"

namespace morvane::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct FileDesk : CliDesk {
  explicit FileDesk(bool yes = false) : CliDesk(yes) { test::WriteContent(In, SuitDeals(3, 4)); }
  ExitStatus Convert(bool import = false) {
    ConvertOptions request;
    request.Import = import;
    request.In = {In};
    request.Out = Out;
    return Run(request);
  }
  ExitStatus Show(std::optional<int> board = std::nullopt) {
    ShowOptions request;
    request.In = In;
    request.Board = board;
    return Run(request);
  }
};

constexpr const char* kConverted =
    "% Morvane ver 1.0 with Sort 1.0  with Poker 1.5 \r\n"
    "[Event \"\"]\r\n[Site \"\"]\r\n[Date \"\"]\r\n[Board \"3\"]\r\n[Dealer \"S\"]\r\n"
    "[Vulnerable \"EW\"]\r\n[Deal \"S:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. "
    "...AKQJT98765432\"]\r\n\r\n"
    "[Event \"#\"]\r\n[Site \"#\"]\r\n[Date \"#\"]\r\n[Board \"4\"]\r\n[Dealer \"W\"]\r\n"
    "[Vulnerable \"All\"]\r\n[Deal \"W:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. "
    "...AKQJT98765432\"]\r\n\r\n";

TEST(ConvertCommand, LoadsOneFileAndSavesTheOther) {
  FileDesk desk;
  EXPECT_EQ(desk.Convert(), kDone);
  EXPECT_EQ(test::Content(desk.Out), kConverted);
  EXPECT_EQ(desk.Screen.Output + desk.Screen.Errors, "");
}

TEST(ConvertCommand, LogsBothAndEndsWithoutAQuestion) {
  FileDesk desk;
  ASSERT_EQ(desk.Convert(), kDone);
  const auto lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 4U + 2U + 2U + 3U);
  EXPECT_EQ(lines[4], " File-Load: 3:04:05 PM");
  EXPECT_EQ(lines[5], "  Load: " + desk.In);
  EXPECT_EQ(lines[8], " File-Save: 3:04:05: PM");
  EXPECT_EQ(lines[9], "  Save: " + desk.Out);
  EXPECT_EQ(lines[10], " Exit: 3:04:05 PM");
}

TEST(ConvertCommand, AMissingFileFailsAndWritesNothing) {
  FileDesk desk;
  std::filesystem::remove(desk.In);
  EXPECT_EQ(desk.Convert(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Load Error: " + desk.In +
                                    ": Error: 2 during load operation - No such file or directory\n"
                                    "Load operation aborted!\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Out));
}

TEST(ConvertCommand, AnUnknownFormatFails) {
  FileDesk desk;
  ConvertOptions request;
  request.In = {desk.In};
  request.Out = desk.Folder / "out.doc";
  EXPECT_EQ(desk.Run(request), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Save Error: " + request.Out + ": Unknow file format: DOC\nSave operation aborted!\n");
  EXPECT_FALSE(std::filesystem::exists(request.Out));
}

TEST(ConvertCommand, AQuestionWithoutAnybodyToAnswerSavesNothing) {
  FileDesk desk;
  test::WriteContent(desk.In, "[Board \"1\"]\r\n");
  EXPECT_EQ(desk.Convert(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Save Board Set: " + desk.Out +
                ": Board number: 1 is incomplete.\n"
                "Incomplete boards can be saved in PBN format.\n\nDo you want to proceed?\n"
                "There is nobody to ask; --yes would answer Yes.\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Out));
}

TEST(ConvertCommand, AQuestionIsAnsweredAtTheTerminal) {
  for (const bool proceed : {true, false}) {
    FileDesk desk;
    test::WriteContent(desk.In, "[Board \"1\"]\r\n");
    desk.Screen.Person = true;
    desk.Screen.Lines = {proceed ? "y" : "n"};
    EXPECT_EQ(desk.Convert(), proceed ? kDone : kFailed);
    EXPECT_THAT(desk.Screen.Errors, EndsWith("Do you want to proceed?\n[y]es, [n]o? "));
    EXPECT_EQ(std::filesystem::exists(desk.Out), proceed);
  }
}

TEST(ConvertCommand, ImportTakesWhatLoadRefusesAndReports) {
  FileDesk desk;
  std::string loose = SuitDeals(3, 4) + "[Board \"0\"]\r\n";
  loose.replace(loose.find("[Board "), 7, "[Board\r\n");
  test::WriteContent(desk.In, loose);
  EXPECT_EQ(desk.Convert(), kFailed);
  EXPECT_FALSE(std::filesystem::exists(desk.Out));
  desk.Screen.Errors.clear();
  EXPECT_EQ(desk.Convert(true), kPartly);
  EXPECT_EQ(test::Content(desk.Out), kConverted);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_EQ(desk.Screen.Errors, "Import PBN: " + desk.In +
                                    ": Boards imported: 2\n\nBoards passed over: 1\n"
                                    "Line 6: board number \"0\" is not a number from 1 to 640\n");
}

TEST(ConvertCommand, AnImportThatPassesNothingOverIsDone) {
  FileDesk desk;
  EXPECT_EQ(desk.Convert(true), kDone);
  EXPECT_EQ(test::Content(desk.Out), kConverted);
}

TEST(ConvertCommand, ARefusedPbnFilePointsToTheImport) {
  FileDesk desk;
  test::WriteContent(desk.In, SuitDeals(3, 4) + "[Board \"0\"]\r\n");
  EXPECT_EQ(desk.Convert(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, EndsWith("\n--import would take 2 boards of " + desk.In + "\n"));
}

TEST(ConvertCommand, APbnFileOfWhichTheImportTakesNothingDoesNotPointThere) {
  FileDesk desk;
  test::WriteContent(desk.In, "[Board \"0\"]\r\n");
  EXPECT_EQ(desk.Convert(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Load operation aborted!\n"));
}

TEST(ConvertCommand, AFileThatIsNoPbnIsCalledThat) {
  for (const std::string content : {"Dear Sir,\r\n", "\x89PNG\r\n\x1A\n", ""}) {
    FileDesk desk;
    test::WriteContent(desk.In, content);
    EXPECT_EQ(desk.Convert(), kFailed);
    EXPECT_THAT(desk.Screen.Errors, EndsWith("aborted!\n" + desk.In + " is no PBN file.\n"));
  }
}

TEST(ConvertCommand, AHistoryThatIsOffIsNeitherAskedNorWritten) {
  FileDesk desk;
  ConvertOptions request;
  request.In = {desk.In};
  request.Out = desk.Out;
  request.History = false;
  EXPECT_EQ(desk.Run(request), kDone);
  EXPECT_FALSE(std::filesystem::exists(desk.Folder / "Morvane_Data/history1.dat"));
  EXPECT_EQ(test::Content(desk.Out), kConverted);
  std::filesystem::create_directories(desk.Folder / "Morvane_Data/history1.dat");
  std::filesystem::remove(desk.Out);
  EXPECT_EQ(desk.Run(request), kDone) << "nothing that was asked for is left out";
  request.History = true;
  std::filesystem::remove(desk.Out);
  EXPECT_EQ(desk.Run(request), kPartly);
}

TEST(ConvertCommand, AnImportWithoutABoardFailsAndWritesNothing) {
  FileDesk desk;
  test::WriteContent(desk.In, "<html></html>");
  EXPECT_EQ(desk.Convert(true), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Import PBN: " + desk.In + ": This is no PBN file\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Out));
}

TEST(ConvertCommand, AnImportOfAMissingFileFails) {
  FileDesk desk;
  std::filesystem::remove(desk.In);
  EXPECT_EQ(desk.Convert(true), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Import PBN: " + desk.In + ": The file cannot be read: No such file or directory\n");
}

TEST(ShowCommand, ShowsEveryBoardWithALineBetweenThem) {
  FileDesk desk;
  EXPECT_EQ(desk.Show(), kDone);
  const std::string& text = desk.Screen.Output;
  EXPECT_THAT(text, StartsWith("Board 3   Dealer: South   Vul: EW\n                  North (10)\n"
                               "                  ♠ -\n                  ♥ -\n"
                               "                  ♦ AKQJT98765432\n"));
  EXPECT_THAT(text, HasSubstr("\n\nBoard 4   Dealer: West   Vul: All\n"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 16 + 1 + 16);
  EXPECT_EQ(desk.Screen.Errors, "");
}

TEST(ShowCommand, MayImport) {
  FileDesk desk;
  test::WriteContent(desk.In, SuitDeals(4, 4) + "[Board \"0\"]\r\n");
  ShowOptions request;
  request.In = desk.In;
  EXPECT_EQ(desk.Run(request), kFailed);
  request.Import = true;
  EXPECT_EQ(desk.Run(request), kPartly);
  EXPECT_THAT(desk.Screen.Output, StartsWith("Board 4   Dealer: West   Vul: All\n"));
}

TEST(ShowCommand, ShowsTheBoardAskedFor) {
  FileDesk desk;
  EXPECT_EQ(desk.Show(4), kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("Board 4   Dealer: West   Vul: All\n"));
  EXPECT_EQ(std::count(desk.Screen.Output.begin(), desk.Screen.Output.end(), '\n'), 16);
}

TEST(ShowCommand, ABoardOutsideTheSetFails) {
  for (const int board : {2, 5, 641, 100'000}) {
    FileDesk desk;
    EXPECT_EQ(desk.Show(board), kFailed);
    EXPECT_EQ(desk.Screen.Errors,
              "Board " + std::to_string(board) + " is not in " + desk.In + ", which has 3 to 4.\n");
    EXPECT_EQ(desk.Screen.Output, "");
  }
}

TEST(ShowCommand, ABoardThatTheFileLeavesOutIsShownAsEmpty) {
  FileDesk desk;
  test::WriteContent(desk.In, SuitDeals(3, 3) + SuitDeals(5, 5));
  EXPECT_EQ(desk.Show(4), kDone);
  EXPECT_EQ(desk.Screen.Output, "Board 4   Dealer: West   Vul: All   (empty)\n");
}

TEST(ShowCommand, AFaultInTheFileIsToldWithItsLine) {
  FileDesk desk;
  test::WriteContent(desk.In, "[Board \"1\"]\r\n[Dealer \"X\"]\r\n");
  EXPECT_EQ(desk.Show(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Load Error: " + desk.In +
                                    ": File format error\nInvalid string \"X\" in line: 2\n\n"
                                    "Load operation aborted!\n--import would take 1 board of " +
                                    desk.In + "\n");
  EXPECT_EQ(desk.Screen.Output, "");
}

}  // namespace
}  // namespace morvane::cli
