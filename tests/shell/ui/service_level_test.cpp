#include <QFileDialog>

#include "shell/ui/main_menu_desk.h"

// What the service switch changes in the windows: all three levels, whatever the build's own is.

namespace morvane::shell {
namespace {

struct Level {
  int Number;
  const char* Version;
  bool ReadsServiceFiles;
};

class ServiceLevelTest : public MainMenuTest, public ::testing::WithParamInterface<Level> {
 protected:
  ServiceLevelTest() {
    desk.Prog.ServiceLevel = GetParam().Number;
    menu = std::make_unique<MainMenu>(desk.Prog, shell, help);
  }
};

INSTANTIATE_TEST_SUITE_P(
    Levels, ServiceLevelTest,
    ::testing::Values(Level{0, "Morvane  ver: 1.0 with Sort 1.0  with Poker 1.5 ", false},
                      Level{1, "Morvane  ver: 1.0 Service  with Sort 1.0  with Poker 1.5 ", true},
                      Level{2, "Morvane  ver: 1.0 Advance Service with Sort 1.0  with Poker 1.5 ",
                            true}));

TEST_P(ServiceLevelTest, IsTheWordInTheVersion) {
  Start();
  EXPECT_EQ(Text("lblVersion"), GetParam().Version);
}

TEST_P(ServiceLevelTest, AboveZeroServiceFilesHaveAnEntry) {
  Start();
  EXPECT_EQ(test::Find<QAction>(*menu, "Read_Service_File").isVisible(),
            GetParam().ReadsServiceFiles);
}

TEST_P(ServiceLevelTest, AboveZeroTheLoadDialogOffersLogs) {
  Start();
  desk.When("cdOpen", [](QWidget& dialog) {
    const QStringList rows = static_cast<QFileDialog&>(dialog).nameFilters();
    EXPECT_EQ(rows.contains("Log (*.txt)(*.txt)"), GetParam().ReadsServiceFiles)
        << rows.join(", ").toStdString();
    test::Press(dialog, Qt::Key_Escape);
  });
  test::Press(*menu, Qt::Key_O, Qt::ControlModifier);
}

}  // namespace
}  // namespace morvane::shell
