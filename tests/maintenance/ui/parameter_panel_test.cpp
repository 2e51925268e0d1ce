#include <QCheckBox>
#include <array>

#include "maintenance/ui/console_desk.h"

// The page of the machine's parameters: typed, marked, written, read again.

namespace morvane::maintenance {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

class ParameterPage : public ConsoleDesk {
 protected:
  using ConsoleDesk::ConsoleDesk;
  /// Whether it is marked, by looks and by words, and the line under the boxes says so of any.
  bool Marked(const char* name) {
    const auto& control = test::Find<QWidget>(*window, name);
    const bool bold = control.font().bold();
    EXPECT_EQ(control.accessibleDescription(), bold ? "Changed, not written to the machine" : "");
    EXPECT_FALSE(bold && Text("lblEdited").empty());
    return bold;
  }
  [[nodiscard]] const simulator::IndexRecord& Record(std::size_t index = 0) const {
    return simulated.Parameters().Records[index];
  }
  /// Yes to the question, OK to what has come of it.
  void Write() {
    desk.AnswerBox(QMessageBox::Yes);
    desk.AnswerBox(QMessageBox::Ok);
    PressLetter(Qt::Key_V, "save_param");
    desk.Loop.Pump();
  }
};

TEST_F(ParameterPage, ShowsWhatTheMachineHolds) {
  Contact();
  const std::vector<std::pair<const char*, const char*>> values{
      {"pos_x", "60"},           {"pos_y", "80"},          {"start_x", "64"},
      {"start_y", "20"},         {"Sym_x_max", "34"},      {"Sym_y_max", "48"},
      {"Sym_x_min", "12"},       {"Sym_y_min", "28"},      {"Suit_x_max", "32"},
      {"Suit_y_max", "40"},      {"Suit_x_min", "14"},     {"Suit_y_min", "20"},
      {"Bold_th_txt", "50"},     {"Bold_th1_txt", "50"},   {"Fine_th_txt", "40"},
      {"Fine_th1_txt", "40"},    {"Reco_option_txt", "0"}, {"Video_Brightness", "128"},
      {"Video_Contrast", "128"}, {"Board_Sen", "180"},     {"param_ID", "1001"}};
  for (const auto& [name, value] : values) EXPECT_EQ(Text(name), value) << name;
  EXPECT_TRUE(test::Find<QLineEdit>(*window, "param_ID").isReadOnly());
  EXPECT_EQ(Text("lblEdited"), "");
}

TEST_F(ParameterPage, LeadingZerosGiveWayToTheTextBefore) {
  Contact();
  TypeInto("pos_x", "0");
  EXPECT_EQ(Text("pos_x"), "0");
  Press(Qt::Key_0);
  EXPECT_EQ(Text("pos_x"), "0");
  Press(Qt::Key_7);
  EXPECT_EQ(Text("pos_x"), "0");
}

TEST_F(ParameterPage, PastedZerosAreRefusedWhole) {
  Contact();
  auto& box = test::Find<QLineEdit>(*window, "pos_x");
  box.setFocus();
  box.selectAll();
  box.insert("007");
  emit box.textEdited(box.text());
  EXPECT_EQ(Text("pos_x"), "60");
}

TEST_F(ParameterPage, MoreThanTheUpperLimitCannotBeTyped) {
  Contact();
  TypeInto("Bold_th_txt", "90");
  EXPECT_EQ(Text("Bold_th_txt"), "90");
  TypeInto("Bold_th_txt", "91");
  EXPECT_EQ(Text("Bold_th_txt"), "9");
  TypeInto("Fine_th1_txt", "91");
  EXPECT_EQ(Text("Fine_th1_txt"), "9");
  TypeInto("start_y", "255");
  EXPECT_EQ(Text("start_y"), "255");
  TypeInto("start_y", "256");
  EXPECT_EQ(Text("start_y"), "25");
  TypeInto("start_y", "1a2");
  EXPECT_EQ(Text("start_y"), "12");
}

TEST_F(ParameterPage, ABoxThatIsLeftEmptyGetsItsLowerLimit) {
  Contact();
  for (const auto& [name, value] : {std::pair("pos_x", "0"), std::pair("pos_y", "1"),
                                    std::pair("Fine_th_txt", "10"), std::pair("Board_Sen", "0")}) {
    TypeInto(name, "");
    EXPECT_EQ(Text(name), "") << name;
    Press(Qt::Key_Tab);
    EXPECT_NE(FocusName(), name);
    EXPECT_EQ(Text(name), value) << name;
  }
}

TEST_F(ParameterPage, ATooLowValueGivesWayWhenTheBoxIsLeft) {
  Contact();
  TypeInto("Bold_th_txt", "9");
  Focus("pos_x");
  EXPECT_EQ(Text("Bold_th_txt"), "10");
  TypeInto("pos_y", "0");
  Focus("pos_x");
  EXPECT_EQ(Text("pos_y"), "1");
}

TEST_F(ParameterPage, EnterLeavesTheBoxAndPressesNothing) {
  Contact();
  TypeInto("Bold_th_txt", "5");
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("Bold_th_txt"), "10");
  EXPECT_EQ(FocusName(), "Bold_th_txt");
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(ParameterPage, WhatDiffersIsMarkedUntilItIsTheSameAgain) {
  Contact();
  TypeInto("pos_x", "61");
  EXPECT_TRUE(Marked("pos_x"));
  EXPECT_FALSE(Marked("pos_y"));
  TypeInto("pos_x", "60");
  EXPECT_FALSE(Marked("pos_x"));
  EXPECT_EQ(Text("lblEdited"), "");
  PressLetter(Qt::Key_H, "Ignore_flip");
  EXPECT_TRUE(Marked("Ignore_flip"));
  PressLetter(Qt::Key_H, "Ignore_flip");
  EXPECT_FALSE(Marked("Ignore_flip"));
}

TEST_F(ParameterPage, WritingReachesTheMachineAndTakesTheMarksAway) {
  Contact();
  TypeInto("start_x", "99");
  TypeInto("Video_Contrast", "7");
  Click("Ignore_flip");
  Click("Use_Board");
  Write();
  ASSERT_THAT(desk.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Boxes[0].Title, "Parameters Update");
  EXPECT_EQ(desk.Boxes[1].Text, "Parameters updated OK");
  EXPECT_EQ(Record().Positions.StartX, 99);
  EXPECT_EQ(simulated.Parameters().Video.Contrast, 7);
  EXPECT_TRUE(Record().Switches.IgnoreFlip && Record().Switches.UseBoard);
  EXPECT_FALSE(Marked("start_x") || Marked("Video_Contrast") || Marked("Ignore_flip"));
  EXPECT_EQ(Text("lblEdited"), "");
  EXPECT_EQ(Text("start_x"), "99");
}

TEST_F(ParameterPage, TheLetterOfTheButtonLeavesTheBoxFirst) {
  Contact();
  TypeInto("pos_y", "0");  // not left
  Write();
  EXPECT_EQ(Record().Positions.PosY, 1);
  EXPECT_EQ(Text("pos_y"), "1");
}

TEST_F(ParameterPage, WithoutAYesTheEditsGo) {
  Contact();
  TypeInto("start_x", "99");
  desk.AnswerBox(QMessageBox::No);
  Click("save_param");
  EXPECT_EQ(Text("start_x"), "64");
  EXPECT_FALSE(Marked("start_x"));
  EXPECT_EQ(Record().Positions.StartX, 64);
}

TEST_F(ParameterPage, ReadingAgainThrowsTheEditsAway) {
  Contact();
  TypeInto("start_x", "99");
  Click("Ignore_box");
  PressLetter(Qt::Key_R, "Get_param");
  EXPECT_EQ(Text("start_x"), "64");
  EXPECT_FALSE(Checked("Ignore_box"));
  EXPECT_FALSE(Marked("Ignore_box"));
}

TEST_F(ParameterPage, ABoardSwitchThatIsIgnoredNeedsNoReader) {
  Contact();
  Click("Use_Board");
  EXPECT_TRUE(Checked("Use_Board"));
  PressLetter(Qt::Key_B, "Ignore_box");
  EXPECT_FALSE(Checked("Use_Board"));
  EXPECT_FALSE(Enabled("Use_Board"));
  PressLetter(Qt::Key_B, "Ignore_box");
  EXPECT_TRUE(Enabled("Use_Board"));
  EXPECT_FALSE(Checked("Use_Board"));
}

TEST_F(ParameterPage, AnotherIndexIsReadAtOnceAndAloneWritten) {
  Contact();
  PressLetter(Qt::Key_J, "Card_Index_j");
  EXPECT_EQ(Text("pos_x"), "62");
  EXPECT_EQ(Text("param_ID"), "1002");
  TypeInto("pos_x", "70");
  Write();
  EXPECT_EQ(Record(1).Positions.PosX, 70);
  EXPECT_EQ(Record(0).Positions.PosX, 60);
  EXPECT_EQ(Record(2).Positions.PosX, 58);
}

TEST_F(ParameterPage, LeavingWithEditsAsksOnceAndANoStays) {
  Contact();
  TypeInto("pos_x", "61");
  desk.AnswerBox(QMessageBox::No);
  Press(Qt::Key_Escape);
  EXPECT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_FALSE(console.Closed());
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(Marked("pos_x"));
  desk.AnswerBox(QMessageBox::Yes);
  window->close();
  EXPECT_THAT(desk.Boxes, SizeIs(2));
  EXPECT_TRUE(console.Closed());
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(Record().Positions.PosX, 60);
}

TEST_F(ParameterPage, ABoxThatGetsItsOldValueAtLeavingIsNoEdit) {
  Contact();
  TypeInto("Reco_option_txt", "");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(console.Closed());
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(ParameterPage, AfterAWriteLeavingAsksNothing) {
  Contact();
  TypeInto("pos_x", "61");
  Write();
  desk.Loop.WaitMs(300);  // an Escape that comes sooner is taken for the box's, held down
  Press(Qt::Key_Escape);
  EXPECT_TRUE(console.Closed());
  EXPECT_THAT(desk.Boxes, SizeIs(2));
}

TEST_F(ParameterPage, QuittingWithEditsAsksNothing) {
  Contact();
  TypeInto("pos_x", "61");
  desk.Loop.Quit();
  console.Exit();
  EXPECT_TRUE(console.Closed());
  EXPECT_FALSE(window->isVisible());
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(ParameterPage, TheIndexThatIsChosenAlreadyIsNotReadAgain) {
  Contact();
  TypeInto("start_x", "99");
  Click("Card_Index_st");
  EXPECT_EQ(Text("start_x"), "99");
  Click("Card_Index_sm");
  EXPECT_EQ(Text("param_ID"), "1003");
  Click("Card_Index_st");
  EXPECT_EQ(Text("start_x"), "64");
}

/// Hardware bits 5, 6 and 3 are clear.
class PlainHardware : public ParameterPage {
 protected:
  PlainHardware() : ParameterPage(MachineOf(0x90, 0x17)) {}
};

TEST_F(PlainHardware, HasNeitherVideoNorABoardSwitchToSet) {
  Contact();
  for (const char* name :
       {"Video_Brightness", "Video_Contrast", "Board_Sen", "Calibrate_Board_Switch"}) {
    EXPECT_FALSE(Visible(name)) << name;
  }
}

TEST_F(PlainHardware, JumboSnapsBackWithTheBoxOfRefusal) {
  Contact();
  desk.AnswerBox(QMessageBox::Ok);
  Click("Card_Index_j");
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Maintenance Error");
  EXPECT_THAT(desk.Boxes[0].Text, ::testing::StartsWith("Your Morvane machine is not suitable to"));
  EXPECT_TRUE(Checked("Card_Index_st"));
  EXPECT_FALSE(Checked("Card_Index_j"));
  EXPECT_EQ(Text("param_ID"), "1001");
}

/// Before the switches can be disabled.
class OldSwitches : public ParameterPage {
 protected:
  OldSwitches() : ParameterPage(MachineOf(0x1F, 0)) {}
};

TEST_F(OldSwitches, AreOff) {
  Contact();
  for (const char* name : {"Ignore_flip", "Ignore_box", "Use_Board"}) {
    EXPECT_FALSE(Enabled(name)) << name;
  }
  EXPECT_EQ(Text("Bold_th_txt"), "") << "never read";
  EXPECT_TRUE(Enabled("save_param"));
}

/// The hardware has a board switch to set, 2.43 has no threshold yet.
class BeforeTheThresholds : public ParameterPage {
 protected:
  explicit BeforeTheThresholds(std::uint8_t minor = 0x43) : ParameterPage(MachineOf(minor)) {}
  static constexpr std::array kThresholds{"Bold_th_txt", "Bold_th1_txt", "Fine_th_txt",
                                          "Fine_th1_txt", "Reco_option_txt"};
  /// Why nobody can type in it; empty: one can.
  [[nodiscard]] std::string WhyOff(const char* name) const {
    const auto& box = test::Find<QWidget>(*window, name);
    EXPECT_TRUE(box.isVisible()) << name;
    EXPECT_EQ(box.isEnabled(), box.toolTip().isEmpty()) << name;
    return box.toolTip().toStdString();
  }
};

TEST_F(BeforeTheThresholds, WhatTheMachineHasNotIsOffAndSaysSinceWhen) {
  Contact();
  for (const char* name : kThresholds) {
    EXPECT_EQ(WhyOff(name), "Machines have this since firmware 2.44") << name;
  }
  EXPECT_EQ(WhyOff("Board_Sen"), "Machines have this since firmware 2.80");
  EXPECT_EQ(WhyOff("pos_x") + WhyOff("Suit_y_max"), "");
}

class WithThresholds : public BeforeTheThresholds {
 protected:
  WithThresholds() : BeforeTheThresholds(0x44) {}
};

TEST_F(WithThresholds, OnlyTheBoardSwitchIsOff) {
  Contact();
  for (const char* name : kThresholds) EXPECT_EQ(WhyOff(name), "") << name;
  EXPECT_EQ(WhyOff("Board_Sen"), "Machines have this since firmware 2.80");
}

/// 2.69.
class BeforeTheReader : public ParameterPage {
 protected:
  BeforeTheReader() : ParameterPage(MachineOf(0x69)) {}
};

TEST_F(BeforeTheReader, OnlyItsSwitchIsOff) {
  Contact();
  EXPECT_TRUE(Enabled("Ignore_flip"));
  EXPECT_TRUE(Enabled("Ignore_box"));
  EXPECT_FALSE(Enabled("Use_Board"));
  EXPECT_FALSE(Visible("Video_Brightness")) << "they came with 2.80";
}

}  // namespace
}  // namespace morvane::maintenance
