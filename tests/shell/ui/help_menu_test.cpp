#include <QClipboard>
#include <QTest>

#include "platform/qt/qt_desktop.h"
#include "shell/help_pages.h"
#include "shell/ui/every_window.h"
#include "shell/ui/help_key.h"

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// With a guide in which every page is there.
class HelpMenu : public EveryWindow {
 protected:
  HelpMenu() {
    std::filesystem::create_directory(folder_);
    WritePage(kContentsPage);
    for (const WindowPage& row : kWindowPages) WritePage(row.Page);
    for (const BoxPage& row : kBoxPages) WritePage(row.Page);
  }

  /// The pages that were opened since this was last asked.
  std::vector<std::string> Opened() {
    std::vector<std::string> pages;
    for (const std::string& path : std::exchange(around.Shown, {})) {
      pages.push_back(path.substr(folder_.size() + 1));
    }
    return pages;
  }

 private:
  void WritePage(std::string_view page) {
    test::WriteContent(folder_ + "/" + std::string(page) + ".html", "page");
  }
  const std::string folder_ = desk.Folder / "guide";
  const HelpKey key_{help};
};

TEST_F(HelpMenu, OpensTheContentsAndTheErrorCodes) {
  Start();
  Trigger("menuContents");
  Trigger("menuErrorCodes");
  EXPECT_THAT(Opened(), ElementsAre("index.html", "stops.html"));
}

TEST_F(HelpMenu, HasF1AsTheKeyOfTheContents) {
  EXPECT_EQ(test::Find<QAction>(*menu, "menuContents").shortcut(), QKeySequence(Qt::Key_F1));
}

TEST_F(HelpMenu, EveryWindowOpensItsPageByF1) {
  int windows = 0;
  LookAtAll([&](QWidget& window) {
    const std::string name = window.objectName().toStdString();
    Opened();
    test::Press(window, Qt::Key_F1);
    const auto pages = Opened();
    ++windows;
    const std::string title = window.windowTitle().toStdString();
    const std::string page(name == "MessageBox" ? PageOnBox(title) : PageOnWindow(name, title));
    EXPECT_NE(page, "") << name;
    EXPECT_THAT(pages, ElementsAre(page + ".html")) << name;
  });
  EXPECT_GT(windows, 20);
}

TEST_F(HelpMenu, ABoxInFrontHasThePageOfItsCaption) {
  Start();
  desk.When("MessageBox", [this](QWidget& box) {
    test::Press(box, Qt::Key_F1);
    EXPECT_THAT(Opened(), ElementsAre("connecting.html"));
    EXPECT_TRUE(box.isVisible());
    box.close();
  });
  desk.Ui.MessageBox("text", kOkCritical, "USB Initialization Error");
}

TEST_F(HelpMenu, ADialogForFilesHasItsPageAndStaysOpen) {
  Start();
  desk.When("cdOpen", [this](QWidget& dialog) {
    test::Press(dialog, Qt::Key_F1);
    EXPECT_THAT(Opened(), ElementsAre("files.html"));
    EXPECT_TRUE(dialog.isVisible());
    dialog.close();
  });
  desk.Ui.AskFile({"Load Board Set", "pbn (*.pbn)|*.pbn", 1, "", false});
}

TEST_F(HelpMenu, AHeldKeyOpensOnePage) {
  Start();
  QTest::sendKeyEvent(QTest::Press, menu->windowHandle(), Qt::Key_F1, QString(), Qt::NoModifier);
  for (int repeat = 0; repeat < 5; ++repeat) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, {}, true);
    QApplication::sendEvent(menu->windowHandle(), &held);
  }
  EXPECT_THAT(Opened(), ElementsAre("index.html"));
}

TEST_F(HelpMenu, WithAnotherKeyF1IsNotHelp) {
  Start();
  test::Press(*menu, Qt::Key_F1, Qt::ShiftModifier);
  test::Press(*menu, Qt::Key_F2);
  EXPECT_THAT(Opened(), IsEmpty());
}

TEST_F(HelpMenu, AnOpenMenuHasThePageOfItsWindow) {
  Start();
  test::Press(*menu, Qt::Key_F, Qt::AltModifier);
  auto& file = test::Find<QMenu>(*menu, "menuFile");
  ASSERT_TRUE(file.isVisible());
  QTest::keyClick(&file, Qt::Key_F1);
  EXPECT_THAT(Opened(), ElementsAre("index.html"));
  file.close();
}

TEST_F(HelpMenu, WithoutAGuideOneBoxComesUpAndHoldsUpNobody) {
  std::filesystem::remove_all(desk.Folder / "guide");
  Start();
  test::FillSet(desk.Prog.Set, 1, 2);
  desk.When("DealinProg", [this](QWidget& window) {
    desk.When("MessageBox", [](QWidget& box) {
      test::Press(box, Qt::Key_F1);  // no second one
      box.close();
    });
    desk.Loop.WaitMs(2100);
    desk.Loop.After(3000, [&window] { test::Press(window, Qt::Key_F1); });
    test::Click(window, "cmdDeal");
    EXPECT_EQ(desk.LogLines().back().substr(0, 8), "  001 : ");
    window.close();
  });
  Trigger("menuDeal");
  ASSERT_EQ(desk.Boxes.size(), 1U);
  EXPECT_EQ(desk.Boxes[0].Title, "Guide");
}

TEST_F(HelpMenu, TheDiagnosisGoesOntoTheClipboardAndTheStatusSaysSo) {
  Start();
  Trigger("menuDiagnosis");
  EXPECT_TRUE(around.Copied.starts_with("Diagnosis of ")) << around.Copied;
  EXPECT_EQ(Text("Panel1"), "Diagnosis copied to the clipboard");
}

TEST(QtDesktop, SaysThatNothingWasThereToShowAFile) {
  EXPECT_FALSE(QtDesktop().Show("/srv/index.html")) << "the platform of tests has no services";
}

TEST(QtDesktop, CopiesAndTellsOfItsScreen) {
  QtDesktop desktop;
  desktop.Copy("Łódź");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "Łódź");
  const auto facts = desktop.Facts();
  EXPECT_EQ(std::count(facts.begin(), facts.end(), "Windows: offscreen"), 1);
  EXPECT_TRUE(facts.back().starts_with("Screen: ")) << facts.back();
}

}  // namespace
}  // namespace morvane::shell
