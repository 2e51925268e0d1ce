#include "cli/read_command.h"

#include "cli/cli_desk.h"
#include "support/file_size_limit.h"
#include "support/paper_machine.h"

namespace morvane::cli {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* kSuits =
    "[Deal \"N:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432\"]";
constexpr const char* kRound =
    "[Deal \"E:AT62.J73.Q84.K95 K95.AT62.J73.Q84 Q84.K95.AT62.J73 J73.Q84.K95.AT62\"]";

/// A desk whose machine has boards to read: each hand a suit, then RoundBoard, and the first again.
struct ReadDesk : CliDesk {
  explicit ReadDesk(int last = 2, bool yes = false, const simulator::Options& options = AtSpeed(0))
      : CliDesk(yes, options) {
    Machine.LayBoards({test::SuitBoard(1), test::RoundBoard(2, kEast), test::SuitBoard(3)});
    What.Out = Out;
    What.First = "1";
    What.Last = std::to_string(last);
    What.Auto = true;
    What.Yes = yes;
  }
  ReadOptions What;
  ExitStatus Read() { return Run(What); }
  [[nodiscard]] bool Saved() const { return std::filesystem::exists(Out); }
  [[nodiscard]] std::string File() const { return test::Content(Out); }
};

TEST(ReadCommand, SavesTheBoardsThatWereRead) {
  for (const char* mode : {"1", "2"}) {
    ReadDesk desk;
    desk.What.Mode = mode;
    EXPECT_EQ(desk.Read(), kDone);
    EXPECT_EQ(desk.Screen.Output,
              "Machine: simulated\n"
              "Board   1  0.0 s  OK\n"
              "Board   2  0.0 s  OK\n"
              "\n"
              "  Board     Time   Cards\n"
              "      1    0.0 s   52\n"
              "      2    0.0 s   52\n"
              "\n"
              "2 of 2 boards read, saved in " +
                  desk.Out + ".\n");
    EXPECT_EQ(desk.Screen.Errors, "") << "the end of the set asks nobody";
    EXPECT_THAT(desk.File(), HasSubstr(kSuits));
    EXPECT_THAT(desk.File(), HasSubstr(kRound));
  }
}

TEST(ReadCommand, LogsTheRunAsTheDesktopDoes) {
  ReadDesk desk;
  ASSERT_EQ(desk.Read(), kDone);
  const auto runs = desk.RunLines();
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_EQ(runs[0],
            "  001 : 1,0 0,0,0,0 OK  AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. "
            "...AKQJT98765432 ");
  EXPECT_THAT(desk.LogLines(), Contains(StartsWith(" Read: ")));
}

TEST(ReadCommand, TheModeOfTheOptionIsForThisRunAlone) {
  for (const char* stored : {"0", "1"}) {
    ReadDesk desk(1);
    desk.Store.Set(kInitReadMode, stored);
    desk.What.Mode = *stored == '0' ? "2" : "1";
    test::ScriptedBridge bridge(desk.Clock);
    test::PaperMachine paper(bridge);
    desk.RunOn(bridge, desk.What);
    const auto start = std::find_if(bridge.Sent.begin(), bridge.Sent.end(),
                                    [](const test::Bytes& frame) { return frame[0] == 0x9C; });
    ASSERT_NE(start, bridge.Sent.end());
    // A played board has South's pocket 13 times first; dealing goes round from the dealer's.
    EXPECT_EQ((*start)[9], *stored == '0' ? 1 : 2);
    EXPECT_EQ(desk.Store.Get(kInitReadMode), stored);
  }
}

TEST(ReadCommand, WithoutAModeTheSettingsSayIt) {
  ReadDesk desk(1);
  desk.Store.Set(kInitReadMode, "1");
  test::ScriptedBridge bridge(desk.Clock);
  test::PaperMachine paper(bridge);
  desk.RunOn(bridge, desk.What);
  const auto start = std::find_if(bridge.Sent.begin(), bridge.Sent.end(),
                                  [](const test::Bytes& frame) { return frame[0] == 0x9C; });
  ASSERT_NE(start, bridge.Sent.end());
  EXPECT_EQ(test::Bytes(start->begin() + 8, start->begin() + 21), test::Bytes(13, 1));
}

TEST(ReadCommand, FirstAndLastNumberTheBoardsAndWithoutThemTheSettingsDo) {
  ReadDesk desk;
  desk.What.First = "7";
  desk.What.Last.reset();
  desk.Store.Set(kNewLastBoard, "8");
  EXPECT_EQ(desk.Read(), kDone);
  EXPECT_THAT(desk.File(), HasSubstr("[Board \"7\"]"));
  EXPECT_THAT(desk.File(), HasSubstr("[Board \"8\"]"));
  EXPECT_THAT(desk.File(), Not(HasSubstr("[Board \"1\"]")));
}

TEST(ReadCommand, ARangeThatCannotBeIsRefusedBeforeTheMachine) {
  ReadDesk desk;
  desk.What.First = "5";
  desk.What.Last = "4";
  EXPECT_EQ(desk.Read(), kFailed);
  EXPECT_NE(desk.Screen.Errors, "");
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_FALSE(desk.Saved());
}

TEST(ReadCommand, AFileThatCannotBeWrittenIsToldBeforeTheFirstCardFalls) {
  ReadDesk desk;
  desk.What.Out = desk.Folder / "no/such/folder.pbn";
  EXPECT_EQ(desk.Read(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr(desk.What.Out));
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_THAT(desk.RunLines(), IsEmpty());
}

TEST(ReadCommand, AFileThatIsThereStaysUnlessItMayBeReplaced) {
  ReadDesk desk;
  test::WriteContent(desk.Out, "x");
  EXPECT_EQ(desk.Read(), kFailed);
  EXPECT_EQ(desk.Screen.Output, "") << "asked before the machine is driven";
  EXPECT_EQ(desk.File(), "x");
}

TEST(ReadCommand, WithNobodyAtTheSimulatedPedalItIsRefused) {
  ReadDesk desk;
  desk.What.Auto = false;
  EXPECT_EQ(desk.Read(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Nobody is there to press the simulated machine's pedal: use --auto.\n");
}

TEST(ReadCommand, WithoutAutoThePedalStartsEachBoard) {
  ReadDesk desk;
  desk.What.Auto = false;
  desk.Screen.Person = true;
  for (const int ms : {3000, 5000}) {
    desk.Loop.After(ms, [&] { desk.Machine.PressPedal(); });
  }
  EXPECT_EQ(desk.Read(), kDone);
  EXPECT_THAT(desk.Screen.Output,
              StartsWith("Machine: simulated\n"
                         "Press Enter to press the machine's pedal for board 1.\n"
                         "Board   1  0.0 s  OK\n"
                         "Press Enter to press the machine's pedal for board 2.\n"
                         "Board   2  0.0 s  OK\n\n"));
}

TEST(ReadFault, ContinuedReadsTheBoardToItsEnd) {
  ReadDesk desk(2, /*yes=*/true, WithFault({1, 10, 54}));
  EXPECT_EQ(desk.Read(), kDone);
  EXPECT_EQ(desk.Screen.Errors, "Duplicate Card Error\nError Code: 54\nBoard 1, card 10 of 52\n");
  EXPECT_THAT(desk.RunLines()[0], StartsWith("  001 : 1,0 0,0,0,0 54 OK  AKQJT98765432"));
  EXPECT_THAT(desk.File(), HasSubstr(kSuits));
}

TEST(ReadFault, ThatStopsTheSecondBoardKeepsTheFirst) {
  ReadDesk desk(3, false, WithFault({2, 27, 54}));
  EXPECT_EQ(desk.Read(), kFailed);
  EXPECT_THAT(desk.Screen.Output, EndsWith("      1    0.0 s   52\n"
                                           "      2    0.0 s   26 of 52, stopped\n"
                                           "\n1 of 3 boards read, saved in " +
                                           desk.Out + ".\n"));
  EXPECT_THAT(desk.File(), HasSubstr(kSuits));
  EXPECT_THAT(desk.File(), Not(HasSubstr(kRound)));
}

TEST(ReadFault, AtTheFirstCardLeavesNothingToSave) {
  ReadDesk desk(2, false, WithFault({1, 1, 54}));
  EXPECT_EQ(desk.Read(), kFailed);
  EXPECT_THAT(desk.Screen.Output, EndsWith("\n0 of 2 boards read, nothing saved.\n"));
  EXPECT_FALSE(desk.Saved());
}

TEST(ReadInterrupt, KeepsTheBoardsThatWereRead) {
  ReadDesk desk(3, false, AtSpeed(1));
  desk.Loop.After(20'000, [&] { desk.Loop.Quit(); });  // a board takes 14.6 s
  EXPECT_EQ(desk.Read(), kFailed);
  EXPECT_FALSE(desk.Machine.Busy());
  EXPECT_THAT(desk.Screen.Output, HasSubstr(" of 52, stopped\n\n1 of 3 boards read, saved in "));
  EXPECT_THAT(desk.File(), HasSubstr(kSuits));
}

TEST(ReadLink, LostInTheMiddleOfABoardKeepsTheBoardsBefore) {
  ReadDesk desk(3, true, AtSpeed(1));
  desk.Loop.After(20'000, [&] { desk.Machine.PowerOff(); });
  EXPECT_EQ(desk.Read(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Lost Communication with Morvane"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n1 of 3 boards read, saved in "));
  EXPECT_THAT(desk.File(), HasSubstr(kSuits));
}

TEST(ReadLink, AMachineWithoutPowerLeavesNoFile) {
  ReadDesk desk;
  desk.Machine.PowerOff();
  EXPECT_EQ(desk.Read(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Communication Error: Cannot communicate with Morvane.\n"
            "Please check if power is connected to the machine and try again.\n");
  EXPECT_EQ(desk.Screen.Output, "Machine: simulated\n");
  EXPECT_FALSE(desk.Saved());
}

TEST(ReadSave, AFormatThatCannotHoldTheRestNamesTheLog) {
  // BRI holds whole boards only; the second is stopped.
  ReadDesk desk(2, /*yes=*/true, WithFault({2, 27, 9}));
  desk.What.Out = desk.Folder / "out.bri";
  EXPECT_EQ(desk.Read(), kFailed);
  EXPECT_THAT(
      desk.Screen.Errors,
      EndsWith("The boards that were read stand in the log: " + desk.Prog.Log.Path() + "\n"));
  EXPECT_THAT(desk.Screen.Output, EndsWith("\n1 of 2 boards read, nothing saved.\n"));
  EXPECT_FALSE(std::filesystem::exists(desk.What.Out));
}

#ifndef _WIN32  // no limit for files, no device that is full
TEST(ReadSave, OnAFullDiskTheBoardsAreShown) {
  ReadDesk desk;
  {
    const test::FileSizeLimit full(0);
    EXPECT_EQ(desk.Read(), kFailed);
  }
  EXPECT_FALSE(desk.Prog.Log.On());
  EXPECT_FALSE(desk.Saved());
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Board 1   Dealer: North   Vul: None\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr(" AKQJT98765432\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Board 2   Dealer: East   Vul: NS\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr(" AT62\n"));
  EXPECT_THAT(desk.Screen.Output, EndsWith("\n2 of 2 boards read, nothing saved.\n"));
}
#endif

TEST(ReadCommand, CardsThatWereNotRecognisedAreToldAndSavedAsDoneNotWholly) {
  ReadDesk desk(1);
  test::ScriptedBridge bridge(desk.Clock);
  test::PaperMachine paper(bridge);
  paper.Read.fill(1);
  for (std::size_t place = 0; place < 52; ++place) {
    paper.Read[place] = static_cast<std::uint8_t>(place / 13 + 1);
  }
  paper.Read[0] = 0;
  EXPECT_EQ(desk.RunOn(bridge, desk.What), kPartly);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("51 of 52 cards of board 1 have been read."));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("      1    0.0 s   51 of 52\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n1 of 1 boards read, saved in "));
}

TEST(SortCommand, SortsOnceAndShowsThePockets) {
  CliDesk desk;
  EXPECT_EQ(desk.Run(SortOptions{.Auto = true}), kDone);
  EXPECT_EQ(desk.Screen.Output, "Machine: simulated\nSort  0.0 s  OK   N 52  E 52  S 52  W 52\n");
  EXPECT_EQ(desk.Screen.Errors, "");
  EXPECT_THAT(desk.LogLines(), Contains("  Sort: 0,0,0,0 OK"));
}

TEST(SortCommand, ThePedalStartsIt) {
  CliDesk desk;
  desk.Screen.Person = true;
  desk.Loop.After(5000, [&] { desk.Machine.PressPedal(); });
  EXPECT_EQ(desk.Run(SortOptions{}), kDone);
  EXPECT_THAT(desk.Screen.Output,
              StartsWith("Machine: simulated\n"
                         "Press Enter to press the machine's pedal for the sort.\nSort  "));
}

TEST(SortCommand, WithNobodyAtThePedalItIsRefused) {
  CliDesk desk;
  EXPECT_EQ(desk.Run(SortOptions{}), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Nobody is there to press the simulated machine's pedal: use --auto.\n");
}

TEST(SortCommand, AnInterruptBreaksItAndCancels) {
  CliDesk desk(false, AtSpeed(1));
  desk.Loop.After(5000, [&] { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Run(SortOptions{.Auto = true}), kFailed);
  EXPECT_THAT(desk.LogLines(), Contains("  Sort: 0,0,0,0 57"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Sort  3.0 s  stopped   N "));
  EXPECT_FALSE(desk.Machine.Busy());
}

TEST(SortCommand, ShowsHowFarItIsOnATerminal) {
  CliDesk desk(false, AtSpeed(1));
  desk.Screen.Progress = true;
  EXPECT_EQ(desk.Run(SortOptions{.Auto = true}), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\rSorting  100 cards  28."));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\rSorting  0 cards  0."));
  EXPECT_THAT(desk.Screen.Output, Not(HasSubstr("cards   s"))) << "a time that is not known yet";
}

TEST(SortLink, LostFails) {
  CliDesk desk(true, AtSpeed(1));
  desk.Loop.After(5000, [&] { desk.Machine.PowerOff(); });
  EXPECT_EQ(desk.Run(SortOptions{.Auto = true}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Lost Communication with Morvane"));
}

}  // namespace
}  // namespace morvane::cli
