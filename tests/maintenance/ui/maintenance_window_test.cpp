#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>

#include "maintenance/ui/console_desk.h"

// The console's window: opening, the pages without parameters, and leaving.

namespace morvane::maintenance {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class MaintenanceWindowTest : public ConsoleDesk {
 protected:
  using ConsoleDesk::ConsoleDesk;
};

TEST_F(MaintenanceWindowTest, HasItsNamesAndItsCaptions) {
  Contact();
  EXPECT_EQ(window->objectName(), "Maintenance");
  EXPECT_EQ(window->windowTitle(), "Morvane - Maintenance - Simulated machine");
  const std::vector<std::pair<const char*, const char*>> captions{
      {"Motors", "Motors on"},
      {"Gate1", "Gate 1"},
      {"Gate2", "Gate 2"},
      {"Gate3", "Gate 3"},
      {"Cam_leds", "Camera LEDs"},
      {"Cam_power", "Camera Power"},
      {"Front_green_led", "Front Green LED"},
      {"Front_Red_Led", "Front Red LED"},
      {"National_1", "AKQJ"},
      {"National_2", "ARDV"},
      {"National_3", "1RDV"},
      {"National_4", "AKDB"},
      {"National_5", "AHVB"},
      {"National_6", "EKDB"},
      {"National_7", "EKDKn"},
      {"CardType_1", "Standard"},
      {"CardType_2", "Framed"},
      {"Threshold_1", "Normal"},
      {"Threshold_2", "Fine"},
      {"Threshold_3", "Bold"},
      {"Card_Index_st", "Standard"},
      {"Card_Index_j", "Jumbo"},
      {"Card_Index_sm", "Small"},
      {"Ignore_flip", "Disable Flip Plate Switch"},
      {"Ignore_box", "Disable Board Switch"},
      {"Use_Board", "Use Board Number Reader as Board Switch"}};
  for (const auto& [name, caption] : captions) EXPECT_EQ(Caption(name), caption) << name;
}

TEST_F(MaintenanceWindowTest, UntilTheMachineAnswersNothingOfItIsOn) {
  Open();
  EXPECT_EQ(Text("lblContact"), "Asking the machine ...");
  for (const char* name : {"Motors", "Front_Red_Led", "Feed_card", "Card_Index_j", "pos_x",
                           "Board_Sen", "Ignore_flip", "Get_param", "save_param", "National_2"}) {
    EXPECT_FALSE(Enabled(name)) << name;
  }
  EXPECT_FALSE(Visible("Download"));
  EXPECT_EQ(Text("Photo1"), "");
  EXPECT_EQ(Text("pos_x"), "");
  EXPECT_TRUE(Enabled("cmdExit"));
  desk.Loop.WaitMs(Maintenance::kFirstContactMs + 100);
  EXPECT_EQ(Text("lblContact"), "Machine 4711, firmware 2.90");
  for (const char* name : {"Motors", "Front_Red_Led", "Feed_card", "Card_Index_j", "pos_x",
                           "Board_Sen", "Ignore_flip", "Get_param", "save_param", "National_2"}) {
    EXPECT_TRUE(Enabled(name)) << name;
  }
  EXPECT_TRUE(Visible("Download"));
  EXPECT_NE(FocusName(), "Download") << "it does not take the keyboard";
}

TEST_F(MaintenanceWindowTest, AKeyPressedAtTheStartSwitchesNothingOn) {
  Contact();
  Press(Qt::Key_Space);
  Press(Qt::Key_Return);
  Polls();
  EXPECT_EQ(Outputs(), 0);
  EXPECT_FALSE(console.Closed());
}

TEST_F(MaintenanceWindowTest, TheIdentityIsReadAndCopied) {
  Contact();
  Page(kIdentityPage);
  EXPECT_EQ(Text("Serial_number"), "4711");
  EXPECT_EQ(Text("Manuf_date"), "14.6.2019");
  EXPECT_EQ(Text("Hardware_ID"), "127");
  EXPECT_EQ(Text("Soft_ver"), "2.90");
  EXPECT_EQ(Text("Down_ID"), "33");  // 1 + 0x20
  EXPECT_EQ(Text("Boot_ver"), "01.20");
  EXPECT_EQ(Text("FPGA_ver"), "3.7");
  EXPECT_EQ(Text("Flash_ID_text"), "4");
  EXPECT_TRUE(test::Find<QLineEdit>(*window, "Serial_number").isReadOnly());
  PressLetter(Qt::Key_Y, "Copy");
  const std::string copied = QApplication::clipboard()->text().toStdString();
  EXPECT_THAT(copied, ::testing::StartsWith("Serial number: 4711\nBoards dealt: 0\n"));
  EXPECT_THAT(copied, ::testing::HasSubstr("\nFirmware: 2.90\n"));
}

TEST_F(MaintenanceWindowTest, APlainProgramHasNothingOfTheService) {
  Contact();
  for (const char* name :
       {"Focus", "Focus_label", "Advance", "Test", "Test_write", "GateTest", "GateTestText"}) {
    EXPECT_FALSE(There(name)) << name;
  }
}

TEST_F(MaintenanceWindowTest, ServiceLevelOneHasTheFocus) {
  Service(1);
  Contact();
  EXPECT_TRUE(Visible("Focus") && Visible("Focus_label"));
  for (const char* name : {"Advance", "Test", "Test_write", "GateTest"}) {
    EXPECT_FALSE(There(name)) << name;
  }
}

TEST_F(MaintenanceWindowTest, TheDiagnosisIsAskedForWhenItsBoxIsEmpty) {
  Service(2);
  Contact();
  Page(kDeveloperPage);
  auto& text = test::Find<QPlainTextEdit>(*window, "TestText");
  Click("Test");
  const QString diagnosis = text.toPlainText();
  EXPECT_NE(diagnosis, "");
  EXPECT_EQ(console.Developer().TestText, diagnosis.toStdString());
  text.setFocus();
  text.selectAll();
  test::Type(*window, "note");
  Click("Test");
  EXPECT_EQ(text.toPlainText(), "note");
  text.setFocus();
  text.selectAll();
  Press(Qt::Key_Delete);
  PressLetter(Qt::Key_S, "Test");
  EXPECT_EQ(text.toPlainText(), diagnosis);
}

TEST_F(MaintenanceWindowTest, TwoNumbersAreSentAndAnEmptyOneIs0) {
  Service(2);
  Contact();
  Page(kDeveloperPage);
  TypeInto("Test6", "17");
  TypeInto("Test7", "256");
  EXPECT_EQ(Text("Test7"), "25");
  TypeInto("Test7", "");
  PressLetter(Qt::Key_U, "Test_write");
  EXPECT_EQ(Text("Test6"), "17");
  EXPECT_EQ(Text("Test7"), "0");
  EXPECT_THAT(testWrites, ElementsAre(std::pair(17, 0)));
}

// Leaving.

TEST_F(MaintenanceWindowTest, EscapeLeaves) {
  Contact();
  Press(Qt::Key_Escape);
  EXPECT_TRUE(console.Closed());
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(simulated.LatchOn());
}

TEST_F(MaintenanceWindowTest, TheCloseBoxLeavesBeforeTheMachineAnswersToo) {
  Open();
  window->close();
  EXPECT_TRUE(console.Closed());
  EXPECT_FALSE(window->isVisible());
}

TEST_F(MaintenanceWindowTest, TheButtonAndItsLetterLeave) {
  Contact();
  PressLetter(Qt::Key_E, "cmdExit");
  EXPECT_TRUE(console.Closed());
  EXPECT_FALSE(window->isVisible());
}

TEST_F(MaintenanceWindowTest, DuringAnExchangeTheWindowGoesWhenThatIsOver) {
  Contact();
  bool asked = false;
  desk.When("MessageBox", [&](QWidget& box) {
    // Behind the Yes the machine gets time for each frame that is written.
    desk.Loop.After(15, [&] {
      asked = true;
      EXPECT_TRUE(machine.PollLock);
      window->close();
      EXPECT_FALSE(console.Closed());
      EXPECT_TRUE(window->isVisible());
    });
    static_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click();
  });
  desk.AnswerBox(QMessageBox::Ok);
  Click("save_param");
  EXPECT_TRUE(asked);
  EXPECT_TRUE(console.Closed());
  EXPECT_FALSE(window->isVisible());
}

TEST_F(MaintenanceWindowTest, ALostLinkClosesIt) {
  Contact();
  desk.AnswerBox(QMessageBox::Ok);
  simulated.PowerOff();
  desk.Loop.WaitMs(3000);
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Communication Error");
  EXPECT_TRUE(console.Closed());
  EXPECT_FALSE(window->isVisible());
}

TEST_F(MaintenanceWindowTest, TheCardsThatWereChosenAreStored) {
  Contact();
  Page(kCardPage);
  Click("National_5");
  Click("CardType_2");
  Click("Threshold_3");
  Page(kParameterPage);
  Click("Card_Index_sm");
  Press(Qt::Key_Escape);
  EXPECT_EQ(desk.Store.Get(kNational), "4");
  EXPECT_EQ(desk.Store.Get(kCardType), "1");
  EXPECT_EQ(desk.Store.Get(kThreshold), "2");
  EXPECT_EQ(desk.Store.Get(kCardIndex), "2");
}

TEST_F(MaintenanceWindowTest, TheStoredCardsAreShown) {
  desk.Store.Set(kNational, "6");
  desk.Store.Set(kThreshold, "1");
  desk.Store.Set(kCardIndex, "1");
  Contact();
  EXPECT_TRUE(Checked("National_7"));
  EXPECT_TRUE(Checked("CardType_1"));
  EXPECT_TRUE(Checked("Threshold_2"));
  EXPECT_TRUE(Checked("Card_Index_j"));
}

/// Boot bytes 0.
class WithoutFirmware : public MaintenanceWindowTest {
 protected:
  WithoutFirmware() : MaintenanceWindowTest(Bare()) {}
  static simulator::Options Bare() {
    simulator::Options options = MachineOf();
    options.BootMajor = options.BootMinor = 0;
    return options;
  }
};

TEST_F(WithoutFirmware, OnlyDownloadIsThereAndALineSaysWhy) {
  Open();
  desk.Loop.WaitMs(Maintenance::kFirstContactMs + 500);
  EXPECT_EQ(Text("lblContact"), "The machine holds no firmware. It can only be loaded with one.");
  EXPECT_TRUE(Visible("Download"));
  EXPECT_EQ(FocusName(), "Download") << "it is all that can be done";
  for (const char* name : {"Motors", "Feed_card", "pos_x", "Get_param", "save_param",
                           "Card_Index_st", "National_1", "Ignore_flip"}) {
    EXPECT_FALSE(Enabled(name)) << name;
  }
  EXPECT_EQ(Text("Down_ID"), "0");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(console.Closed());
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::maintenance
