#include "cli/print_command.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "cli/cli_desk.h"
#include "cli/registry.h"
#include "cli/request.h"
#include "platform/files.h"

namespace morvane::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

/// Boards 3 to 30 of the event "Club", without results.
struct PrintDesk : CliDesk {
  explicit PrintDesk(bool yes = false, bool overwrite = false)
      : CliDesk(yes, AtSpeed(0), overwrite) {
    test::WriteContent(In, "[Event \"Club\"]\r\n" + SuitDeals(3, 30));
    What.Common.In = In;
    What.Common.Out = Pdf;
    What.Common.NoAnalysis = true;
  }
  ExitStatus Print() { return Run(What); }
  [[nodiscard]] std::size_t Count(const std::string& text) const {
    std::size_t count = 0;
    for (const auto& page : ThePrinter.Drawn.Pages) count += page.Find(text).size();
    return count;
  }
  /// What stands in the log from the parameters to the end of the run.
  [[nodiscard]] std::vector<std::string> Logged() const {
    auto lines = LogLines();
    lines.pop_back();  // the exit
    const auto from = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
      return line.starts_with("  Print parameters: ");
    });
    return {from, lines.end()};
  }
  const std::string Pdf = Folder / "out.pdf";
  PrintRequest What;
};

std::string ErrorOf(std::vector<GivenOption> options, const std::string& out = "/a.pdf") {
  CommandWords given;
  given.Words = {"print", "/a.pbn", out};
  given.Options = std::move(options);
  return TakeRequest(given).Error;
}

TEST(PrintCommand, MakesAPdfOfTheWholeSetWithTwelveBoardsAPage) {
  PrintDesk desk;
  EXPECT_EQ(desk.Print(), kDone);
  EXPECT_EQ(test::Content(desk.Pdf), "PDF of Club, pages: 3");  // 28 boards
  EXPECT_THAT(desk.ThePrinter.Pdfs,
              ElementsAre(test::FakePrinter::Job{"Club", 1, Paper::kPrinters}));
  EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
  for (const auto& page : desk.ThePrinter.Drawn.Pages) EXPECT_THAT(page.Find("Club"), SizeIs(1));
  EXPECT_EQ(desk.Count("Board: 3"), 1U);
  EXPECT_EQ(desk.Count("Board: 30"), 1U);
  EXPECT_EQ(desk.Screen.Output + desk.Screen.Errors, "");
}

TEST(PrintCommand, LogsWhatTheWindowLogs) {
  PrintDesk desk;
  desk.What.Common.From = 4;
  desk.What.Common.To = 9;
  ASSERT_EQ(desk.Print(), kDone);
  EXPECT_THAT(desk.Logged(), ElementsAre("  Print parameters: 11101,  1,2,0,4,9,1",
                                         "   Header: Club", "   Print hands to: " + desk.Pdf));
}

TEST(PrintCommand, WhatNoOptionSaysTheSettingsSay) {
  PrintDesk desk;
  desk.Store.Set(kPrintPerPage, "4");
  desk.Store.Set(kPrintColor, "0");
  desk.Store.Set(kPrintHcp, "0");
  desk.Store.Set(kPrintStat, "2");
  desk.Store.Set(kPrintTen, "2");
  desk.Store.Set(kNational, "4");
  ASSERT_EQ(desk.Print(), kDone);
  EXPECT_EQ(desk.Logged().front(), "  Print parameters: 22000,  3,2,4,3,30,1");
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages, SizeIs(1 + 2));
  EXPECT_EQ(desk.Count("HCP"), 0U);
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages.front().Find("Hands Statistics: "), SizeIs(1));
}

TEST(PrintCommand, OptionsWinOverTheSettings) {
  PrintDesk desk;
  desk.Store.Set(kPrintPerPage, "4");
  desk.Store.Set(kPrintTen, "2");
  desk.Store.Set(kNational, "4");
  desk.What.PerPage = "10";
  desk.What.NoHcp = true;
  desk.What.NoColour = true;
  desk.What.Stats = true;
  desk.What.Common.Ten = "T";
  desk.What.Common.National = "6";
  desk.What.Common.Header = "Finale";
  ASSERT_EQ(desk.Print(), kDone);
  EXPECT_THAT(desk.Logged(), ElementsAre("  Print parameters: 13000,  0,2,6,3,30,1",
                                         "   Header: Finale", "   Print hands to: " + desk.Pdf));
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages, SizeIs(3 + 1));
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages.back().Find("Hands Statistics: "), SizeIs(1));
}

TEST(PrintCommand, EachLayoutIsTakenByItsNumberOfBoards) {
  const std::pair<const char*, std::vector<std::size_t>> wanted[]{
      {"10", {10, 10, 8}}, {"12", {12, 12, 4}}, {"15", {15, 13}}, {"18", {18, 10}}};
  for (const auto& [boards, heads] : wanted) {
    PrintDesk desk;
    desk.What.PerPage = boards;
    ASSERT_EQ(desk.Print(), kDone);
    std::vector<std::size_t> drawn;
    for (const auto& page : desk.ThePrinter.Drawn.Pages) {
      drawn.push_back(static_cast<std::size_t>(
          std::count_if(page.Texts.begin(), page.Texts.end(),
                        [](const auto& text) { return text.Text.starts_with("Board: "); })));
    }
    EXPECT_EQ(drawn, heads) << boards;
  }
}

TEST(PrintCommand, StatisticsStandWhereTheSettingsHaveThem) {
  PrintDesk desk;
  desk.Store.Set(kPrintStat, "2");
  desk.What.Stats = true;
  ASSERT_EQ(desk.Print(), kDone);
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages.front().Find("Hands Statistics: "), SizeIs(1));
}

TEST(PrintCommand, ThePaperIsTheOneAskedFor) {
  for (const auto& [name, sheet] :
       {std::pair("a4", Paper::kA4), std::pair("letter", Paper::kLetter)}) {
    PrintDesk desk;
    desk.What.Paper = name;
    ASSERT_EQ(desk.Print(), kDone);
    EXPECT_EQ(desk.ThePrinter.Pdfs.at(0).Sheet, sheet);
  }
}

TEST(PrintCommand, MakesScoreCardsTwoAPageWithPairNumbers) {
  PrintDesk desk;
  desk.What.ScoreCards = true;
  desk.What.NsOffset = "99";
  desk.What.Common.From = 4;
  desk.What.Common.To = 7;
  ASSERT_EQ(desk.Print(), kDone);
  EXPECT_THAT(desk.Logged(), ElementsAre("  Print parameters: 11101,  1,3,0,4,7,1",
                                         "   Print score cards to: " + desk.Pdf));
  EXPECT_EQ(test::Content(desk.Pdf), "PDF of Club, pages: 3");  // 4; 5 and 6; 7
}

TEST(PrintCommand, TheModeIsTheCommandsNotTheSettings) {
  for (const char* mode : {"1", "2"}) {
    PrintDesk desk;
    desk.Store.Set(kPrintMode, mode);
    ASSERT_EQ(desk.Print(), kDone);
    EXPECT_EQ(desk.Count("Board: 3"), 1U);
  }
}

TEST(PrintCommand, BoardsOutsideTheSetAreRefusedInTheWindowsWords) {
  const std::string wanted =
      "This value must be in range of <First Board - Last Board>\n\nPlease correct this value.\n";
  PrintDesk desk;
  const std::string start = "Printing Parameter Error: " + desk.In + ": ";
  desk.What.Common.From = 2;
  EXPECT_EQ(desk.Print(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, start + "\"From Board\" value is incorrect\n" + wanted);
  desk.Screen.Errors.clear();
  desk.What.Common.From = 3;
  desk.What.Common.To = 31;
  EXPECT_EQ(desk.Print(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, start + "\"To Board\" value is incorrect\n" + wanted);
  desk.Screen.Errors.clear();
  desk.What.Common.From = 9;
  desk.What.Common.To = 8;
  EXPECT_EQ(desk.Print(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            start +
                "\"To Board\" value must be equal or higher than the \"From Board\" value\n\n"
                "Please correct these values.\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Pdf));
}

TEST(PrintCommand, BoardsWithoutAnalysisAreNotPrintedWithNobodyToAsk) {
  PrintDesk desk;
  desk.What.Common.NoAnalysis = false;
  EXPECT_EQ(desk.Print(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Printing: " + desk.In +
                ": Printing analysis is selected but some boards have not been analyzed\n"
                "Do you want to print anyway?\n"
                "There is nobody to ask; --yes would answer Yes.\n"
                "Not printed; --no-analysis prints without the makeable contracts.\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Pdf));
}

TEST(PrintCommand, BoardsWithoutAnalysisArePrintedOnAYes) {
  PrintDesk withYes(true);
  withYes.What.Common.NoAnalysis = false;
  EXPECT_EQ(withYes.Print(), kDone);
  EXPECT_EQ(withYes.Logged().front(), "  Print parameters: 11111,  1,2,0,3,30,1");
  for (const bool yes : {true, false}) {
    PrintDesk desk;
    desk.What.Common.NoAnalysis = false;
    desk.Screen.Person = true;
    desk.Screen.Lines = {yes ? "y" : "n"};
    EXPECT_EQ(desk.Print(), yes ? kDone : kFailed);
    EXPECT_EQ(std::filesystem::exists(desk.Pdf), yes);
  }
}

TEST(PrintCommand, NothingIsAskedWhereTheSettingsLeaveTheTablesOut) {
  PrintDesk desk;
  desk.What.Common.NoAnalysis = false;
  desk.Store.Set(kPrintAnalyze, "0");
  EXPECT_EQ(desk.Print(), kDone);
  EXPECT_EQ(desk.Screen.Errors, "");
}

TEST(PrintCommand, AFileThatExistsIsReplacedOnlyWhenThatIsAsked) {
  PrintDesk desk(true);
  test::WriteContent(desk.Pdf, "mine");
  EXPECT_EQ(desk.Print(), kFailed) << "--yes replaces no file";
  EXPECT_EQ(desk.Screen.Errors, "Save as PDF: " + desk.Pdf +
                                    " exists already. Replace it?\nThere is nobody to ask; "
                                    "--overwrite would replace it.\nNot replaced.\n");
  EXPECT_EQ(test::Content(desk.Pdf), "mine");
  PrintDesk forced(false, true);
  test::WriteContent(forced.Pdf, "mine");
  EXPECT_EQ(forced.Print(), kDone);
  EXPECT_EQ(test::Content(forced.Pdf), "PDF of Club, pages: 3");
}

TEST(PrintCommand, TheSetItselfIsNeverReplaced) {
  PrintDesk desk(true, true);
  const std::string set = test::Content(desk.In);
  std::filesystem::create_hard_link(desk.In, desk.Pdf);
  EXPECT_EQ(desk.Print(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, desk.Pdf + " is the set itself.\n");
  EXPECT_EQ(test::Content(desk.In), set);
}

TEST(PrintCommand, ANameOfASetIsWrongUsage) {
  for (const char* out : {"/b.pbn", "/b.BRI", "/b.csv"}) {
    EXPECT_EQ(ErrorOf({}, out), AbsolutePath(out) + " is a board set by its name");
  }
  for (const char* out : {"/b", "/b.PDF", "/b.ps", "/dev/stdout"}) EXPECT_EQ(ErrorOf({}, out), "");
}

TEST(PrintCommand, AFolderThatIsNotThereIsToldBeforeTheSetIsLoaded) {
  PrintDesk desk;
  desk.What.Common.Out = desk.Folder / "nowhere/out.pdf";
  EXPECT_EQ(desk.Print(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Printing Error: " + desk.What.Common.Out +
                                    ": Error: 2 during printing - No such file or directory\n"
                                    "Print aborted!\n");
  for (const auto& line : desk.LogLines()) EXPECT_THAT(line, Not(HasSubstr("File-Load")));
}

#ifndef _WIN32  // no limit for files, no device that is full
TEST(PrintCommand, AFullDiskIsToldOf) {
  PrintDesk desk;
  desk.What.Common.Out = "/dev/full";
  EXPECT_EQ(desk.Print(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Printing Error: /dev/full: Error: 28 during printing - No space left on device\n"
            "Print aborted!\n");
}
#endif

TEST(PrintCommand, WithoutFontsThereIsNoPdf) {
  PrintDesk desk;
  desk.ThePrinter.HasFonts = false;
  EXPECT_EQ(desk.Print(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Printing Error: " + desk.Pdf +
                                    ": Error: 2 during printing - There are no fonts\n"
                                    "Print aborted!\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Pdf));
}

TEST(PrintCommand, ASetThatCannotBeLoadedIsNotPrinted) {
  PrintDesk desk;
  std::filesystem::remove(desk.In);
  EXPECT_EQ(desk.Print(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Load Error: " + desk.In + ": Error: 2 "));
  EXPECT_FALSE(std::filesystem::exists(desk.Pdf));
}

TEST(PrintCommand, AnImportThatPassesBoardsOverIsPartlyDone) {
  PrintDesk desk;
  test::WriteContent(desk.In, SuitDeals(3, 4) + "[Board \"0\"]\r\n");
  EXPECT_EQ(desk.Print(), kFailed);
  desk.What.Common.Import = true;
  EXPECT_EQ(desk.Print(), kPartly);
  EXPECT_TRUE(std::filesystem::exists(desk.Pdf));
}

TEST(PrintCommand, CountsTheBoardsAtATerminal) {
  PrintDesk desk;
  desk.Screen.Progress = true;
  desk.What.Common.To = 5;
  EXPECT_EQ(desk.Print(), kDone);
  EXPECT_EQ(desk.Screen.Output, "\rBoards printed: 1\rBoards printed: 2\rBoards printed: 3\n");
}

TEST(PrintCommand, WhatIsBrokenOffIsNotWritten) {
  PrintDesk desk;
  desk.Screen.Progress = true;
  desk.Loop.OnPump = [&desk] {
    if (desk.Screen.Output.ends_with(": 2")) desk.Loop.Quit();
  };
  EXPECT_EQ(desk.Print(), kFailed);
  EXPECT_EQ(desk.Screen.Output, "\rBoards printed: 1\rBoards printed: 2\n");
  EXPECT_EQ(desk.Screen.Errors, "Broken off before " + desk.Pdf + "\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Pdf));
}

TEST(PrintCommand, WhatDoesNotGoTogetherIsWrongUsage) {
  EXPECT_EQ(ErrorOf({{"ns-offset", "5"}}), "--ns-offset needs --score-cards");
  EXPECT_EQ(ErrorOf({{"score-cards", ""}, {"ns-offset", "5"}}), "");
  for (const GivenOption& option :
       {GivenOption{"per-page", "10"}, GivenOption{"stats", ""}, GivenOption{"header", "x"}}) {
    EXPECT_EQ(ErrorOf({{"score-cards", ""}, option}),
              "--" + option.Name + " does not go with --score-cards");
    EXPECT_EQ(ErrorOf({option}), "");
  }
}

TEST(PrintCommand, AValueThatThereIsNotIsWrongUsage) {
  EXPECT_EQ(ErrorOf({{"per-page", "11"}}), "--per-page 11: wanted 10, 12, 15 or 18");
  EXPECT_EQ(ErrorOf({{"ten", "X"}}), "--ten X: wanted T or 10");
  EXPECT_EQ(ErrorOf({{"national", "7"}}), "--national 7: wanted 0, 1, 2, 3, 4, 5 or 6");
  EXPECT_EQ(ErrorOf({{"paper", "a5"}}), "--paper a5: wanted a4 or letter");
  EXPECT_EQ(ErrorOf({{"from", "0"}}), "--from 0: wanted a number above 0");
  EXPECT_EQ(ErrorOf({{"score-cards", ""}, {"ns-offset", "1000"}}),
            "--ns-offset 1000: wanted a number up to 999");
  EXPECT_EQ(ErrorOf({{"header", ""}}), "") << "pages without a header";
}

TEST(PrintCommand, ReadsEachOfItsOptions) {
  const std::vector<std::string> words{"/a.pbn", "/a.pdf"};
  const std::vector<GivenOption> options{
      {"from", "2"},  {"to", "3"},       {"per-page", "15"},  {"no-analysis", ""},
      {"no-hcp", ""}, {"no-colour", ""}, {"stats", ""},       {"header", "H"},
      {"ten", "10"},  {"national", "5"}, {"paper", "letter"}, {"import", ""}};
  OptionReader reader(words, options);
  const PrintRequest request = ReadPrintRequest(reader);
  EXPECT_EQ(reader.Error(), "");
  EXPECT_EQ(request.Common.In, AbsolutePath("/a.pbn"));
  EXPECT_EQ(request.Common.Out, AbsolutePath("/a.pdf"));
  EXPECT_EQ(request.Common.From, 2);
  EXPECT_EQ(request.Common.To, 3);
  EXPECT_EQ(request.PerPage, "15");
  EXPECT_TRUE(request.Common.NoAnalysis && request.NoHcp && request.NoColour && request.Stats);
  EXPECT_FALSE(request.ScoreCards);
  EXPECT_EQ(request.Common.Header, "H");
  EXPECT_EQ(request.Common.Ten, "10");
  EXPECT_EQ(request.Common.National, "5");
  EXPECT_EQ(request.Paper, "letter");
  EXPECT_TRUE(request.Common.Import);
}

}  // namespace
}  // namespace morvane::cli
