#include <QApplication>

#include "edit/editor.h"
#include "shell/ui/main_menu_desk.h"

// A download that is asked for from outside while a flow has its window open.

namespace morvane::shell {
namespace {

using ::testing::HasSubstr;
using ::testing::SizeIs;

struct OpenFlow {
  const char* Entry;   ///< of the menu
  const char* Window;  ///< that it opens
  const char* Status;
};

class FirmwareRequest : public MainMenuTest, public ::testing::WithParamInterface<OpenFlow> {
 protected:
  const std::string path = desk.Folder / "new.adc";

  void SetUp() override {
    MainMenuTest::SetUp();
    Start();
    test::FillSet(desk.Prog.Set, 1, 3);
    test::WriteContent(path, "no firmware");
  }
  /// The request comes while the window is open, and is answered; the window is left behind it.
  void Ask(QMessageBox::StandardButton answer, const std::function<void(QWidget& window)>& then) {
    desk.When(GetParam().Window, [=, this](QWidget& window) {
      shell.LinkExecute("2" + path);
      desk.AnswerBox(answer);
      then(window);
      desk.Loop.WaitMs(2 * edit::Editor::kTimer1Ms);
      EXPECT_EQ(test::TopWindow("Maintenance"), nullptr);
      EXPECT_EQ(Text("Panel1"), GetParam().Status);
      EXPECT_EQ(QApplication::activeModalWidget(), &window) << "it is there again";
      window.activateWindow();
      test::Press(window, Qt::Key_Escape);
      EXPECT_FALSE(window.isVisible());
    });
    Trigger(GetParam().Entry);
    ASSERT_FALSE(desk.Boxes.empty());
    EXPECT_THAT(desk.Boxes[0].Text, HasSubstr("Firmware file: " + path));
    EXPECT_EQ(Text("Panel1"), "Ready");
  }
};

INSTANTIATE_TEST_SUITE_P(Flows, FirmwareRequest,
                         ::testing::Values(OpenFlow{"menuEdit", "Edit", "Edit Board"},
                                           OpenFlow{"menuPrint", "HandRecord", "Printing"}),
                         [](const auto& flow) { return flow.param.Window; });

TEST_P(FirmwareRequest, AnsweredNoChangesNothing) {
  Ask(QMessageBox::No, [](QWidget&) {});
  EXPECT_THAT(desk.Boxes, SizeIs(1));
}

TEST_P(FirmwareRequest, TheServiceOpensOverTheWindowAndLeavesBehindTheDownload) {
  Ask(QMessageBox::Yes, [this](QWidget& window) {
    desk.When("Maintenance", [&window, this](QWidget& service) {
      EXPECT_EQ(service.parentWidget(), &window);
      EXPECT_EQ(QApplication::activeModalWidget(), &service);
      EXPECT_EQ(Text("Panel1"), "Maintenance");
    });
    desk.AnswerBox(QMessageBox::Ok);  // by a click, which a box that is blocked would not get
  });
  ASSERT_THAT(desk.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Boxes[1].Title, "Download Error");
}

TEST_P(FirmwareRequest, TheServiceOverTheWindowCanBeLeftByAClick) {
  Ask(QMessageBox::Yes, [this](QWidget& /*window*/) {
    desk.When("Maintenance", [](QWidget& service) {
      test::Click(service, "cmdExit");
      EXPECT_FALSE(service.isVisible());
    });
  });
  EXPECT_THAT(desk.Boxes, SizeIs(1));
}

}  // namespace
}  // namespace morvane::shell
