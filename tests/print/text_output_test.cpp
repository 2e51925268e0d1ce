#include "print/text_output.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "print/paper_boards.h"
#include "support/fakes.h"
#include "support/file_size_limit.h"

namespace morvane::print {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

bool GoOn() { return true; }

/// The text of board `n` alone, without header and date.
std::string TextOf(const Board& board, int n, PrintOptions options = {}) {
  BoardSet set;
  set.At(n) = board;
  options.From = options.To = n;
  return HandsText(set, options, GoOn).value_or("ended");
}

const std::string kNoHeader = " \r\nSession:                Date:            \r\n";
const std::string kEnd = "=========================================\r\n";

const std::string kVoidHands =
    " \r\n"
    "BD:  7        S-AKQJT98765      Dlr: S\r\n"
    "              H-                Vul: Both\r\n"
    "              D-K2\r\n"
    "              C-4\r\n"
    "S-                     S-\r\n"
    "H-8765                 H-AKQ432\r\n"
    "D-8765                 D-A43\r\n"
    "C-98765                C-AK32\r\n"
    "              S-432\r\n"
    "              H-JT9\r\n"
    "              D-QJT9\r\n"
    "              C-QJT\r\n"
    " \r\n";

TEST(TextOutput, ABoardWithVoidsAndATenCardSuitIsWrittenByteForByte) {
  EXPECT_EQ(TextOf(test::VoidBoard(7), 7), kNoHeader + kVoidHands +
                                               "<-Makeable contracts->\r\n"
                                               "     C   D   H   S  NT\r\n"
                                               "     =   =   =   =  ==\r\n"
                                               " N   -   -   -   4   -   \r\n"
                                               " S   -   -   -   3   -   \r\n"
                                               " E   2   -   3   -   1   \r\n"
                                               " W   -   7   -   -   -   \r\n" +
                                               kEnd);
}

TEST(TextOutput, WithoutAnalysisThereAreNoContractsAtAll) {
  PrintOptions options;
  options.Analysis = false;
  EXPECT_EQ(TextOf(test::VoidBoard(7), 7, options), kNoHeader + kVoidHands + kEnd);
}

TEST(TextOutput, AnIncompleteBoardWithoutResultIsWrittenByteForByte) {
  // Board 12 is dealt by West, North and South vulnerable.
  EXPECT_EQ(TextOf(test::BoardOfHands(12, {"A.K..", "...2", "", "..T9."}), 12),
            kNoHeader +
                " \r\n"
                "BD: 12        S-A               Dlr: W\r\n"
                "              H-K               Vul: N-S\r\n"
                "              D-\r\n"
                "              C-\r\n"
                "S-                     S-\r\n"
                "H-                     H-\r\n"
                "D-T9                   D-\r\n"
                "C-                     C-2\r\n"
                "              S-\r\n"
                "              H-\r\n"
                "              D-\r\n"
                "              C-\r\n"
                " \r\n" +
                kEnd);
}

TEST(TextOutput, ABoardAboveAHundredIsWrittenByteForByte) {
  // Its number is 11 more than seven cycles of sixteen: South deals, none vulnerable.
  EXPECT_EQ(TextOf(test::RoundBoard(123), 123), kNoHeader +
                                                    " \r\n"
                                                    "BD:123        S-AT62            Dlr: S\r\n"
                                                    "              H-J73             Vul: None\r\n"
                                                    "              D-Q84\r\n"
                                                    "              C-K95\r\n"
                                                    "S-J73                  S-K95\r\n"
                                                    "H-Q84                  H-AT62\r\n"
                                                    "D-K95                  D-J73\r\n"
                                                    "C-AT62                 C-Q84\r\n"
                                                    "              S-Q84\r\n"
                                                    "              H-K95\r\n"
                                                    "              D-AT62\r\n"
                                                    "              C-J73\r\n"
                                                    " \r\n" +
                                                    kEnd);
}

TEST(TextOutput, NumbersTakeThreePlaces) {
  EXPECT_THAT(TextOf(Board{}, 7), HasSubstr("\r\nBD:  7        S-"));
  EXPECT_THAT(TextOf(Board{}, 9), HasSubstr("\r\nBD:  9        S-"));
  EXPECT_THAT(TextOf(Board{}, 10), HasSubstr("\r\nBD: 10        S-"));
  EXPECT_THAT(TextOf(Board{}, 99), HasSubstr("\r\nBD: 99        S-"));
  EXPECT_THAT(TextOf(Board{}, 100), HasSubstr("\r\nBD:100        S-"));
  EXPECT_THAT(TextOf(Board{}, 640), HasSubstr("\r\nBD:640        S-"));
}

TEST(TextOutput, DealerAndVulnerabilityAreThoseOfTheNumber) {
  Board board;
  board.Dealer = kNorth;
  board.Vul = 1;
  board.Number = 1;
  const std::string text = TextOf(board, 6);  // East deals, East and West vulnerable
  EXPECT_THAT(text, HasSubstr("Dlr: E\r\n"));
  EXPECT_THAT(text, HasSubstr("Vul: E-W\r\n"));
}

TEST(TextOutput, TheLongestSuitsOfAllCountriesAreWhole) {
  PrintOptions options;
  options.National = 6;
  options.TenAsNumber = true;
  const std::string text = TextOf(test::SuitBoard(2), 2, options);
  // 16 + 15 characters and a blank; 17 and six blanks.
  EXPECT_THAT(text, HasSubstr("BD:  2        S-EKDKn1098765432 Dlr: E\r\n"));
  EXPECT_THAT(text, HasSubstr("\r\nC-EKDKn1098765432      C-\r\n"));
}

TEST(TextOutput, RanksAreInTheLettersOfEachCountry) {
  const std::array<std::string, 7> letters{"AKQJT", "ARDVX", "1RDVX", "AKDBZ",
                                           "AHVBT", "EKDBT", "EKDKnT"};
  for (std::size_t national = 0; national < letters.size(); ++national) {
    PrintOptions options;
    options.National = static_cast<int>(national);
    const std::string& top = letters[national];
    // East holds all hearts.
    EXPECT_THAT(TextOf(test::SuitBoard(2), 2, options),
                HasSubstr("\r\nH-                     H-" + top + "98765432\r\n"));
    options.TenAsNumber = true;
    const std::string court = top.substr(0, top.size() - 1);
    EXPECT_THAT(TextOf(test::SuitBoard(2), 2, options),
                HasSubstr("\r\nH-                     H-" + court + "1098765432\r\n"));
  }
}

TEST(TextOutput, HeaderAndDateStandBeforeTheFirstBoardOnly) {
  BoardSet set;
  set.EventDate = "2026.11.22";
  PrintOptions options;
  options.Header = "Autumn Pairs Cup";
  options.From = 2;
  options.To = 3;
  const std::string text = HandsText(set, options, GoOn).value_or("");
  const std::string header = " \r\nSession: Autumn Pairs C Date: 2026.11.22 \r\n";
  EXPECT_TRUE(text.starts_with(header + " \r\nBD:  2 "));
  EXPECT_EQ(text.find("Session", header.size()), std::string::npos);
  EXPECT_THAT(text, HasSubstr(kEnd + " \r\nBD:  3 "));
}

TEST(TextOutput, ALongDateIsCut) {
  BoardSet set;
  set.EventDate = "22 November 2026";
  EXPECT_THAT(HandsText(set, {}, GoOn).value_or(""), HasSubstr(" Date: 22 November\r\n \r\n"));
}

TEST(TextOutput, CharactersAreCountedAndNotBytes) {
  BoardSet set;
  PrintOptions options;
  options.Header = "Pok\u00e1l m\u011bsta Brna";  // "e" with caron is not in Windows-1252: UTF-8
  EXPECT_THAT(HandsText(set, options, GoOn).value_or(""),
              HasSubstr("Session: Pok\u00e1l m\u011bsta Br Date: "));
  options.Header = "K\u00f6ln";
  EXPECT_THAT(HandsText(set, options, GoOn).value_or(""),
              HasSubstr("Session: K\xF6ln           Date: "));
}

TEST(TextOutput, ALineEndInTheHeaderEndsNoLine) {
  BoardSet set;
  set.EventDate = "a\nb";
  PrintOptions options;
  options.Header = "one\r\ntwo";
  EXPECT_THAT(HandsText(set, options, GoOn).value_or(""),
              HasSubstr(" \r\nSession: one  two       Date: a b        \r\n"));
}

TEST(TextOutput, EachBoardIsToldAndMayBeTheLast) {
  const BoardSet set;
  PrintOptions options;
  options.To = 5;
  int done = 0;
  EXPECT_TRUE(HandsText(set, options, [&done] { return ++done > 0; }));
  EXPECT_EQ(done, 5);
  done = 0;
  EXPECT_FALSE(HandsText(set, options, [&done] { return ++done < 2; }));
  EXPECT_EQ(done, 2);
}

TEST(CutOrFilledText, IsAsLongAsAsked) {
  const std::string thirtyTwo = "12345678901234567890123456789012";
  EXPECT_EQ(CutOrFilled("", 3), "   ");
  EXPECT_EQ(CutOrFilled(thirtyTwo.substr(0, 31), 32), thirtyTwo.substr(0, 31) + " ");
  EXPECT_EQ(CutOrFilled(thirtyTwo, 32), thirtyTwo);
  EXPECT_EQ(CutOrFilled(thirtyTwo + "3", 32), thirtyTwo);
  EXPECT_EQ(CutOrFilled(thirtyTwo.substr(0, 22), 23), thirtyTwo.substr(0, 22) + " ");
  EXPECT_EQ(CutOrFilled(thirtyTwo.substr(0, 24), 23), thirtyTwo.substr(0, 23));
  EXPECT_EQ(CutOrFilled("\u2660\u00e4", 1), "\u2660");
  EXPECT_EQ(CutOrFilled("\u2660\u00e4", 3), "\u2660\u00e4 ");
}

struct TextDesk : test::TestDesk {
  TextDesk() {
    test::FillSet(Prog.Set, 1, 3);
    Options.From = Options.To = 2;
    Options.Header = "Autumn";
  }
  bool PrintTo(const std::string& path) {
    Ui.Files = {path};
    return PrintToTextFile(Prog, Options, GoOn);
  }
  PrintOptions Options;
  const std::string Path = Folder / "hands.txt";
};

TEST(PrintToTextFile, WritesTheHandsIntoTheFileAskedFor) {
  TextDesk desk;
  desk.Store.Set(kInitDirectory, "/boards/");
  EXPECT_TRUE(desk.PrintTo(desk.Path));
  EXPECT_EQ(test::Content(desk.Path), HandsText(desk.Prog.Set, desk.Options, GoOn));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("   Header: Autumn"));
  EXPECT_THAT(desk.LogLines(), ElementsAre("   Header: Autumn", "   Print hands to: " + desk.Path));
  ASSERT_EQ(desk.Ui.FileRequests.size(), 1U);
  const FileRequest& asked = desk.Ui.FileRequests.front();
  EXPECT_EQ(asked.Title, "Print to the Text File");
  EXPECT_EQ(asked.Filter, "txt (*.txt)|*.txt");
  EXPECT_EQ(asked.Directory, "/boards/");
  EXPECT_TRUE(asked.Saving);
}

TEST(PrintToTextFile, ANameWithoutExtensionStays) {
  TextDesk desk;
  EXPECT_TRUE(desk.PrintTo(desk.Folder / "hands"));
  EXPECT_TRUE(std::filesystem::exists(desk.Folder / "hands"));
}

TEST(PrintToTextFile, CancellingEndsItWithoutAMessage) {
  TextDesk desk;
  EXPECT_FALSE(PrintToTextFile(desk.Prog, desk.Options, GoOn));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.LogLines(), ElementsAre("   Header: Autumn"));
}

TEST(PrintToTextFile, WhatWasEndedLeavesNoFile) {
  TextDesk desk;
  desk.Ui.Files = {desk.Path};
  EXPECT_FALSE(PrintToTextFile(desk.Prog, desk.Options, [] { return false; }));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(desk.Path));
}

TEST(PrintToTextFile, AFileThatCannotBeWrittenIsTold) {
  TextDesk desk;
  EXPECT_FALSE(desk.PrintTo(desk.Folder / "none/hands.txt"));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{"      Error: 2 during printing - No such file or "
                                            "directory      \r\n      Print aborted! "
                                            "     ",
                                            16, "Printing Error"}));
}

#ifndef _WIN32  // no limit for files, no device that is full
TEST(PrintToTextFile, AFullDiskIsToldAndLeavesTheOldFile) {
  TextDesk desk;
  test::WriteContent(desk.Path, "old");
  desk.Options.From = 1;
  desk.Options.To = 3;
  {
    const test::FileSizeLimit limit(1000);  // three boards have more, the log less
    EXPECT_FALSE(desk.PrintTo(desk.Path));
  }
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_THAT(desk.Ui.Boxes.front().Text, HasSubstr("Error: 27 during printing - File too large"));
  EXPECT_EQ(test::Content(desk.Path), "old");
}
#endif

}  // namespace
}  // namespace morvane::print
