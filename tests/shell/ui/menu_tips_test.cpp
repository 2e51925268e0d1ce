#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <QToolTip>

#include "shell/ui/main_menu_desk.h"

namespace morvane::shell {
namespace {

constexpr const char* kNoPoker = "Poker is not available in this version yet";

/// What the operator is told of an entry, reached by mouse or keys.
class MenuTips : public MainMenuTest {
 protected:
  /// As an entry of the bar is that has no flow.
  MenuTips() {
    QAction& poker = Entry("menuPoker");
    poker.setEnabled(false);
    poker.setToolTip(kNoPoker);
    poker.setStatusTip(kNoPoker);
  }
  QMenuBar& Bar() { return *menu->menuBar(); }
  QAction& Entry(const char* name) { return test::Find<QAction>(*menu, name); }
  /// The message over the status's first panel.
  std::string Message() {
    desk.Loop.Pump();
    return menu->statusBar()->currentMessage().toStdString();
  }
  QPoint PlaceOf(const char* entry) {
    return Bar().mapTo(menu.get(), Bar().actionGeometry(&Entry(entry)).center());
  }
  void PointAt(const char* entry) { QTest::mouseMove(menu->windowHandle(), PlaceOf(entry)); }
  /// The tool tip over that place of the widget.
  static std::string ToolTipAt(QWidget& widget, const QPoint& at) {
    QHelpEvent help(QEvent::ToolTip, at, widget.mapToGlobal(at));
    QApplication::sendEvent(&widget, &help);
    return QToolTip::text().toStdString();
  }
};

TEST_F(MenuTips, EveryEntryThatCannotBeUsedSaysWhy) {
  std::vector<std::string> silent;
  for (const QAction* entry : menu->findChildren<QAction*>()) {
    if (entry->isEnabled() || !entry->isVisible() || entry->objectName().isEmpty()) continue;
    const QString caption = entry->text().remove('&');
    if (entry->statusTip() != caption + " is not available in this version yet" ||
        entry->toolTip() != entry->statusTip()) {
      silent.push_back(entry->objectName().toStdString());
    }
  }
  EXPECT_THAT(silent, ::testing::IsEmpty());
}

TEST_F(MenuTips, OneInTheBarSaysItWhileTheMouseIsOverIt) {
  Start();
  PointAt("menuPoker");
  EXPECT_EQ(Message(), kNoPoker);
  PointAt("menuDeal");
  EXPECT_EQ(Message(), "");
  EXPECT_TRUE(test::Visible(*menu, "Panel1"));
  EXPECT_EQ(Text("Panel1"), "Ready");
  PointAt("menuPoker");
  EXPECT_EQ(Message(), kNoPoker);
  QTest::mouseMove(menu->windowHandle(), QPoint(20, menu->height() / 2));
  EXPECT_EQ(Message(), "");
  EXPECT_TRUE(test::Visible(*menu, "Panel1"));
}

TEST_F(MenuTips, OneInTheBarIsReachedWithTheKeysAndSaysIt) {
  Start();
  test::Press(*menu, Qt::Key_Alt);
  std::vector<std::string> reached;
  for (const char* name :
       {"menuDeal", "menuRead", "menuSort", "menuEdit", "Analize", "menuPrint"}) {
    test::Press(*menu, Qt::Key_Right);
    EXPECT_EQ(Bar().activeAction(), &Entry(name)) << name;
    reached.push_back(Message());
  }
  EXPECT_THAT(reached, ::testing::Each(""));
  for (int i = 0; i < 2; ++i) test::Press(*menu, Qt::Key_Right);
  EXPECT_EQ(Bar().activeAction(), &Entry("menuPoker"));
  EXPECT_EQ(Message(), kNoPoker);
  test::Press(*menu, Qt::Key_Escape);
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(MenuTips, ItsLetterStartsNothingAndBringsUpTheToolTip) {
  Start();
  test::Press(*menu, Qt::Key_K, Qt::AltModifier);
  EXPECT_EQ(QToolTip::text().toStdString(), kNoPoker);
  EXPECT_FALSE(shell.FlowActive());
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(MenuTips, OneInTheBarHasAToolTip) {
  Start();
  const auto tipOf = [this](const char* entry) {
    return ToolTipAt(Bar(), Bar().actionGeometry(&Entry(entry)).center());
  };
  EXPECT_EQ(tipOf("menuDeal"), "") << "no caption twice";
  EXPECT_EQ(tipOf("menuPoker"), kNoPoker);
}

TEST_F(MenuTips, OneInAMenuSaysItInTheStatusBarAndInAToolTip) {
  Start();
  Entry("Read_Service_File").setVisible(true);
  test::Press(*menu, Qt::Key_M, Qt::AltModifier);
  auto& maintenance = test::Find<QMenu>(*menu, "cmdMaintenance_direct");
  ASSERT_TRUE(maintenance.isVisible());
  QTest::keyClick(&maintenance, Qt::Key_Down);  // from the one before it
  EXPECT_EQ(Message(), "Read Service File is not available in this version yet");
  EXPECT_EQ(
      ToolTipAt(maintenance, maintenance.actionGeometry(&Entry("Read_Service_File")).center()),
      "Read Service File is not available in this version yet");
  QTest::keyClick(&maintenance, Qt::Key_Escape);
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(MenuTips, APathOfARecentFileGivesWayToTheStatusOfItsLoad) {
  Start();
  test::WriteContent(desk.Folder / "evening.pbn", "[Board \"9\"]\r\n");
  desk.Store.Set(kRecentFiles, "L" + (desk.Folder / "evening.pbn"));
  test::Press(*menu, Qt::Key_F, Qt::AltModifier);
  auto& file = test::Find<QMenu>(*menu, "menuFile");
  ASSERT_TRUE(file.isVisible());
  QTest::mouseMove(&file, file.actionGeometry(&Entry("menuRecent1")).center());
  EXPECT_EQ(Message(), desk.Folder / "evening.pbn");
  QTest::keyClick(&file, Qt::Key_Return);
  EXPECT_EQ(Message(), "");
  EXPECT_TRUE(test::Visible(*menu, "Panel1"));
  EXPECT_EQ(Text("Panel1"), "Boards loaded: 1");
}

}  // namespace
}  // namespace morvane::shell
