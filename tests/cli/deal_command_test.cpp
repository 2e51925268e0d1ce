#include "cli/deal_command.h"

#include "cli/cli_desk.h"
#include "cli/machine_side.h"
#include "support/paper_machine.h"

namespace morvane::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kRight = "N right  E right  S right  W right";
constexpr int kContactMs = 2000;

TEST(VerdictOfPockets, EveryHandInItsPocketIsRight) {
  EXPECT_EQ(VerdictOfPockets(test::SuitBoard(1), test::SuitBoard(9)).Text, kRight);
}

TEST(VerdictOfPockets, ASwappedCardMakesBothItsPocketsWrong) {
  Board pockets = test::SuitBoard(1);
  std::swap(pockets.Cards[1], pockets.Cards[27]);  // North's ace of spades, South's of diamonds
  EXPECT_EQ(VerdictOfPockets(test::SuitBoard(1), pockets).Text,
            "N WRONG  E right  S WRONG  W right");
}

TEST(VerdictOfPockets, ACardTooFewOrTooManyIsWrong) {
  Board pockets = test::SuitBoard(1);
  pockets.Cards[52] = 0;  // West's two of clubs has not fallen
  EXPECT_EQ(VerdictOfPockets(test::SuitBoard(1), pockets).Text,
            "N right  E right  S right  W WRONG");
  pockets.Cards[52] = kEast;
  EXPECT_EQ(VerdictOfPockets(test::SuitBoard(1), pockets).Text,
            "N right  E WRONG  S right  W WRONG");
}

TEST(VerdictOfPockets, EmptyPocketsAreRightForAnEmptyBoardOnly) {
  EXPECT_EQ(VerdictOfPockets(Board{}, Board{}).Text, kRight);
  EXPECT_EQ(VerdictOfPockets(test::SuitBoard(1), Board{}).Text,
            "N WRONG  E WRONG  S WRONG  W WRONG");
}

TEST(VerdictOfPockets, IsRightOnlyWhenAllFourAre) {
  Board pockets = test::SuitBoard(1);
  EXPECT_TRUE(VerdictOfPockets(test::SuitBoard(1), pockets).Right);
  pockets.Cards[52] = 0;
  EXPECT_FALSE(VerdictOfPockets(test::SuitBoard(1), pockets).Right);
}

TEST(EyesOn, NobodyLooksIntoARealMachineOrPressesItsPedal) {
  EXPECT_FALSE(EyesOn(nullptr).Judge);
  EXPECT_FALSE(EyesOn(nullptr).PressPedal);
}

TEST(DealCommand, DealsEveryBoardAndShowsTheTable) {
  DealDesk desk;
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_EQ(desk.Screen.Output,
            "Machine: simulated\n"
            "Board   1  0.0 s  OK\n"
            "Board   2  0.0 s  OK\n"
            "Board   3  0.0 s  OK\n"
            "\n"
            "  Board     Time   Pockets\n"
            "      1    0.0 s   N right  E right  S right  W right\n"
            "      2    0.0 s   N right  E right  S right  W right\n"
            "      3    0.0 s   N right  E right  S right  W right\n"
            "\n"
            "3 of 3 boards right.\n");
  EXPECT_EQ(desk.Screen.Errors, "");
  EXPECT_EQ(desk.Machine.BoardsDealt(), 3);
}

TEST(DealCommand, LogsTheRunAsTheDesktopDoes) {
  DealDesk desk;
  ASSERT_EQ(desk.Deal(), kDone);
  const auto lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 4U + 5U + 6U + 1U);
  EXPECT_EQ(lines[9], " Deal: 3:04:05 PM");
  EXPECT_EQ(lines[10], "  S/N:4711 Dealt:0 Firmware:2.90");
  EXPECT_EQ(lines[11], " Machine: simulated");
  EXPECT_EQ(lines[12], "  001 : 1,0 0,0,0,0 OK");
  EXPECT_EQ(lines[13], "  002 : 1,0 0,0,0,0 OK");
  EXPECT_EQ(lines[14], "  003 : 1,0 0,0,0,0 OK");
  EXPECT_EQ(lines[15], " Exit: 3:04:07 PM");
}

TEST(DealCommand, TheLastBoardLiesInThePockets) {
  DealDesk desk;
  ASSERT_EQ(desk.Deal(), kDone);
  // Board 3 of the file: South the spades, West the hearts, North the diamonds, East the clubs.
  const Board dealt = desk.Machine.DealtBoard();
  EXPECT_EQ(dealt.Cards[1], kSouth);
  EXPECT_EQ(dealt.Cards[26], kWest);
  EXPECT_EQ(dealt.Cards[27], kNorth);
  EXPECT_EQ(dealt.Cards[52], kEast);
  EXPECT_EQ(dealt.Status, Board::kComplete);
}

TEST(DealCommand, ABoardTakesFiftyTwoCardTimes) {
  DealDesk desk(1, 1, false, AtSpeed(1));
  EXPECT_EQ(desk.Deal(), kDone);
  // 52 x 0.28 s = 14.56 s, and the last poll a few milliseconds behind.
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Board   1  14.6 s  OK\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("      1   14.6 s   N right"));
}

TEST(DealCommand, ThreeDigitBoardsKeepTheirColumns) {
  DealDesk desk(99, 100);
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Board  99  0.0 s  OK\nBoard 100  0.0 s  OK\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n     99    0.0 s   N right"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n    100    0.0 s   N right"));
}

TEST(DealCommand, AFileThatCannotBeLoadedStopsItBeforeTheMachine) {
  DealDesk desk;
  desk.What.In = desk.Folder / "missing.pbn";
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Load Error: " + desk.What.In +
                                    ": Error: 2 during load operation - No such file or directory\n"
                                    "Load operation aborted!\n");
  EXPECT_EQ(desk.Machine.BoardsDealt(), 0);
  EXPECT_EQ(desk.Clock.Elapsed().count(), 0);
}

TEST(DealCommand, AnIncompleteBoardStopsIt) {
  DealDesk desk;
  test::WriteContent(desk.In, SuitDeals(1, 1) + "[Board \"2\"]\r\n");
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Dealing Error: Board incomplete - cannot deal this board.\n");
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0 OK"));
}

TEST(DealCommand, FromAndToCutTheRun) {
  DealDesk desk(1, 5);
  desk.What.From = 2;
  desk.What.To = 3;
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  002 : 1,0 0,0,0,0 OK", "  003 : 1,0 0,0,0,0 OK"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n2 of 2 boards right.\n"));
}

TEST(DealCommand, FromAloneGoesOnToTheLastBoard) {
  DealDesk desk(1, 3);
  desk.What.From = 3;
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  003 : 1,0 0,0,0,0 OK"));
}

TEST(DealCommand, ToAloneBeginsWithTheFirstBoard) {
  DealDesk desk(5, 7);
  desk.What.To = 5;
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  005 : 1,0 0,0,0,0 OK"));
}

TEST(DealCommand, TheSettingsRangeDoesNotCutIt) {
  DealDesk desk(1, 3);
  desk.Store.Set(kDealSub, "1");
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_EQ(desk.RunLines().size(), 3U);
}

TEST(DealCommand, AllCopiesOfABoardComeBeforeTheNext) {
  DealDesk desk(1, 2);
  desk.What.Copies = 2;
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0 OK", "  001 : 1,0 0,0,0,0 OK",
                                           "  002 : 1,0 0,0,0,0 OK", "  002 : 1,0 0,0,0,0 OK"));
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("      1    0.0 s   N right  E right  S right  W right\n"
                        "    1/2    0.0 s   N right  E right  S right  W right\n"
                        "      2    0.0 s   N right  E right  S right  W right\n"
                        "    2/2    0.0 s   N right  E right  S right  W right\n"
                        "\n4 of 4 boards right.\n"));
}

TEST(DealCommand, WithoutAutoItWaitsForThePedal) {
  DealDesk desk(1, 2);
  desk.What.Auto = false;
  desk.Screen.Person = true;
  std::string beforePedal;
  desk.Loop.After(kContactMs + 1500, [&] {
    beforePedal = desk.Screen.Output;
    desk.Machine.PressPedal();
  });
  desk.Loop.After(kContactMs + 3000, [&] { desk.Machine.PressPedal(); });
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_EQ(beforePedal,
            "Machine: simulated\nPress Enter to press the machine's pedal for board 1.\n");
  EXPECT_THAT(desk.Screen.Output,
              ::testing::StartsWith("Machine: simulated\n"
                                    "Press Enter to press the machine's pedal for board 1.\n"
                                    "Board   1  0.0 s  OK\n"
                                    "Press Enter to press the machine's pedal for board 2.\n"
                                    "Board   2  0.0 s  OK\n\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n2 of 2 boards right.\n"));
  EXPECT_GE(desk.Clock.Elapsed(), std::chrono::milliseconds(kContactMs + 3000));
}

TEST(DealCommand, EnterPressesTheSimulatedMachinesPedal) {
  DealDesk desk(1, 2);
  desk.What.Auto = false;
  desk.Screen.Person = true;
  for (const int ms : {500, 1500}) {
    desk.Loop.After(kContactMs + ms, [&] { desk.Screen.Lines.emplace_back(); });
  }
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_EQ(desk.Machine.BoardsDealt(), 2);
}

TEST(DealCommand, TheEndOfTheInputEndsTheWaiting) {
  DealDesk desk(1, 2);
  desk.What.Auto = false;
  desk.Screen.Person = true;
  desk.Screen.Ended = true;
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_EQ(desk.Machine.BoardsDealt(), 0);
}

TEST(DealCommand, WithNobodyAtTheSimulatedPedalItIsRefused) {
  DealDesk desk;
  desk.What.Auto = false;
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Nobody is there to press the simulated machine's pedal: use --auto.\n");
}

TEST(DealCommand, ARealMachinesBoardIsWaitedFor) {
  DealDesk desk(1, 1);
  desk.What.Auto = false;
  test::ScriptedBridge bridge(desk.Clock);
  test::PaperMachine paper(bridge);
  desk.Loop.After(kContactMs + 500, [&] { paper.Events = 8; });
  EXPECT_EQ(desk.RunOn(bridge, nullptr, desk.What), kDone);
  EXPECT_THAT(desk.Screen.Output, ::testing::StartsWith("Insert board 1 or press the pedal.\n"));
}

TEST(DealCommand, BoardsOutsideTheSetAreRefusedAndNothingIsDealt) {
  struct Row {
    std::optional<int> From;
    std::optional<int> To;
    const char* Words;
  };
  for (const Row& row : {Row{4, {}, "Board 4 is not in IN, which has 5 to 7.\n"},
                         Row{{}, 99, "Board 99 is not in IN, which has 5 to 7.\n"},
                         Row{7, 5, "--to must not be below --from.\n"}}) {
    DealDesk desk(5, 7);
    desk.What.From = row.From;
    desk.What.To = row.To;
    EXPECT_EQ(desk.Deal(), kFailed);
    EXPECT_EQ(desk.Screen.Errors, Fill(row.Words, "IN", desk.In));
    EXPECT_EQ(desk.Machine.BoardsDealt(), 0);
  }
}

TEST(DealCommand, ACopyIsAskedForByItsBoard) {
  DealDesk desk(7, 8);
  desk.What.Auto = false;
  desk.Screen.Person = true;
  desk.What.Copies = 2;
  for (int press = 1; press <= 4; ++press) {
    desk.Loop.After(kContactMs + 1000 * press, [&] { desk.Machine.PressPedal(); });
  }
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_THAT(
      desk.Screen.Output,
      ::testing::StartsWith(
          "Machine: simulated\n"
          "Press Enter to press the machine's pedal for board 7.\nBoard   7  0.0 s  OK\n"
          "Press Enter to press the machine's pedal for board 7, copy 2.\nBoard   7/2  0.0 s  OK\n"
          "Press Enter to press the machine's pedal for board 8.\nBoard   8  0.0 s  OK\n"
          "Press Enter to press the machine's pedal for board 8, copy 2.\n"
          "Board   8/2  0.0 s  OK\n\n"));
}

TEST(DealCommand, WithoutAutoAnInsertedBoardStartsItsDeal) {
  DealDesk desk(1, 1);
  desk.What.Auto = false;
  desk.Screen.Person = true;
  desk.Loop.After(kContactMs + 1500, [&] { desk.Machine.InsertBoard(1); });
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_EQ(desk.Machine.BoardsDealt(), 1);
}

TEST(DealCommand, WithoutAutoAndWithStartFromBoxOffOnlyThePedalStarts) {
  DealDesk desk(1, 1);
  desk.What.Auto = false;
  desk.Screen.Person = true;
  desk.Store.Set(kInitStartFromBox, "0");
  desk.Loop.After(kContactMs + 1500, [&] { desk.Machine.InsertBoard(1); });
  desk.Loop.After(kContactMs + 9000, [&] {
    EXPECT_EQ(desk.Machine.BoardsDealt(), 0);
    desk.Machine.PressPedal();
  });
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 0,0 0,0,0,0 OK"));
}

TEST(DealCommand, ShowsTheCardsOnATerminalAndWipesThemBehindTheBoard) {
  DealDesk desk(1, 1);
  desk.Screen.Progress = true;
  EXPECT_EQ(desk.Deal(), kDone);
  const std::string& text = desk.Screen.Output;
  EXPECT_THAT(text, HasSubstr("\rBoard   1  26 of 52 cards  0.0 s"));
  // The line is as long as "Board   1  51 of 52 cards  0.0 s".
  EXPECT_THAT(text, HasSubstr("\r" + std::string(32, ' ') + "\rBoard   1  0.0 s  OK\n"));
}

TEST(DealCommand, AMachineThatCannotBeLookedIntoIsDealtAndNotJudged) {
  DealDesk desk(1, 2);
  test::ScriptedBridge bridge(desk.Clock);
  test::PaperMachine paper(bridge);
  EXPECT_EQ(desk.RunOn(bridge, nullptr, desk.What), kDone);
  EXPECT_EQ(desk.Screen.Output,
            "Board   1  0.0 s  OK\n"
            "Board   2  0.0 s  OK\n"
            "\n"
            "  Board     Time   Pockets\n"
            "      1    0.0 s   dealt\n"
            "      2    0.0 s   dealt\n"
            "\n"
            "2 of 2 boards dealt.\n");
}

TEST(DealCommand, WrongPocketsAreShownAndFail) {
  // The machine on paper moves no card, so the pockets that are looked into stay empty.
  DealDesk desk(1, 1);
  test::ScriptedBridge bridge(desk.Clock);
  test::PaperMachine paper(bridge);
  EXPECT_EQ(desk.RunOn(bridge, &desk.Machine, desk.What), kFailed);
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("      1    0.0 s   N WRONG  E WRONG  S WRONG  W WRONG\n"
                        "\n0 of 1 boards right.\n"));
}

TEST(DealCommand, TheEndOfSetQuestionIsNotAsked) {
  for (const bool yes : {false, true}) {
    DealDesk desk(1, 1, yes);
    desk.Screen.Person = true;
    EXPECT_EQ(desk.Deal(), kDone);
    EXPECT_EQ(desk.Screen.Errors, "");
    EXPECT_EQ(desk.Machine.BoardsDealt(), 1);
  }
}

}  // namespace
}  // namespace morvane::cli
