#include "platform/qt/qt_ui.h"

#include <QApplication>
#include <QCursor>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>

#include "platform/qt/qt_event_loop.h"
#include "support/qt_desk.h"

namespace morvane {
namespace {

using test::QtDesk;

constexpr int kOkCancel = 1;

class QtUiTest : public ::testing::Test {
 protected:
  QtDesk desk;

  /// The captions of a box with these flags, joined by "|", and its icon.
  std::pair<std::string, QMessageBox::Icon> Look(int flags) {
    std::string captions;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    desk.When("MessageBox", [&](QWidget& window) {
      const auto& box = static_cast<QMessageBox&>(window);
      icon = box.icon();
      for (const auto button :
           {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}) {
        if (box.button(button) == nullptr) continue;
        captions +=
            (captions.empty() ? "" : "|") + box.button(button)->text().remove('&').toStdString();
      }
      window.close();
    });
    desk.Ui.MessageBox("text", flags, "title");
    return {captions, icon};
  }
  int AnswerTo(int flags, QMessageBox::StandardButton button) {
    desk.AnswerBox(button);
    return desk.Ui.MessageBox("text", flags, "title");
  }
  int EscapeFrom(int flags) {
    desk.When("MessageBox", [](QWidget& box) { test::Press(box, Qt::Key_Escape); });
    return desk.Ui.MessageBox("text", flags, "title");
  }
};

TEST_F(QtUiTest, TheFlagsChooseButtonsAndIcon) {
  using Look = std::pair<std::string, QMessageBox::Icon>;
  EXPECT_EQ(this->Look(kOkCritical), Look("OK", QMessageBox::Critical));
  EXPECT_EQ(this->Look(kOkCancelCritical), Look("OK|Cancel", QMessageBox::Critical));
  EXPECT_EQ(this->Look(kYesNoQuestion), Look("Yes|No", QMessageBox::Question));
  EXPECT_EQ(this->Look(kOkExclamation), Look("OK", QMessageBox::Warning));
  EXPECT_EQ(this->Look(kYesNoCancelExclamation), Look("Yes|No|Cancel", QMessageBox::Warning));
  EXPECT_EQ(this->Look(kYesNoExclamation), Look("Yes|No", QMessageBox::Warning));
  EXPECT_EQ(this->Look(kOkInformation), Look("OK", QMessageBox::Information));
  EXPECT_EQ(this->Look(kYesNoInformation), Look("Yes|No", QMessageBox::Information));
  EXPECT_EQ(this->Look(kYesNoSystem), Look("Yes|No", QMessageBox::NoIcon));
  EXPECT_EQ(this->Look(0), Look("OK", QMessageBox::NoIcon));
}

TEST_F(QtUiTest, TheButtonIsTheAnswer) {
  EXPECT_EQ(AnswerTo(kOkCritical, QMessageBox::Ok), kOk);
  EXPECT_EQ(AnswerTo(kOkCancel, QMessageBox::Ok), kOk);
  EXPECT_EQ(AnswerTo(kOkCancel, QMessageBox::Cancel), kCancel);
  EXPECT_EQ(AnswerTo(kYesNoCancelExclamation, QMessageBox::Yes), kYes);
  EXPECT_EQ(AnswerTo(kYesNoCancelExclamation, QMessageBox::No), kNo);
  EXPECT_EQ(AnswerTo(kYesNoCancelExclamation, QMessageBox::Cancel), kCancel);
  EXPECT_EQ(AnswerTo(kYesNoQuestion, QMessageBox::No), kNo);
}

TEST_F(QtUiTest, ReturnIsTheFirstButtonUnlessTheFlagsSayNo) {
  const auto returnIn = [this](int flags) {
    desk.When("MessageBox", [](QWidget& box) { test::Press(box, Qt::Key_Return); });
    return desk.Ui.MessageBox("text", flags, "title");
  };
  EXPECT_EQ(returnIn(kYesNoExclamation), kYes);
  EXPECT_EQ(returnIn(kYesNoExclamationNo), kNo);
  EXPECT_EQ(returnIn(kYesNoSystem), kNo);
  EXPECT_EQ(this->Look(kYesNoExclamationNo), this->Look(kYesNoExclamation));
}

TEST_F(QtUiTest, EscapeIsTheAnswerThatChangesLeast) {
  EXPECT_EQ(EscapeFrom(kOkCritical), kOk);
  EXPECT_EQ(EscapeFrom(kOkCancel), kCancel);
  EXPECT_EQ(EscapeFrom(kYesNoQuestion), kNo);
  EXPECT_EQ(EscapeFrom(kYesNoSystem), kNo);
  EXPECT_EQ(EscapeFrom(kYesNoCancelExclamation), kCancel);
}

TEST_F(QtUiTest, ThePaddingOfACatalogueTextIsNotShown) {
  desk.AnswerBox(QMessageBox::No);
  desk.Ui.MessageBox(desk.Prog.Texts.Msg062, kYesNoExclamation, "Exit");
  EXPECT_EQ(desk.Boxes.at(0).Title, "Exit");
  EXPECT_EQ(desk.Boxes.at(0).Text,
            "Current Board Set has not been saved.\n\n"
            "Do you want to save the current Board Set?");
}

TEST_F(QtUiTest, ATextIsNeverTakenForMarkup) {
  desk.When("MessageBox", [](QWidget& box) {
    EXPECT_EQ(static_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
    box.close();
  });
  desk.Ui.MessageBox("<b>file</b>", kOkCritical, "title");
}

TEST_F(QtUiTest, TimersGoOnBehindABox) {
  int ticks = 0;
  const auto timer = desk.Loop.StartTimer(100, [&] { ++ticks; });
  desk.When("MessageBox", [this](QWidget& box) { desk.Loop.After(1050, [&box] { box.close(); }); });
  desk.Ui.MessageBox("text", kOkCritical, "title");
  EXPECT_EQ(ticks, 10);
}

// Boxes beside.

TEST_F(QtUiTest, ABoxBesideWaitsForNobody) {
  int ticks = 0;
  const auto timer = desk.Loop.StartTimer(100, [&] { ++ticks; });
  desk.Ui.BoxBeside("      text      ", kOkCritical, "title");
  EXPECT_EQ(ticks, 0) << "it has come back at once";
  auto* box = qobject_cast<QMessageBox*>(test::TopWindow("MessageBox"));
  ASSERT_NE(box, nullptr);
  EXPECT_FALSE(box->isModal());
  EXPECT_EQ(box->windowTitle(), "title");
  EXPECT_EQ(box->text(), "text");
  EXPECT_EQ(box->icon(), QMessageBox::Critical);
  desk.When("MessageBox", [](QWidget&) {});
  desk.Loop.WaitMs(1050);
  EXPECT_EQ(ticks, 10);
  EXPECT_TRUE(box->isVisible());
}

TEST_F(QtUiTest, ABoxBesideGoesForGoodWhenItIsAnswered) {
  desk.Ui.BoxBeside("text", kOkCritical, "title");
  const QPointer<QWidget> box = test::TopWindow("MessageBox");
  desk.When("MessageBox", [](QWidget& shown) { test::Press(shown, Qt::Key_Return); });
  desk.Loop.WaitMs(100);
  EXPECT_EQ(box, nullptr);
}

TEST_F(QtUiTest, ABoxBesideTakesKeysBesideAModalBox) {
  desk.Ui.BoxBeside("beside", kOkCritical, "title");
  const QPointer<QWidget> beside = test::TopWindow("MessageBox");
  desk.When("MessageBox", [](QWidget&) {});
  desk.Loop.Pump();
  desk.When("MessageBox", [&](QWidget& modal) {
    test::Press(*beside, Qt::Key_Return);
    EXPECT_TRUE(beside == nullptr || !beside->isVisible());
    EXPECT_TRUE(modal.isVisible());
    modal.close();
  });
  desk.Ui.MessageBox("modal", kOkCritical, "title");
}

TEST_F(QtUiTest, ABoxBesideGoesWithTheProgram) {
  QPointer<QWidget> box;
  {
    QtUi ui(desk.Loop);
    ui.BoxBeside("text", kOkCritical, "title");
    box = test::TopWindow("MessageBox");
    EXPECT_NE(box, nullptr);
  }
  EXPECT_EQ(box, nullptr);
}

TEST_F(QtUiTest, AQuitEndsABoxWithTheCautiousAnswer) {
  desk.When("MessageBox", [this](QWidget&) { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Ui.MessageBox("text", kYesNoCancelExclamation, "title"), kCancel);
  EXPECT_EQ(test::TopWindow("MessageBox"), nullptr);
}

TEST_F(QtUiTest, AQuitEndsAQuestionWithoutCancelWithNo) {
  desk.When("MessageBox", [this](QWidget&) { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Ui.MessageBox("text", kYesNoQuestion, "title"), kNo);
}

TEST_F(QtUiTest, ABoxBlocksTheMainWindow) {
  QMainWindow window;
  auto* button = new QPushButton("Button", &window);
  window.setCentralWidget(button);
  window.show();
  desk.Ui.SetMainWindow({button, nullptr, nullptr});
  int clicks = 0;
  QObject::connect(button, &QPushButton::clicked, [&] { ++clicks; });
  desk.When("MessageBox", [&](QWidget& box) {
    test::Click(*button);
    EXPECT_EQ(clicks, 0);
    box.close();
  });
  desk.Ui.MessageBox("text", kOkCritical, "title");
  test::Click(*button);
  EXPECT_EQ(clicks, 1);
}

TEST_F(QtUiTest, ABoxOverAllWindowsBlocksThoseBesideTheMainOneToo) {
  QPushButton beside("Button");
  beside.show();
  int clicks = 0;
  QObject::connect(&beside, &QPushButton::clicked, [&] { ++clicks; });
  QMainWindow window;
  window.show();
  desk.Ui.SetMainWindow({&window, nullptr, nullptr});
  bool onTop = false;
  for (const int flags : {int{kYesNoQuestion}, int{kYesNoSystem}}) {
    desk.When("MessageBox", [&](QWidget& box) {
      test::Click(beside);
      onTop = box.windowFlags().testFlag(Qt::WindowStaysOnTopHint);
      box.close();
    });
    desk.Ui.MessageBox("text", flags, "title");
    EXPECT_EQ(clicks, 1) << "only behind the first";
    EXPECT_EQ(onTop, flags == kYesNoSystem);
  }
  test::Click(beside);
  EXPECT_EQ(clicks, 2);
}

TEST_F(QtUiTest, StatusAndRefreshGoToTheMainWindow) {
  desk.Ui.Status("lost");
  desk.Ui.RefreshSet();
  QWidget client;
  std::string status;
  int refreshes = 0;
  desk.Ui.SetMainWindow(
      {&client, [&](const std::string& text) { status = text; }, [&] { ++refreshes; }});
  desk.Ui.Status("Ready");
  desk.Ui.RefreshSet();
  EXPECT_EQ(status, "Ready");
  EXPECT_EQ(refreshes, 1);
}

TEST_F(QtUiTest, TheMouseIsInTheMainWindowsCoordinates) {
  QWidget client;
  client.move(100, 50);
  client.show();
  desk.Loop.Pump();
  desk.Ui.SetMainWindow({&client, nullptr, nullptr});
  QCursor::setPos(client.mapToGlobal(QPoint(30, 20)));
  const Point at = desk.Ui.Mouse();
  EXPECT_EQ(at.X, 30);
  EXPECT_EQ(at.Y, 20);
}

TEST_F(QtUiTest, TheHourglassComesAndGoes) {
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  desk.Ui.Busy(true);
  desk.Ui.Busy(true);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  desk.Ui.Busy(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(QtUiTest, WhatIsWaitedForStandsInPlaceOfTheStatusUnderAnHourglassOfItsOwn) {
  QMainWindow window;
  std::string shown;
  desk.Ui.SetMainWindow({&window, [&](const std::string& text) { shown = text; }, {}});
  desk.Ui.Status("Saving");
  {
    const Hourglass flows(desk.Ui);
    desk.Ui.Waiting("Waiting for another program");
    EXPECT_EQ(shown, "Waiting for another program");
    desk.Ui.Waiting("");
    EXPECT_EQ(shown, "Saving");
    EXPECT_NE(QApplication::overrideCursor(), nullptr) << "the flow's hourglass is still there";
  }
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  desk.Ui.Waiting("Waiting for another program");
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
  desk.Ui.Waiting("");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

/// A window that counts how often it has painted.
class CountingWindow final : public QWidget {
 public:
  int Paints = 0;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override { ++Paints; }
};

TEST_F(QtUiTest, WhileSomethingIsWaitedForTheWindowsPaint) {
  QtEventLoop loop;
  CountingWindow window;
  window.show();
  loop.Pump();
  const int before = window.Paints;
  window.update();
  loop.Paint();
  EXPECT_GT(window.Paints, before);
}

}  // namespace
}  // namespace morvane
