#include "platform/qt/qt_ui.h"

#include <QApplication>
#include <QComboBox>
#include <QCursor>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include "files/format_table.h"
#include "platform/qt/qt_event_loop.h"
#include "support/qt_desk.h"

namespace morvane {
namespace {

using test::QtDesk;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::SizeIs;

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
  EXPECT_EQ(this->Look(kYesNoExclamationNo), this->Look(kYesNoExclamation));
}

TEST_F(QtUiTest, EscapeIsTheAnswerThatChangesLeast) {
  EXPECT_EQ(EscapeFrom(kOkCritical), kOk);
  EXPECT_EQ(EscapeFrom(kOkCancel), kCancel);
  EXPECT_EQ(EscapeFrom(kYesNoQuestion), kNo);
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

class FileDialogs : public QtUiTest {
 protected:
  FileRequest Request(bool saving) {
    FileRequest request;
    request.Title = saving ? "Save Board Set" : "Open Board Set file";
    request.Filter = saving ? files::SaveFilter() : files::OpenFilter(0);
    request.FilterIndex = saving ? 5 : 6;  // pbn
    request.Directory = desk.Folder.Path();
    request.Saving = saving;
    return request;
  }
  /// The rows that the operator can choose from, the chosen one in brackets.
  static std::vector<std::string> Rows(const QWidget& dialog) {
    const auto& combo = test::Find<QComboBox>(dialog, "fileTypeCombo");
    std::vector<std::string> rows;
    for (int i = 0; i < combo.count(); ++i) {
      const std::string row = combo.itemText(i).toStdString();
      rows.push_back(i == combo.currentIndex() ? "[" + row + "]" : row);
    }
    return rows;
  }
  /// The names that the dialog lists, as patterns.
  static QStringList Patterns(const QWidget& dialog) {
    return test::Find<QFileSystemModel>(dialog, "qt_filesystem_model").nameFilters();
  }
  /// To the box that has the focus when the dialog comes up.
  static void EnterName(QWidget& dialog, const std::string& name) {
    test::Type(dialog, name);
    test::Press(dialog, Qt::Key_Return);
  }
  /// The dialog asks or tells by boxes of its own, which wait in a loop of their own: each is
  /// answered with `button`.
  void AnswerOwnBoxes(QWidget& dialog, QMessageBox::StandardButton button) {
    auto* watch = new QTimer(&dialog);
    QObject::connect(watch, &QTimer::timeout, &dialog, [this, button] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      ownBoxes.push_back(box->text().toStdString());
      box->button(button)->click();
    });
    watch->start(0);
  }
  std::vector<std::string> ownBoxes;
};

TEST_F(FileDialogs, ShowTheirTitleAndTheChosenRow) {
  desk.When("cdOpen", [](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "Open Board Set file");
    EXPECT_THAT(Rows(window),
                ElementsAre("All files (*.*)", "bri (*.bri)", "dge (*.dge)", "bre (*.bre)",
                            "dup (*.dup)", "[pbn (*.pbn)]", "DEAL305 (*.all)", "csv (*.csv)"));
    test::Press(window, Qt::Key_Escape);
  });
  EXPECT_EQ(desk.Ui.AskFile(Request(false)), std::nullopt);
  desk.When("cdSave", [](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "Save Board Set");
    EXPECT_THAT(Rows(window),
                ElementsAre("bri (*.bri)", "dge (*.dge)", "bre (*.bre)", "dup (*.dup)",
                            "[pbn (*.pbn)]", "DEAL305 (*.all)", "csv (*.csv)"));
    test::Press(window, Qt::Key_Escape);
  });
  EXPECT_EQ(desk.Ui.AskFile(Request(true)), std::nullopt);
}

TEST_F(FileDialogs, LogsHaveTheLastRowOfTheService) {
  FileRequest request = Request(false);
  request.Filter = files::OpenFilter(1);
  request.FilterIndex = files::OpenFilterIndex("txt", 1);
  desk.When("cdOpen", [](QWidget& window) {
    const auto rows = Rows(window);
    ASSERT_EQ(rows.size(), 9U);
    EXPECT_EQ(rows[7], "[csv (*.csv)]");
    EXPECT_EQ(rows[8], "Log (*.txt)");
    window.close();
  });
  EXPECT_EQ(desk.Ui.AskFile(request), std::nullopt);
}

TEST_F(FileDialogs, RowsCountFromOneAndOutOfRangeIsTheNearest) {
  for (const auto& [index, row] :
       {std::pair{0, "[All files (*.*)]"}, {1, "[All files (*.*)]"}, {9, "[csv (*.csv)]"}}) {
    FileRequest request = Request(false);
    request.FilterIndex = index;
    desk.When("cdOpen", [row = row](QWidget& window) {
      EXPECT_THAT(Rows(window), Contains(row));
      window.close();
    });
    EXPECT_EQ(desk.Ui.AskFile(request), std::nullopt);
  }
}

TEST_F(FileDialogs, ARowListsItsOwnFilesAndAllFilesTheOnesWithoutADotToo) {
  FileRequest request = Request(false);
  for (const auto& [row, pattern] : {std::pair{6, "*.pbn"}, {7, "*.all"}, {1, "*"}}) {
    request.FilterIndex = row;
    desk.When("cdOpen", [pattern = pattern](QWidget& window) {
      EXPECT_EQ(Patterns(window), QStringList{pattern});
      window.close();
    });
    EXPECT_EQ(desk.Ui.AskFile(request), std::nullopt);
  }
}

TEST_F(FileDialogs, OpenInTheirFolder) {
  for (const bool saving : {false, true}) {
    FileRequest request = Request(saving);
    request.Directory = desk.Prog.Paths.Data + "/";
    desk.When(saving ? "cdSave" : "cdOpen", [this](QWidget& window) {
      EXPECT_EQ(static_cast<QFileDialog&>(window).directory().path().toStdString(),
                desk.Prog.Paths.Data);
      window.close();
    });
    EXPECT_EQ(desk.Ui.AskFile(request), std::nullopt);
  }
}

TEST_F(FileDialogs, AFolderThatIsGoneGivesWayToOneThatIsThere) {
  FileRequest request = Request(false);
  for (const char* folder : {"/none/at/all/", "c:\\sets\\"}) {
    request.Directory = folder;
    desk.When("cdOpen", [](QWidget& window) {
      EXPECT_TRUE(static_cast<QFileDialog&>(window).directory().exists());
      window.close();
    });
    EXPECT_EQ(desk.Ui.AskFile(request), std::nullopt);
  }
}

TEST_F(FileDialogs, OpenGivesTheFullPath) {
  test::WriteContent(desk.Folder / "evening.pbn", "x");
  desk.When("cdOpen", [](QWidget& dialog) { EnterName(dialog, "evening.pbn"); });
  EXPECT_EQ(desk.Ui.AskFile(Request(false)), desk.Folder / "evening.pbn");
}

TEST_F(FileDialogs, OpenTakesNoFileThatIsNotThere) {
  desk.When("cdOpen", [this](QWidget& dialog) {
    AnswerOwnBoxes(dialog, QMessageBox::Ok);
    EnterName(dialog, "none.pbn");
    EXPECT_TRUE(dialog.isVisible());
    test::Press(dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(desk.Ui.AskFile(Request(false)), std::nullopt);
  EXPECT_THAT(ownBoxes, ElementsAre(::testing::HasSubstr("File not found")));
}

TEST_F(FileDialogs, SaveTakesTheNameAsItIs) {
  for (const char* name : {"evening.pbn", "evening.PBN", "evening.bri", "evening"}) {
    desk.When("cdSave", [name](QWidget& dialog) { EnterName(dialog, name); });
    EXPECT_EQ(desk.Ui.AskFile(Request(true)), desk.Folder / name) << "whatever the row";
  }
}

TEST_F(FileDialogs, SaveAsksBeforeItOverwrites) {
  test::WriteContent(desk.Folder / "evening.pbn", "x");
  desk.When("cdSave", [this](QWidget& dialog) {
    AnswerOwnBoxes(dialog, QMessageBox::Yes);
    EnterName(dialog, "evening.pbn");
  });
  EXPECT_EQ(desk.Ui.AskFile(Request(true)), desk.Folder / "evening.pbn");
  EXPECT_THAT(ownBoxes, ElementsAre(::testing::HasSubstr("evening.pbn already exists")));
}

TEST_F(FileDialogs, SaveWithANoToOverwritingStaysOpen) {
  test::WriteContent(desk.Folder / "evening.pbn", "x");
  desk.When("cdSave", [this](QWidget& dialog) {
    AnswerOwnBoxes(dialog, QMessageBox::No);
    EnterName(dialog, "evening.pbn");
    EXPECT_TRUE(dialog.isVisible());
    test::Press(dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(desk.Ui.AskFile(Request(true)), std::nullopt);
  EXPECT_THAT(ownBoxes, SizeIs(1));
}

TEST_F(FileDialogs, AQuitEndsThemWithoutAFile) {
  desk.When("cdSave", [this](QWidget&) { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Ui.AskFile(Request(true)), std::nullopt);
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
