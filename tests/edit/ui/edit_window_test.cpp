#include <QGroupBox>

#include "edit/ui/edit_window_desk.h"
#include "platform/qt/readable_colour.h"
#include "platform/qt/shown_value.h"

namespace morvane::edit {
namespace {

using EditLook = EditWindowTest;
using EditEnd = EditWindowTest;

TEST_F(EditLook, ShowsTheBoard) {
  desk.Prog.Set.BoardSetFile = "/tmp/evening.pbn";
  Open(2);
  EXPECT_EQ(window->windowTitle(), "Edit Board");
  EXPECT_EQ(Text("lblBoard"), "2 of 1 - 3");
  EXPECT_EQ(Text("lblVul"), "NS");
  EXPECT_EQ(Text("lblDeal"), "E");
  EXPECT_EQ(Text("txtFileName"), "/tmp/evening.pbn");
  EXPECT_EQ(Text("lblHCP_1"), "10 HCP") << "one ace, king, queen and jack each";
}

TEST_F(EditLook, ShowsADealerAndVulnerabilityOfTheBoardsOwn) {
  desk.Prog.Set.At(2).Dealer = kWest;
  desk.Prog.Set.At(2).Vul = 4;
  Open(2);
  EXPECT_EQ(Text("lblVul"), "All");
  EXPECT_EQ(Text("lblDeal"), "W");
}

TEST_F(EditLook, HasTheGivenCaptions) {
  Open();
  const std::vector<std::pair<const char*, std::string>> captions{
      {"cmdCard0", "&A"},     {"cmdCard4", "&T"},      {"cmdCard12", "&2"},
      {"cmdSwap0", "N-W"},    {"cmdSwap1", "N-E"},     {"cmdSwap2", "S-E"},
      {"cmdSwap3", "S-W"},    {"cmdSwap4", "N-S"},     {"cmdSwap5", "E-W"},
      {"cmdSwap6", "CCW"},    {"cmdSwap7", "CW"},      {"cmdRestore", "Res&tore"},
      {"cmdClear", "Cl&ear"}, {"Analyze", "Analy&ze"}, {"cmdRandom", "&Random fill"},
      {"cmdExit", "E&xit"}};
  for (const auto& [name, caption] : captions) EXPECT_EQ(Text(name), caption);
  EXPECT_EQ(test::Find<QGroupBox>(*window, "fraVuln").title(), "Vulnerable:");
  EXPECT_EQ(test::Find<QGroupBox>(*window, "fraDealer").title(), "Dealer:");
  EXPECT_EQ(test::Find<QGroupBox>(*window, "fraEdit").title(), "Current Board");
}

TEST_F(EditLook, TipsSayWhatAButtonDoesAndItsKey) {
  Open();
  EXPECT_EQ(TipOf("cmdCard1"), "Insert card King");
  EXPECT_EQ(TipOf("cmdSwap7"), "Rotate hands ClockWise: North's cards go to West");
  EXPECT_EQ(TipOf("cmdCopy"), "Hold this board (Ctrl+Shift+C)");
  EXPECT_EQ(TipOf("cmdClear"), "Take all cards away");
}

TEST_F(EditLook, ACountThatIsOffIsRedAndSaysSo) {
  desk.Prog.Set.At(1) = test::RoundBoard(1, kEast);
  Open();
  const auto colour = [this] {
    return test::Find<QWidget>(*window, "lblCnt_1").palette().color(QPalette::WindowText);
  };
  const QColor ground = window->palette().color(QPalette::Window);
  EXPECT_EQ(Text("lblCnt_1"), "13 \u2713");
  EXPECT_EQ(colour(), ReadableOn(ground, QColor(0, 255, 0)));
  Press(Qt::Key_Delete);
  EXPECT_EQ(Text("lblCnt_1"), "10 \u2717 3 missing");
  EXPECT_EQ(colour(), ReadableOn(ground, QColor(255, 0, 0)));
}

TEST_F(EditLook, TheMiddleShowsWhatIsMissing) {
  desk.Prog.Set.At(1) = test::RoundBoard(1, kEast);
  Open();
  Press(Qt::Key_Delete);
  const auto plain = [this](const char* name) {
    return test::Find<ShownValue>(*window, name).SpokenText().trimmed().toStdString();
  };
  EXPECT_EQ(plain("lblMissing_1"), "\u2660 J73");
  EXPECT_EQ(plain("lblMissing_2"), "\u2665");
}

TEST_F(EditLook, TheHeldBoardIsShownWhileThereIsOne) {
  desk.Prog.Set.At(1) = test::RoundBoard(1, kEast);
  Open();
  EXPECT_FALSE(Visible("lblClip"));
  Click("cmdCopy");
  EXPECT_EQ(Text("lblClip"),
            "N: J73.Q84.K95.AT62\nE: AT62.J73.Q84.K95\nS: K95.AT62.J73.Q84\nW: Q84.K95.AT62.J73");
  EXPECT_TRUE(Visible("lblClip"));
}

TEST_F(EditLook, TheResultsAreThoseOfTheCardsThatAreShown) {
  for (std::size_t i = 0; i < 20; ++i) {
    desk.Prog.Set.At(2).Tricks[i] = static_cast<std::uint8_t>(i % 8);
  }
  Open(1);
  EXPECT_FALSE(Visible("DF_NR0"));
  Press(Qt::Key_PageDown);
  EXPECT_TRUE(Visible("DF_NR0"));
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(Text(("DF_NR" + std::to_string(i)).c_str()), std::to_string(i % 8));
  }
  Press(Qt::Key_Backspace);
  EXPECT_FALSE(Visible("DF_NR0")) << "of other cards";
}

TEST_F(EditLook, AnalyzeSaysWhatItDoes) {
  Open();
  EXPECT_TRUE(Enabled("Analyze"));
  EXPECT_EQ(TipOf("Analyze"), "Have the makeable contracts of this board worked out");
}

TEST_F(EditEnd, ExitClosesWithoutAQuestionWhereNothingChanged) {
  Open();
  Click("cmdExit");
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(editor.Closed());
}

TEST_F(EditEnd, EscapeDoesTheSame) {
  Open();
  Press(Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(editor.Closed());
}

TEST_F(EditEnd, NoKeepsItOpenAndYesCloses) {
  Open();
  Type("a");
  desk.AnswerBox(QMessageBox::No);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(Cards(0), "A");
  desk.AnswerBox(QMessageBox::Yes);
  window->close();
  EXPECT_FALSE(window->isVisible());
  ASSERT_EQ(desk.Boxes.size(), 2U);
  EXPECT_EQ(desk.Boxes[0].Title, "Edit");
}

TEST_F(EditEnd, EscapeAtTheQuestionKeepsTheChanges) {
  Open();
  Type("a");
  desk.When("MessageBox", [](QWidget& box) { test::Press(box, Qt::Key_Escape); });
  Press(Qt::Key_Escape);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(Cards(0), "A");
}

TEST_F(EditEnd, KeysBehindTheQuestionDoNothing) {
  Open();
  Type("a");
  desk.When("MessageBox", [this](QWidget& box) {
    Press(Qt::Key_PageDown);
    Type("k");
    test::Press(box, Qt::Key_Escape);
  });
  Press(Qt::Key_Escape);
  EXPECT_EQ(Cards(0), "A");
  EXPECT_EQ(Text("lblBoard"), "1 of 1 - 3");
}

}  // namespace
}  // namespace morvane::edit
