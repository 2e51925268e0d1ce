#include "cli/cli_desk.h"
#include "support/paper_machine.h"

// What can go wrong while the command line deals, and who answers it.

namespace morvane::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr simulator::CardFault kDuplicateCard{1, 10, 54};
constexpr simulator::CardFault kCardJam{1, 10, 9};
constexpr const char* kDuplicateText =
    "Duplicate Card Error\nError Code: 54\nBoard 1, card 10 of 52\n";
constexpr const char* kJamText = "Card Jam Error\nError Code: 9\nBoard 1, card 10 of 52\n";

TEST(DealFault, ATextWithABlankBehindItKeepsIt) {
  DealDesk desk(1, 1, false, WithFault({1, 3, 5}));
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Extra Card in South \nError Code: 5\nBoard 1, card 3 of 52\n");
}

TEST(DealFault, WithoutAnybodyToAnswerStopsTheRun) {
  DealDesk desk(1, 3, false, WithFault(kDuplicateCard));
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, kDuplicateText);
  EXPECT_EQ(desk.Screen.Output,
            "Machine: simulated\n"
            "Board   1  0.0 s  stopped\n"
            "\n"
            "  Board     Time   Pockets\n"
            "      1    0.0 s   stopped\n"
            "\n"
            "0 of 3 boards right.\n");
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0 54"));
  EXPECT_EQ(desk.Machine.BoardsDealt(), 0);
}

TEST(DealFault, UnderYesIsContinued) {
  DealDesk desk(1, 2, true, WithFault(kDuplicateCard));
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_EQ(desk.Screen.Errors, kDuplicateText);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n2 of 2 boards right.\n"));
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0 54 OK", "  002 : 1,0 0,0,0,0 OK"));
}

TEST(DealFault, InTheSecondBoardKeepsTheFirst) {
  DealDesk desk(1, 3, false, WithFault({2, 1, 25}));
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Card Recognition Error\nError Code: 25\nBoard 2, card 1 of 52\n");
  EXPECT_THAT(desk.Screen.Output, EndsWith("      1    0.0 s   N right  E right  S right  W right\n"
                                           "      2    0.0 s   stopped\n\n1 of 3 boards right.\n"));
}

TEST(DealFault, OfTheMechanicsIsCancelledUnderYesToo) {
  for (const bool yes : {false, true}) {
    DealDesk desk(1, 2, yes, WithFault(kCardJam));
    EXPECT_EQ(desk.Deal(), kFailed);
    EXPECT_EQ(desk.Screen.Errors, kJamText);
    EXPECT_THAT(desk.Screen.Output, HasSubstr("0 of 2 boards right."));
    EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0 9"));
  }
}

TEST(DealFault, IsAnsweredAtTheTerminal) {
  for (const bool goOn : {true, false}) {
    DealDesk desk(1, 1, false, WithFault(kDuplicateCard));
    desk.Screen.Person = true;
    desk.Screen.Lines = {goOn ? " 1 " : "2"};
    EXPECT_EQ(desk.Deal(), goOn ? kDone : kFailed);
    EXPECT_EQ(desk.Screen.Errors, kDuplicateText + std::string("1 Continue  2 Cancel  ? "));
    EXPECT_THAT(desk.RunLines(),
                ElementsAre(goOn ? "  001 : 1,0 0,0,0,0 54 OK" : "  001 : 1,0 0,0,0,0 54"));
  }
}

TEST(DealFault, AnAnswerThatIsNoneIsAskedForAgain) {
  DealDesk desk(1, 1, false, WithFault(kDuplicateCard));
  desk.Screen.Person = true;
  desk.Screen.Lines = {"", "3", "yes", "1"};
  EXPECT_EQ(desk.Deal(), kDone);
  const std::string prompt = "1 Continue  2 Cancel  ? ";
  EXPECT_EQ(desk.Screen.Errors, kDuplicateText + prompt + prompt + prompt + prompt);
}

TEST(DealFault, OfTheMechanicsOffersItsOneButton) {
  DealDesk desk(1, 1, false, WithFault(kCardJam));
  desk.Screen.Person = true;
  desk.Screen.Lines = {"1", "2", "3"};
  EXPECT_EQ(desk.Deal(), kFailed);
  const std::string prompt = "3 Cancel  ? ";
  EXPECT_EQ(desk.Screen.Errors, kJamText + prompt + prompt + prompt);
  EXPECT_THAT(desk.Screen.Lines, IsEmpty());
}

TEST(DealFault, IsAnsweredByThePedalToo) {
  DealDesk desk(1, 1, false, WithFault(kDuplicateCard));
  desk.Screen.Person = true;
  desk.Loop.After(5000, [&] { desk.Machine.PressPedal(); });
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0 54 OK"));
}

TEST(DealFault, TheEndOfTheInputCancels) {
  DealDesk desk(1, 1, false, WithFault(kDuplicateCard));
  desk.Screen.Person = true;
  desk.Loop.After(5000, [&] { desk.Screen.Ended = true; });
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0 54"));
}

TEST(DealFault, AnInterruptIsAnAnswerToo) {
  DealDesk desk(1, 2, false, WithFault(kDuplicateCard));
  desk.Screen.Person = true;
  desk.Loop.After(5000, [&] { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0 54"));
  EXPECT_LT(desk.Clock.Elapsed(), std::chrono::seconds(6));
}

/// A desk with a board in the slot that is checked against the one to deal.
struct CheckDesk : DealDesk {
  explicit CheckDesk(bool yes = false) : DealDesk(1, 1, yes) {
    Store.Set(kCheckBoard, "1");
    Machine.InsertBoard(5);
  }
  static constexpr const char* kText =
      "Incorrect board inserted\nExpected board no: 1  -  Inserted board no: 5\nError Code: "
      "65\nBoard 1\n";
  static constexpr const char* kPrompt = "1 Try again  2 Cancel  3 Deal to the current board  ? ";
};

TEST(WrongBoard, IsCancelledUnderYesToo) {
  for (const bool yes : {false, true}) {
    CheckDesk desk(yes);
    EXPECT_EQ(desk.Deal(), kFailed);
    EXPECT_EQ(desk.Screen.Errors, CheckDesk::kText);
    EXPECT_EQ(desk.Machine.BoardsDealt(), 0);
    EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,1 64,5,0 "));
  }
}

TEST(WrongBoard, MayBeDealtToAllTheSame) {
  CheckDesk desk;
  desk.Screen.Person = true;
  desk.Screen.Lines = {"3"};
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_EQ(desk.Screen.Errors, std::string(CheckDesk::kText) + CheckDesk::kPrompt);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,1 64,5,2 0,0,0,0 OK"));
}

TEST(WrongBoard, MayBeExchangedAndTriedAgain) {
  CheckDesk desk;
  desk.Screen.Person = true;
  desk.Loop.After(5000, [&] {
    desk.Machine.InsertBoard(1);
    desk.Screen.Lines = {"1"};
  });
  EXPECT_EQ(desk.Deal(), kDone);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,1 64,5,1 0,0,0,0 OK"));
}

TEST(WrongBoard, AnUnreadableLabelIsNamedSo) {
  CheckDesk desk;
  desk.Machine.InsertBoardWithLabel(0);
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Cannot read board number\nPlease check if board has correct Board Number Label\n"
            "Error Code: 64\nBoard 1\n");
}

TEST(DealInterrupt, InTheMiddleOfABoardHasTheMachineBreak) {
  DealDesk desk(1, 2, false, AtSpeed(1));
  desk.Loop.After(5000, [&] { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0 57"));
  EXPECT_FALSE(desk.Machine.Busy());
  EXPECT_FALSE(desk.Machine.LatchOn());
  EXPECT_EQ(desk.Machine.BoardsDealt(), 0);
  // Contact is made after 2.0 s, and from then on a card falls every 0.28 s: 10 in 3.0 s.
  const auto piles = desk.Machine.CardsByPocket();
  EXPECT_EQ(piles[1].size() + piles[2].size() + piles[3].size() + piles[4].size(), 10U);
  EXPECT_LT(desk.Clock.Elapsed(), std::chrono::milliseconds(5200));
}

TEST(DealInterrupt, KeepsTheBoardsThatWereDone) {
  DealDesk desk(1, 3, false, AtSpeed(1));
  desk.Loop.After(20'000, [&] { desk.Loop.Quit(); });  // a board takes 14.6 s
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("\n      2    3.4 s   stopped\n\n1 of 3 boards right.\n"));
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0 OK", "  002 : 1,0 0,0,0,0 57"));
}

TEST(DealInterrupt, BeforeTheFirstContactEndsAtOnce) {
  DealDesk desk;
  desk.Loop.Quit();
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_THAT(desk.RunLines(), IsEmpty());
  EXPECT_LT(desk.Clock.Elapsed(), std::chrono::milliseconds(200));
  EXPECT_EQ(desk.LogLines().back().substr(0, 7), " Exit: ");
}

TEST(DealInterrupt, EndsTheWaitForThePedal) {
  DealDesk desk;
  desk.What.Auto = false;
  desk.Screen.Person = true;
  desk.Loop.After(8000, [&] { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_EQ(desk.Screen.Output,
            "Machine: simulated\nPress Enter to press the machine's pedal for board 1.\n");
  EXPECT_LT(desk.Clock.Elapsed(), std::chrono::milliseconds(8200));
}

TEST(DealLink, LostInTheMiddleOfABoardFails) {
  DealDesk desk(1, 2, true, AtSpeed(1));
  desk.Loop.After(5000, [&] { desk.Machine.PowerOff(); });
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Dealing Error: Lost Communication with Morvane  -  Dealing Aborted!\n");
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0"));
  EXPECT_EQ(desk.Screen.Output,
            "Machine: simulated\n"
            "Board   1  3.0 s  stopped\n"
            "\n"
            "  Board     Time   Pockets\n"
            "      1    3.0 s   stopped\n"
            "\n"
            "0 of 2 boards right.\n");
}

TEST(DealLink, LostBetweenTwoBoardsKeepsTheFirst) {
  DealDesk desk(1, 2);
  desk.What.Auto = false;
  desk.Screen.Person = true;
  desk.Loop.After(3000, [&] { desk.Machine.PressPedal(); });
  desk.Loop.After(5000, [&] { desk.Machine.PowerOff(); });
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_THAT(desk.RunLines(), ElementsAre("  001 : 1,0 0,0,0,0 OK"));
  EXPECT_THAT(desk.Screen.Output, EndsWith("      1    0.0 s   N right  E right  S right  W right\n"
                                           "\n1 of 2 boards right.\n"));
}

TEST(DealLink, TheBoxOfALostLinkStandsOnALineOfItsOwn) {
  DealDesk desk(1, 1, true, AtSpeed(1));
  desk.Screen.Progress = true;
  desk.Screen.Shared = true;
  desk.Loop.After(5000, [&] { desk.Machine.PowerOff(); });
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\r" + std::string(32, ' ') + "\rDealing Error: Lost"));
}

TEST(DealLink, LostWhileAFaultIsAnsweredFails) {
  DealDesk desk(1, 1, false, WithFault(kDuplicateCard));
  desk.Screen.Person = true;
  desk.Loop.After(5000, [&] { desk.Machine.PowerOff(); });
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_THAT(desk.Screen.Errors,
              HasSubstr("Morvane: Lost Communication with Dealer  -  Dealing Aborted\n"));
}

TEST(DealLink, AMachineWithoutPowerIsTold) {
  DealDesk desk;
  desk.Machine.PowerOff();
  EXPECT_EQ(desk.Deal(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Communication Error: Cannot communicate with Morvane.\n"
            "Please check if power is connected to the machine and try again.\n");
  EXPECT_THAT(desk.RunLines(), IsEmpty());
}

TEST(DealLink, AMissingMachineIsTriedOnceUnlessSomebodySaysOtherwise) {
  for (const bool yes : {false, true}) {
    DealDesk desk(1, 1, yes);
    test::ScriptedBridge bridge(desk.Clock);
    bridge.FailingCall = "GetNumDevices";
    bridge.FailureStatus = UsbXpress::kDeviceNotFound;
    EXPECT_EQ(desk.RunOn(bridge, nullptr, desk.What), kFailed);
    EXPECT_EQ(desk.Screen.Errors,
              "USB Initialization Error: Cannot communicate with Morvane      (Error: 255.1)\n"
              "Please check if USB cable is connected to the PC and Morvane.\n"
              "If connection is OK please disconnect USB cable momentarily and reconnect.\n\n"
              "Click OK to retry communication.\n");
    EXPECT_EQ(desk.Screen.Output, "");
  }
}

TEST(DealLink, AMissingMachineMayBeTriedAgain) {
  DealDesk desk(1, 1);
  test::ScriptedBridge bridge(desk.Clock);
  bridge.FailingCall = "GetNumDevices";
  desk.Screen.Person = true;
  desk.Screen.Lines = {"o", "o", "c"};
  EXPECT_EQ(desk.RunOn(bridge, nullptr, desk.What), kFailed);
  EXPECT_EQ(std::count(bridge.Calls.begin(), bridge.Calls.end(), "GetNumDevices"), 3);
}

}  // namespace
}  // namespace morvane::cli
