#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QTest>
#include <map>

#include "edit/ui/edit_window_desk.h"

namespace morvane::edit {
namespace {

using ::testing::IsSupersetOf;
using ::testing::UnorderedElementsAre;

// Board 1 goes round from East: North has J73 Q84 K95 AT62, East AT62 J73 Q84 K95, South K95 AT62
// J73 Q84, West Q84 K95 AT62 J73.
struct EditKeys : EditWindowTest {
  /// A key that is held until it has come four times.
  void Hold(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    for (const bool repeated : {false, true, true, true}) {
      qt_handleKeyEvent(window->windowHandle(), QEvent::KeyPress, key, modifiers, "", repeated);
    }
    qt_handleKeyEvent(window->windowHandle(), QEvent::KeyRelease, key, modifiers);
  }
};

TEST_F(EditKeys, OpensInTheFirstBoxReadyToBeTypedOver) {
  Open();
  EXPECT_EQ(FocusName(), "txtSuit0");
  EXPECT_EQ(Suit(0).selectedText(), Cards(0).c_str());
  Type("akq1");
  EXPECT_EQ(Cards(0), "AKQ") << "small letters count, a 1 is dropped";
}

TEST_F(EditKeys, TypingMovesACardAndTheOtherBoxShowsItGone) {
  desk.Prog.Set.At(1) = test::RoundBoard(1, kEast);
  Open();
  ASSERT_EQ(Cards(0), "J73");
  ASSERT_EQ(Cards(4), "AT62");
  Press(Qt::Key_End);
  Type("a");
  EXPECT_EQ(Cards(0), "AJ73");
  EXPECT_EQ(Cards(4), "T62");
}

TEST_F(EditKeys, TheCaretStaysBehindWhatWasTyped) {
  desk.Prog.Set.At(1) = test::RoundBoard(1, kEast);
  Open();
  Press(Qt::Key_Home);
  Type("2");
  EXPECT_EQ(Cards(0), "J732");
  EXPECT_EQ(Suit(0).cursorPosition(), 4) << "the two stands behind the others";
  Press(Qt::Key_Home);
  Type("k");
  EXPECT_EQ(Suit(0).cursorPosition(), 1);
  Type("1");
  EXPECT_EQ(Suit(0).cursorPosition(), 1);
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Cards(0), "J732");
}

TEST_F(EditKeys, TabGoesRoundTheTable) {
  Open();
  for (int box = 0; box < kSuitBoxes; ++box) {
    EXPECT_EQ(FocusName(), "txtSuit" + std::to_string(box));
    EXPECT_EQ(editor.ActiveSuitBox(), box);
    EXPECT_EQ(Suit(box).selectedText(), Suit(box).text());
    Press(Qt::Key_Tab);
  }
  EXPECT_EQ(FocusName(), "cmdCard0");
  EXPECT_EQ(editor.ActiveSuitBox(), 15);
}

TEST_F(EditKeys, AClickSelectsTheWholeSuit) {
  Open();
  Click("txtSuit5");
  EXPECT_EQ(Suit(5).selectedText(), Cards(5).c_str());
  EXPECT_EQ(editor.ActiveSuitBox(), 5);
}

TEST_F(EditKeys, TheMenuOfABoxWorksOnWhatIsSelected) {
  desk.Prog.Set.At(1) = test::RoundBoard(1, kEast);
  Open();
  Click("txtSuit5");
  ASSERT_EQ(Cards(5), "J73");
  Suit(5).setSelection(1, 1);
  QTest::mouseClick(window->windowHandle(), Qt::RightButton, {},
                    Suit(5).mapTo(window.get(), QPoint(8, 8)));
  QWidget* menu = QApplication::activePopupWidget();
  ASSERT_NE(menu, nullptr);
  QTest::keyClick(menu, Qt::Key_T);
  desk.Loop.Pump();
  EXPECT_EQ(Cards(5), "J3") << "Cut";
  EXPECT_EQ(QApplication::clipboard()->text(), "7");
}

TEST_F(EditKeys, ACardButtonLeavesTheFocusInTheBox) {
  desk.Prog.Set.At(1) = test::RoundBoard(1, kEast);
  Open();
  Click("txtSuit5");
  ASSERT_EQ(Cards(5), "J73");
  Click("cmdCard0");
  EXPECT_EQ(Cards(5), "AJ73");
  Click("cmdCard12");
  EXPECT_EQ(Cards(5), "AJ732");
  EXPECT_EQ(FocusName(), "txtSuit5");
  Type("k");
  EXPECT_EQ(Cards(5), "AKJ732") << "the caret stands behind the cards";
}

TEST_F(EditKeys, EnterOnACardButtonGivesTheFocusBack) {
  desk.Prog.Set.At(1) = test::RoundBoard(1, kEast);
  Open();
  Focus("cmdCard1");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cards(0), "KJ73");
  EXPECT_EQ(FocusName(), "txtSuit0");
}

TEST_F(EditKeys, EnterGivesTheFocusBackToTheLastBox) {
  Open();
  Click("txtSuit9");
  Focus("cmdSwap0");
  const std::string wests = Cards(12);
  Press(Qt::Key_Enter);
  EXPECT_EQ(Cards(0), wests) << "it presses the button too";
  EXPECT_EQ(FocusName(), "cmdSwap0");
  desk.Loop.WaitMs(Editor::kTimer3Ms);
  EXPECT_EQ(FocusName(), "txtSuit9");
}

TEST_F(EditKeys, EnterInABoxClosesNothing) {
  Open();
  Press(Qt::Key_Return);
  desk.Loop.WaitMs(1000);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(FocusName(), "txtSuit0");
}

TEST_F(EditKeys, RestoreGivesTheFocusBack) {
  Open();
  Click("txtSuit3");
  const std::string before = Cards(3);
  Press(Qt::Key_Delete);
  Focus("cmdSwap0");
  Click("cmdRestore");
  EXPECT_EQ(Cards(3), before);
  desk.Loop.WaitMs(Editor::kTimer3Ms);
  EXPECT_EQ(FocusName(), "txtSuit3");
}

TEST_F(EditKeys, PagesWalk) {
  Open();
  Press(Qt::Key_PageDown);
  EXPECT_EQ(Text("lblBoard"), "2 of 1 - 3");
  Press(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Text("lblBoard"), "3 of 1 - 3");
  Press(Qt::Key_PageDown);
  EXPECT_EQ(Text("lblBoard"), "3 of 1 - 3");
  Press(Qt::Key_PageUp);
  EXPECT_EQ(Text("lblBoard"), "2 of 1 - 3");
  Press(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(Text("lblBoard"), "1 of 1 - 3");
  EXPECT_EQ(FocusName(), "txtSuit0");
}

TEST_F(EditKeys, UndoAndRedoAreTheEditors) {
  Open();
  const std::string spades = Cards(0);
  const std::string hearts = Cards(1);
  Type("akq");
  Press(Qt::Key_Tab);
  Type("2");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Cards(1), hearts);
  EXPECT_EQ(Cards(0), "AKQ");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Cards(0), spades) << "the three letters were one step";
  Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Cards(0), "AKQ");
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Cards(1), "2");
}

TEST_F(EditKeys, BoardsAreHeldByKeysOfTheirOwn) {
  Open();
  const auto both = Qt::ControlModifier | Qt::ShiftModifier;
  Press(Qt::Key_C, both);
  EXPECT_TRUE(clip.ClipFilled);
  Press(Qt::Key_X, both);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 2);
  Press(Qt::Key_V, both);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 3);
  EXPECT_THAT(desk.LogLines(),
              IsSupersetOf({"   Copy: 1,3,1", "   Cut: 1,2,1", "   Paste: 1,3,1"}));
}

TEST_F(EditKeys, AHeldKeyTakesOneBoardAway) {
  test::FillSet(desk.Prog.Set, 1, 9);
  Open();
  Hold(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 8);
  Hold(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 9);
  Hold(Qt::Key_D, Qt::AltModifier);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 8);
  Focus("cmdDelete");
  Hold(Qt::Key_Return);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 7);
}

TEST_F(EditKeys, AHeldKeyWalksOn) {
  test::FillSet(desk.Prog.Set, 1, 9);
  Open();
  Hold(Qt::Key_PageDown);
  EXPECT_EQ(Text("lblBoard"), "5 of 1 - 9");
}

TEST_F(EditKeys, TextIsCopiedByTheUsualKeys) {
  Open();
  const std::string spades = Cards(0);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), spades);
  EXPECT_FALSE(clip.ClipFilled);
  Click("txtSuit4");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cards(4), spades);
  EXPECT_EQ(Cards(0), "") << "the cards have gone over";
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(Cards(4), "");
  EXPECT_EQ(desk.Prog.Set.LastBoard, 3);
}

TEST_F(EditKeys, ControlEnterAccepts) {
  Open();
  Type("ak");
  EXPECT_TRUE(Enabled("cmdAccept"));
  Press(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_FALSE(Enabled("cmdAccept"));
  EXPECT_EQ(SuitText(desk.Prog.Set.At(1), 0), "AK");
  EXPECT_EQ(FocusName(), "txtSuit0");
}

TEST_F(EditKeys, AltAndALetterPressesAButton) {
  Open();
  Press(Qt::Key_E, Qt::AltModifier);
  EXPECT_EQ(Cards(0), "");
  Press(Qt::Key_K, Qt::AltModifier);
  EXPECT_EQ(Cards(0), "K");
}

TEST_F(EditKeys, WhatIsAcceptedByALetterIsAcceptedBeforeTheNextKey) {
  Open();
  Type("akq");
  Press(Qt::Key_P, Qt::AltModifier);
  Press(Qt::Key_PageDown);
  EXPECT_EQ(Text("lblBoard"), "2 of 1 - 3");
  EXPECT_EQ(SuitText(desk.Prog.Set.At(1), 0), "AKQ");
}

TEST_F(EditKeys, TheLetterThatTwoShareGoesFromOneToTheOther) {
  Open();
  Type("a");
  Press(Qt::Key_T, Qt::AltModifier);
  const std::string first = FocusName();
  Press(Qt::Key_T, Qt::AltModifier);
  EXPECT_THAT((std::vector{first, FocusName()}), UnorderedElementsAre("cmdCard4", "cmdRestore"));
}

TEST_F(EditKeys, NoOtherLetterIsShared) {
  Open();
  std::map<QString, QStringList> names;
  for (const auto* button : window->findChildren<QPushButton*>()) {
    const QKeySequence key = QKeySequence::mnemonic(button->text());
    if (!key.isEmpty()) names[key.toString()] << button->objectName();
  }
  for (const auto& [key, shared] : names) {
    EXPECT_EQ(shared.size(), key == "Alt+T" ? 2 : 1) << key.toStdString();
  }
  EXPECT_EQ(names.size(), 32U) << "13 ranks and 20 buttons, of which one shares its letter";
}

TEST_F(EditKeys, AButtonThatBecomesUselessGivesTheFocusToTheCards) {
  Open(2);
  Focus("cmdNext");
  Press(Qt::Key_Space);
  EXPECT_EQ(Text("lblBoard"), "3 of 1 - 3");
  EXPECT_FALSE(Enabled("cmdNext"));
  EXPECT_EQ(FocusName(), "txtSuit0");
}

TEST_F(EditKeys, EveryButtonOfWholeBoardsDoesWhatItSays) {
  const std::vector<std::pair<const char*, std::string>> lines{
      {"cmdAdd", "   Add: 2,5,2"},
      {"cmdInsert", "   Insert: 2,6,2"},
      {"cmdDelete", "   Delete: 2,5,2"},
      {"cmdCopy", "   Copy: 2,5,2"},
      {"cmdPaste", "   Paste: 2,6,2"},
      {"cmdCut", "   Cut: 2,5,2"},
      {"cmdShiftLeft", "   Shift_left: 1,4,1"},
      {"cmdShiftRight", "   Shift_right: 2,5,2"}};
  test::FillSet(desk.Prog.Set, 2, 4);
  Open(2);
  for (const auto& [name, line] : lines) {
    Click(name);
    EXPECT_EQ(desk.LogLines().back(), line);
    EXPECT_EQ(FocusName(), "txtSuit0") << "a click leaves the focus in the cards";
  }
}

TEST_F(EditKeys, TheWalkButtonsWalk) {
  Open(2);
  for (const auto& [name, shown] : std::vector<std::pair<const char*, std::string>>{
           {"cmdLast", "3"}, {"cmdPrev", "2"}, {"cmdFirst", "1"}, {"cmdNext", "2"}}) {
    Click(name);
    EXPECT_EQ(Text("lblBoard"), shown + " of 1 - 3");
  }
}

TEST_F(EditKeys, EverySwapButtonSwaps) {
  // Whose spades North has then: box 0 North's, 4 East's, 8 South's, 12 West's.
  const std::vector<int> from{12, 4, 0, 0, 8, 0, 12, 4};
  Open();
  for (int index = 0; index < 8; ++index) {
    const std::string expected = Cards(from[static_cast<std::size_t>(index)]);
    Click(("cmdSwap" + std::to_string(index)).c_str());
    EXPECT_EQ(Cards(0), expected) << index;
    Press(Qt::Key_Z, Qt::ControlModifier);
  }
}

TEST_F(EditKeys, ClearAndRandomFill) {
  Open();
  Click("cmdClear");
  EXPECT_EQ(Text("lblCnt_1"), "0 \u2717 13 missing");
  Type("akq");
  Click("cmdRandom");
  EXPECT_EQ(Text("lblCnt_1"), "13 \u2713");
  EXPECT_EQ(Text("lblCnt_4"), "13 \u2713");
  EXPECT_EQ(Cards(0).substr(0, 3), "AKQ");
}

}  // namespace
}  // namespace morvane::edit
