#include "machine/run_fixture.h"

namespace morvane::machine {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

using Options = RunFixture;

TEST_F(Options, AreStoredAtOnce) {
  Contact();
  run.Change(&RunOptions::SetNational, 6);
  run.Change(&RunOptions::SetCardType, 1);
  run.Change(&RunOptions::SetThreshold, 2);
  run.Change(&RunOptions::SetCardIndex, 2);
  run.Change(&RunOptions::SetStart_from_box, false);
  run.Change(&RunOptions::SetCheck_board, true);
  EXPECT_EQ(desk.Store.Get(kNational), "6");
  EXPECT_EQ(desk.Store.Get(kCardType), "1");
  EXPECT_EQ(desk.Store.Get(kThreshold), "2");
  EXPECT_EQ(desk.Store.Get(kCardIndex), "2");
  EXPECT_EQ(desk.Store.Get(kInitStartFromBox), "0");
  EXPECT_EQ(desk.Store.Get(kCheckBoard), "1");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(Options, ThatCannotBeStoredAreToldOnceAndHoldAllTheSame) {
  Contact();
  desk.Store.Writable = false;
  run.Change(&RunOptions::SetNational, 6);
  run.Change(&RunOptions::SetThreshold, 2);
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Settings Error");
  EXPECT_EQ(run.Options().Cards.National, 6);
  EXPECT_EQ(run.Options().Cards.Threshold, 2);
}

TEST_F(Options, ClicksBeforeTheContactDoNothing) {
  Open();
  run.Change(&RunOptions::SetCardIndex, 1);
  run.Change(&RunOptions::SetCheck_board, true);
  EXPECT_EQ(run.Options().Cards.CardIndex, 0);
  EXPECT_FALSE(run.Options().Check_board);
  EXPECT_FALSE(desk.Store.Has(kCardIndex) || desk.Store.Has(kCheckBoard));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(Options, AnOldFirmwareRefusesEachInItsWords) {
  paper.Minor = 0x39;
  Contact();
  run.Change(&RunOptions::SetCheck_board, true);  // 0x39 is below 0x3A
  EXPECT_EQ(LastBox(), GateText(machine, desk.Prog.Texts, kCheckBoardClickGate));
  EXPECT_FALSE(run.Options().Check_board);
  run.Change(&RunOptions::SetCardIndex, int{CardSettings::kLargeIndex});
  EXPECT_EQ(LastBox(), GateText(machine, desk.Prog.Texts, kLargeIndexClickGate));
  EXPECT_EQ(run.Options().Cards.CardIndex, CardSettings::kStandardIndex);
  run.Change(&RunOptions::SetCardIndex, int{CardSettings::kSmallIndex});
  EXPECT_EQ(LastBox(), GateText(machine, desk.Prog.Texts, kSmallIndexClickGate));
  EXPECT_EQ(run.Options().Cards.CardIndex, CardSettings::kStandardIndex);
  EXPECT_EQ(desk.Store.Get(kCardIndex), "0");
  EXPECT_EQ(desk.Store.Get(kCheckBoard), "0");
}

TEST_F(Options, MissingHardwareRefusesInItsWords) {
  paper.Hardware = 0;
  Contact();
  run.Change(&RunOptions::SetCheck_board, true);
  EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg046);
  run.Change(&RunOptions::SetCardIndex, int{CardSettings::kLargeIndex});
  EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg045);
  EXPECT_EQ(run.Options().Cards.CardIndex, CardSettings::kStandardIndex);
}

TEST_F(Options, ShowBoardsStartsFromTheSettingAndToggles) {
  desk.Store.Set(kDealShow, "1");
  Contact();
  EXPECT_TRUE(run.Window().ShowBoards);
  run.Disp_boards();
  EXPECT_FALSE(run.Window().ShowBoards);
}

TEST_F(Options, AStateOutOfTheTableShowsItsNumber) {
  Contact();
  machine.MachineState = 9;
  EXPECT_EQ(StatusText(machine.MachineState), "Illegal (9)");
}

}  // namespace
}  // namespace morvane::machine
