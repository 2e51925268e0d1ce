#include <QKeyEvent>
#include <QPushButton>

#include "print/ui/hand_record_window_desk.h"

// The printing dialog without a mouse.

namespace morvane::shell {
namespace {

using test::FakePrinter;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST_F(HandRecordWindowTest, MnemonicsReachTheBoxes) {
  Open([this](QWidget& window) {
    test::Press(window, Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(Focus(window), "txtToBoard");
    test::Press(window, Qt::Key_O, Qt::AltModifier);
    EXPECT_EQ(Focus(window), "txtCopies");
    test::Press(window, Qt::Key_E, Qt::AltModifier);
    EXPECT_EQ(Focus(window), "Header");
    test::Press(window, Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(Focus(window), "txtFromBoard");
    PressLetter(window, Qt::Key_H, [this] { return desk.Store.Get(kPrintHcp) == "0"; });
    PressLetter(window, Qt::Key_P, [this] { return desk.ThePrinter.Jobs.size() == 1; });
  });
}

TEST_F(HandRecordWindowTest, ReturnPrintsWhatWasTyped) {
  Open([this](QWidget& window) {
    test::Type(window, "6");
    Retype(window, "txtToBoard", "7");
    Retype(window, "txtCopies", "2x5");
    Retype(window, "Header", "Pairs");
    test::Press(window, Qt::Key_Return);
    EXPECT_THAT(desk.ThePrinter.Jobs, ElementsAre(FakePrinter::Job{"Pairs", 25}));
    EXPECT_THAT(desk.ThePrinter.Drawn.Pages.front().Find("Boards 6 - 7"), SizeIs(1));
    EXPECT_TRUE(window.isVisible()) << "it stays for the next one";
    EXPECT_EQ(Focus(window), "Header") << "and the focus where it was";
  });
}

TEST_F(HandRecordWindowTest, ReturnOnExitClosesAndPrintsNothing) {
  Open([this](QWidget& window) {
    test::Find(window, "cmdExit").setFocus();
    test::Press(window, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
  });
}

TEST_F(HandRecordWindowTest, ReturnWithoutALayoutDoesNothing) {
  desk.Store.Set(kPrintPerPage, "0");
  Open([this](QWidget& window) {
    EXPECT_FALSE(test::Find<QPushButton>(window, "cmdExit").isDefault());
    test::Press(window, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
  });
}

TEST_F(HandRecordWindowTest, ReturnPressesTheButtonWithTheFocus) {
  int previews = 0;
  Open([&](QWidget& window) {
    desk.ThePrinter.OnPreview = [&](const std::vector<PreviewAction>&) { ++previews; };
    test::Find(window, "cmdPreview").setFocus();
    test::Press(window, Qt::Key_Return);
    EXPECT_EQ(previews, 1);
    EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
    test::Find(window, "Header").setFocus();
    test::Press(window, Qt::Key_Return);
    EXPECT_EQ(previews, 1);
    EXPECT_THAT(desk.ThePrinter.Jobs, SizeIs(1)) << "elsewhere it prints";
  });
}

TEST_F(HandRecordWindowTest, ReturnHeldDownPrintsOnce) {
  Open([this](QWidget& window) {
    for (const char* name : {"txtFromBoard", "cmdPrint", "cmdPreview"}) {
      auto& control = test::Find(window, name);
      control.setFocus();
      QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
      QApplication::sendEvent(&control, &held);
    }
    EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
  });
}

TEST_F(HandRecordWindowTest, TheTabKeyFollowsTheEye) {
  Open([](QWidget& window) {
    test::Find(window, "PrintMode1").setFocus();
    std::vector<std::string> walked{Focus(window)};
    for (int i = 0; i < 40; ++i) {
      test::Press(window, Qt::Key_Tab);
      if (Focus(window) == "PrintMode1") break;
      walked.push_back(Focus(window));
    }
    EXPECT_THAT(walked,
                ElementsAre("PrintMode1", "txtFileName", "txtFirstBoard", "txtLastBoard",
                            "txtFromBoard", "txtToBoard", "txtCopies", "Header", "Option3",
                            "ColorPrint", "DeepPrint", "PrintHCP", "Stat1", "National_1", "Ten1",
                            "cmdPrinterSetup", "cmdPreview", "cmdPdf", "cmdPrint", "cmdExit"));
  });
}

TEST_F(HandRecordWindowTest, ArrowKeysChooseALayout) {
  Open([this](QWidget& window) {
    test::Find(window, "Option3").setFocus();
    test::Press(window, Qt::Key_Right);
    EXPECT_EQ(desk.Store.Get(kPrintPerPage), "3");
    EXPECT_TRUE(Checked(window, "Option4"));
  });
}

TEST_F(HandRecordWindowTest, EscapeCloses) {
  Open([](QWidget& window) {
    test::Press(window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
  });
}

}  // namespace
}  // namespace morvane::shell
