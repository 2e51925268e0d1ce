#include "simulator/ui/machine_panel.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <numeric>
#include <set>

#include "machine/ui/run_window.h"
#include "simulator/talk.h"
#include "simulator/ui/fake_packs.h"
#include "wire/commands.h"

namespace morvane::simulator {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class MachinePanelTest : public machine::RunWindow {
 protected:
  test::FakePacks packs;
  MachinePanel panel{desk.Loop, simulated, packs};

  void SetUp() override {
    RunWindow::SetUp();
    panel.show();
    Contact();
  }
  void Press(const char* name) { test::Click(panel, name); }
  [[nodiscard]] std::string Shown(const char* name) const { return test::TextOf(panel, name); }
  /// Clicks on the tab at `index`: 0 pockets, 1 feeder, 2 frames, 3 open machine.
  void Turn(int index) {
    QTabBar& bar = *test::Find<QTabWidget>(panel, "tabs").tabBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(index).center());
  }
  void Enter(const char* box, const std::string& text) {
    auto& edit = test::Find<QLineEdit>(panel, box);
    test::Click(edit);
    edit.selectAll();
    test::Type(panel, text);
  }
};

TEST_F(MachinePanelTest, SaysWhatItIs) {
  EXPECT_EQ(panel.windowTitle(), "Morvane - Simulated Machine");
}

TEST_F(MachinePanelTest, ThePedalStartsABoardWhileTheRunWindowIsModal) {
  Press("cmdPedal");
  desk.Loop.WaitMs(200);
  EXPECT_TRUE(LiesInThePockets(1));
}

TEST_F(MachinePanelTest, OnlyTheMainWindowIsBlockedByTheRunWindow) {
  EXPECT_EQ(window->windowModality(), Qt::WindowModal);
  EXPECT_EQ(window->parentWidget(), &mainWindow);
  EXPECT_EQ(panel.parentWidget(), nullptr);
}

TEST_F(MachinePanelTest, BoardsAreInsertedOneAfterTheOther) {
  EXPECT_EQ(Shown("lblSlot"), "The slot is empty");
  EXPECT_FALSE(test::Enabled(panel, "cmdRemove"));
  desk.Loop.WaitMs(1500);
  Enter("txtBoard", "1");
  Press("cmdInsert");
  EXPECT_EQ(Shown("lblSlot"), "Board 1 is in the slot");
  desk.Loop.WaitMs(300);
  EXPECT_TRUE(LiesInThePockets(1));
  Press("cmdRemove");
  EXPECT_EQ(Shown("lblSlot"), "The slot is empty");
  desk.Loop.WaitMs(1500);
  Press("cmdInsertNext");
  EXPECT_EQ(Shown("lblSlot"), "Board 2 is in the slot");
  desk.Loop.WaitMs(300);
  EXPECT_TRUE(LiesInThePockets(2));
}

TEST_F(MachinePanelTest, AFaultHasItsTextBesideItsCode) {
  Enter("txtCode", "57");
  EXPECT_EQ(Shown("lblFault"), "Break Dealing");
  Enter("txtCode", "241");
  EXPECT_EQ(Shown("txtCode"), "24") << "240 is the highest";
  EXPECT_EQ(Shown("lblFault"), "Extra Card in North");
  test::Press(panel, Qt::Key_Backspace);
  test::Press(panel, Qt::Key_Backspace);
  EXPECT_FALSE(test::Enabled(panel, "cmdFault"));
}

TEST_F(MachinePanelTest, AFaultIsCausedInTheMiddleOfABoard) {
  Enter("txtCode", "54");
  MeanwhileAt(5000, [this] { Press("cmdFault"); });
  desk.When("Error_disp", [this](QWidget& error) {
    EXPECT_EQ(test::TextOf(error, "Error_code"), "Error Code: 54");
    desk.Loop.WaitMs(200);
    EXPECT_THAT(Shown("lblState"), HasSubstr("with code 54"));
    Press("cmdPedal");
  });
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1)) << "the pedal has continued it";
}

TEST_F(MachinePanelTest, ThePowerGoesOffAndOn) {
  EXPECT_EQ(Shown("cmdPower"), "Power o&ff");
  Press("cmdPower");
  EXPECT_FALSE(simulated.PowerIsOn());
  EXPECT_EQ(Shown("lblState"), "off");
  EXPECT_EQ(Shown("cmdPower"), "Power o&n");
  Press("cmdPower");
  EXPECT_TRUE(simulated.PowerIsOn());
  EXPECT_EQ(Shown("lblState"), "idle");
}

TEST_F(MachinePanelTest, EachLetterOfTheCaptionsBelongsToOneControl) {
  for (int power = 0; power < 2; ++power) {
    std::set<std::string> letters;
    const auto take = [&letters](const QString& caption) {
      const std::string letter = QKeySequence::mnemonic(caption).toString().toStdString();
      EXPECT_TRUE(letter.empty() || letters.insert(letter).second) << caption.toStdString();
    };
    for (const auto* button : panel.findChildren<QAbstractButton*>()) take(button->text());
    const auto& tabs = test::Find<QTabWidget>(panel, "tabs");
    for (int tab = 0; tab < tabs.count(); ++tab) take(tabs.tabText(tab));
    EXPECT_EQ(letters.size(), 21U);
    Press("cmdPower");
  }
}

TEST_F(MachinePanelTest, ShowsWhatLiesInThePockets) {
  desk.Prog.Set.At(1) = test::SuitBoard(1);
  EXPECT_THAT(Shown("lblPocket_1"), StartsWith("<b>0</b>"));
  MeanwhileAt(5000, [this] {
    EXPECT_THAT(Shown("lblState"), StartsWith("dealing card "));
    EXPECT_THAT(Shown("lblPocket_1"), ::testing::Not(HasSubstr("AKQJT98765432")));
  });
  Click("cmdDeal");
  desk.Loop.WaitMs(200);
  EXPECT_THAT(Shown("lblPocket_1"), StartsWith("<b>13</b>"));
  EXPECT_THAT(Shown("lblPocket_1"), HasSubstr("AKQJT98765432"));
  EXPECT_EQ(Shown("lblState"), "idle");
}

TEST_F(MachinePanelTest, APackInOrderIsDealtInOrder) {
  desk.Prog.Set.At(1) = test::SuitBoard(1);
  Turn(1);
  Press("cmdLoadPack");
  MeanwhileAt(2500, [this] {
    EXPECT_NE(Text("lblCnt_1"), "0");
    EXPECT_EQ(Text("lblCnt_2") + Text("lblCnt_3") + Text("lblCnt_4"), "000")
        << "the spades come first";
  });
  Click("cmdDeal");
}

TEST_F(MachinePanelTest, TheFeederShowsTheCardsToCome) {
  EXPECT_EQ(Shown("lblFeeder"), "No card waits to be fed");
  Turn(1);
  Press("cmdLoadPack");
  MeanwhileAt(5000, [this] {
    const std::size_t left = simulated.CardsInFeeder();
    EXPECT_THAT(Shown("lblFeeder"), StartsWith(std::to_string(left) + " cards to come: "));
    EXPECT_THAT(Shown("lblFeeder"), HasSubstr("\u2665")) << "the spades have gone";
  });
  Click("cmdDeal");
  desk.Loop.WaitMs(200);
  EXPECT_EQ(Shown("lblFeeder"), "No card waits to be fed");
}

/// A panel whose machine stacks, by frames of the test.
class StackingPanel : public MachinePanelTest {
 protected:
  void Stack(int count, const wire::CardBytes& order, std::uint8_t pocket) {
    wire::RouteCommand route{static_cast<std::uint8_t>(count), false, order};
    wire::StartCommand start;
    start.Pockets.Bytes.fill(pocket);
    start.Places = wire::CardBytes::kPlaces;
    ASSERT_TRUE(machine.Exchange(route));
    ASSERT_TRUE(machine.Exchange(start));
  }
  [[nodiscard]] QComboBox& Ways() { return test::Find<QComboBox>(panel, "cboCarry"); }
};

TEST_F(StackingPanel, TheWayOfTheNextPilesIsChosenByKeys) {
  Turn(1);
  EXPECT_EQ(Ways().count(), 7);
  EXPECT_EQ(Ways().currentText(), "right");
  Ways().setFocus();
  test::Press(panel, Qt::Key_Down);
  EXPECT_EQ(simulated.NextCarry(), Carry::kPilesSwapped);
  EXPECT_EQ(Ways().currentText(), "East and West swapped");
}

TEST_F(StackingPanel, TheBoxShowsThatTheMistakeHasBeenMade) {
  Turn(1);
  simulated.CarryNext(Carry::kNothing);
  desk.Loop.WaitMs(200);
  EXPECT_EQ(Ways().currentText(), "nothing");
  wire::CardBytes order;
  order.Bytes.fill(127);
  Stack(28, order, 4);
  desk.Loop.WaitMs(200);
  EXPECT_EQ(Ways().currentText(), "right");
  EXPECT_EQ(Shown("lblState"), "the feeder is empty");
}

TEST_F(StackingPanel, APileIsShownFromItsTopAndAJokerByTwoLetters) {
  // The Ace of Spades, a joker, the Two and the Three of Spades on top.
  ASSERT_TRUE(simulated.LayInFeeder(std::vector{13, 55, 1, 2}));
  desk.Loop.WaitMs(200);
  EXPECT_EQ(Shown("lblFeeder"), "4 cards to come: \u2660A JK \u26602 \u26603");
  Stack(4, {}, 4);
  desk.Loop.WaitMs(150);
  EXPECT_EQ(Shown("lblState"), "stacking card 1 of 4");
  desk.Loop.WaitMs(2000);
  EXPECT_EQ(Shown("lblPocket_1"), "<b>4</b>&nbsp;&nbsp; \u26603 \u26602 JK \u2660A");
  EXPECT_EQ(Shown("lblPocket_2"), "<b>0</b>");
}

TEST_F(StackingPanel, OfAHighPileItsUpperCardsAreShown) {
  std::vector<int> cards(13);
  std::iota(cards.begin(), cards.end(), 1);
  ASSERT_TRUE(simulated.LayInFeeder(cards));
  Stack(13, {}, 4);
  desk.Loop.WaitMs(5000);
  EXPECT_THAT(Shown("lblPocket_1"), StartsWith("<b>13</b>&nbsp;&nbsp; \u2660A \u2660K \u2660Q"));
  EXPECT_THAT(Shown("lblPocket_1"), EndsWith(" \u26605 \u2026"));
}

TEST_F(StackingPanel, ThePackIsPutBackOnceItLiesInNorth) {
  Turn(1);
  EXPECT_FALSE(test::Enabled(panel, "cmdPutBack"));
  Stack(52, {}, 4);
  desk.Loop.WaitMs(1000);
  EXPECT_FALSE(test::Enabled(panel, "cmdPutBack")) << "cards fall";
  desk.Loop.WaitMs(20'000);
  Press("cmdPutBack");
  EXPECT_EQ(simulated.CardsInFeeder(), 52U);
  EXPECT_THAT(Shown("lblFeeder"), StartsWith("52 cards to come: "));
  EXPECT_FALSE(test::Enabled(panel, "cmdPutBack"));
}

TEST_F(MachinePanelTest, TheLastCardIsOneCard) {
  Turn(1);
  std::set<std::string> seen;
  for (int ms = 2000; ms < 15000; ms += 100) {
    MeanwhileAt(ms, [&] { seen.insert(Shown("lblFeeder").substr(0, 16)); });
  }
  Click("cmdDeal");
  desk.Loop.WaitMs(15000);
  EXPECT_TRUE(seen.contains("2 cards to come:"));
  EXPECT_TRUE(seen.contains("1 card to come: "));
}

TEST_F(MachinePanelTest, BoardsForReadingComeFromTheirSource) {
  Turn(1);
  EXPECT_EQ(Shown("lblBoardsToRead"), "A read run finds a shuffled pack");
  Press("cmdLoadBoards");
  EXPECT_EQ(packs.Asked, 1);
  EXPECT_EQ(simulated.BoardsToRead(), 0U) << "none was chosen";
  packs.Chosen = {test::SuitBoard(1), test::RoundBoard(2)};
  Press("cmdLoadBoards");
  EXPECT_EQ(simulated.BoardsToRead(), 2U);
  EXPECT_EQ(Shown("lblBoardsToRead"), "2 of 2 boards lie ready to be read");
}

TEST_F(MachinePanelTest, TheFramesPassByName) {
  const auto frames = [this] {
    return test::Find<QPlainTextEdit>(panel, "txtFrames").toPlainText().toStdString();
  };
  EXPECT_EQ(frames(), "") << "nobody looks";
  Turn(2);
  EXPECT_NE(frames(), "") << "at once";
  desk.Loop.WaitMs(1000);
  EXPECT_THAT(frames(), StartsWith("CmdVersion -> version: 2.90\n"));
  EXPECT_THAT(frames(), EndsWith(" x CmdStatus -> status: idle, 0 0 0 0"));
  Click("cmdDeal");
  desk.Loop.WaitMs(200);
  EXPECT_THAT(frames(), HasSubstr("\nCmdDeal begin -> accepted\n"));
  EXPECT_THAT(frames(), HasSubstr("\nCmdStatus -> status: idle, 13 13 13 13\n"));
}

TEST_F(MachinePanelTest, ASortShowsHowManyCardsLieInEachPocket) {
  wire::SortCommand sort;
  ASSERT_TRUE(machine.Exchange(sort));
  desk.Loop.WaitMs(65'000);
  EXPECT_EQ(Shown("lblState"), "idle");
  EXPECT_THAT(Shown("lblPocket_1"), StartsWith("<b>52</b>"));
  EXPECT_THAT(Shown("lblPocket_1"), HasSubstr("\u00D752"));
}

TEST_F(MachinePanelTest, StaysWhenItIsClosed) {
  panel.close();
  EXPECT_TRUE(panel.isVisible());
}

TEST_F(MachinePanelTest, HandsAreAtTheOpenMachine) {
  Turn(3);
  Press("chkPhoto_2");
  Press("chkFront");
  Press("chkCover");
  Press("chkFlip");
  const Sensors& sensors = simulated.Opened();
  EXPECT_TRUE(sensors.Covered(2));
  EXPECT_FALSE(sensors.Covered(1));
  EXPECT_TRUE(sensors.On(Sensors::Switch::Front));
  EXPECT_FALSE(sensors.On(Sensors::Switch::Cover));
  EXPECT_FALSE(sensors.On(Sensors::Switch::FlipPlate));
  Enter("txtDegrees", "41");
  Enter("txtVolts", "12");
  EXPECT_EQ(sensors.TemperatureSet(), 410);
  EXPECT_EQ(sensors.SupplySet(), 120);
  Enter("txtSpeed", "13000");
  simulated.Opened().TakeOutputs(0x11);
  EXPECT_EQ(sensors.SpeedSet(4), 13000);
  desk.Loop.WaitMs(200);
  EXPECT_EQ(Shown("lblOutputs"), "On: motors, LEDs");
  simulated.Opened().TakeOutputs(0x04);
  desk.Loop.WaitMs(200);
  EXPECT_EQ(Shown("lblOutputs"), "On: gate 2");
  const int oneLine = test::Find<QLabel>(panel, "lblOutputs").height();
  simulated.Opened().TakeOutputs(0xFF);
  desk.Loop.WaitMs(200);
  EXPECT_EQ(Shown("lblOutputs"), "On: motors, LEDs, camera, green, red, gates 1 2 3");
  EXPECT_EQ(test::Find<QLabel>(panel, "lblOutputs").height(), oneLine);
  simulated.Opened().TakeOutputs(0);
  desk.Loop.WaitMs(200);
  EXPECT_EQ(Shown("lblOutputs"), "No output is on");
}

TEST_F(MachinePanelTest, TheCardAtTheCameraIsChosenAndAFedOneIsShown) {
  Turn(3);
  auto& cards = test::Find<QComboBox>(panel, "cboCard");
  EXPECT_EQ(cards.currentText().toStdString(), "\u2660T");
  EXPECT_EQ(cards.count(), 54);
  cards.setFocus();
  QTest::keyClick(&cards, Qt::Key_Down);
  EXPECT_EQ(simulated.CardShown(), 8) << "the Nine of Spades";
  simulated.ShowCard(55);
  desk.Loop.WaitMs(200);
  EXPECT_EQ(cards.currentText().toStdString(), "JK");
  simulated.ShowCard(0);
  desk.Loop.WaitMs(200);
  EXPECT_EQ(cards.currentText().toStdString(), "none");
}

TEST_F(MachinePanelTest, WithoutTroubleThereIsNoLineOfIt) {
  EXPECT_FALSE(test::Find<QLabel>(panel, "lblTrouble").isVisible());
}

TEST_F(MachinePanelTest, AStoreThatCannotBeWrittenIsToldAndWidensNothing) {
  const test::TempFolder folder;
  simulator::Options options;
  options.Store = folder / (std::string(200, 'x') + "/machine.txt");
  SimulatedMachine broken(options, desk.Clock);
  MachinePanel other(desk.Loop, broken, packs);
  other.show();
  UsbXpress::Handle handle = -1;
  ASSERT_EQ(broken.Open(0, handle), 0);
  std::uint32_t written = 0;
  broken.Write(handle, ToWire({19, 1, 11, 12, 13, 14}), written);
  desk.Loop.WaitMs(200);
  const auto& trouble = test::Find<QLabel>(other, "lblTrouble");
  EXPECT_TRUE(trouble.isVisible());
  EXPECT_THAT(trouble.text().toStdString(), StartsWith("store=" + folder.Path()));
  EXPECT_EQ(other.width(), panel.width());
}

}  // namespace
}  // namespace morvane::simulator
