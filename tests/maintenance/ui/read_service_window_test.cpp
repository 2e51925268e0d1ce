#include "maintenance/ui/read_service_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>
#include <QUrl>

#include "maintenance/service_file_sample.h"
#include "maintenance/ui/pixel_view.h"
#include "platform/qt/qt_text.h"
#include "support/qt_desk.h"

namespace morvane::maintenance {
namespace {

class ReadServiceWindowTest : public ::testing::Test {
 protected:
  ReadServiceWindowTest() {
    main.show();
    test::WriteContent(path, ServiceBytesOf(lines));
  }
  void Open() { OpenFile(path); }
  void OpenFile(const std::string& file) {
    window = std::make_unique<ReadServiceWindow>(viewer, &main);
    viewer.Open(*window, file);
    window->activateWindow();
    desk.Loop.Pump();
  }
  void OpenWithLine(std::size_t line, const std::string& text) {
    auto changed = lines;
    changed[line] = text;
    test::WriteContent(path, ServiceBytesOf(changed));
    Open();
  }
  void Click(const char* name) { test::Click(*window, name); }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    test::Press(*window, key, modifiers);
  }
  void Page(const QString& caption) {
    auto& tabs = test::Find<QTabWidget>(*window, "tabs");
    for (int page = 0; page < tabs.count(); ++page) {
      if (tabs.tabText(page).remove('&') == caption) tabs.setCurrentIndex(page);
    }
    desk.Loop.Pump();
  }
  [[nodiscard]] std::string Text(const char* name) const { return test::TextOf(*window, name); }
  [[nodiscard]] bool Checked(const char* name) const {
    return test::Find<QAbstractButton>(*window, name).isChecked();
  }
  [[nodiscard]] std::string List(const char* name) const {
    return FromQt(test::Find<QPlainTextEdit>(*window, name).toPlainText());
  }
  [[nodiscard]] std::string Ground(const char* name) const {
    const auto& label = test::Find<QLabel>(*window, name);
    return label.autoFillBackground() ? FromQt(label.palette().color(QPalette::Window).name()) : "";
  }
  [[nodiscard]] QRgb Pixel(const char* view, int x, int y) const {
    return test::Find<PixelView>(*window, view).Image().pixel(x, y) & 0xFFFFFFU;
  }
  void MoveOver(const char* name, int x, int y) {
    auto& view = test::Find<PixelView>(*window, name);
    view.ZoomTo(1);
    const QSize spare = (view.viewport()->size() - view.Image().size()) / 2;
    ASSERT_FALSE(spare.isEmpty());
    const QPoint origin(spare.width(), spare.height());
    QTest::mouseMove(window->windowHandle(),
                     view.viewport()->mapTo(window.get(), origin + QPoint(x, y)));
  }
  [[nodiscard]] std::string ReadOut() const {
    return Text("Cur_x") + "," + Text("Cur_y") + "," + Text("Brightness");
  }
  void Drop(const std::string& file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(ToQt(file))});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    desk.Loop.WaitMs(10);
  }

  const std::vector<std::string> lines = ServiceLinesOf(BytesOf(SampleServiceFile()));
  test::QtDesk desk;
  const std::string path = desk.Folder / "Service_file_4711.txt";
  QMainWindow main;
  ReadService viewer{desk.Prog};
  std::unique_ptr<ReadServiceWindow> window;
};

TEST_F(ReadServiceWindowTest, ShowsEachFieldInTheConsolesBoxOfItsName) {
  Open();
  for (std::size_t at = 0; at < kServiceFields.size(); ++at) {
    const std::string name(kServiceFields[at].Name);
    const std::string& text = viewer.Read().File[ServiceFieldName(at)];
    if (name.ends_with("digit") || name == "LastSwitchByte") continue;  // shown otherwise
    if (kServiceFields[at].Range.Highest == 1) {
      EXPECT_EQ(Checked(name.c_str()), text == "1") << name;
    } else {
      EXPECT_EQ(Text(name.c_str()), text) << name;
    }
  }
  EXPECT_EQ(Text("Info"), lines[1]);
}

TEST_F(ReadServiceWindowTest, TheDigitsAreTheRadioButtons) {
  Open();  // 6, 1, 2, 1
  for (const char* name : {"National_7", "CardType_2", "Threshold_3", "Card_Index_j"}) {
    EXPECT_TRUE(Checked(name)) << name;
  }
  EXPECT_FALSE(Checked("National_1"));
}

TEST_F(ReadServiceWindowTest, ADigitThatIsNotThereChoosesNothing) {
  Open();
  test::WriteContent(path, BytesOf(ServiceFile{}));
  viewer.OpenFile(path);
  for (const char* name : {"National_1", "National_7", "CardType_2", "Card_Index_st"}) {
    EXPECT_FALSE(Checked(name)) << name;
  }
}

TEST_F(ReadServiceWindowTest, NothingOfTheFileCanBeChanged) {
  Open();
  for (const auto* box : window->findChildren<QLineEdit*>()) EXPECT_TRUE(box->isReadOnly());
  for (const auto* list : window->findChildren<QPlainTextEdit*>()) EXPECT_TRUE(list->isReadOnly());
  Page("Card");
  Click("National_1");
  EXPECT_TRUE(Checked("National_7"));
  Page("Sensors");
  Click("Gate1");
  EXPECT_FALSE(Checked("Gate1"));
}

TEST_F(ReadServiceWindowTest, NeitherKeysNorToolsOfAssistanceChangeIt) {
  Open();
  Page("Sensors");
  auto& gate = test::Find<QAbstractButton>(*window, "Gate1");
  gate.setFocus();
  Press(Qt::Key_Space);
  EXPECT_FALSE(gate.isChecked());
  gate.click();  // as they do
  EXPECT_FALSE(gate.isChecked());
  Page("Card");
  test::Find<QAbstractButton>(*window, "National_1").click();
  EXPECT_TRUE(Checked("National_7"));
  EXPECT_FALSE(Checked("National_1"));
}

TEST_F(ReadServiceWindowTest, SwitchesMotorsAndPhotoSensorsHaveTheirColours) {
  Open();
  EXPECT_EQ(Ground("Front_Switch"), "#80ff80");
  EXPECT_EQ(Ground("Box_Switch"), "#ff4040");
  EXPECT_EQ(Ground("Motor_speed_4"), "#80ff80");
  EXPECT_EQ(Ground("Motor_speed_3"), "#ff4040");
  EXPECT_EQ(Ground("Motor_speed_2"), "#ffffff");
  EXPECT_EQ(Ground("Photo1"), "#80ff80");
  EXPECT_EQ(Ground("Photo2"), "");
  EXPECT_EQ(Ground("Photo3"), "#80ff80");
}

TEST_F(ReadServiceWindowTest, ATextIsNoMarkup) {
  OpenWithLine(3, "1,0,0,0,1,1,0,1,<b>ON</b>,OFF,OFF,ON,<i>31</i>,12.1,17");
  EXPECT_EQ(test::Find<QLabel>(*window, "Front_Switch").textFormat(), Qt::PlainText);
  EXPECT_EQ(Text("Inside_temp"), "<i>31</i>");
}

TEST_F(ReadServiceWindowTest, TheButtonsShowTheThreeRecords) {
  Open();
  EXPECT_EQ(Text("shows"), "Now showing parameters for Jumbo Card Index");
  EXPECT_EQ(Text("pos_x"), "21");
  Page("Parameters");
  Click("Show_st");
  EXPECT_EQ(Text("shows"), "Now showing parameters for Standard Card Index");
  EXPECT_EQ(Text("Suit_y_max"), "12");
  Click("Show_sm");
  EXPECT_EQ(Text("shows"), "Now showing parameters for Small Card Index");
  EXPECT_EQ(Text("pos_x"), "0");
  Click("Show_j");
  EXPECT_EQ(Text("Sym_x_min"), "25");
}

TEST_F(ReadServiceWindowTest, BothPicturesAreSeenAtOnceAndTheButtonsExchangeThem) {
  Open();
  EXPECT_TRUE(test::Visible(*window, "Picture1"));
  EXPECT_TRUE(test::Visible(*window, "Picture_beside"));
  EXPECT_EQ(Pixel("Picture1", 100, 20), 0x787878U);
  EXPECT_EQ(Pixel("Picture_beside", 6, 0), 0xC00000U);
  EXPECT_EQ(Text("Picture1_kind"), "Capture: the picture");
  Click("Reco");
  EXPECT_EQ(Pixel("Picture1", 6, 0), 0xC00000U);
  EXPECT_EQ(Pixel("Picture1", 9, 0), 0x00C0FFU) << "not blue";
  EXPECT_EQ(Pixel("Picture_beside", 100, 20), 0x787878U);
  EXPECT_EQ(Text("Picture1_kind"), "Recognize: as divided");
  Click("Capture");
  EXPECT_EQ(Pixel("Picture1", 100, 20), 0x787878U);
}

TEST_F(ReadServiceWindowTest, FramesAndStartPointAreDrawn) {
  Open();
  Click("Frame_draw");
  EXPECT_EQ(Pixel("Picture1", 10, 40), 0xFF0000U);
  EXPECT_EQ(Pixel("Picture_beside", 33, 112), 0xFF0000U);
  Click("Start_draw");  // at 23, 24
  EXPECT_EQ(Pixel("Picture1", 25, 26), 0xFFFF00U);
}

TEST_F(ReadServiceWindowTest, ThePixelUnderTheCursorIsReadOut) {
  Open();
  MoveOver("Picture1", 100, 20);
  EXPECT_EQ(ReadOut(), "100,20,120");
  MoveOver("Picture_beside", 6, 0);
  EXPECT_EQ(ReadOut(), "6,0,192");
}

TEST_F(ReadServiceWindowTest, TheKeysMoveACrossOverAPicture) {
  Open();
  test::Find<PixelView>(*window, "Picture1").setFocus();
  Press(Qt::Key_Right);  // it begins in the middle
  EXPECT_EQ(ReadOut(), "63,95,158");
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->image().pixel(100, 20) & 0xFFFFFFU, 0x787878U);
}

TEST_F(ReadServiceWindowTest, ListsErrorsAndTestBytes) {
  Open();
  EXPECT_EQ(List("Errors").substr(0, 40), "Error:   1  -  0\nError:   2  -  100000\nE");
  EXPECT_EQ(List("Test").substr(0, 28), "    0  -  255\n    1  -  254\n");
}

TEST_F(ReadServiceWindowTest, TheTitleNamesTheFile) {
  Open();
  EXPECT_EQ(FromQt(window->windowTitle()), "Morvane - Read_Service - Service_file_4711.txt");
}

TEST_F(ReadServiceWindowTest, AFaultyLineIsToldAndWhatWasReadStays) {
  bool seen = false;
  desk.When("MessageBox", [&](QWidget& box) {
    QWidget* shown = test::TopWindow("Read_Service");
    seen = shown != nullptr && test::TextOf(*shown, "Serial_number") == "4711";
    box.close();
  });
  OpenWithLine(13, "xx");
  EXPECT_TRUE(seen);
  ASSERT_EQ(desk.Boxes.size(), 1U);
  EXPECT_EQ(desk.Boxes[0].Title, "Read Service");
  EXPECT_EQ(desk.Boxes[0].Text, "Service file error at line: 13");
  EXPECT_EQ(Text("Damage"), "Damaged at line 13: only what stands before it is shown");
  EXPECT_EQ(Text("Serial_number"), "4711");
  EXPECT_EQ(Text("Board_Sen"), "");
  EXPECT_EQ(Pixel("Picture1", 0, 2), 0x020202U);
  EXPECT_EQ(Pixel("Picture1", 0, 3), 0xFFFFFFU);
}

TEST_F(ReadServiceWindowTest, OpenAsksForAnotherFile) {
  Open();
  const std::string other = desk.Folder / "other.txt";
  test::WriteContent(other, BytesOf(ServiceFile{}));
  desk.When("cdOpen", [&](QWidget& dialog) {
    test::Type(dialog, other);
    test::Press(dialog, Qt::Key_Return);
  });
  const auto& open = test::Find<QAbstractButton>(*window, "Open");
  Press(Qt::Key_O, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !open.isDown(); }));
  EXPECT_EQ(Text("Serial_number"), "");
  EXPECT_EQ(FromQt(window->windowTitle()), "Morvane - Read_Service - other.txt");
}

TEST_F(ReadServiceWindowTest, AFileThatIsDroppedIsOpened) {
  Open();
  auto changed = lines;
  changed[2] = "4712";
  const std::string other = desk.Folder / "dropped.txt";
  test::WriteContent(other, ServiceBytesOf(changed));
  Drop(other);
  EXPECT_EQ(Text("Serial_number"), "4712");
}

TEST_F(ReadServiceWindowTest, AGoodFileHasNoDamage) {
  Open();
  EXPECT_FALSE(test::Visible(*window, "Damage"));
}

TEST_F(ReadServiceWindowTest, AFileThatIsMovedHereStaysWhereItIs) {
  Open();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(ToQt(path))});
  const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
  QDragEnterEvent enter({10, 10}, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
  QApplication::sendEvent(window.get(), &enter);
  QDropEvent drop({10, 10}, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
  drop.setDropAction(Qt::MoveAction);
  QApplication::sendEvent(window.get(), &drop);
  EXPECT_TRUE(drop.isAccepted());
  EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
}

TEST_F(ReadServiceWindowTest, AnEscapeThatIsHeldDownDoesNotCloseIt) {
  Open();
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, {}, true);
  QApplication::sendEvent(window.get(), &held);
  EXPECT_FALSE(viewer.Closed());
  Press(Qt::Key_Escape);
  EXPECT_TRUE(viewer.Closed());
}

TEST_F(ReadServiceWindowTest, WhatWasNotReadIsNeitherToldNorDrawn) {
  desk.AnswerBox(QMessageBox::Ok);
  OpenWithLine(7, "x");  // of the Jumbo record, which the file has selected
  EXPECT_EQ(Text("shows"), "");
  EXPECT_EQ(Text("Photo1").empty(), false);
  EXPECT_EQ(Ground("Photo1"), "") << "nor is it said to be free";
  Click("Frame_draw");
  EXPECT_EQ(Pixel("Picture1", 0, 0), 0xFFFFFFU);
}

TEST_F(ReadServiceWindowTest, SeveralFilesAreNotTaken) {
  Open();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile("/a.txt"), QUrl::fromLocalFile("/b.txt")});
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window.get(), &enter);
  EXPECT_FALSE(enter.isAccepted());
}

TEST_F(ReadServiceWindowTest, EscapeTheCloseBoxAndExitCloseIt) {
  for (const int way : {0, 1, 2}) {
    ReadService another(desk.Prog);
    ReadServiceWindow closing(another, &main);
    another.Open(closing, path);
    closing.activateWindow();
    desk.Loop.Pump();
    EXPECT_FALSE(another.Closed());
    if (way == 0) test::Press(closing, Qt::Key_Escape);
    if (way == 1) closing.close();
    if (way == 2) test::Click(closing, "cmdExit");
    EXPECT_TRUE(another.Closed()) << way;
    EXPECT_FALSE(closing.isVisible()) << way;
  }
}

TEST_F(ReadServiceWindowTest, WhenNoFileIsChosenAtFirstItGoes) {
  desk.When("cdOpen", [](QWidget& dialog) { test::Press(dialog, Qt::Key_Escape); });
  OpenFile("");
  EXPECT_TRUE(viewer.Closed());
}

TEST_F(ReadServiceWindowTest, ThePicturesAreAPageWhereThereIsNoRoomBesideTheTabs) {
  Open();
  auto& tabs = test::Find<QTabWidget>(*window, "tabs");
  window->resize(640, 560);
  desk.Loop.Pump();
  EXPECT_EQ(tabs.count(), 6);
  Page("Pictures");
  EXPECT_TRUE(test::Visible(*window, "Picture1"));
  Page("Identity");
  EXPECT_FALSE(test::Visible(*window, "Picture1"));
  window->resize(1600, 700);
  desk.Loop.Pump();
  EXPECT_EQ(tabs.count(), 5);
  EXPECT_TRUE(test::Visible(*window, "Picture1"));
}

}  // namespace
}  // namespace morvane::maintenance
