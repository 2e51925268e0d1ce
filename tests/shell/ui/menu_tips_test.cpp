#include <QMenu>
#include <QStatusBar>
#include <QTest>

#include "shell/ui/main_menu_desk.h"

namespace morvane::shell {
namespace {

/// What the operator is told of an entry, reached by mouse or keys.
class MenuTips : public MainMenuTest {
 protected:
  QAction& Entry(const char* name) { return test::Find<QAction>(*menu, name); }
  /// The message over the status's first panel.
  std::string Message() {
    desk.Loop.Pump();
    return menu->statusBar()->currentMessage().toStdString();
  }
};

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
