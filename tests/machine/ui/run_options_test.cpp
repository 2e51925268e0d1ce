#include <QLineEdit>
#include <QRadioButton>

#include "machine/ui/run_window.h"

namespace morvane::machine {
namespace {

using RunOptions = RunWindow;

bool Checked(const QWidget& window, const char* name) {
  return test::Find<QAbstractButton>(window, name).isChecked();
}

TEST_F(RunOptions, ComeFromTheStore) {
  desk.Store.Set(kNational, "6");
  desk.Store.Set(kCardType, "1");
  desk.Store.Set(kThreshold, "2");
  desk.Store.Set(kCardIndex, "1");
  desk.Store.Set(kInitStartFromBox, "0");
  desk.Store.Set(kCheckBoard, "1");
  Contact();
  for (const char* name :
       {"National_7", "CardType_2", "Threshold_3", "Card_Index_j", "Check_board"}) {
    EXPECT_TRUE(Checked(*window, name)) << name;
  }
  EXPECT_FALSE(Checked(*window, "Start_from_box"));
}

TEST_F(RunOptions, AreStoredAtOnce) {
  Contact();
  for (const char* name : {"National_3", "CardType_2", "Threshold_2", "Card_Index_sm",
                           "Start_from_box", "Check_board"}) {
    Click(name);
    EXPECT_EQ(Checked(*window, name), std::string(name) != "Start_from_box") << name;
  }
  EXPECT_EQ(desk.Store.Get(kNational), "2");
  EXPECT_EQ(desk.Store.Get(kCardType), "1");
  EXPECT_EQ(desk.Store.Get(kThreshold), "1");
  EXPECT_EQ(desk.Store.Get(kCardIndex), "2");
  EXPECT_EQ(desk.Store.Get(kInitStartFromBox), "0");
  EXPECT_EQ(desk.Store.Get(kCheckBoard), "1");
}

TEST_F(RunOptions, HaveTheCaptionsOfTheCards) {
  Contact();
  const std::vector<std::pair<const char*, const char*>> captions{
      {"National_1", "Standard (AKQJ)"},
      {"National_2", "French    (ARDV)"},
      {"National_3", "French    (1RDV)"},
      {"National_4", "German  (AKDB)"},
      {"National_5", "Dutch      (AHVB)"},
      {"National_6", "Danish    (EKDB)"},
      {"National_7", "Swedish (EKDKn)"},
      {"CardType_1", "Standard"},
      {"CardType_2", "Framed"},
      {"Threshold_1", "Normal"},
      {"Threshold_2", "Fine"},
      {"Threshold_3", "Bold"},
      {"Card_Index_st", "Standard"},
      {"Card_Index_j", "Jumbo"},
      {"Card_Index_sm", "Small"}};
  for (const auto& [name, caption] : captions) EXPECT_EQ(Text(name), caption);
}

TEST_F(RunOptions, BoardsHideAndShow) {
  Contact();
  EXPECT_EQ(Text("Disp_boards"), "&Show boards") << "as the stored switch has it";
  EXPECT_EQ(Text("lblHCP_1"), "");
  Click("Disp_boards");
  EXPECT_EQ(Text("Disp_boards"), "&Hide boards");
  // The cards of board 1 go round from East, so North holds each fourth one: J73, Q84, K95, AT62.
  EXPECT_EQ(Text("lblHCP_1"), "10") << "J 1 + Q 2 + K 3 + A 4";
}

/// Copies and sub-range are switched on; the set is 1 to 3.
class NumberBoxes : public RunWindow {
 protected:
  void SetUp() override {
    RunWindow::SetUp();
    desk.Store.Set(kDealCopy, "1");
    desk.Store.Set(kDealSub, "1");
    Contact();
  }
  /// Puts the caret into the box with all of its text marked.
  void Enter(const char* name) {
    auto& box = test::Find<QLineEdit>(*window, name);
    test::Click(box);
    box.selectAll();
  }
};

TEST_F(NumberBoxes, CopiesTakeDigitsUpTo99) {
  Enter("NumberCopies");
  test::Type(*window, "99");
  EXPECT_EQ(Text("NumberCopies"), "99");
  test::Type(*window, "9x");
  EXPECT_EQ(Text("NumberCopies"), "99") << "100 and more, and letters, are refused";
  test::Press(*window, Qt::Key_Home);
  test::Type(*window, "0");
  EXPECT_EQ(Text("NumberCopies"), "99") << "no zero in front";
  EXPECT_EQ(memory.NumberOfCopies, 99);
  EXPECT_TRUE(Enabled("NextCopy"));
}

TEST_F(NumberBoxes, AnEmptyBoxCountsAsOneCopyAndSaysSoWhenItIsLeft) {
  Enter("NumberCopies");
  test::Type(*window, "3");
  test::Press(*window, Qt::Key_Backspace);
  EXPECT_EQ(Text("NumberCopies"), "");
  EXPECT_EQ(memory.NumberOfCopies, 1);
  test::Press(*window, Qt::Key_Tab);
  EXPECT_EQ(Text("NumberCopies"), "1");
}

TEST_F(NumberBoxes, EnterDoesNotDeal) {
  Enter("NumberCopies");
  test::Type(*window, "2");
  test::Press(*window, Qt::Key_Return);
  EXPECT_FALSE(run.Running());
  EXPECT_EQ(simulated.BoardsDealt(), 0);
  EXPECT_EQ(memory.NumberOfCopies, 2);
}

TEST_F(NumberBoxes, CopiesAreWalked) {
  Enter("NumberCopies");
  test::Type(*window, "2");
  Click("NextCopy");
  EXPECT_EQ(run.Place().CurrentCopy(), 2);
  EXPECT_FALSE(Enabled("NextCopy"));
  Click("PrevCopy");
  EXPECT_EQ(run.Place().CurrentCopy(), 1);
}

TEST_F(NumberBoxes, TheRangeIsCheckedWhenTheBoxIsLeft) {
  Enter("Subfrom");
  test::Type(*window, "23");
  EXPECT_EQ(Text("Subfrom"), "2") << "23 is above the last board";
  EXPECT_EQ(memory.RunFirst, 1);
  Enter("Subto");
  EXPECT_EQ(memory.RunFirst, 2);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 2);
  test::Type(*window, "1");
  test::Press(*window, Qt::Key_Tab);
  EXPECT_EQ(Text("Subto"), "2") << "raised to the first board of the run";
  EXPECT_EQ(memory.RunLast, 2);
}

TEST_F(NumberBoxes, ABoxThatIsBeingTypedInIsLeftBeforeARunStarts) {
  Enter("Subfrom");
  test::Type(*window, "2");
  simulated.PressPedal();
  MeanwhileAt(3000, [this] { EXPECT_FALSE(Enabled("cmdNext") || Enabled("Subfrom")); });
  desk.Loop.WaitMs(500);
  EXPECT_TRUE(LiesInThePockets(2));
  EXPECT_EQ(memory.RunFirst, 2);
  EXPECT_EQ(Text("Subfrom"), "2");
}

TEST_F(RunOptions, ALargeIndexThatTheMachineCannotDealIsRefused) {
  simulator::Options options = Options();
  options.Hardware = 0;
  simulator::SimulatedMachine plain(options, desk.Clock);
  Machine machineOfPlain(desk.Random, plain);
  ASSERT_TRUE(OpenLink(desk.Prog, machineOfPlain.Link, 200));
  DealingRun plainRun(desk.Prog, machineOfPlain, memory);
  auto plainWindow = std::make_unique<DealinProg>(desk.Prog, plainRun, &mainWindow);
  plainRun.Open(*plainWindow);
  window = std::move(plainWindow);
  desk.Loop.WaitMs(2100);
  desk.AnswerBox(QMessageBox::Ok);
  Click("Card_Index_j");
  EXPECT_EQ(desk.Boxes.at(0).Text,
            "Your Morvane machine is not suitable to deal Large Indexed (Jumbo) cards.\n"
            "This setting cannot be selected");
  EXPECT_TRUE(Checked(*window, "Card_Index_st"));
  desk.AnswerBox(QMessageBox::Ok);
  Click("Check_board");
  EXPECT_FALSE(Checked(*window, "Check_board"));
  EXPECT_EQ(desk.Boxes.at(1).Text,
            "Your Morvane machine is not equipped with a Board Number Reader.\n"
            "This setting cannot be selected");
  window.reset();
}

}  // namespace
}  // namespace morvane::machine
