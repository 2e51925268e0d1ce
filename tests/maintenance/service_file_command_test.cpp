#include "maintenance/service_file_command.h"

#include <array>
#include <numeric>

#include "maintenance/service_file_desk.h"
#include "maintenance/service_gathering.h"
#include "support/frame_list.h"

namespace morvane::maintenance {
namespace {

using test::FramesAre;

/// 256 digits of the pixels that `value` says.
template <typename Value>
std::string Row(int y, Value value) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string row;
  for (int x = 0; x < 128; ++x) {
    row += kDigits[static_cast<std::size_t>(value(x, y) / 16)];
    row += kDigits[static_cast<std::size_t>(value(x, y) % 16)];
  }
  return row;
}

std::string Numbers(int first) {
  std::string line = std::to_string(first);
  for (int i = 1; i < 32; ++i) line += "," + std::to_string(first + i);
  return line;
}

std::string Hex(int byte) { return Hex2(static_cast<std::uint8_t>(byte)); }

void AddPicture(std::vector<std::string>& frames) {
  for (int y = 0; y < 192; ++y) frames.push_back("01 " + Hex(y) + " .. .. .. .. ..");
}

void AddRecord(std::vector<std::string>& frames, std::array<int, 4> subCodes) {
  for (const int subCode : subCodes) frames.push_back("11 " + Hex(subCode) + " .. .. .. .. ..");
  frames.insert(frames.end(), {"11 09 .. .. .. .. ..", "11 0E .. .. .. .. .."});
}

TEST_F(ServiceFileDesk, EveryLineOfTheFile) {
  Begin();
  console->Bench().HoldS = "K";
  console->Bench().HoldC = "H";
  FilteredBox three{"3", 1};
  console->Developer().Test6.Change(three);
  console->Email();
  const auto line = Lines();
  ASSERT_EQ(line.size(), 415U) << "414 and the none that a 0 counts";
  EXPECT_THAT(line[1],
              ::testing::MatchesRegex("Service file 2026-03-03 3:04:.. PM Software ver: 1.0"));
  EXPECT_EQ(line[2], "4711,70000,14.6.2019,127,2.90,33,,4,0.0.0.0,0.0.0.0");
  EXPECT_EQ(line[3], "1,0,0,0,1,1,0,0,ON,ON,OFF,ON,26.1,24.0,2");
  EXPECT_EQ(line[4], "0,14200,14100,14000,15,14,13,12,11");
  EXPECT_EQ(line[5], "0,0,0,0,1,1,0,10538,95");
  EXPECT_EQ(line[6], "11,12,13,14,23,24,21,22,33,34,31,32");
  EXPECT_EQ(line[7], "51,52,53,54,63,64,61,62,73,74,71,72");
  EXPECT_EQ(line[8], "101,102,103,104,113,114,111,112,123,124,121,122");
  EXPECT_EQ(line[9], "91,93,92,94");
  for (int y = 0; y < 192; ++y) {
    ASSERT_EQ(line[10 + static_cast<std::size_t>(y)], Row(y, PaperService::Grey)) << y;
    ASSERT_EQ(line[203 + static_cast<std::size_t>(y)], Row(y, PaperService::Label)) << y;
  }
  EXPECT_EQ(line[202], "");
  EXPECT_EQ(line[395], "");
  EXPECT_EQ(line[396], "OK,46,47,A,H,9,19,20,32") << "nine fields";
  for (int page = 0; page < 8; ++page) {
    EXPECT_EQ(line[397 + static_cast<std::size_t>(page)], Numbers(70000 * (page + 1)));
  }
  EXPECT_EQ(line[405], "1112131421222324,A0A1A2A3A4A5A6A7");
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(line[406 + static_cast<std::size_t>(i)], Numbers(32 * i + 1));
  }
  EXPECT_EQ(line[410], "01.20,3.7,77,177");
  EXPECT_EQ(line[411], "5,6,258,41,23,3,,K,H");
  EXPECT_EQ(line[412], "10,20,30,50,11,32,60,93");
  EXPECT_EQ(line[413], "143,141,142");
  EXPECT_EQ(line[414], "");
}

TEST_F(ServiceFileDesk, TheFramesInTheirOrder) {
  Begin();
  console->Email();
  std::vector<std::string> frames{"17 31 00 .. .. .. ..", "0A 00 00 00 .. .. .."};
  AddPicture(frames);
  frames.emplace_back("15 00 00 00 00 00 00");
  AddPicture(frames);
  frames.insert(frames.end(),
                {"17 31 00 .. .. .. ..", "1B 00 00 .. .. .. ..", "1B 01 00 .. .. .. ..",
                 "1B 02 00 .. .. .. ..", "1B 03 00 .. .. .. ..", "1B 04 00 .. .. .. ..",
                 "0F .. .. .. .. .. ..", "10 .. .. .. .. .. .."});
  AddRecord(frames, {1, 2, 3, 4});
  AddRecord(frames, {5, 6, 7, 8});
  AddRecord(frames, {10, 11, 12, 13});
  AddRecord(frames, {1, 2, 3, 4});
  for (int page = 0; page < 8; ++page) frames.push_back("33 00 " + Hex(page) + " .. .. .. ..");
  frames.insert(frames.end(),
                {"14 01 00 00 00 00 00", "14 02 00 00 00 00 00", "32 00 E0 00 00 00 00",
                 "1E .. .. .. .. .. ..", "17 00 00 .. .. .. .."});
  EXPECT_TRUE(FramesAre(bridge.Sent, frames));
  EXPECT_EQ(bridge.Overlaps, 0);
}

TEST_F(ServiceFileDesk, WhatTheOperatorAndTheLogAreTold) {
  Begin();
  console->Email();
  ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_EQ(desk.Ui.Boxes[0],
            (test::FakeUi::Box{Fill(desk.Prog.Texts.Msg088, "***", Path()), 65, "Service File"}));
  EXPECT_EQ(desk.Ui.Boxes[1],
            (test::FakeUi::Box{Fill(desk.Prog.Texts.Msg089, "***", Path()), 64, "Service File"}));
  EXPECT_EQ(LinesWith("Service file: "), std::vector<std::string>{"   Service file: " + Path()});
  EXPECT_EQ(console->ServiceFiles().Written, Path());
}

TEST_F(ServiceFileDesk, TheConsoleShowsWhatWasGathered) {
  Begin();
  console->Email();
  const auto& shown = console->Bench().Shown();
  EXPECT_EQ(shown.Cap_time, "258");
  EXPECT_EQ(shown.Verdict.Reco_time, "41");
  EXPECT_EQ(shown.Verdict.Threshold, "46,47");
  EXPECT_EQ(shown.Verdict.Symbol + shown.Verdict.Suit + shown.Verdict.Reco_error, "AHOK");
  EXPECT_EQ(shown.Suit_size_y, "32");
  EXPECT_EQ(console->Console().Outputs, 0) << "motors, lights and camera are off again";
  EXPECT_FALSE(machine.PollLock);
  EXPECT_TRUE(console->Bench().ButtonsOn());
  Poll(1);
  EXPECT_EQ(bridge.Sent.back()[0], 0x1B) << "and the poll goes on";
}

TEST_F(ServiceFileDesk, OtherOutputsStayOn) {
  Begin();
  console->Console().Outputs = wire::OutputsCommand::kFrontRedLed;
  console->Email();
  EXPECT_EQ(Lines()[3].substr(0, 16), "1,0,0,0,1,1,0,1,");
  EXPECT_EQ(console->Console().Outputs, wire::OutputsCommand::kFrontRedLed);
}

TEST_F(ServiceFileDesk, TheGateTestFiresNoGateMeanwhile) {
  Begin();
  console->Console().GateTest = true;
  console->Email();
  for (const auto& frame : bridge.Sent) {
    EXPECT_TRUE(frame[0] != 0x17 || (frame[1] & 0x0E) == 0);
  }
}

TEST_F(ServiceFileDesk, AMachineOfFirmware239HasNoRecordsBesideTheStandard) {
  paper.FirmwareMinor = 0x39;
  Begin();
  console->Email();
  EXPECT_EQ(Lines()[6], "11,12,13,14,23,24,21,22,33,34,31,32");
  EXPECT_EQ(Lines()[7], "0,0,0,0,0,0,0,0,0,0,0,0");
  EXPECT_EQ(Lines()[8], "0,0,0,0,0,0,0,0,0,0,0,0");
  EXPECT_EQ(Lines()[9], ",,,") << "thresholds came with 2.44";
  EXPECT_EQ(Lines()[413], ",,") << "the camera's settings with 2.80";
  EXPECT_EQ(SubCodes(0x11), (std::vector<int>{1, 2, 3, 4, 1, 2, 3, 4}))
      << "other indexes are not touched";
}

TEST_F(ServiceFileDesk, SmallCardsCameWithFirmware266) {
  for (const auto& [minor, line] :
       {std::pair{0x65, "0,0,0,0,0,0,0,0,0,0,0,0"},
        std::pair{0x66, "101,102,103,104,113,114,111,112,123,124,121,122"}}) {
    paper.FirmwareMinor = static_cast<std::uint8_t>(minor);
    Begin();
    console->Email();
    const std::string name = "Service_file_4711_2026_3_3__" + desk.Store.Get(kServiceFileId);
    EXPECT_EQ(Lines(name + ".txt")[7], "51,52,53,54,63,64,61,62,73,74,71,72");
    EXPECT_EQ(Lines(name + ".txt")[8], line);
    console.reset();
  }
}

TEST_F(ServiceFileDesk, AMachineForStandardCardsHasNoJumboRecord) {
  paper.Hardware = 0x77;
  Begin();
  console->Email();
  EXPECT_EQ(Lines()[7], "0,0,0,0,0,0,0,0,0,0,0,0");
  EXPECT_EQ(Lines()[8], "101,102,103,104,113,114,111,112,123,124,121,122");
}

TEST_F(ServiceFileDesk, TheIndexSelectedBeforeIsSelectedAfter) {
  Begin();
  console->SelectIndex(1);
  Forget();
  console->Email();
  EXPECT_EQ(console->Parameters().CardSelection.CardIndex, 1);
  EXPECT_EQ(Text(Parameter::pos_x), "51");
  EXPECT_EQ(Lines()[5], "0,0,0,1,1,1,0,20818,95")
      << "81 x 256 + 82, the Jumbo record's; bits of 83";
  EXPECT_EQ(Lines()[6].substr(0, 6), "11,12,");
}

TEST_F(ServiceFileDesk, EditsThatWereNotWrittenStayAndAreNotInTheFile) {
  Begin();
  Type(Parameter::pos_x, "99");
  console->Email();
  EXPECT_EQ(Text(Parameter::pos_x), "99");
  EXPECT_TRUE(console->Boxes().Edited());
  EXPECT_EQ(Lines()[6].substr(0, 6), "11,12,") << "what the machine holds";
}

TEST_F(ServiceFileDesk, TheFocusCountsWhereItWasMeasured) {
  struct Case {
    std::uint8_t Major;
    std::uint8_t Minor;
    std::uint8_t Marker;
    std::string Focus;
  };
  for (const Case& it : {Case{2, 0x71, 23, "0"}, Case{2, 0x72, 23, "77"}, Case{2, 0x72, 22, "0"},
                         Case{3, 0x00, 22, "77"}}) {
    paper.FirmwareMajor = it.Major;
    paper.FirmwareMinor = it.Minor;
    paper.Marker = it.Marker;
    Begin();
    console->Email();
    const std::string line = Lines(Files().front())[410];
    EXPECT_EQ(line, "01.20,3.7," + it.Focus + ",177") << int{it.Minor};
    std::filesystem::remove(Path(Files().front()));
    console.reset();
  }
}

TEST_F(ServiceFileDesk, TheProgressAsItGoes) {
  Begin();
  std::vector<int> seen;
  view.OnGathering = [&] {
    const int progress = view.Gathering->ProgressBar1();
    if (seen.empty() || seen.back() != progress) seen.push_back(progress);
  };
  console->Email();
  EXPECT_EQ(seen.front(), 5);
  EXPECT_EQ(seen[1], 10);
  EXPECT_EQ(seen[2], 15);
  EXPECT_THAT(seen, ::testing::Contains(15 + 45 * 191 / 192));
  EXPECT_EQ(seen.back(), 59 + 40 * 191 / 192);
  EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
}

TEST_F(ServiceFileDesk, TheFeederIsGivenTwoSecondsToSettle) {
  Begin();
  const auto before = desk.Clock.Elapsed();
  std::optional<std::chrono::microseconds> captured;
  OnAsked = [&](const test::Bytes& plain) {
    if (plain[0] == 0x0A) captured = desk.Clock.Elapsed();
  };
  console->Email();
  ASSERT_TRUE(captured.has_value());
  EXPECT_EQ((*captured - before) / std::chrono::milliseconds(100), 20);
}

TEST_F(ServiceFileDesk, EachFileHasANumberOfItsOwn) {
  Begin();
  console->Email();
  console->Email();
  EXPECT_EQ(desk.Store.Get(kServiceFileId), "2");
  EXPECT_EQ(Lines("Service_file_4711_2026_3_3__2.txt").size(), 415U);
  EXPECT_EQ(Lines().size(), 415U);
}

TEST_F(ServiceFileDesk, AFileOfThatNameIsReplaced) {
  Begin();
  test::WriteContent(Path(), "an older one");
  console->Email();
  EXPECT_EQ(Lines().size(), 415U);
}

}  // namespace
}  // namespace morvane::maintenance
