#include <QDialog>
#include <QMenuBar>
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
    if (window.objectName() == "Magnify1") return;  // high, and over the console: that stays free
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
  const int least = std::max(menu->sizeHint().width(), menu->menuBar()->sizeHint().width());
  content->setFixedSize(menu->screen()->availableSize().width() - least - 40, 300);
  (new QVBoxLayout(&panel))->addWidget(content);
  Dock(panel, *menu);
  panel.show();
  EXPECT_FALSE(panel.frameGeometry().intersects(menu->frameGeometry()));
  EXPECT_LT(menu->width(), 720);
  EXPECT_GE(menu->width(), least);
}

// 1366 x 768 and 1280 x 720 at 150 %: what does not fit of the statistics scrolls.
TEST_F(WindowPlaces, TheMainWindowWithItsStatisticsGetsNarrowerForThePanel) {
  Start();
  desk.Prog.ShowStatistics = true;
  menu->RefreshSet();
  for (const QRect screen : {QRect(0, 0, 911, 512), QRect(0, 0, 853, 480)}) {
    menu->resize(720, 480);
    FitToScreen(*menu, screen);
    test::FakePacks packs;
    simulator::MachinePanel panel(desk.Loop, simulated, packs);
    Dock(panel, *menu, screen);
    panel.show();
    desk.Loop.Pump();
    const QRect place = menu->frameGeometry();
    QMenuBar& menus = *menu->menuBar();
    const int rounding = 4;  // of the widths of letters on scaled screens
    EXPECT_LE(menus.width(), menus.sizeHint().width() + rounding) << "537 in a font of 9 points";
    EXPECT_TRUE(screen.contains(panel.frameGeometry()));
    EXPECT_TRUE(screen.contains(place));
    EXPECT_FALSE(panel.frameGeometry().intersects(place));
    for (QAction* entry : menus.actions()) {
      EXPECT_TRUE(menus.rect().contains(menus.actionGeometry(entry)));
    }
    EXPECT_EQ(ButtonsOf(*menu), QList<QRect>{OnDesktop(test::Find<QWidget>(*menu, "ShowStat"))})
        << "whole, and not scrolled away";
  }
}

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

// The run window takes the whole screen and lies over the panel.
TEST_F(WindowPlaces, ABoxOverTheRunWindowLeavesItsStateFree) {
  LookAtPanel([this](QWidget& panel) {
    Start();
    panel.move(100, 170);
    const QWidget* run = nullptr;
    LookAtRun([&](QWidget& window) {
      FitToScreen(window, {0, 0, 800, 600});
      if (run == nullptr) run = &window;
      if (run == &window) return;
      ASSERT_TRUE(run->frameGeometry().contains(panel.frameGeometry()));
      for (const char* name : {"txtStatus", "lblProgress", "cmdBreak"}) {
        const QRect place = OnDesktop(test::Find<QWidget>(*run, name));
        EXPECT_FALSE(window.frameGeometry().intersects(place)) << name;
      }
    });
  });
}

// In the middle it would stand on the buttons below the diagram. The shortest way is up, over the
// state of the machine; right of them it leaves both free.
TEST_F(WindowPlaces, AHighBoxLeavesTheRunWindowsStateFree) {
  LookAtRun([](QWidget& window) {
    if (window.objectName() != "DealinProg") return;
    FitToScreen(window, {0, 0, 800, 600});
    QDialog box(&window);
    box.resize(290, 420);
    box.open();
    FitToScreen(box, {0, 0, 800, 600});
    for (const char* name : {"txtStatus", "lblProgress", "cmdFirst", "cmdLast", "cmdDeal"}) {
      const QRect place = OnDesktop(test::Find<QWidget>(window, name));
      EXPECT_FALSE(FramedPlace(box).intersects(place)) << name;
    }
  });
}

TEST_F(WindowPlaces, AButtonThatCannotBePressedMayBeCovered) {
  Start();
  auto& button = test::Find<QWidget>(*menu, "ShowStat");
  EXPECT_EQ(ButtonsOf(*menu), QList<QRect>{OnDesktop(button)});
  button.setEnabled(false);
  EXPECT_EQ(ButtonsOf(*menu), QList<QRect>());
}

TEST_F(WindowPlaces, AKeptPlaceBeyondTheScreenComesBack) {
  const QRect screen = menu->screen()->availableGeometry();
  Start();
  menu->setGeometry(screen.right() - 60, screen.bottom() - 50, 700, 500);
  menu->close();
  const MainMenu again(desk.Prog, shell, help);
  EXPECT_TRUE(screen.contains(again.geometry()));
  EXPECT_EQ(again.size(), QSize(700, 500));
}

TEST_F(WindowPlaces, AKeptPlaceLargerThanTheScreenBecomesSmaller) {
  const QRect screen = menu->screen()->availableGeometry();
  Start();
  menu->setGeometry(0, 0, screen.width() + 500, screen.height() + 300);
  menu->close();
  const MainMenu again(desk.Prog, shell, help);
  EXPECT_TRUE(screen.contains(again.geometry()));
}

}  // namespace
}  // namespace morvane::shell
