#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include "platform/qt/window_place.h"
#include "shell/ui/every_window.h"

namespace morvane::shell {
namespace {

using ::testing::Combine;
using ::testing::Values;

std::string NameOf(const QWidget& control) {
  return control.window()->objectName().toStdString() + "." + control.objectName().toStdString() +
         " " + control.metaObject()->className();
}

bool IsViewport(const QWidget& control) {
  const auto* area = qobject_cast<const QScrollArea*>(control.parentWidget());
  return area != nullptr && area->viewport() == &control;
}

/// Lies whole within what it is a part of, or in something that scrolls.
bool CanBeReached(const QWidget& control) {
  const QWidget* part = &control;
  for (; !part->isWindow(); part = part->parentWidget()) {
    const QWidget& around = *part->parentWidget();
    if (!IsViewport(around) && !around.rect().contains(part->geometry())) return false;
  }
  return true;
}

/// Whole, or as much of it as there is room for.
bool IsInSight(const QWidget& control) {
  QRect rest = control.rect();
  QSize room = control.size();
  for (const QWidget* part = &control; !part->isWindow(); part = part->parentWidget()) {
    rest = rest.translated(part->pos()) & part->parentWidget()->rect();
    if (IsViewport(*part->parentWidget())) room = room.boundedTo(part->parentWidget()->size());
  }
  return control.isVisible() && rest.size() == room;
}

bool CardsRun(const QWidget& window) {
  for (const char* name : {"cmdBreak", "cmdSortBreak"}) {
    const auto* button = window.findChild<QWidget*>(name);
    if (button != nullptr && button->isEnabled()) return true;
  }
  return window.objectName() == "Poker" && test::TextOf(window, "txtStatus") == "Busy";
}

/// The screen and how large the font is, in percent.
class SmallScreen : public EveryWindow,
                    public ::testing::WithParamInterface<std::tuple<QSize, int>> {
 protected:
  const QRect screen{QPoint(), std::get<QSize>(GetParam())};
  const QFont before = QApplication::font();

  SmallScreen() {
    QFont font = before;
    font.setPointSizeF(before.pointSizeF() * std::get<int>(GetParam()) / 100);
    QApplication::setFont(font);
  }
  ~SmallScreen() override { QApplication::setFont(before); }

  void Fit(QWidget& window) {
    FitToScreen(window, screen);
    desk.Loop.Pump();
    EXPECT_TRUE(screen.contains(window.frameGeometry())) << NameOf(window);
  }
};
class SmallScreenAtUsualFont : public SmallScreen {};

INSTANTIATE_TEST_SUITE_P(Sizes, SmallScreen,
                         Combine(Values(QSize(800, 600), QSize(911, 512), QSize(853, 480)),
                                 Values(100, 150)));
INSTANTIATE_TEST_SUITE_P(Sizes, SmallScreenAtUsualFont,
                         Combine(Values(QSize(800, 600), QSize(911, 512), QSize(853, 480)),
                                 Values(100)));

// The tests of all windows run once more as processes with another scale.
TEST(Scale, IsTheOneThatTheTestsAreRunWith) {
  const QString asked = qEnvironmentVariable("QT_SCALE_FACTOR", "1");
  EXPECT_EQ(qApp->devicePixelRatio(), asked.toDouble());
  EXPECT_EQ(QApplication::primaryScreen()->size(), QSize(800, 800)) << "in the windows' pixels";
}

TEST_P(SmallScreen, NothingOfAnyWindowIsCutOff) {
  LookAtAll([this](QWidget& window) {
    Fit(window);
    for (const QWidget* control : window.findChildren<QWidget*>()) {
      if (!control->isVisible() || control->window() != &window) continue;
      EXPECT_TRUE(CanBeReached(*control)) << NameOf(*control);
    }
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      if (!label->isVisible()) continue;
      EXPECT_GE(label->width(), label->minimumSizeHint().width()) << NameOf(*label);
      EXPECT_GE(label->height(), label->minimumSizeHint().height()) << NameOf(*label);
    }
  });
}

TEST_P(SmallScreen, WhatTheTabKeyReachesIsInSight) {
  LookAtAll([this](QWidget& window) {
    Fit(window);
    std::set<const QWidget*> reached;
    for (;;) {
      test::Press(window, Qt::Key_Tab);
      const QWidget* focus = window.focusWidget();
      if (CardsRun(window)) return;  // then only a letter or a click does something
      ASSERT_NE(focus, nullptr) << NameOf(window);
      if (!reached.insert(focus).second) break;
      EXPECT_TRUE(IsInSight(*focus)) << NameOf(*focus);
    }
    EXPECT_FALSE(reached.empty());
  });
}

TEST_P(SmallScreen, WhatALetterOrAClickReachesIsInSight) {
  LookAtRun([this](QWidget& window) {
    Fit(window);
    for (auto* option : window.findChildren<QAbstractButton*>()) {
      if (!option->isVisible() || !option->isEnabled() || option->focusPolicy() == Qt::NoFocus)
        continue;
      option->setFocus(Qt::ShortcutFocusReason);
      desk.Loop.Pump();
      EXPECT_TRUE(IsInSight(*option)) << NameOf(*option);
    }
  });
}

TEST_P(SmallScreenAtUsualFont, OnlyTheOptionsOfTheRunWindowGiveWay) {
  LookAtRun([this](QWidget& window) {
    Fit(window);
    if (window.objectName() != "DealinProg") return;
    for (const char* name :
         {"txtStatus", "lblProgress", "txtDealTime",  "txtFile",     "Picture1",
          "cmdFirst",  "cmdLast",     "NumberCopies", "Subfrom",     "Subto",
          "Sublast",   "lblCnt_1",    "lblCnt_4",     "lblHCP_4",    "National_1",
          "cmdDeal",   "Deal_next",   "cmdBreak",     "Disp_boards", "cmdExit"}) {
      const auto& control = test::Find<QWidget>(window, name);
      EXPECT_TRUE(IsInSight(control)) << name;
    }
    EXPECT_FALSE(IsInSight(test::Find<QWidget>(window, "TestText")));
  });
}

TEST_P(SmallScreenAtUsualFont, OnlyTheOrderOfThePokerWindowGivesWay) {
  LookAtPoker([this](QWidget& window) {
    Fit(window);
    for (const char* name :
         {"txtStatus", "Label1", "Label3", "lblProgress", "picSteps", "Deal_label", "picReq",
          "picReq1", "First", "Last", "Number_deals", "FirstDeal", "FourthDeal", "NextDeal",
          "CancelDeal", "Read", "ReadNext", "cmdExit"}) {
      EXPECT_TRUE(IsInSight(test::Find<QWidget>(window, name))) << name;
    }
  });
}

TEST_P(SmallScreenAtUsualFont, ALongReportIsReadWithTheKeys) {
  LookAtBoxes([this](QWidget& window) {
    Fit(window);
    const auto areas = window.findChildren<QScrollArea*>();
    if (areas.empty()) return;
    const QScrollBar& bar = *areas.front()->verticalScrollBar();
    while (window.focusWidget() != areas.front()) test::Press(window, Qt::Key_Tab);
    EXPECT_EQ(bar.value(), 0);
    test::Press(window, Qt::Key_PageDown);
    EXPECT_GT(bar.value(), 100);
    const auto& text = test::Find<QLabel>(window, "qt_msgbox_label");
    EXPECT_GT(text.height(), 100 * 10) << "a line for each board";
  });
}

TEST_P(SmallScreenAtUsualFont, ALongReportIsALargeBoxWhoseTextScrolls) {
  int scrolling = 0;
  LookAtBoxes([&](QWidget& window) {
    Fit(window);
    if (window.findChildren<QScrollArea*>().empty()) return;
    ++scrolling;
    for (const auto* button : window.findChildren<QPushButton*>()) {
      EXPECT_TRUE(IsInSight(*button)) << NameOf(*button);
    }
    EXPECT_EQ(window.frameGeometry().height(), screen.height());
  });
  EXPECT_EQ(scrolling, 1) << "the short box needs none of it";
}

}  // namespace
}  // namespace morvane::shell
