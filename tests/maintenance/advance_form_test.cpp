#include <set>

#include "maintenance/advance_desk.h"
#include "support/frame_list.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class Form : public AdvanceDesk {};

const std::vector<std::string> kReload{"33 00 00 .. .. .. ..", "33 00 01 .. .. .. ..",
                                       "12 01 00 .. .. .. ..", "12 02 00 .. .. .. .."};

// Opening.

TEST_F(Form, OpeningReadsTwoPagesOfCountersAndBothHalvesOfTheRecordAndTakesItsTime) {
  std::vector<std::int64_t> times;
  OnFrame = [&](const Bytes&) {
    times.push_back(
        std::chrono::duration_cast<std::chrono::milliseconds>(desk.Clock.Elapsed()).count());
  };
  Make(true);
  EXPECT_FALSE(form->Known());
  form->Open(view);
  EXPECT_TRUE(FramesAre(bridge.Sent, kReload));
  ASSERT_THAT(times, SizeIs(4));
  for (std::size_t i = 1; i < 4; ++i) EXPECT_GE(times[i] - times[i - 1], 10) << i;
  EXPECT_TRUE(form->Known());
  EXPECT_GE(view.Shows, 1);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(Form, TheBoxesHaveWhatTheMachineHolds) {
  Open();
  EXPECT_EQ(form->Adv_SerialNumber.Text(), "4711");  // 0x1267
  EXPECT_EQ(form->Curr_HID(), 0x67);
  EXPECT_EQ(form->Adv_Day.Text(), "14");
  EXPECT_EQ(form->Adv_month.Text(), "6");
  EXPECT_EQ(form->Adv_Year.Text(), "2019");  // 0x07E3
  EXPECT_EQ(form->Boards_dealt.Text(), "70000");
}

TEST_F(Form, TheErrorsAreListedByTheirNumbersFourInALine) {
  paper.Counters[0] = 4'294'967'295;
  paper.Counters[3] = 12;
  paper.Counters[32] = 7;
  paper.Counters[63] = 1;
  Open();
  const std::string text = form->Error_view();
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 15) << "64 in 16 lines";
  EXPECT_EQ(text.substr(0, text.find('\n')),
            " 0: 4294967295   1:          0   2:          0   3:         12");
  EXPECT_NE(text.find("\n32:          7  33:          0"), std::string::npos);
  EXPECT_TRUE(text.ends_with("  63:          1"));
}

TEST_F(Form, AMachineWithoutARecordIsShownAsItIs) {
  paper.Block.fill(0xFF);
  Open();
  EXPECT_EQ(form->Adv_SerialNumber.Text(), "65535");
  EXPECT_EQ(form->Adv_Day.Text(), "255");
  EXPECT_EQ(form->Curr_HID(), 65535);
}

TEST_F(Form, WithoutAMachineNothingIsSentAndItCanBeClosed) {
  Open(false);
  EXPECT_FALSE(form->Known());
  EXPECT_FALSE(form->Update());
  EXPECT_FALSE(form->Clear_boards());
  EXPECT_FALSE(form->ErrorClear());
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  form->Close();
  EXPECT_TRUE(form->Closed());
}

// The hardware identifier.

TEST_F(Form, TheCheckBoxesShowTheBits) {
  const auto checks = [this](std::uint8_t bits) {
    paper.Block[3] = bits;
    Open();
    std::string text;
    for (const HardwareBox& box : kHardwareBoxes) text += form->IsChecked(box) ? '1' : '0';
    return text;
  };
  EXPECT_EQ(checks(0), "0000");
  EXPECT_EQ(checks(1), "1000");
  EXPECT_EQ(checks(2), "0100");
  EXPECT_EQ(checks(4), "0010");
  EXPECT_EQ(checks(24), "0001");
  EXPECT_EQ(checks(0x60), "0000");
  EXPECT_EQ(checks(0x7F), "1111");
}

TEST_F(Form, AClickMakesBits0To4AnewAndKeepsAllOthers) {
  paper.Block[2] = 0xA5;
  paper.Block[3] = 0xE0;
  Open();
  form->Click(kHardwareBoxes[3], true);
  EXPECT_EQ(form->Curr_HID(), 0xA5F8);
  form->Click(kHardwareBoxes[0], true);
  form->Click(kHardwareBoxes[1], true);
  form->Click(kHardwareBoxes[2], true);
  EXPECT_EQ(form->Curr_HID(), 0xA5FF);
  form->Click(kHardwareBoxes[3], false);
  EXPECT_EQ(form->Curr_HID(), 0xA5E7);
  form->Click(kHardwareBoxes[0], false);
  EXPECT_EQ(form->Curr_HID(), 0xA5E6);
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(Form, OneOfBits3And4AloneStaysUntilAClickMakesBothAnew) {
  paper.Block[3] = 8;  // deals jumbo cards, for the program
  Open();
  EXPECT_EQ(form->Curr_HID(), 8);
  EXPECT_TRUE(form->IsChecked(kHardwareBoxes[3]));
  form->Click(kHardwareBoxes[0], true);
  EXPECT_EQ(form->Curr_HID(), 25);
  paper.Block[3] = 16;
  Open();
  EXPECT_FALSE(form->IsChecked(kHardwareBoxes[3]));
  form->Click(kHardwareBoxes[0], true);
  EXPECT_EQ(form->Curr_HID(), 1);
}

// Update.

TEST_F(Form, UpdateErasesTheBlockWritesTheRecordAndReadsItAgain) {
  Open();
  Type(form->Adv_SerialNumber, "1234");  // 0x04D2
  form->Click(kHardwareBoxes[1], false);
  TypeDay("31", "12", "2026");  // 0x07EA
  EXPECT_TRUE(form->Update());
  ASSERT_TRUE(FramesAre(bridge.Sent, {"2C 5D 00 C0 00 00 00", "AD 5C 00 C0 00 00 00 | 4",
                                      "12 01 00 .. .. .. ..", "12 02 00 .. .. .. .."}));
  const Bytes& write = bridge.Sent[1];
  EXPECT_EQ(Bytes(write.begin() + 8, write.begin() + 16),
            (Bytes{0x04, 0xD2, 0x00, 0x65, 31, 12, 0x07, 0xEA}));
  EXPECT_GT(std::set<int>(write.begin() + 16, write.begin() + 136).size(), 30U) << "random";
  ExpectBox("         Parameters updated OK          ", 64);
  EXPECT_EQ(form->Adv_SerialNumber.Text(), "1234");
  EXPECT_FALSE(form->Adv_SerialNumber.Edited());
}

TEST_F(Form, UpdateKeepsTheBitsThatHaveNoCheckBox) {
  paper.Block[2] = 0x80;
  paper.Block[3] = 0x20;
  Open();
  form->Click(kHardwareBoxes[0], true);
  EXPECT_TRUE(form->Update());
  EXPECT_EQ(paper.Block[2], 0x80);
  EXPECT_EQ(paper.Block[3], 0x21);
}

TEST_F(Form, ARecordThatTheMachineDoesNotHoldIsNotCalledUpdated) {
  Open();
  Type(form->Adv_SerialNumber, "1");
  paper.HearsRecord = false;
  EXPECT_FALSE(form->Update());
  ExpectBox("      The machine does not hold what was written      ", 16);
  EXPECT_EQ(form->Adv_SerialNumber.Text(), "4711");
}

TEST_F(Form, AStatusOfTheEraseEndsTheUpdateAndNothingIsWritten) {
  for (const int status : {1, 2, 255}) {
    desk.Ui.Boxes.clear();
    paper.Block = PaperRecord().Block;
    paper.EraseStatus = static_cast<std::uint8_t>(status);
    Open();
    EXPECT_FALSE(form->Update());
    EXPECT_THAT(Codes(), ElementsAre(44));
    ExpectBox("      Error " + std::to_string(status) + " during programming       at 192", 16);
  }
}

TEST_F(Form, AStatusOfTheWriteIsToldAndTheUpdateCanBeRepeated) {
  for (const int status : {1, 3, 200}) {
    desk.Ui.Boxes.clear();
    paper.Block = PaperRecord().Block;
    paper.WriteStatus = static_cast<std::uint8_t>(status);
    Open();
    Type(form->Adv_SerialNumber, "77");
    EXPECT_FALSE(form->Update());
    EXPECT_THAT(Codes(), ElementsAre(44, 173));
    ExpectBox("      Error " + std::to_string(status) + " during programming       at 192", 16);
    paper.WriteStatus = 0;
    EXPECT_TRUE(form->Update());
    EXPECT_EQ(paper.Block, (std::array<std::uint8_t, 8>{0, 77, 0, 0x67, 14, 6, 7, 0xE3}));
  }
}

TEST_F(Form, ARecordThatIsNotWholeInTheMachineStaysInTheBoxes) {
  Open();
  paper.WriteStatus = 1;
  EXPECT_FALSE(form->Update());
  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(form->ErrorClear()) << "reads the counters again";
  EXPECT_EQ(form->Adv_SerialNumber.Text(), "4711");
  EXPECT_EQ(form->Curr_HID(), 0x67) << "and not 0xFFFF of an erased block";
}

TEST_F(Form, WhoLeavesWithoutAWholeRecordIsAskedAndTheLogHasTheOldOne) {
  RuntimeError error;
  ASSERT_TRUE(desk.Prog.Log.Start(desk.Folder.Path(), error));
  Open();
  Type(form->Adv_SerialNumber, "77");
  paper.WriteStatus = 1;
  EXPECT_FALSE(form->Update());
  EXPECT_THAT(desk.LogLines(),
              Contains("   Manufacturing record: 4711,103,14.6.2019 to 77,103,14.6.2019"));
  desk.Ui.Answers = {kNo, kYes};
  form->Close();
  EXPECT_FALSE(form->Closed());
  EXPECT_EQ(desk.Ui.Boxes.back().Flags, 308) << "Return answers No";
  form->Close();
  EXPECT_TRUE(form->Closed());
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(3));
}

TEST_F(Form, AProgramThatEndsAsksNothing) {
  Open();
  Type(form->Adv_SerialNumber, "77");
  desk.Loop.Quit();
  form->Close();
  EXPECT_TRUE(form->Closed());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(Form, ADayOrAMonthThatNobodyHasTypedIsNotMadeUp) {
  paper.Block = {0, 9, 0, 1, 0, 0, 0, 0};
  Open();
  Type(form->Adv_SerialNumber, "8");
  EXPECT_FALSE(form->Update());
  ExpectBox("      There is no day 0.0.0      \r\n      Nothing has been written.      ", 48);
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(Form, ADayThatDoesNotExistIsRefusedBeforeAnythingIsSent) {
  const std::vector<std::array<const char*, 3>> days{{"31", "2", "2026"},
                                                     {"29", "2", "2026"},
                                                     {"29", "2", "1900"},
                                                     {"29", "2", "65500"},
                                                     {"31", "4", "2026"}};
  for (const auto& [day, month, year] : days) {
    desk.Ui.Boxes.clear();
    Open();
    TypeDay(day, month, year);
    EXPECT_FALSE(form->Update());
    EXPECT_THAT(bridge.Sent, IsEmpty());
    ExpectBox("      There is no day " + std::string(day) + "." + month + "." + year +
                  "      \r\n      Nothing has been written.      ",
              48);
    EXPECT_EQ(form->Adv_Day.Text(), day) << "it can be mended";
  }
  paper.Block.fill(0xFF);
  Open();
  EXPECT_FALSE(form->Update()) << "255.255.65535";
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(Form, TheDaysOfACalendarAreTaken) {
  const std::vector<std::array<const char*, 3>> days{{"29", "2", "2024"},
                                                     {"29", "2", "2000"},
                                                     {"29", "2", "65532"},
                                                     {"31", "12", "65535"},
                                                     {"1", "1", "0"}};
  for (const auto& [day, month, year] : days) {
    Open();
    TypeDay(day, month, year);
    EXPECT_TRUE(form->Update()) << day << month << year;
  }
}

TEST_F(Form, EmptyBoxesGetTheirLowestNumbers) {
  Open();
  Type(form->Adv_SerialNumber, "");
  TypeDay("", "", "");
  EXPECT_TRUE(form->Update());
  EXPECT_EQ(paper.Block, (std::array<std::uint8_t, 8>{0, 0, 0, 0x67, 1, 1, 0, 0}));
}

TEST_F(Form, NoMoreCanBeTypedThanTheMachineHasBitsFor) {
  Open();
  const auto typed = [](ValueBox& box, const std::string& text) {
    Type(box, "7");
    Type(box, text);
    return box.Text();
  };
  EXPECT_EQ(typed(form->Adv_SerialNumber, "65535"), "65535");
  EXPECT_EQ(typed(form->Adv_SerialNumber, "65536"), "7");
  EXPECT_EQ(typed(form->Adv_Day, "32"), "7");
  EXPECT_EQ(typed(form->Adv_month, "13"), "7");
  EXPECT_EQ(typed(form->Adv_Year, "65536"), "7");
  EXPECT_EQ(typed(form->Boards_dealt, "4294967295"), "4294967295");
  EXPECT_EQ(typed(form->Boards_dealt, "4294967296"), "7");
  EXPECT_EQ(typed(form->Boards_dealt, "99999999999999999999"), "7");
}

// The counter of dealt boards.

constexpr const char* kSetBoards = "      Do you really want to set boards dealt ???       ";
constexpr const char* kClearErrors = "   Do you really want to clear all errors informations???   ";

TEST_F(Form, SettingTheBoardsIsAskedAboutAndSentHighByteFirst) {
  Open();
  Type(form->Boards_dealt, "4278255873");  // 0xFF010101
  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(form->Clear_boards());
  ExpectBox(kSetBoards, 4356);
  EXPECT_TRUE(FramesAre(bridge.Sent, {"34 00 FF 01 01 01 63", "33 00 00 .. .. .. .."}));
  EXPECT_EQ(paper.Counters[0], 4'278'255'873U);
  EXPECT_EQ(form->Counters()[0], 4'278'255'873U);
}

TEST_F(Form, ANoSendsNothing) {
  Open();
  Type(form->Boards_dealt, "5");
  desk.Ui.Answers = {kNo, kNo};
  EXPECT_FALSE(form->Clear_boards());
  EXPECT_FALSE(form->ErrorClear());
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(2));
}

TEST_F(Form, BoardsThatTheMachineHasNotTakenShowWhatItHolds) {
  paper.HearsCounter = false;
  Open();
  Type(form->Boards_dealt, "");
  desk.Ui.Answers = {kYes};
  EXPECT_FALSE(form->Clear_boards());
  EXPECT_TRUE(FramesAre(bridge.Sent, {"34 00 00 00 00 00 63", "33 00 00 .. .. .. .."}));
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Ui.Boxes[1].Text, "      The machine does not hold what was written      ");
  EXPECT_EQ(form->Boards_dealt.Text(), "70000");
}

// The errors.

TEST_F(Form, ErrorsAreErasedAndAllIsReadAgain) {
  paper.Counters[5] = 9;
  Open();
  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(form->ErrorClear());
  std::vector<std::string> frames{"2B 5A 00 63 63 63 63"};
  frames.insert(frames.end(), kReload.begin(), kReload.end());
  EXPECT_TRUE(FramesAre(bridge.Sent, frames));
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Ui.Boxes[0], (test::FakeUi::Box{kClearErrors, 4356, "Advance_Maintenance"}));
  EXPECT_EQ(desk.Ui.Boxes[1], (test::FakeUi::Box{"            Errors cleared OK             ", 64,
                                                 "Advance_Maintenance"}));
  EXPECT_EQ(form->Counters()[5], 0U);
}

TEST_F(Form, AStatusOfTheirEraseIsToldAndAllIsReadAgainToo) {
  for (const int status : {1, 255}) {
    paper.ErrorStatus = static_cast<std::uint8_t>(status);
    Open();
    desk.Ui.Answers = {kYes};
    EXPECT_FALSE(form->ErrorClear());
    EXPECT_EQ(Words(), "            Error during erasing FRAM        ");
    EXPECT_EQ(desk.Ui.Boxes.back().Flags, 16);
    EXPECT_THAT(Codes(), ElementsAre(43, 51, 51, 18, 18));
  }
}

}  // namespace
}  // namespace morvane::maintenance
