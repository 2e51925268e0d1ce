#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QMessageBox>
#include <QTimer>

#include "files/format_table.h"
#include "platform/qt/qt_ui.h"
#include "support/qt_desk.h"

namespace morvane {
namespace {

using test::QtDesk;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::SizeIs;

class FileDialogs : public ::testing::Test {
 protected:
  QtDesk desk;

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

}  // namespace
}  // namespace morvane
