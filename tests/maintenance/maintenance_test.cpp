#include "maintenance/maintenance.h"

#include "maintenance/console_desk.h"
#include "support/frame_list.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class TheConsole : public ConsoleDesk {};

// The window start.

TEST_F(TheConsole, TheWindowStartAsksForTheVersionTheIdentityTheParametersAndTheInnerVersions) {
  const std::vector<std::string> first{"1A .. .. .. .. .. ..", "12 01 00 .. .. .. ..",
                                       "12 02 00 .. .. .. ..", "33 00 00 .. .. .. ..",
                                       "11 01 .. .. .. .. ..", "11 02 .. .. .. .. ..",
                                       "11 03 .. .. .. .. ..", "11 04 .. .. .. .. .."};
  const std::vector<std::string> last{"32 00 00 00 00 00 00", "23 00 00 00 00 00 00"};
  const std::string thresholds = "11 09 .. .. .. .. ..";
  const std::string video = "11 0E .. .. .. .. ..";
  for (const auto& [version, more] : {std::pair{"1.90", std::vector<std::string>{}},
                                      {"2.1F", {}},
                                      {"2.20", {}},
                                      {"2.3F", {}},
                                      {"2.40", {}},
                                      {"2.43", {}},
                                      {"2.44", {thresholds}},
                                      {"2.65", {thresholds}},
                                      {"2.66", {thresholds}},
                                      {"2.69", {thresholds}},
                                      {"2.70", {thresholds}},
                                      {"2.7F", {thresholds}},
                                      {"2.80", {thresholds, video}},
                                      {"3.00", {thresholds, video}}}) {
    SCOPED_TRACE(version);
    Start(std::string("firmware=") + version);
    std::vector<std::string> frames = first;
    frames.insert(frames.end(), more.begin(), more.end());
    frames.insert(frames.end(), last.begin(), last.end());
    EXPECT_TRUE(FramesAre(bridge.Sent, frames));
    EXPECT_THAT(bridge.Calls, ElementsAre("WriteLatch 1 1", "FlushBuffers 1 1"));
  }
}

TEST_F(TheConsole, TheMachineIsLatchedAndLeftAloneForTwoSeconds) {
  Open();
  EXPECT_THAT(bridge.Calls, Contains(HasSubstr("WriteLatch")));
  desk.Loop.WaitMs(Maintenance::kFirstContactMs - 1);
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_FALSE(console->Controls().MachineKnown);
  desk.Loop.WaitMs(1);
  EXPECT_TRUE(console->Controls().MachineKnown);
  EXPECT_THAT(LinesWith(" Maintenance: "), ElementsAre(HasSubstr("M")));
}

TEST_F(TheConsole, TheMachineSaysWhatItIs) {
  machine.Link.UsbProductString = "0815X";
  machine.Link.UsbDriverVersionHigh = 0x30001;
  machine.Link.UsbDriverVersionLow = 0x20005;
  machine.Link.UsbDllVersionHigh = 0x10002;
  machine.Link.UsbDllVersionLow = 0xFFFF0003;
  Start("firmware=2.7F,boot=1.20,serial=4711,hardware=0x7F");
  const Identity& id = console->TheIdentity();
  EXPECT_EQ(id.Serial_number, "4711");
  EXPECT_EQ(id.Hardware_ID, "127");
  EXPECT_EQ(id.Manuf_date, "14.6.2019");
  EXPECT_EQ(id.Soft_ver, "2.7F");
  EXPECT_EQ(id.Down_ID, "33") << "1 + 0x20";
  EXPECT_EQ(id.Flash_ID_text, "4");
  EXPECT_EQ(id.txtUSB_ID, "0815X");
  EXPECT_EQ(id.USB_driver, "3.1.2.5");
  EXPECT_EQ(id.DLLver, "1.2.65535.3");
  EXPECT_EQ(id.Boot_ver, "01.20");
  EXPECT_EQ(id.FPGA_ver, "3.7");
  EXPECT_NE(id.Boards_dealed, "");
}

TEST_F(TheConsole, AMachineWithoutFirmwareCanOnlyBeLoaded) {
  Start("firmware=0.00,boot=0.00");
  EXPECT_TRUE(FramesAre(bridge.Sent,
                        {"1A .. .. .. .. .. ..", "32 00 00 00 00 00 00", "23 00 00 00 00 00 00"}));
  EXPECT_TRUE(console->Controls().Download);
  EXPECT_FALSE(console->Controls().MachineKnown);
  EXPECT_EQ(console->TheIdentity().Down_ID, "0");
  EXPECT_EQ(machine.HardwareId, 0U);
  bridge.Sent.clear();
  Poll();
  EXPECT_TRUE(FramesAre(bridge.Sent, {"17 00 00 .. .. .. .."}));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(TheConsole, ASilentMachineIsAskedTwiceAndTheWindowGoes) {
  Damage = [](const Bytes&, const Bytes&) { return Bytes{}; };
  Start();
  desk.Loop.WaitMs(3000);
  EXPECT_TRUE(FramesAre(bridge.Sent, {"1A .. .. .. .. .. ..", "1A .. .. .. .. .. .."}));
  EXPECT_NE(bridge.Sent[0], bridge.Sent[1]) << "the filler is fresh";
  EXPECT_EQ(desk.Ui.Boxes, (std::vector<test::FakeUi::Box>{
                               {desk.Prog.Texts.Msg047, kOkCritical, "Communication Error"}}));
  EXPECT_TRUE(console->Closed());
  EXPECT_EQ(view.Closes, 1);
  EXPECT_FALSE(machine.Link.IsOpen());
}

// The gates.

TEST_F(TheConsole, EachPieceIsThereFromItsFirmwareOn) {
  struct Row {
    const char* Version;
    bool Switches;
    bool UseBoard;
    bool Video;
  };
  for (const Row& row : {Row{"1.99", false, false, false},
                         {"2.1F", false, false, false},
                         {"2.20", true, false, false},
                         {"2.69", true, false, false},
                         {"2.70", true, true, false},
                         {"2.7F", true, true, false},
                         {"2.80", true, true, true},
                         {"3.00", true, true, true}}) {
    SCOPED_TRACE(row.Version);
    Start(std::string("firmware=") + row.Version + ",hardware=0x28");
    EXPECT_EQ(console->Boxes().SwitchesOn, row.Switches);
    EXPECT_EQ(console->Boxes().UseBoardOn(), row.UseBoard);
    EXPECT_EQ(console->Controls().Video, row.Video);
    EXPECT_FALSE(console->Controls().Board_Sen);
  }
}

TEST_F(TheConsole, TheHardwareSaysWhetherThereAreVideoSettingsAndAnOpticalBoardSwitch) {
  Start("firmware=2.90,hardware=0x08");
  EXPECT_FALSE(console->Controls().Video);
  Start("firmware=3.00,hardware=0x08");
  EXPECT_TRUE(console->Controls().Video) << "firmware 3 has them whatever the hardware says";
  Start("firmware=2.1F,hardware=0x40");
  EXPECT_TRUE(console->Controls().Board_Sen) << "whatever the firmware";
}

TEST_F(TheConsole, AnIndexThatTheMachineCannotReadGivesWayAtTheStart) {
  struct Row {
    const char* Options;
    const char* Stored;
    int Index;
    int FirstRead;
  };
  for (const Row& row : {Row{"firmware=2.40,hardware=0x08", "1", 1, 5},
                         {"firmware=2.3F,hardware=0x08", "1", 0, 1},
                         {"firmware=2.90,hardware=0x77", "1", 0, 1},
                         {"firmware=2.66,hardware=0x08", "2", 2, 10},
                         {"firmware=2.65,hardware=0x08", "2", 0, 1},
                         {"firmware=2.90,hardware=0x77", "2", 0, 1},
                         {"firmware=3.00,hardware=0x08", "2", 2, 10}}) {
    SCOPED_TRACE(std::string(row.Options) + " " + row.Stored);
    desk.Store.Set(kCardIndex, row.Stored);
    Start(row.Options);
    EXPECT_EQ(console->Parameters().CardSelection.CardIndex, row.Index);
    EXPECT_EQ(SubCodes(17).front(), row.FirstRead);
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  }
}

// The poll.

TEST_F(TheConsole, APollBeginsFiftyMillisecondsBehindTheEndOfTheLast) {
  Start();
  bridge.Sent.clear();
  std::vector<std::chrono::microseconds> ends;
  desk.Loop.WaitMs(Maintenance::kPollMs - 1);
  EXPECT_THAT(bridge.Sent, IsEmpty());
  desk.Loop.WaitMs(1);
  EXPECT_EQ(bridge.Sent.size(), 6U);
  EXPECT_EQ(view.Readings, 1);
  Damage = [this](const Bytes&, Bytes wire) {
    desk.Clock.Spend(std::chrono::milliseconds(20));
    return wire;
  };
  desk.Loop.WaitMs(Maintenance::kPollMs);
  EXPECT_EQ(bridge.Sent.size(), 12U);
  Damage = nullptr;
  desk.Loop.WaitMs(Maintenance::kPollMs - 1);
  EXPECT_EQ(bridge.Sent.size(), 12U) << "the poll has taken 120 ms, which do not count";
  desk.Loop.WaitMs(1);
  EXPECT_EQ(bridge.Sent.size(), 18U);
}

TEST_F(TheConsole, AButtonFeedsOneCard) {
  Start("firmware=2.1F");
  bridge.Sent.clear();
  console->Console().Outputs = wire::OutputsCommand::kMotors;
  console->Feed_card();
  Poll();
  EXPECT_TRUE(FramesAre(bridge.Sent, {"17 01 01 .. .. .. ..", "17 01 00 .. .. .. .."}));
}

TEST_F(TheConsole, AVerdictThatComesUnaskedIsShownAndTheReplyBehindItTaken) {
  Start();
  bridge.Sent.clear();
  Damage = [](const Bytes& plain, Bytes wire) {
    if (plain[0] != 0x17) return wire;
    Bytes both = test::OnTheWire({0x15, 0x01, 0x2C, 14, 2, 45, 0, 0}, 21);
    both.insert(both.end(), wire.begin(), wire.end());
    return both;
  };
  Poll();
  EXPECT_EQ(bridge.Sent.size(), 6U) << "nothing was asked twice";
  const Verdict& verdict = console->Bench().Shown().Verdict;
  EXPECT_EQ(verdict.Reco_time, "300");
  EXPECT_EQ(verdict.Threshold, "45");
  EXPECT_EQ(verdict.Symbol, "A");
  EXPECT_EQ(verdict.Suit, "H");
  EXPECT_EQ(verdict.Reco_error, "OK");
}

TEST_F(TheConsole, WhatIsKnownGoesToTheLogOnceBehindTheTenthAnswer) {
  Start("firmware=2.90,serial=4711,hardware=0x7F");
  Poll();
  EXPECT_THAT(LinesWith("Basic info"), IsEmpty());
  Poll();
  const Identity& id = console->TheIdentity();
  EXPECT_THAT(LinesWith("Basic info"),
              ElementsAre("   Basic info: 4711," + id.Boards_dealed + ",14.6.2019,127,2.90,33," +
                          id.txtUSB_ID + ",4," + id.USB_driver + "," + id.DLLver + ",25.3,24.0"));
  Poll(300);
  EXPECT_EQ(LinesWith("Basic info").size(), 1U);
  Start("firmware=2.90");
  Poll(2);
  EXPECT_EQ(LinesWith("Basic info").size(), 2U) << "each window writes its own";
}

TEST_F(TheConsole, FirmwareWithoutStatusFramesHasNoBasicInfo) {
  Start("firmware=2.1F");
  Poll(30);
  EXPECT_THAT(LinesWith("Basic info"), IsEmpty());
}

TEST_F(TheConsole, WhileABoxIsOpenNothingIsPolledAndNoReadingIsCalledNew) {
  Start();
  bridge.Sent.clear();
  desk.Ui.Answers = {kNo};
  desk.Ui.OnBox = [this] {
    desk.Loop.WaitMs(500);
    EXPECT_EQ(view.Readings, 0);
    EXPECT_THAT(bridge.Sent, IsEmpty());
  };
  console->save_param();
  Poll();
  EXPECT_EQ(view.Readings, 1) << "and the polling goes on";
}

TEST_F(TheConsole, BeforeTheMachineIsKnownNoButtonSends) {
  const auto pressAll = [this] {
    bridge.Sent.clear();
    console->Feed_card();
    console->Get_param();
    console->save_param();
    console->SelectIndex(1);
    console->Developer().Test();
    console->Developer().Test_write();
    EXPECT_THAT(bridge.Sent, IsEmpty());
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  };
  Open();
  pressAll();
  Start("boot=0.00");
  pressAll();
}

// The developer's buttons.

TEST_F(TheConsole, TheTestTextIsFetchedOnceItIsEmpty) {
  Start();
  bridge.Sent.clear();
  console->Developer().TestText = "kept";
  console->Developer().Test();
  EXPECT_EQ(console->Developer().TestText, "kept");
  EXPECT_THAT(bridge.Sent, IsEmpty());
  console->Developer().TestText.clear();
  console->Developer().Test();
  EXPECT_TRUE(FramesAre(bridge.Sent, {"1E .. .. .. .. .. .."}));
  EXPECT_NE(console->Developer().TestText, "");
}

TEST_F(TheConsole, TheTestWriteSendsBothNumbersAndWaitsForNoAnswer) {
  Start();
  bridge.Sent.clear();
  FilteredBox six{"6", 1};
  console->Developer().Test6.Change(six);
  FilteredBox seven{"255", 3};
  console->Developer().Test7.Change(seven);
  console->Developer().Test_write();
  EXPECT_TRUE(FramesAre(bridge.Sent, {"24 06 FF 00 00 00 00"}));
}

// Leaving.

TEST_F(TheConsole, LeavingUnlatchesTheMachineClosesTheLinkAndStoresTheCards) {
  Start();
  bridge.Calls.clear();
  console->SelectNational(5);
  console->SelectCardType(1);
  console->SelectThreshold(2);
  console->SelectIndex(2);
  EXPECT_EQ(desk.Store.Get(kNational), "0") << "not before";
  console->Exit();
  EXPECT_THAT(bridge.Calls, Contains("WriteLatch 1 0"));
  EXPECT_THAT(bridge.Calls.back(), HasSubstr("Close"));
  EXPECT_EQ(desk.Store.Get(kNational), "5");
  EXPECT_EQ(desk.Store.Get(kCardType), "1");
  EXPECT_EQ(desk.Store.Get(kThreshold), "2");
  EXPECT_EQ(desk.Store.Get(kCardIndex), "2");
  EXPECT_EQ(view.Closes, 1);
  bridge.Sent.clear();
  desk.Loop.WaitMs(500);
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(TheConsole, BeforeTheFirstContactItCanBeLeft) {
  Open();
  console->Exit();
  desk.Loop.WaitMs(5000);
  EXPECT_TRUE(console->Closed());
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(TheConsole, LeavingWithEditsAsksOnceAndStaysWithoutAYes) {
  Start();
  Type(Parameter::pos_x, "123");
  desk.Ui.Answers = {kNo};
  console->Exit();
  EXPECT_FALSE(console->Closed());
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes.back().Flags, kYesNoExclamationNo);
  EXPECT_EQ(Text(Parameter::pos_x), "123");
  desk.Ui.Answers = {kYes};
  console->Exit();
  EXPECT_TRUE(console->Closed());
  EXPECT_EQ(desk.Ui.Boxes.size(), 2U);
}

TEST_F(TheConsole, AChangedCheckBoxIsAnEditToo) {
  Start();
  desk.Ui.Answers = {kNo};
  console->Boxes().SetIgnore_flip(!console->Boxes().Switches().IgnoreFlip);
  console->Exit();
  EXPECT_FALSE(console->Closed());
}

TEST_F(TheConsole, AProgramThatQuitsAsksNothing) {
  Start();
  Type(Parameter::pos_x, "123");
  desk.Loop.Quit();
  console->Exit();
  EXPECT_TRUE(console->Closed());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::maintenance
