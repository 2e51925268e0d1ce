#include "machine/error_dialog.h"

#include "support/fakes.h"
#include "support/scripted_bridge.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using test::ScriptedBridge;
using test::Short;
using test::TestDesk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class ErrorDialogTest : public ::testing::Test {
 protected:
  TestDesk desk;
  ScriptedBridge bridge{desk.Clock};
  Machine machine{desk.Random, bridge};
  Bytes reply = Short({0x19, 57});

  void SetUp() override {
    bridge.Answer = [this](const Bytes&) {
      return reply.empty() ? Bytes{} : test::OnTheWire(reply, 21);
    };
  }

  ErrorDialog Dialog(int code) {
    machine.MachineError = static_cast<std::uint8_t>(code);
    return {desk.Prog, machine, kStop, Fault{.Board = 5}};
  }
  /// Board `read` is in the slot in place of board 12.
  ErrorDialog WrongBoardDialog(int read) {
    return {desk.Prog, machine, kDealAnyway, Fault{.Board = 12, .Label = read}};
  }

  /// Runs the dialog until it closes; its answer.
  DialogAnswer Run(ErrorDialog& dialog) {
    dialog.Open([] {});
    desk.Loop.RunUntil([&] { return dialog.Closed(); });
    return dialog.DialogResult;
  }
};

struct Expected {
  int Code;
  const char* Text;
  int Mode;
};

TEST_F(ErrorDialogTest, EveryCodeHasItsTextAndItsButtons) {
  const std::vector<Expected> table{{1, "Card did not go to South", 0},
                                    {2, "Card did not go to West", 0},
                                    {3, "Card did not go to East", 0},
                                    {4, "Card did not go to North", 0},
                                    {5, "Extra Card in South ", 0},
                                    {6, "Extra Card in West", 0},
                                    {7, "Extra Card in East", 0},
                                    {8, "Extra Card in North", 0},
                                    {9, "Card Jam Error", 0},
                                    {16, "Card Jam Error", 0},
                                    {17, "Card did not go to South", 0},
                                    {18, "Card did not go to West", 0},
                                    {19, "Card did not go to East", 0},
                                    {20, "Card did not go to North", 0},
                                    {21, "Extra Card in South", 0},
                                    {22, "Extra Card in West", 0},
                                    {23, "Extra Card in East", 0},
                                    {24, "Extra Card in North", 0},
                                    {25, "Card Recognition Error", 1},
                                    {53, "Card Recognition Error", 1},
                                    {54, "Duplicate Card Error", 1},
                                    {55, "Card Feeding Error", 1},
                                    {56, "Card Feeding Error", 1},
                                    {57, "Break Dealing", 1},
                                    {59, "No Top Cover", 1},
                                    {60, "Flip Plate open", 1},
                                    {62, "Incorrect Card Order", 0},
                                    {63, "Undefine Error", 0},
                                    {64, "Undefine Error", 0},
                                    {240, "Undefine Error", 0},
                                    {58, "Board or Board Insert not fitted correctly", 1},
                                    {61, "Card does not belong to selected National Settings", 0}};
  for (const Expected& row : table) {
    const ErrorDialog dialog = Dialog(row.Code);
    EXPECT_EQ(dialog.Error_label, row.Text) << row.Code;
    EXPECT_EQ(static_cast<int>(dialog.ButtonMode), row.Mode) << row.Code;
  }
}

TEST_F(ErrorDialogTest, Code61HasOnlyTheThirdButton) {
  const ErrorDialog dialog = Dialog(61);
  EXPECT_FALSE(dialog.Continue_button.Visible);
  EXPECT_FALSE(dialog.Cancel_button.Visible);
  EXPECT_TRUE(dialog.Cancel2.Visible);
  EXPECT_EQ(dialog.Cancel2.Caption, "Cancel");
  EXPECT_EQ(dialog.Error_code, "Error Code: 61");
}

TEST_F(ErrorDialogTest, AContinuableCodeHasTwoButtons) {
  const ErrorDialog dialog = Dialog(57);
  EXPECT_TRUE(dialog.Continue_button.Visible);
  EXPECT_EQ(dialog.Continue_button.Caption, "Continue");
  EXPECT_TRUE(dialog.Cancel_button.Visible);
  EXPECT_EQ(dialog.Cancel_button.Caption, "Cancel");
  EXPECT_FALSE(dialog.Cancel2.Visible);
}

TEST_F(ErrorDialogTest, AnUnreadableLabelIs64AndAWrongBoard65) {
  const ErrorDialog unreadable = WrongBoardDialog(0);
  EXPECT_EQ(unreadable.Error_code, "Error Code: 64");
  EXPECT_EQ(unreadable.Error_label,
            "     Cannot read board number     \r\n"
            "     Please check if board has correct Board Number Label    ");
  const ErrorDialog wrong = WrongBoardDialog(3);
  EXPECT_EQ(wrong.Error_code, "Error Code: 65");
  EXPECT_EQ(wrong.Error_label,
            "     Incorrect board inserted     \r\n"
            "     Expected board no: 12  -  Inserted board no: 3     ");
  EXPECT_EQ(wrong.Continue_button.Caption, "Try again");
  EXPECT_EQ(wrong.Cancel2.Caption, "Deal to the current board");
  EXPECT_TRUE(wrong.Continue_button.Visible && wrong.Cancel_button.Visible &&
              wrong.Cancel2.Visible);
}

TEST_F(ErrorDialogTest, NamesTheBoardAndTheCardWhereItIsKnown) {
  machine.MachineError = 25;
  const auto place = [this](const Fault& fault) {
    return ErrorDialog(desk.Prog, machine, kStop, fault).Error_board;
  };
  EXPECT_EQ(place({.Board = 5}), "Board 5");
  EXPECT_EQ(place({.Board = 640, .Card = 17}), "Board 640, card 17 of 52");
  EXPECT_EQ(WrongBoardDialog(3).Error_board, "Board 12");
}

TEST_F(ErrorDialogTest, IsReadWithoutThePaddingOfTheCatalogueButWithTheFaultsOwnBlank) {
  EXPECT_EQ(Dialog(5).ErrorText(), "Extra Card in South ");
  EXPECT_EQ(Dialog(21).ErrorText(), "Extra Card in South");
  EXPECT_EQ(WrongBoardDialog(0).ErrorText(),
            "Cannot read board number\n"
            "Please check if board has correct Board Number Label");
}

TEST_F(ErrorDialogTest, ButtonsGiveTheirAnswers) {
  ErrorDialog goOn = Dialog(57);
  desk.Loop.Post([&] { goOn.PressContinue(); });
  EXPECT_EQ(Run(goOn), kGoOn);
  ErrorDialog stop = Dialog(57);
  desk.Loop.Post([&] { stop.PressCancel(); });
  EXPECT_EQ(Run(stop), kStop);
  ErrorDialog single = Dialog(1);
  desk.Loop.Post([&] { single.PressCancel2(); });
  EXPECT_EQ(Run(single), kStop);
  ErrorDialog board = WrongBoardDialog(0);
  desk.Loop.Post([&] { board.PressCancel2(); });
  EXPECT_EQ(Run(board), kDealAnyway);
}

TEST_F(ErrorDialogTest, ThePedalContinuesABreak) {
  reply = Short({0x19, 57, 0, 0, 0, 0, 8});
  ErrorDialog dialog = Dialog(57);
  machine.PollLock = true;
  EXPECT_EQ(Run(dialog), kGoOn);
  EXPECT_FALSE(machine.PollLock);
}

TEST_F(ErrorDialogTest, ThePedalLeavesAMechanicalFaultAsCancelled) {
  reply = Short({0x19, 1, 0, 0, 0, 0, 8});
  ErrorDialog dialog = Dialog(1);
  EXPECT_EQ(Run(dialog), kStop);
}

TEST_F(ErrorDialogTest, ThePedalDealsAWrongBoardAnyway) {
  reply = Short({0x19, 0, 0, 0, 0, 0, 8});
  ErrorDialog dialog = WrongBoardDialog(0);
  EXPECT_EQ(Run(dialog), kDealAnyway);
}

TEST_F(ErrorDialogTest, ItsPollAloneHasNoFiller) {
  machine.Link.TxFrame.fill(0x55);
  machine.PedalFlag = 1;
  ErrorDialog dialog = Dialog(57);
  desk.Loop.After(150, [&] { dialog.PressCancel(); });
  Run(dialog);
  ASSERT_THAT(bridge.Sent, SizeIs(1));  // one poll each 100 ms
  EXPECT_THAT(bridge.Sent[0], ElementsAre(0x19, 2, 0x55, 0, 0, 0, 0, 0));
}

TEST_F(ErrorDialogTest, PollsChangeNeitherErrorNorState) {
  machine.MachineState = Machine::kError;
  reply = Short({0x19, 0, 9, 9, 9, 9, 0x10});
  ErrorDialog dialog = Dialog(57);
  desk.Loop.After(150, [&] { dialog.PressCancel(); });
  Run(dialog);
  EXPECT_EQ(machine.MachineError, 57);
  EXPECT_EQ(machine.MachineState, Machine::kError);
  EXPECT_EQ(machine.BoxFlag, 1);
}

TEST_F(ErrorDialogTest, AnotherFrameThanAShortStatusChangesNothing) {
  reply = test::Long({0x9C, 0, 0, 0, 0, 0, 8});
  ErrorDialog dialog = Dialog(57);
  desk.Loop.After(250, [&] { dialog.PressCancel(); });
  EXPECT_EQ(Run(dialog), kStop);
  EXPECT_EQ(machine.PedalFlag, 0);
}

TEST_F(ErrorDialogTest, TwoBadRepliesInARowLoseTheLinkInItsOwnWords) {
  reply.clear();
  ErrorDialog dialog = Dialog(57);
  EXPECT_EQ(Run(dialog), kStop);
  EXPECT_THAT(bridge.Sent, SizeIs(2));
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "            Lost Communication with Dealer  -  Dealing Aborted             ");
  EXPECT_THAT(desk.LogLines(), IsEmpty());  // a plain box
}

TEST_F(ErrorDialogTest, OneBadReplyDoesNoHarm) {
  int polls = 0;
  bridge.Answer = [&](const Bytes&) {
    return ++polls == 1 ? Bytes{} : test::OnTheWire(Short({0x19, 57}), 21);
  };
  ErrorDialog dialog = Dialog(57);
  desk.Loop.After(450, [&] { dialog.PressCancel(); });
  Run(dialog);
  EXPECT_GE(polls, 3);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(ErrorDialogTest, AfterABadReplyOfItsPollTheNextExchangeFlushesTheLateOneAway) {
  bridge.Answer = [](const Bytes&) { return Bytes{}; };
  ErrorDialog dialog = Dialog(57);
  desk.Loop.After(150, [&] { dialog.PressCancel(); });
  Run(dialog);
  ASSERT_THAT(bridge.Sent, SizeIs(1));
  bridge.Unread = test::OnTheWire(Short({0x19, 33}), 21);  // its reply, at last
  bridge.Answer = [](const Bytes&) { return test::OnTheWire(Short({0x19, 0}), 21); };
  ASSERT_TRUE(machine.Exchange(machine.Poll()));
  EXPECT_EQ(machine.MachineError, 0);
}

TEST_F(ErrorDialogTest, ItPlaysTheSoundOfTheProgramsFolder) {
  ErrorDialog dialog = Dialog(57);
  desk.Loop.Post([&] { dialog.PressCancel(); });
  Run(dialog);
  EXPECT_THAT(desk.Speaker.Played, ElementsAre(desk.Prog.Paths.Application + "/Dealing_Error.wav"));
}

TEST_F(ErrorDialogTest, ItIsSilentWhereTheSoundIsSwitchedOff) {
  desk.Store.Set(kErrorSound, "0");
  ErrorDialog dialog = Dialog(57);
  desk.Loop.Post([&] { dialog.PressCancel(); });
  Run(dialog);
  EXPECT_THAT(desk.Speaker.Played, IsEmpty());
}

TEST_F(ErrorDialogTest, APressAfterItClosedChangesNothing) {
  ErrorDialog dialog = Dialog(57);
  dialog.Open([] {});
  dialog.PressContinue();
  dialog.PressCancel();
  EXPECT_EQ(dialog.DialogResult, kGoOn);
}

}  // namespace
}  // namespace morvane::machine
