#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include "maintenance/service_file_sample.h"
#include "shell/ui/main_menu_desk.h"

// The viewer of service files from the menu, from a start and from a drop.

namespace morvane::shell {
namespace {

using ::testing::IsEmpty;

class MenuReadService : public MainMenuTest {
 protected:
  MenuReadService() {
    desk.Prog.ServiceLevel = 1;
    menu = std::make_unique<MainMenu>(desk.Prog, shell, help);
    test::WriteContent(path, BytesOf(maintenance::SampleServiceFile()));
  }
  /// The viewer comes up with the file; `act` is done with it.
  void WhenShown(std::function<void(QWidget&)> act) {
    desk.When("Read_Service", [this, act = std::move(act)](QWidget& window) {
      ++shown;
      act(window);
    });
  }
  void ChooseTheFile() {
    desk.When("cdOpen", [this](QWidget& dialog) {
      test::Type(dialog, path);
      test::Press(dialog, Qt::Key_Return);
    });
  }

  const std::string path = desk.Folder / "Service_file_4711_2019_3_5__1.txt";
  int shown = 0;
};

TEST_F(MenuReadService, ItsLettersOpenItOverTheMainWindow) {
  Start();
  ChooseTheFile();
  WhenShown([this](QWidget& window) {
    EXPECT_EQ(window.parentWidget(), menu.get());
    EXPECT_EQ(window.windowModality(), Qt::WindowModal);
    EXPECT_EQ(test::TextOf(window, "Serial_number"), "4711");
    Trigger("menuEdit");
    EXPECT_EQ(test::TopWindow("Edit"), nullptr);
    test::Press(window, Qt::Key_Escape);
  });
  menu->activateWindow();
  test::Press(*menu, Qt::Key_M, Qt::AltModifier);
  auto& entries = test::Find<QWidget>(*menu, "cmdMaintenance_direct");
  ASSERT_TRUE(entries.isVisible());
  QTest::keyClick(&entries, Qt::Key_R);
  desk.Loop.Pump();
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(test::TopWindow("Read_Service"), nullptr);
  EXPECT_FALSE(shell.FlowActive());
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(MenuReadService, AStartThatNamesAServiceFileShowsIt) {
  WhenShown([](QWidget& window) {
    EXPECT_EQ(test::TextOf(window, "Serial_number"), "4711");
    window.close();
  });
  Start("\"" + path + "\"");
  EXPECT_EQ(shown, 1);
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(MenuReadService, AServiceFileThatIsDroppedOnTheMainWindowIsShown) {
  Start();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(menu.get(), &enter);
  ASSERT_TRUE(enter.isAccepted());
  QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(menu.get(), &drop);
  WhenShown([](QWidget& window) { window.close(); });
  desk.Loop.WaitMs(Shell::kTimer2Ms);
  EXPECT_EQ(shown, 1);
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(MenuReadService, GoesWithTheProgram) {
  Start();
  ChooseTheFile();
  WhenShown([this](QWidget&) { desk.Loop.Quit(); });
  Trigger("Read_Service_File");
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(test::TopWindow("Read_Service"), nullptr);
}

}  // namespace
}  // namespace morvane::shell
