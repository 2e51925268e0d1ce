#include <QMenu>

#include "shell/ui/main_menu_desk.h"

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecentEntries : public MainMenuTest {
 protected:
  /// With real keys, as the operator opens it.
  QMenu& OpenFileMenu() {
    menu->activateWindow();  // the offscreen platform leaves that out behind a box
    desk.Loop.Pump();
    test::Press(*menu, Qt::Key_F, Qt::AltModifier);
    desk.Loop.Pump();
    auto& file = test::Find<QMenu>(*menu, "menuFile");
    EXPECT_TRUE(file.isVisible());
    return file;
  }
  void Choose(Qt::Key key) {
    test::Press(OpenFileMenu(), key);
    desk.Loop.Pump();
  }
  std::string Write(const std::string& name, int board) {
    test::WriteContent(desk.Folder / name, "[Board \"" + std::to_string(board) + "\"]\r\n");
    return desk.Folder / name;
  }
  void Remember(const std::vector<RecentFile>& files) {
    desk.Store.Set(kRecentFiles, RecentFilesText(files));
  }
  /// The names of what stands between `menuSave` and `div1`.
  std::vector<std::string> Shown() {
    std::vector<std::string> names;
    bool between = false;
    for (const QAction* entry : OpenFileMenu().actions()) {
      if (entry->objectName() == "div1") between = false;
      if (between && entry->isVisible()) names.push_back(entry->objectName().toStdString());
      if (entry->objectName() == "menuSave") between = true;
    }
    test::Find<QMenu>(*menu, "menuFile").close();
    return names;
  }
  std::string Caption(const char* name) {
    OpenFileMenu().close();
    return test::Find<QAction>(*menu, name).text().toStdString();
  }
};

TEST_F(RecentEntries, AreNotThereWithoutFiles) {
  Start();
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(RecentEntries, StandUnderTheFileMenuAfterSaveTheNewestFirst) {
  Start();
  Remember({{"/sets/new.pbn", false}, {"/sets/old.bri", true}});
  EXPECT_THAT(Shown(), ElementsAre("divRecent", "menuRecent1", "menuRecent2"));
  EXPECT_EQ(Caption("menuRecent1"), "&1 /sets/new.pbn");
  EXPECT_EQ(Caption("menuRecent2"), "&2 /sets/old.bri");
}

TEST_F(RecentEntries, EightHaveTheDigitsForTheirKeys) {
  Start();
  std::vector<RecentFile> files;
  for (int n = 1; n <= 8; ++n) {
    files.push_back({Write("set" + std::to_string(n) + ".pbn", 10 + n), false});
  }
  Remember(files);
  ASSERT_EQ(Shown().size(), 9U);
  Choose(Qt::Key_8);
  EXPECT_EQ(Text("txtFirstBoard"), "18");
  EXPECT_EQ(Text("txtFileName"), files[7].Path);
  Choose(Qt::Key_2);
  EXPECT_EQ(Text("txtFirstBoard"), "11") << "the last one stands in front now";
}

TEST_F(RecentEntries, AFileThatWasLoadedIsLoadedAgainWithTwoKeys) {
  Start();
  const std::string path = Write("evening.pbn", 9);
  shell.LinkExecute("1" + path);
  desk.Loop.WaitMs(Shell::kTimer2Ms);
  desk.Prog.Set.Clear();
  Choose(Qt::Key_1);
  EXPECT_EQ(Text("txtFirstBoard"), "9");
  EXPECT_EQ(Text("Panel1"), "Boards loaded: 1");
}

TEST_F(RecentEntries, TheUnsavedSetIsAskedAboutFirst) {
  Start();
  const std::string path = Write("evening.pbn", 9);
  Remember({{path, false}});
  test::FillSet(desk.Prog.Set, 1, 2);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.AnswerBox(QMessageBox::Cancel);
  Choose(Qt::Key_1);
  EXPECT_EQ(desk.Boxes.at(0).Title, "Load New Board Set");
  EXPECT_EQ(desk.Prog.Set.LastBoard, 2);
  desk.AnswerBox(QMessageBox::No);
  Choose(Qt::Key_1);
  EXPECT_EQ(Text("txtFirstBoard"), "9");
}

TEST_F(RecentEntries, AFileThatIsGoneIsToldAndLeavesTheMenu) {
  Start();
  Remember({{desk.Folder / "gone.pbn", false}});
  desk.AnswerBox(QMessageBox::Ok);
  Choose(Qt::Key_1);
  EXPECT_EQ(desk.Boxes.at(0).Title, "Load Error");
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(RecentEntries, AnAmpersandInANameIsNoMnemonic) {
  Start();
  const std::string path = Write("Smith & Sons.pbn", 9);
  Remember({{path, false}});
  const std::string caption = Caption("menuRecent1");
  EXPECT_EQ(caption.substr(0, 3), "&1 ");
  EXPECT_NE(caption.find("Smith && Sons.pbn"), std::string::npos) << caption;
}

TEST_F(RecentEntries, ALongPathIsCutInItsMiddleAndWholeInTheTip) {
  Start();
  const std::string path = "/sets/" + std::string(300, 'x') + "/evening <b>.pbn";
  Remember({{path, false}});
  const QString caption = QString::fromStdString(Caption("menuRecent1"));
  EXPECT_TRUE(caption.startsWith("&1 /sets/x")) << caption.toStdString();
  EXPECT_TRUE(caption.endsWith("/evening <b>.pbn")) << caption.toStdString();
  EXPECT_TRUE(caption.contains(QChar(0x2026))) << "an ellipsis";
  EXPECT_LT(caption.size(), 100);
  const auto& entry = test::Find<QAction>(*menu, "menuRecent1");
  EXPECT_EQ(entry.toolTip(), "<span>" + QString::fromStdString(path).toHtmlEscaped() + "</span>");
  EXPECT_EQ(entry.statusTip().toStdString(), path);
}

TEST_F(RecentEntries, ALineEndOrATabInAPathIsShownAsAQuestionMark) {
  Start();
  Remember({{"/sets/two\nlines\tand.pbn", false}});
  EXPECT_EQ(Caption("menuRecent1"), "&1 /sets/two?lines?and.pbn");
}

}  // namespace
}  // namespace morvane::shell
