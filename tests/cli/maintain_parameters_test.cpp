#include <gmock/gmock.h>

#include <utility>

#include "cli/cli_desk.h"
#include "wire/service_commands.h"

// maintain parameters.

namespace morvane::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr int kJumbo = machine::CardSettings::kLargeIndex;
constexpr int kSmall = machine::CardSettings::kSmallIndex;

/// A machine, at which every question is answered Yes unless told otherwise.
struct Desk : CliDesk {
  explicit Desk(const std::string& more = "", bool yes = true) : CliDesk(yes, Asked(more)) {}
  ExitStatus Set(const ParameterChanges& changes, std::optional<int> index = {}) {
    return Run(MaintainParametersOptions{.Index = index, .Set = changes});
  }
  ExitStatus From(const std::string& text, std::optional<int> index = {}) {
    test::WriteContent(File, text);
    return Run(MaintainParametersOptions{.Index = index, .From = File});
  }
  /// What is printed without a change; nothing of it is kept.
  std::string Printed(std::optional<int> index = {}) {
    EXPECT_EQ(Set({}, index), kDone);
    Screen.Errors.clear();
    return std::exchange(Screen.Output, "");
  }
  /// How many frames the machine has heard whose text begins so.
  [[nodiscard]] int Heard(const std::string& start) const {
    int count = 0;
    for (std::size_t at = 0; at < Machine.Frames().Count(); ++at) {
      if (Machine.Frames().Text(at).starts_with(start)) ++count;
    }
    return count;
  }
  [[nodiscard]] int Writes() const { return Heard("CmdWriteParameters"); }
  [[nodiscard]] const simulator::IndexRecord& Record(std::size_t index) const {
    return Machine.Parameters().Records[index];
  }
  const std::string File = Folder / "backup.txt";
};

/// `text` with `before` in the place of what stands behind it.
std::string With(std::string text, const std::string& before, const std::string& behind) {
  const std::size_t at = text.find(before);
  EXPECT_NE(at, std::string::npos) << before;
  return text.replace(at, before.size(), behind);
}

constexpr const char* kJumboOfANewMachine =
    "CardIndex: Jumbo\n"
    "param_ID: 1002\n"
    "pos_x: 62\n"
    "pos_y: 22\n"
    "start_x: 64\n"
    "start_y: 24\n"
    "Sym_x_max: 60\n"
    "Sym_y_max: 90\n"
    "Sym_x_min: 24\n"
    "Sym_y_min: 50\n"
    "Suit_x_max: 60\n"
    "Suit_y_max: 90\n"
    "Suit_x_min: 24\n"
    "Suit_y_min: 50\n"
    "Ignore_flip: 0\n"
    "Ignore_box: 0\n"
    "Use_Board: 0\n"
    "Bold_th_txt: 50\n"
    "Bold_th1_txt: 50\n"
    "Fine_th_txt: 40\n"
    "Fine_th1_txt: 40\n"
    "Reco_option_txt: 0\n"
    "Video_Brightness: 128\n"
    "Video_Contrast: 128\n"
    "Board_Sen: 180\n";

TEST(MaintainParameters, WithoutAChangeShowsWhatTheMachineHoldsAndWritesNothing) {
  Desk desk;
  EXPECT_EQ(desk.Set({}, kJumbo), kDone);
  EXPECT_EQ(desk.Screen.Output, kJumboOfANewMachine);
  EXPECT_EQ(desk.Screen.Errors, "Machine: simulated\n");
  EXPECT_EQ(desk.Writes(), 0);
  EXPECT_EQ(desk.Heard("CmdReadParameters"), 6) << "of one index alone";
}

TEST(MaintainParameters, WithoutAnIndexThatOfTheSettingsIsMeant) {
  Desk desk;
  desk.Store.Set(kCardIndex, "1");
  EXPECT_EQ(desk.Printed(), kJumboOfANewMachine);
}

TEST(MaintainParameters, TheIndexIsNotStored) {
  Desk desk;
  desk.Store.Set(kCardIndex, "1");
  EXPECT_THAT(desk.Printed(kSmall), StartsWith("CardIndex: Small\n"));
  EXPECT_EQ(desk.Store.Get(kCardIndex), "1");
  EXPECT_FALSE(desk.Store.Has(kNational));
}

TEST(MaintainParameters, AnIndexThatAGateRefusesEndsWithItsMessageAndReadsNothing) {
  const auto expect = [](const std::string& machine, int index, const std::string& error) {
    Desk desk(machine);
    EXPECT_EQ(desk.Set({{"pos_x", "61"}}, index), kFailed);
    EXPECT_THAT(desk.Screen.Errors, HasSubstr(error));
    EXPECT_EQ(desk.Screen.Output, "");
    EXPECT_EQ(desk.Heard("CmdReadParameters"), 0);
    EXPECT_EQ(desk.Writes(), 0);
    EXPECT_FALSE(desk.Store.Has(kCardIndex));
    EXPECT_FALSE(desk.Machine.LatchOn());
  };
  expect(",firmware=2.3F", kJumbo, "Current Firmware version is 2.3F\n");
  expect(",firmware=2.65", kSmall, "Current Firmware version is 2.65\n");
  expect(",hardware=0x77", kJumbo, "Maintenance Error: ");
}

TEST(MaintainParameters, ShowsOnlyWhatTheMachineHas) {
  EXPECT_THAT(Desk(",firmware=2.1F").Printed(), EndsWith("\nSuit_y_min: 20\n"));
  EXPECT_THAT(Desk(",firmware=2.20").Printed(), EndsWith("\nIgnore_flip: 0\nIgnore_box: 0\n"));
  EXPECT_THAT(Desk(",firmware=2.43,hardware=0x7F").Printed(), EndsWith("\nIgnore_box: 0\n"));
  EXPECT_THAT(Desk(",firmware=2.44").Printed(), EndsWith("\nReco_option_txt: 0\n"));
  EXPECT_THAT(Desk(",hardware=0x5F").Printed(), EndsWith("\nReco_option_txt: 0\nBoard_Sen: 180\n"));
  EXPECT_THAT(Desk(",hardware=0x3F").Printed(), EndsWith("\nVideo_Contrast: 128\n"));
}

TEST(MaintainParameters, ChangesAreAskedAboutWrittenAndReadBack) {
  Desk desk("", /*yes=*/false);
  desk.Screen.Person = true;
  desk.Screen.Lines = {"y"};
  EXPECT_EQ(desk.Set({{"pos_x", "61"}, {"Use_Board", "1"}, {"Board_Sen", "255"}}), kDone);
  EXPECT_EQ(desk.Record(0).Positions, (wire::PositionBlock{61, 80, 64, 20}));
  EXPECT_TRUE(desk.Record(0).Switches.UseBoard);
  EXPECT_EQ(desk.Machine.Parameters().Video.BoardSen, 255);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\npos_x: 61\n"));
  EXPECT_THAT(desk.Screen.Output, EndsWith("\nBoard_Sen: 255\n"));
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Proceed with update?\n[y]es, [n]o? "));
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Parameters update: Parameters updated OK\n"));
  EXPECT_THAT(
      desk.LogLines(),
      ::testing::Contains("   Parameters update: 061,80,64,20,34,48,12,28,32,40,14,20,0,0,1,"
                          "50,40,50,40,128,128,255"));
}

TEST(MaintainParameters, TheOtherRecordsStayAsTheyAre) {
  Desk desk;
  const simulator::StoredParameters before = desk.Machine.Parameters();
  EXPECT_EQ(desk.Set({{"Suit_x_min", "25"}}, kJumbo), kDone);
  simulator::StoredParameters wanted = before;
  wanted.Records[1].Suit.Limits.MinX = 25;
  EXPECT_EQ(desk.Machine.Parameters(), wanted);
}

TEST(MaintainParameters, ANoLeavesTheMachineAsItIs) {
  for (const bool person : {true, false}) {
    Desk desk("", /*yes=*/false);
    desk.Screen.Person = person;
    desk.Screen.Lines = {"n"};
    EXPECT_EQ(desk.Set({{"pos_x", "61"}}), kFailed);
    EXPECT_EQ(desk.Writes(), 0);
    EXPECT_THAT(desk.Screen.Output, HasSubstr("\npos_x: 60\n"));
  }
}

TEST(MaintainParameters, WhatTheMachineHoldsAlreadyIsNotWritten) {
  Desk desk("", /*yes=*/false);
  EXPECT_EQ(desk.Set({{"pos_x", "60"}, {"Ignore_flip", "0"}}), kDone);
  EXPECT_EQ(desk.Screen.Errors,
            "Machine: simulated\n"
            "Nothing is written: the machine holds these values already.\n");
  EXPECT_EQ(desk.Writes(), 0);
}

TEST(MaintainParameters, OneThatTheMachineHasNotIsRefusedWithAllTheOthers) {
  const auto expect = [](const std::string& machine, const std::string& name) {
    Desk desk(machine);
    EXPECT_EQ(desk.Set({{"pos_x", "61"}, {name, "1"}}), kFailed);
    EXPECT_EQ(desk.Screen.Errors,
              "Machine: simulated\nNothing is written: this machine has no " + name + ".\n");
    EXPECT_EQ(desk.Screen.Output, "");
    EXPECT_EQ(desk.Writes(), 0);
  };
  expect(",firmware=2.1F", "Ignore_flip");
  expect(",firmware=2.6F", "Use_Board");
  expect(",firmware=2.43", "Reco_option_txt");
  expect(",firmware=2.7F", "Board_Sen");
  expect(",hardware=0x3F", "Board_Sen");
  expect(",hardware=0x5F", "Video_Contrast");
}

TEST(MaintainParameters, UseBoardGoesNotWithIgnoreBox) {
  Desk desk;
  EXPECT_EQ(desk.Set({{"Use_Board", "1"}, {"Ignore_box", "1"}}), kFailed);
  EXPECT_THAT(desk.Screen.Errors,
              EndsWith("Nothing is written: Use_Board cannot be 1 while Ignore_box is.\n"));
  EXPECT_EQ(desk.Writes(), 0);
  ASSERT_EQ(desk.Set({{"Ignore_box", "1"}}), kDone);
  EXPECT_EQ(desk.Set({{"Use_Board", "1"}}), kFailed) << "where the machine holds it already";
  EXPECT_EQ(desk.Set({{"Use_Board", "1"}, {"Ignore_box", "0"}}), kDone) << "in either order";
  EXPECT_EQ(desk.Record(0).Switches, (wire::SwitchBlock{false, false, true}));
}

TEST(MaintainParameters, AValueThatTheMachineDoesNotTakeIsAFailure) {
  Desk desk;
  // Both times that it is written.
  for (const int time : {1, 2}) {
    desk.Machine.Faults().AtCommand(wire::CmdWriteParameters, 6 * time - 3,
                                    simulator::LinkFault::LoseCommand());
  }
  EXPECT_EQ(desk.Set({{"pos_x", "61"}}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("The machine has not taken these values:"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\npos_x: 60\n"));
}

TEST(MaintainParameters, ALostLinkIsAFailureAtEachExchange) {
  int exchanges = 0;
  {
    Desk desk;
    ASSERT_EQ(desk.Set({{"pos_x", "61"}}), kDone);
    exchanges = desk.Machine.Faults().Exchanges();
  }
  ASSERT_EQ(exchanges, 24) << "12 at the window start, 6 written, 6 read back";
  // What comes last is the read-back; a write that is lost with all behind it shows there.
  for (int dead = 1; dead <= exchanges; ++dead) {
    Desk desk;
    desk.Machine.Faults().SilentFrom(dead);
    EXPECT_EQ(desk.Set({{"pos_x", "61"}}), kFailed) << dead;
    EXPECT_THAT(desk.Screen.Errors, HasSubstr("Communication Error: ")) << dead;
    EXPECT_EQ(desk.Screen.Output, "") << dead;
    EXPECT_THAT(desk.LogLines().back(), StartsWith(" Exit: ")) << dead;
  }
}

TEST(MaintainParameters, AMachineWithoutFirmwareHasNone) {
  Desk desk(",boot=0.00");
  EXPECT_EQ(desk.Set({}), kFailed);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_EQ(desk.Screen.Errors,
            "Machine: simulated\n"
            "The machine holds no firmware: it can only be loaded with one.\n");
}

TEST(MaintainParameters, AnInterruptBeforeTheFirstContactIsAFailure) {
  Desk desk;
  desk.Loop.After(1000, [&] { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Set({{"pos_x", "61"}}), kFailed);
  EXPECT_EQ(desk.Writes(), 0);
}

TEST(MaintainParameters, TakesBackWhatItHasPrinted) {
  Desk desk;
  const simulator::StoredParameters before = desk.Machine.Parameters();
  const std::string backup = desk.Printed(kJumbo);
  ASSERT_EQ(desk.Set({{"pos_x", "1"}, {"Ignore_box", "1"}, {"Fine_th_txt", "90"}}, kJumbo), kDone);
  desk.Screen.Output.clear();
  EXPECT_EQ(desk.From(backup), kDone) << "the file says which index it is";
  EXPECT_EQ(desk.Machine.Parameters(), before);
  EXPECT_EQ(desk.Screen.Output, backup);
  EXPECT_THAT(desk.Screen.Errors, Not(HasSubstr("param_ID")));
}

TEST(MaintainParameters, AFileWithTheLineEndsOfAnotherSystemIsTheSame) {
  Desk desk;
  std::string text = With(desk.Printed(), "pos_x: 60", "pos_x: 61");
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2) {
    text.insert(at, 1, '\r');
  }
  EXPECT_EQ(desk.From(text), kDone);
  EXPECT_EQ(desk.Record(0).Positions.PosX, 61);
}

TEST(MaintainParameters, AFileThatAShellHasWrittenInUtf16IsTheSame) {
  Desk desk;
  std::string text = "\xFF\xFE";
  for (const char c : With(desk.Printed(), "pos_x: 60", "pos_x: 61")) text += {c, '\0'};
  EXPECT_EQ(desk.From(text), kDone);
  EXPECT_EQ(desk.Record(0).Positions.PosX, 61);
}

TEST(MaintainParameters, AFileOfAnotherIndexIsRefused) {
  Desk desk;
  EXPECT_EQ(desk.From(kJumboOfANewMachine, kSmall), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            desk.File + " has the parameters of the index Jumbo. Nothing is written.\n");
  EXPECT_EQ(desk.Machine.Faults().Exchanges(), 0);
  EXPECT_EQ(desk.From(kJumboOfANewMachine, kJumbo), kDone) << "this is the one";
}

TEST(MaintainParameters, AFileOfAnotherRecordIsToldBeforeItIsAskedAbout) {
  Desk desk("", /*yes=*/false);
  const std::string text =
      With(With(desk.Printed(), "param_ID: 1001", "param_ID: 7"), "pos_x: 60", "pos_x: 61");
  EXPECT_EQ(desk.From(text), kFailed);
  EXPECT_THAT(desk.Screen.Errors, StartsWith("Machine: simulated\n"
                                             "The file has the param_ID 7, the machine 1001.\n"
                                             "Parameters Update: Incorrect"));
  EXPECT_EQ(desk.Writes(), 0);
}

struct BadFile {
  std::string Before;
  std::string Behind;
  std::string Error;  ///< of the whole text in place of `Behind`
};

TEST(MaintainParameters, ADamagedFileIsTakenInNoPart) {
  const std::vector<BadFile> files{
      {kJumboOfANewMachine, "", "it does not end with a line's end"},
      {"Board_Sen: 180\n", "Board_Sen: 18", "it does not end with a line's end"},
      {"pos_y: 22\n", "pos_y 22\n", "line 4: it is no \"NAME: VALUE\""},
      {"pos_y: 22\n", "\n", "line 4: it is no \"NAME: VALUE\""},
      {"pos_y: 22\n", "pos_y: 0\n",
       "line 4: pos_y takes a number from 1 to 255, without leading zeros"},
      {"pos_y: 22\n", "pos_y: 22 \n",
       "line 4: pos_y takes a number from 1 to 255, without leading zeros"},
      {"pos_y: 22\n", "pos_z: 84\n", "line 4: there is no parameter pos_z"},
      {"pos_y: 22\n", "pos_x: 84\n", "pos_x stands there twice"},
      {"Use_Board: 0", "Use_Board: 2", "line 17: Use_Board takes 0 or 1"},
      {"CardIndex: Jumbo\n", "", "it does not say whose parameters it has"},
      {"CardIndex: Jumbo\n", "CardIndex: Huge\n", "line 1: it is no CardIndex"},
      {"param_ID: 1002\n", "param_ID: \n", "line 2: it is no param_ID"},
      {"param_ID: 1002\n", "CardIndex: Small\n", "line 2: it is no CardIndex"},
      {"param_ID: 1002\n", "", "it does not say whose parameters it has"},
  };
  for (const BadFile& bad : files) {
    Desk desk;
    EXPECT_EQ(desk.From(With(kJumboOfANewMachine, bad.Before, bad.Behind)), kFailed);
    EXPECT_EQ(desk.Screen.Errors, desk.File + " holds no parameters of a machine: " + bad.Error +
                                      ". Nothing is written.\n");
    EXPECT_EQ(desk.Machine.Faults().Exchanges(), 0) << "the link is not even opened";
  }
}

TEST(MaintainParameters, AFileThatIsNotWholeIsTakenInNoPart) {
  for (const char* const line : {"pos_x: 62\n", "Use_Board: 0\n", "Board_Sen: 180\n"}) {
    Desk desk;
    const std::string text = With(With(kJumboOfANewMachine, line, ""), "pos_y: 22", "pos_y: 85");
    EXPECT_EQ(desk.From(text), kFailed);
    const std::string name(line, std::string(line).find(':'));
    EXPECT_THAT(desk.Screen.Errors,
                EndsWith("Nothing is written: the file is not whole, or of another machine: it has "
                         "no " +
                         name + ".\n"));
    EXPECT_EQ(desk.Writes(), 0);
  }
}

TEST(MaintainParameters, AFileOfANewerMachineIsTakenInNoPart) {
  Desk desk(",firmware=2.70");
  EXPECT_EQ(desk.From(With(kJumboOfANewMachine, "pos_y: 22", "pos_y: 85")), kFailed);
  EXPECT_THAT(desk.Screen.Errors, EndsWith("this machine has no Video_Brightness.\n"));
  EXPECT_EQ(desk.Writes(), 0);
}

TEST(MaintainParameters, AMissingFileIsNamed) {
  Desk desk;
  EXPECT_EQ(desk.Run(MaintainParametersOptions{.From = desk.File}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, desk.File + ": No such file or directory. Nothing is written.\n");
}

}  // namespace
}  // namespace morvane::cli
