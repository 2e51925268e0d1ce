#include <QAbstractButton>
#include <QTest>

#include "machine/ui/run_window.h"

namespace morvane::machine {
namespace {

using ::testing::IsEmpty;

/// Numbers that are still being typed when a board is started: the focus has not left their box.
class TypedNumbers : public RunWindow {
 protected:
  void SetUp() override {
    RunWindow::SetUp();
    desk.Store.Set(kDealCopy, "1");
    desk.Store.Set(kDealSub, "1");
  }

  /// In place of what the box holds.
  void TypeInto(const char* box, const std::string& text) {
    Click(box);
    test::Press(*window, Qt::Key_A, Qt::ControlModifier);
    text.empty() ? test::Press(*window, Qt::Key_Delete) : test::Type(*window, text);
    ASSERT_EQ(FocusName(), box);
  }

  void AltD() { PressLetter(Qt::Key_D, "cmdDeal"); }
  void AltX() { PressLetter(Qt::Key_X, "Deal_next"); }

  [[nodiscard]] int Dealt() const { return simulated.BoardsDealt(); }
};

TEST_F(TypedNumbers, FromCountsForAltD) {
  Contact();
  TypeInto("Subfrom", "2");
  AltD();
  EXPECT_TRUE(LiesInThePockets(2));
  EXPECT_EQ(LastLine(), "  002 : 1,0 0,0,0,0 OK");
  EXPECT_EQ(Dealt(), 1);
}

TEST_F(TypedNumbers, FromCountsForAltX) {
  Contact();
  Click("cmdDeal");
  TypeInto("Subfrom", "3");
  desk.AnswerBox(QMessageBox::No);  // board 3 is the last one
  AltX();
  EXPECT_TRUE(LiesInThePockets(3)) << "not board 2, which is no longer in the range";
  EXPECT_EQ(Dealt(), 2);
}

TEST_F(TypedNumbers, FromCountsForThePedal) {
  Contact();
  TypeInto("Subfrom", "2");
  simulated.PressPedal();
  desk.Loop.WaitMs(200);
  EXPECT_TRUE(LiesInThePockets(2));
  EXPECT_EQ(Dealt(), 1);
}

TEST_F(TypedNumbers, FromCountsForAnInsertedBoard) {
  Contact();
  desk.Loop.WaitMs(1500);
  TypeInto("Subfrom", "2");
  simulated.InsertBoard(2);
  desk.Loop.WaitMs(300);
  EXPECT_TRUE(LiesInThePockets(2));
  EXPECT_EQ(Dealt(), 1);
}

TEST_F(TypedNumbers, ToCountsForEachStart) {
  const auto pedal = [this] {
    desk.Loop.WaitMs(200);  // a press before the next poll would be one behind the box
    simulated.PressPedal();
    desk.Loop.WaitMs(200);
  };
  const auto board = [this] {
    desk.Loop.WaitMs(1500);
    simulated.InsertBoard(1);
    desk.Loop.WaitMs(300);
  };
  Contact();
  const std::vector<std::function<void()>> starts{[this] { AltD(); }, pedal, board};
  for (const auto& start : starts) {
    TypeInto("Subto", "3");
    test::Press(*window, Qt::Key_Return);
    TypeInto("Subto", "1");
    desk.AnswerBox(QMessageBox::No);
    start();
    EXPECT_EQ(desk.Boxes.back().Title, "Dealing") << "board 1 is the last of the run now";
    EXPECT_FALSE(Enabled("Deal_next"));
  }
  EXPECT_EQ(Dealt(), 3);
}

TEST_F(TypedNumbers, ToCountsForAltX) {
  Contact();
  Click("cmdDeal");
  TypeInto("Subto", "2");
  desk.AnswerBox(QMessageBox::No);
  AltX();
  EXPECT_TRUE(LiesInThePockets(2));
  EXPECT_FALSE(Enabled("Deal_next"));
}

TEST_F(TypedNumbers, CopiesCountForAltDAndAltX) {
  Contact();
  TypeInto("NumberCopies", "2");
  AltD();
  EXPECT_TRUE(LiesInThePockets(1));
  AltX();
  EXPECT_TRUE(LiesInThePockets(1)) << "its second copy";
  AltX();
  EXPECT_TRUE(LiesInThePockets(2));
}

TEST_F(TypedNumbers, CopiesCountForThePedal) {
  Contact();
  TypeInto("NumberCopies", "2");
  for (int board = 0; board < 2; ++board) {
    simulated.PressPedal();
    desk.Loop.WaitMs(200);
    EXPECT_TRUE(LiesInThePockets(1));
  }
  EXPECT_EQ(Dealt(), 2);
}

TEST_F(TypedNumbers, ANumberOutsideTheSetIsRefusedInWordsAndNothingIsDealt) {
  test::FillSet(desk.Prog.Set, 5, 9);
  Contact();
  TypeInto("Subfrom", "2");
  desk.AnswerBox(QMessageBox::Ok);
  AltD();
  EXPECT_EQ(desk.Boxes.at(0).Title, "Dealing Error");
  EXPECT_EQ(desk.Boxes.at(0).Text,
            "The first board to deal must be from 5 to 9, not 2.\n\n"
            "It stays 5. Nothing has been dealt.");
  EXPECT_EQ(Text("Subfrom"), "5");
  EXPECT_EQ(Dealt(), 0);
  AltD();
  EXPECT_TRUE(LiesInThePockets(5)) << "what stands there now has been seen";
}

TEST_F(TypedNumbers, ThePedalIsRefusedLikeTheKey) {
  Contact();
  TypeInto("Subfrom", "2");
  test::Press(*window, Qt::Key_Return);
  TypeInto("Subto", "1");
  simulated.PressPedal();
  desk.AnswerBox(QMessageBox::Ok);
  desk.Loop.WaitMs(500);
  EXPECT_EQ(desk.Boxes.at(0).Text,
            "The last board to deal must be from 2 to 3, not 1.\n\n"
            "It stays 3. Nothing has been dealt.");
  EXPECT_EQ(Text("Subto"), "3");
  EXPECT_EQ(Dealt(), 0);
}

TEST_F(TypedNumbers, ThePedalBehindARefusalStartsNothing) {
  Contact();
  TypeInto("Subfrom", "");
  desk.When("MessageBox", [this](QWidget& box) {
    simulated.PressPedal();
    desk.Loop.WaitMs(200);
    test::Press(box, Qt::Key_Return);
  });
  AltD();
  desk.Loop.WaitMs(500);
  EXPECT_EQ(desk.Boxes.size(), 1U);
  EXPECT_EQ(Dealt(), 0);
}

TEST_F(TypedNumbers, ARangeThatEndsWithTheBoardJustDealtHasNoNextOne) {
  Contact();
  Click("cmdDeal");
  EXPECT_TRUE(Enabled("Deal_next"));
  TypeInto("Subto", "1");
  AltX();
  EXPECT_EQ(Dealt(), 1);
  EXPECT_FALSE(Enabled("Deal_next"));
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(TypedNumbers, CopiesThatEndWithTheOneJustDealtHaveNoNextOne) {
  test::FillSet(desk.Prog.Set, 1, 1);
  Contact();
  TypeInto("NumberCopies", "2");
  AltD();
  EXPECT_TRUE(Enabled("Deal_next"));
  TypeInto("NumberCopies", "1");
  AltX();
  EXPECT_EQ(Dealt(), 1);
  EXPECT_FALSE(Enabled("Deal_next"));
}

TEST_F(TypedNumbers, AnEmptyBoxIsRefusedToo) {
  Contact();
  Click("cmdDeal");
  TypeInto("Subto", "");
  desk.AnswerBox(QMessageBox::Ok);
  AltX();
  EXPECT_EQ(desk.Boxes.at(0).Text,
            "The last board to deal must be from 1 to 3, not empty.\n\n"
            "It stays 3. Nothing has been dealt.");
  EXPECT_EQ(Dealt(), 1);
  EXPECT_TRUE(Enabled("Deal_next"));
}

TEST_F(TypedNumbers, SurviveTheButtonsThatStartNothing) {
  Contact();
  TypeInto("Subfrom", "2");
  PressLetter(Qt::Key_S, "Disp_boards");
  EXPECT_EQ(Text("Subfrom"), "2");
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 2);
  TypeInto("Subfrom", "1");
  PressLetter(Qt::Key_N, "cmdNext");
  EXPECT_EQ(Text("Subfrom"), "1");
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 3) << "one on from board 2, which lies in the range";
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::machine
