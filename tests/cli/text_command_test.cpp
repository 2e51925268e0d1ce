#include "cli/text_command.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "cli/cli_desk.h"
#include "cli/request.h"

namespace morvane::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

/// Boards 7 and 8 of the event "Club".
struct TextDesk : CliDesk {
  explicit TextDesk(bool yes = false, bool overwrite = false)
      : CliDesk(yes, AtSpeed(0), overwrite) {
    test::WriteContent(In, "[Event \"Club\"]\r\n[Date \"2026.03.03\"]\r\n" + SuitDeals(7, 8));
    What.In = In;
    What.Out = Txt;
    What.NoAnalysis = true;
  }
  ExitStatus Write() { return Run(What); }
  [[nodiscard]] std::string Text() const { return test::Content(Txt); }
  const std::string Txt = Folder / "out.txt";
  PaperRequest What;
};

// The dealer of board 8 is West, who has the spades; North has the hearts.
constexpr const char* kBoard8 =
    " \r\n"
    "BD:  8        S-                Dlr: W\r\n"
    "              H-AKQJT98765432   Vul: None\r\n"
    "              D-\r\n"
    "              C-\r\n"
    "S-AKQJT98765432        S-\r\n"
    "H-                     H-\r\n"
    "D-                     D-AKQJT98765432\r\n"
    "C-                     C-\r\n"
    "              S-\r\n"
    "              H-\r\n"
    "              D-\r\n"
    "              C-AKQJT98765432\r\n"
    " \r\n"
    "=========================================\r\n";

TEST(TextCommand, WritesTheHandsOfABoard) {
  TextDesk desk;
  desk.What.From = 8;
  EXPECT_EQ(desk.Write(), kDone);
  EXPECT_EQ(desk.Text(),
            " \r\nSession: Club           Date: 2026.03.03 \r\n" + std::string(kBoard8));
  EXPECT_EQ(desk.Screen.Output + desk.Screen.Errors, "");
}

TEST(TextCommand, WritesTheWholeSetAndLogsAsTheWindowDoes) {
  TextDesk desk;
  EXPECT_EQ(desk.Write(), kDone);
  EXPECT_THAT(desk.Text(), HasSubstr("\r\nBD:  7        S-"));
  EXPECT_THAT(desk.Text(), EndsWith(kBoard8));
  auto lines = desk.LogLines();
  lines.pop_back();
  lines.erase(lines.begin(), lines.end() - 3);
  EXPECT_THAT(lines, ElementsAre("  Print parameters: 11101,  0,2,0,7,8,1", "   Header: Club",
                                 "   Print hands to: " + desk.Txt));
}

TEST(TextCommand, OptionsWinOverTheSettings) {
  TextDesk desk;
  desk.Store.Set(kPrintTen, "1");
  desk.Store.Set(kNational, "1");
  desk.What.Ten = "10";
  desk.What.National = "4";
  desk.What.Header = "Finale";
  desk.What.To = 7;
  ASSERT_EQ(desk.Write(), kDone);
  EXPECT_THAT(desk.Text(), StartsWith(" \r\nSession: Finale         Date: "));
  EXPECT_THAT(desk.Text(), HasSubstr("-AHVB1098765432"));
  EXPECT_THAT(desk.Text(), Not(HasSubstr("BD:  8")));
}

TEST(TextCommand, WhatNoOptionSaysTheSettingsSay) {
  TextDesk desk;
  desk.Store.Set(kPrintTen, "2");
  desk.Store.Set(kNational, "1");
  ASSERT_EQ(desk.Write(), kDone);
  EXPECT_THAT(desk.Text(), HasSubstr("-ARDV1098765432"));
}

TEST(TextCommand, ARangeThatIsNotOfTheSetIsRefused) {
  TextDesk desk;
  desk.What.To = 9;
  EXPECT_EQ(desk.Write(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, StartsWith("Printing Parameter Error: " + desk.In +
                                             ": \"To Board\" value is incorrect\n"));
  EXPECT_FALSE(std::filesystem::exists(desk.Txt));
}

TEST(TextCommand, BoardsWithoutAnalysisAreAskedAbout) {
  TextDesk desk;
  desk.What.NoAnalysis = false;
  EXPECT_EQ(desk.Write(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Do you want to print anyway?\n"));
  EXPECT_FALSE(std::filesystem::exists(desk.Txt));
  TextDesk agreed(true);
  agreed.What.NoAnalysis = false;
  EXPECT_EQ(agreed.Write(), kDone);
  EXPECT_THAT(agreed.Text(), Not(HasSubstr("<-Makeable contracts->")));
}

TEST(TextCommand, AnalysisIsWrittenUnlessItIsLeftOut) {
  for (const bool leaveOut : {false, true}) {
    TextDesk desk;
    test::WriteContent(desk.In,
                       SuitDeals(7, 7) + "[DoubleDummyTricks \"0d00007000070000700d\"]\r\n");
    desk.What.NoAnalysis = leaveOut;
    ASSERT_EQ(desk.Write(), kDone);
    EXPECT_EQ(desk.Text().find("<-Makeable contracts->") == std::string::npos, leaveOut);
  }
}

TEST(TextCommand, AFileThatExistsIsReplacedOnlyWhenThatIsAsked) {
  TextDesk desk(true);
  test::WriteContent(desk.Txt, "mine");
  EXPECT_EQ(desk.Write(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Print to the Text File: " + desk.Txt +
                                    " exists already. Replace it?\nThere is nobody to ask; "
                                    "--overwrite would replace it.\nNot replaced.\n");
  EXPECT_EQ(desk.Text(), "mine");
  TextDesk forced(false, true);
  test::WriteContent(forced.Txt, "mine");
  EXPECT_EQ(forced.Write(), kDone);
  EXPECT_THAT(forced.Text(), EndsWith(kBoard8));
}

TEST(TextCommand, TheSetItselfIsNeverReplaced) {
  TextDesk desk(true, true);
  const std::string set = test::Content(desk.In);
  std::filesystem::create_hard_link(desk.In, desk.Txt);
  EXPECT_EQ(desk.Write(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, desk.Txt + " is the set itself.\n");
  EXPECT_EQ(test::Content(desk.In), set);
}

#ifndef _WIN32  // no limit for files, no device that is full
TEST(TextCommand, AFullDiskIsToldOf) {
  TextDesk desk;
  desk.What.Out = "/dev/full";
  EXPECT_EQ(desk.Write(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Printing Error: /dev/full: Error: 28 during printing - No space left on device\n"
            "Print aborted!\n");
}
#endif

TEST(TextCommand, CountsTheBoardsAndWritesNothingWhenBrokenOff) {
  TextDesk desk;
  desk.Screen.Progress = true;
  desk.Loop.OnPump = [&desk] {
    if (desk.Screen.Output.ends_with(": 2")) desk.Loop.Quit();
  };
  EXPECT_EQ(desk.Write(), kFailed);
  EXPECT_EQ(desk.Screen.Output, "\rBoards printed: 1\rBoards printed: 2\n");
  EXPECT_EQ(desk.Screen.Errors, "Broken off before " + desk.Txt + "\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Txt));
}

TEST(TextCommand, TheLooksOfPagesDoNotBelongToIt) {
  for (const char* name :
       {"per-page", "score-cards", "no-hcp", "no-colour", "stats", "paper", "ns-offset"}) {
    CommandWords given;
    given.Words = {"text", "/a.pbn", "/a.txt"};
    given.Options = {{name, "1"}};
    EXPECT_EQ(TakeRequest(given).Error, "--" + std::string(name) + " does not belong to text");
  }
}

}  // namespace
}  // namespace morvane::cli
