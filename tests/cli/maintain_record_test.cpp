#include <gmock/gmock.h>

#include "cli/cli_desk.h"
#include "maintenance/paper_record.h"
#include "maintenance/ui/camera_bridge.h"

// maintain record.

namespace morvane::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

using Record = std::array<std::uint8_t, 8>;
constexpr MaintainRecordOptions::Day kNinthOfMarch{2026, 3, 9};

/// A machine whose record and counters are on paper.
struct Desk : CliDesk {
  explicit Desk(bool yes = true, const std::string& more = "") : CliDesk(yes, Asked(more)) {
    Paper.Counters[0] = 70'000;
    Paper.Counters[7] = 2;
    Bridge.Answer = [this](const test::Bytes& plain) {
      if (OnFrame) OnFrame(plain);
      const int code = plain[0];
      if (code == 43 || code == 44 || code == 52 || code == 173) Writes.push_back(code);
      return Paper.ReplyTo(plain);
    };
  }
  maintenance::PaperRecord Paper;
  maintenance::CameraBridge Bridge{Machine};
  std::function<void(const test::Bytes& plain)> OnFrame;
  std::vector<int> Writes;  ///< codes of the frames that change something
  ExitStatus Ask(const MaintainRecordOptions& options) { return RunOn(Bridge, options); }
};

TEST(MaintainRecord, WithoutOptionsShowsTheRecordAndTheCountersAndWritesNothing) {
  Desk desk(false);
  EXPECT_EQ(desk.Ask({}), kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("Adv_SerialNumber: 4711\n"
                                             "Adv_Day: 14\n"
                                             "Adv_month: 6\n"
                                             "Adv_Year: 2019\n"
                                             "HID_bit0: 1\n"
                                             "HID_bit1: 1\n"
                                             "HID_bit2: 1\n"
                                             "HID_bit34: 0\n"
                                             "Curr_HID: 103\n"
                                             "Boards_dealt: 70000\n"
                                             "Error_view_0: 70000\n"
                                             "Error_view_1: 0\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nError_view_7: 2\n"));
  EXPECT_THAT(desk.Screen.Output, EndsWith("\nError_view_63: 0\n"));
  EXPECT_EQ(desk.Screen.Errors, "");
  EXPECT_THAT(desk.Writes, IsEmpty());
}

TEST(MaintainRecord, IsThereWhateverTheServiceLevel) {
  for (const int level : {0, 1, 2}) {
    Desk desk;
    desk.Prog.ServiceLevel = level;
    EXPECT_EQ(desk.Ask({.Serial = 9}), kDone) << level;
  }
}

TEST(MaintainRecord, EachOptionWritesWhatItSaysAndNothingElse) {
  const auto written = [](const MaintainRecordOptions& options) {
    Desk desk(false);
    EXPECT_EQ(desk.Ask(options), kDone);
    EXPECT_THAT(desk.Writes, ElementsAre(44, 173));
    EXPECT_THAT(desk.Screen.Errors, EndsWith("Advance_Maintenance: Parameters updated OK\n"));
    return desk.Paper.Block;
  };
  EXPECT_EQ(written({.Serial = 0xFFFE}), (Record{0xFF, 0xFE, 0, 0x67, 14, 6, 0x07, 0xE3}));
  EXPECT_EQ(written({.Hardware = 0}), (Record{0x12, 0x67, 0, 0x60, 14, 6, 0x07, 0xE3}));
  EXPECT_EQ(written({.Hardware = 31}), (Record{0x12, 0x67, 0, 0x7F, 14, 6, 0x07, 0xE3}));
  EXPECT_EQ(written({.Date = kNinthOfMarch}), (Record{0x12, 0x67, 0, 0x67, 9, 3, 0x07, 0xEA}));
}

TEST(MaintainRecord, BitsAboveTheFourthStayAsTheMachineHasThem) {
  Desk desk;
  desk.Paper.Block[2] = 0xA5;
  desk.Paper.Block[3] = 0x20;
  EXPECT_EQ(desk.Ask({.Hardware = 5}), kDone);
  EXPECT_EQ(desk.Paper.Block[2], 0xA5);
  EXPECT_EQ(desk.Paper.Block[3], 0x25);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nCurr_HID: 42277\n"));  // 0xA525
}

TEST(MaintainRecord, WhatTheMachineHoldsAlreadyIsNotWritten) {
  Desk desk;
  EXPECT_EQ(
      desk.Ask({.Serial = 4711, .Hardware = 7, .Date = MaintainRecordOptions::Day{2019, 6, 14}}),
      kDone);
  EXPECT_EQ(desk.Ask({.BoardsDealt = 70'000}), kDone);
  EXPECT_EQ(desk.Screen.Errors,
            "The machine holds this record already.\n"
            "The machine holds this number of boards already.\n");
  EXPECT_THAT(desk.Writes, IsEmpty());
}

TEST(MaintainRecord, ErrorsAreErasedBeforeTheBoardsAreSet) {
  Desk desk;
  EXPECT_EQ(desk.Ask({.Serial = 1, .BoardsDealt = 4'294'967'295, .ClearErrors = true}), kDone);
  EXPECT_THAT(desk.Writes, ElementsAre(44, 173, 43, 52));
  EXPECT_EQ(desk.Paper.Counters[0], 4'294'967'295U);
  EXPECT_EQ(desk.Paper.Counters[7], 0U);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nBoards_dealt: 4294967295\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nError_view_7: 0\n"));
}

TEST(MaintainRecord, TheQuestionsAreThoseOfTheDesktopAndANoSendsNothing) {
  for (const bool person : {true, false}) {
    Desk desk(false);
    desk.Screen.Person = person;
    desk.Screen.Lines = {"n"};
    EXPECT_EQ(desk.Ask({.BoardsDealt = 5}), kFailed);
    EXPECT_THAT(desk.Screen.Errors, HasSubstr("Do you really want to set boards dealt ???\n"));
    desk.Screen.Lines = {"n"};
    EXPECT_EQ(desk.Ask({.ClearErrors = true}), kFailed);
    EXPECT_THAT(desk.Screen.Errors,
                HasSubstr("Do you really want to clear all errors informations???\n"));
    EXPECT_THAT(desk.Writes, IsEmpty());
    EXPECT_EQ(desk.Screen.Output, "") << "nothing that the machine might not hold";
  }
}

TEST(MaintainRecord, AYesAtTheTerminalIsEnough) {
  Desk desk(false);
  desk.Screen.Person = true;
  desk.Screen.Lines = {"y", "y"};
  EXPECT_EQ(desk.Ask({.BoardsDealt = 5, .ClearErrors = true}), kDone);
  EXPECT_EQ(desk.Paper.Counters[0], 5U);
}

TEST(MaintainRecord, AStatusOfTheMachineIsAFailure) {
  const auto fails = [](const std::function<void(maintenance::PaperRecord&)>& harm,
                        const MaintainRecordOptions& options) {
    Desk desk;
    harm(desk.Paper);
    EXPECT_EQ(desk.Ask(options), kFailed);
    EXPECT_EQ(desk.Screen.Output, "");
    return desk.Screen.Errors;
  };
  EXPECT_THAT(fails([](auto& paper) { paper.EraseStatus = 2; }, {.Serial = 1}),
              EndsWith("Error 2 during programming       at 192\n"));
  EXPECT_THAT(fails([](auto& paper) { paper.WriteStatus = 3; }, {.Serial = 1}),
              EndsWith("Error 3 during programming       at 192\n"));
  EXPECT_THAT(fails([](auto& paper) { paper.ErrorStatus = 1; }, {.ClearErrors = true}),
              EndsWith("Error during erasing FRAM\n"));
}

TEST(MaintainRecord, WhatTheMachineDoesNotHoldThenIsAFailure) {
  const MaintainRecordOptions record{.Serial = 1};
  const MaintainRecordOptions boards{.BoardsDealt = 1};
  for (const MaintainRecordOptions& options : {record, boards}) {
    Desk desk;
    desk.Paper.HearsRecord = false;
    desk.Paper.HearsCounter = false;
    EXPECT_EQ(desk.Ask(options), kFailed);
    EXPECT_THAT(desk.Screen.Errors, EndsWith("The machine does not hold what was written\n"));
    EXPECT_EQ(desk.Screen.Output, "");
  }
}

TEST(MaintainRecord, ARecordThatWasNeverWrittenNeedsADay) {
  Desk desk;
  desk.Paper.Block.fill(0xFF);
  EXPECT_EQ(desk.Ask({.Serial = 1}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("There is no day 255.255.65535\n"));
  EXPECT_THAT(desk.Writes, IsEmpty());
  EXPECT_EQ(desk.Ask({.Serial = 1, .Hardware = 1, .Date = kNinthOfMarch}), kDone);
  EXPECT_EQ(desk.Paper.Block, (Record{0, 1, 0xFF, 0xE1, 9, 3, 0x07, 0xEA}));
}

TEST(MaintainRecord, ALostLinkIsAFailureAtEachExchange) {
  const MaintainRecordOptions all{.Serial = 1, .BoardsDealt = 5, .ClearErrors = true};
  int frames = 0;
  {
    Desk desk;
    desk.OnFrame = [&](const test::Bytes&) { ++frames; };
    ASSERT_EQ(desk.Ask(all), kDone);
  }
  // The window start, and the form: 4 read, 4 for the record, 5 for the errors, 2 for the boards,
  // and 3 by the console behind it.
  ASSERT_EQ(frames, 12 + 18);
  for (int dead = 1; dead <= frames; ++dead) {
    Desk desk;
    int seen = 0;
    const auto heard = desk.Bridge.Answer;
    desk.Bridge.Answer = [&, heard](const test::Bytes& plain) {
      if (++seen < dead) return heard(plain);
      desk.Machine.PowerOff();
      return test::Bytes{};
    };
    EXPECT_EQ(desk.Ask(all), kFailed) << dead;
    EXPECT_THAT(desk.Screen.Errors, HasSubstr("Communication Error: ")) << dead;
    EXPECT_THAT(desk.LogLines().back(), StartsWith(" Exit: ")) << dead;
  }
}

TEST(MaintainRecord, AMachineWithoutFirmwareHasNone) {
  Desk desk(true, ",boot=0.00");
  EXPECT_EQ(desk.Ask({.Serial = 1}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "The machine holds no firmware: it can only be loaded with one.\n");
  EXPECT_THAT(desk.Writes, IsEmpty());
}

TEST(MaintainRecord, AnInterruptBeforeAnythingIsWrittenIsAFailure) {
  Desk desk;
  desk.OnFrame = [&](const test::Bytes& plain) {
    if (plain[0] == 51 && plain[2] == 1) desk.Loop.Quit();
  };
  EXPECT_EQ(desk.Ask({.Serial = 1, .BoardsDealt = 1, .ClearErrors = true}), kFailed);
  EXPECT_THAT(desk.Writes, IsEmpty());
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Broken off.\n"));
  EXPECT_THAT(desk.Screen.Errors, Not(HasSubstr("really")));
}

}  // namespace
}  // namespace morvane::cli
