#include <QScreen>
#include <QVBoxLayout>

#include "platform/qt/window_place.h"
#include "shell/ui/every_window.h"

namespace morvane::shell {
namespace {

using WindowPlaces = EveryWindow;

QRect OnDesktop(const QWidget& control) { return {control.mapToGlobal(QPoint()), control.size()}; }

TEST_F(WindowPlaces, NoWindowCoversTheMainWindowsButton) {
  LookAtAll([this](QWidget& window) {
    if (&window == menu.get()) return;
    FitToScreen(window, {0, 0, 1920, 1080});
    const auto& button = test::Find<QWidget>(*menu, "ShowStat");
    EXPECT_FALSE(window.frameGeometry().intersects(OnDesktop(button)))
        << window.objectName().toStdString();
  });
}

TEST_F(WindowPlaces, ABoxStandsInTheMiddleOfTheMainWindowWhereNoButtonIs) {
  Start();
  menu->move(300, 200);
  desk.When("MessageBox", [this](QWidget& box) {
    FitToScreen(box, {0, 0, 1920, 1080});
    const QPoint off = box.frameGeometry().center() - menu->frameGeometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
    box.close();
  });
  desk.Ui.MessageBox("text", kOkInformation, "title");
}

TEST_F(WindowPlaces, TheMainWindowGetsNarrowerForThePanel) {
  Start();
  desk.Prog.ShowStatistics = false;
  menu->RefreshSet();
  QWidget panel;
  auto* content = new QWidget;
  content->setFixedSize(menu->screen()->availableSize().width() - menu->sizeHint().width() - 40,
                        300);
  (new QVBoxLayout(&panel))->addWidget(content);
  Dock(panel, *menu);
  panel.show();
  EXPECT_FALSE(panel.frameGeometry().intersects(menu->frameGeometry()));
  EXPECT_LT(menu->width(), 720);
  EXPECT_GE(menu->width(), menu->sizeHint().width());
}

// The screen has no room for both side by side: the panel goes as low as it can.
TEST_F(WindowPlaces, TheDockedPanelLeavesTheButtonFree) {
  Start();
  menu->move(0, 0);
  LookAtPanel([this](QWidget& panel) {
    const auto& button = test::Find<QWidget>(*menu, "ShowStat");
    EXPECT_FALSE(panel.frameGeometry().intersects(OnDesktop(button)));
    EXPECT_TRUE(menu->screen()->availableGeometry().contains(panel.frameGeometry()));
  });
}

TEST_F(WindowPlaces, TheRunWindowLeavesThePanelFree) {
  LookAtPanel([this](QWidget& panel) {
    Start();
    menu->move(300, 200);
    panel.move(400, 250);
    LookAtRun([&](QWidget& window) {
      window.resize(960, 636);
      FitToScreen(window, {0, 0, 1920, 1080});
      EXPECT_FALSE(window.frameGeometry().intersects(panel.frameGeometry()))
          << window.objectName().toStdString();
    });
  });
}

TEST_F(WindowPlaces, AKeptPlaceBeyondTheScreenComesBack) {
  const QRect screen = menu->screen()->availableGeometry();
  Start();
  menu->setGeometry(screen.right() - 60, screen.bottom() - 50, 700, 500);
  menu->close();
  const MainMenu again(desk.Prog, shell);
  EXPECT_TRUE(screen.contains(again.geometry()));
  EXPECT_EQ(again.size(), QSize(700, 500));
}

TEST_F(WindowPlaces, AKeptPlaceLargerThanTheScreenBecomesSmaller) {
  const QRect screen = menu->screen()->availableGeometry();
  Start();
  menu->setGeometry(0, 0, screen.width() + 500, screen.height() + 300);
  menu->close();
  const MainMenu again(desk.Prog, shell);
  EXPECT_TRUE(screen.contains(again.geometry()));
}

}  // namespace
}  // namespace morvane::shell
