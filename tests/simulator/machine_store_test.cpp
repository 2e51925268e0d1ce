#include "simulator/machine_store.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files.h"
#include "simulator/talk.h"
#include "support/fakes.h"

namespace morvane::simulator {
namespace {

/// The lines of the parameters.
constexpr const char* kParameters =
    "1 11 12 13 14 0\n"
    "2 40 60 20 30 0\n"
    "3 41 61 21 31 0\n"
    "4 1 0 1 0 0\n"
    "5 1 2 3 4 0\n"
    "6 5 6 7 8 0\n"
    "7 9 10 11 12 0\n"
    "8 0 1 0 0 0\n"
    "9 10 90 50 60 255\n"
    "10 13 14 15 16 0\n"
    "11 17 18 19 20 0\n"
    "12 21 22 23 24 0\n"
    "13 0 0 0 0 0\n"
    "14 128 64 200 0 0\n";

const std::string kOldText =
    std::string("Parameters of a simulated Morvane machine\n") + kParameters;
const std::string kHead = std::string("Memory of a simulated Morvane machine\n") + kParameters;
/// 127 is 7Fh.
const std::string kText = kHead +
                          "boards 70000\n"
                          "stops 5 1\n"
                          "stops 240 4294967295\n"
                          "record 1234 127 31 12 2024\n"
                          "firmware 2.8F\n"
                          "end\n";

void HoldsTheParameters(const StoredParameters& parameters) {
  EXPECT_EQ(parameters.Records[0].Positions.StartX, 13);
  EXPECT_EQ(parameters.Records[0].Symbol.Limits.MinY, 30);
  EXPECT_TRUE(parameters.Records[0].Switches.UseBoard);
  EXPECT_TRUE(parameters.Records[1].Switches.IgnoreBox);
  EXPECT_EQ(parameters.Records[2].Suit.Limits.MaxX, 21);
  EXPECT_EQ(parameters.Thresholds.RecoOption, 255);
  EXPECT_EQ(parameters.Video.BoardSen, 200);
}

TEST(MachineStore, EachThingHasItsLine) {
  const auto memory = MemoryIn(kText);
  ASSERT_TRUE(memory);
  HoldsTheParameters(memory->Parameters);
  EXPECT_EQ(memory->Counted.BoardsDealt, 70000U);
  EXPECT_EQ(memory->Counted.Stops[5], 1U);
  EXPECT_EQ(memory->Counted.Stops[240], 4294967295U);
  EXPECT_EQ(memory->Counted.Stops[6], 0U);
  EXPECT_EQ(memory->Record, (wire::ManufacturingRecord{1234, 127, 31, 12, 2024}));
  EXPECT_EQ(memory->Firmware, (LoadedFirmware{true, 2, 0x8F}));
  EXPECT_EQ(TextOf(*memory), kText);
}

TEST(MachineStore, WhatAProgramHasNotWrittenHasNoLine) {
  const std::string text = kHead + "boards 0\nend\n";
  const auto memory = MemoryIn(text);
  ASSERT_TRUE(memory);
  EXPECT_FALSE(memory->Record);
  EXPECT_FALSE(memory->Firmware);
  EXPECT_EQ(TextOf(*memory), text);
}

TEST(MachineStore, AMachineWithoutFirmwareSaysSo) {
  const std::string text = kHead + "boards 0\nfirmware none\nend\n";
  const auto memory = MemoryIn(text);
  ASSERT_TRUE(memory);
  EXPECT_EQ(memory->Firmware, LoadedFirmware{});
  EXPECT_EQ(TextOf(*memory), text);
}

TEST(MachineStore, ATextThatKeptParametersAloneIsStillOne) {
  const auto memory = MemoryIn(kOldText);
  ASSERT_TRUE(memory);
  HoldsTheParameters(memory->Parameters);
  EXPECT_EQ(TextOf(*memory), kHead + "boards 0\nend\n");
}

TEST(MachineStore, ATextOfAnyOtherShapeIsNone) {
  EXPECT_FALSE(MemoryIn(std::string(600, '\0')));
  for (const std::string& text : {kText, kOldText}) {
    for (std::size_t length = 0; length < text.size(); ++length) {
      EXPECT_FALSE(MemoryIn(text.substr(0, length))) << length;
    }
    EXPECT_FALSE(MemoryIn(text + "\n"));
    EXPECT_FALSE(MemoryIn(text + "15 0 0 0 0 0\n"));
  }
  EXPECT_FALSE(MemoryIn(kOldText + "boards 0\nend\n"));
}

TEST(MachineStore, ALineWithAnotherValueThanItsOwnIsNone) {
  const auto with = [](std::string_view old, std::string_view put) {
    std::string changed = kText;
    return MemoryIn(changed.replace(changed.find(old), old.size(), put)).has_value();
  };
  EXPECT_FALSE(with("1 11", "2 11"));
  EXPECT_FALSE(with("1 11 12", "1 256 12"));
  EXPECT_FALSE(with("1 11 12", "1 -1 12"));
  EXPECT_FALSE(with("1 11 12", "1 11\t12"));
  EXPECT_FALSE(with("4 1 0 1", "4 2 0 1"));
  EXPECT_TRUE(with("1 11 12", "1 255 12"));
  EXPECT_FALSE(with("boards 70000", "boards 4294967296"));
  EXPECT_FALSE(with("boards 70000", "boards "));
  EXPECT_FALSE(with("stops 5 1", "stops 0 1"));
  EXPECT_FALSE(with("stops 5 1", "stops 5 0"));
  EXPECT_FALSE(with("stops 5 1", "stops 240 1"));
  EXPECT_FALSE(with("stops 240", "stops 241"));
  EXPECT_FALSE(with("record 1234", "record 65536"));
  EXPECT_FALSE(with("31 12 2024", "256 12 2024"));
  EXPECT_FALSE(with("31 12 2024", "31 12"));
  EXPECT_FALSE(with("firmware 2.8F", "firmware 2.8"));
  EXPECT_FALSE(with("firmware 2.8F", "firmware 2.8G"));
  EXPECT_FALSE(with("firmware 2.8F", "firmware None"));
  EXPECT_FALSE(with("record 1234 127 31 12 2024\nfirmware 2.8F\n",
                    "firmware 2.8F\nrecord 1234 127 31 12 2024\n"));
}

class StoredMachine : public testing::Test {
 protected:
  test::TempFolder folder;
  std::string path = folder / "machine.txt";

  [[nodiscard]] Options WithStore() const {
    Options options = Talk::Fast();
    options.Store = path;
    return options;
  }
};

TEST_F(StoredMachine, WhatIsWrittenIsThereInTheNextProgram) {
  {
    Talk talk(WithStore());
    talk.Write(ToWire({19, 1, 11, 12, 13, 14}));
    talk.Write(ToWire({19, 14, 128, 64, 200, 0, 0}));
  }
  const Talk again(WithStore());
  EXPECT_EQ(again.Machine.Parameters().Records[0].Positions.PosY, 12);
  EXPECT_EQ(again.Machine.Parameters().Video.BoardSen, 200);
  EXPECT_EQ(again.Machine.Parameters().Records[1], StoredParameters{}.Records[1]);
}

TEST_F(StoredMachine, NothingIsWrittenBeforeAChange) {
  Talk talk(WithStore());
  talk.Write(ToWire({17, 1}));
  talk.Write(ToWire({19, 14, 0, 0, 21, 1, 0}));
  std::string bytes;
  EXPECT_TRUE(ReadFile(path, bytes)) << "a trial is no change";
}

TEST_F(StoredMachine, ADamagedFileIsANewMachineAndIsReplacedByTheNextChange) {
  for (const std::string& text : {kText, kOldText}) {
    ASSERT_FALSE(WriteFile(path, text.substr(0, 90)));
    Talk talk(WithStore());
    EXPECT_EQ(talk.Machine.Memory(), MachineMemory{});
    EXPECT_EQ(talk.Machine.Trouble(), "store=" + path + " is damaged; the machine is a new one");
    talk.Write(ToWire({19, 1, 11, 12, 13, 14}));
    EXPECT_EQ(talk.Machine.Trouble(), "");
    std::string bytes;
    ASSERT_FALSE(ReadFile(path, bytes));
    EXPECT_TRUE(MemoryIn(bytes));
  }
}

TEST_F(StoredMachine, AFileOfAnotherKindIsLeftAlone) {
  const std::string set = "[Event \"\"]\n[Board \"1\"]\n";
  ASSERT_FALSE(WriteFile(path, set));
  Talk talk(WithStore());
  EXPECT_EQ(talk.Machine.Trouble(), "store=" + path + " keeps nothing: it holds something else");
  talk.Write(ToWire({19, 1, 11, 12, 13, 14}));
  EXPECT_EQ(talk.Machine.Parameters().Records[0].Positions.PosX, 11);
  EXPECT_NE(talk.Machine.Trouble(), "");
  std::string bytes;
  ASSERT_FALSE(ReadFile(path, bytes));
  EXPECT_EQ(bytes, set);
}

TEST_F(StoredMachine, AnEmptyFileIsANewMachine) {
  ASSERT_FALSE(WriteFile(path, ""));
  Talk talk(WithStore());
  EXPECT_EQ(talk.Machine.Trouble(), "");
  talk.Write(ToWire({19, 1, 11, 12, 13, 14}));
  EXPECT_EQ(Talk(WithStore()).Machine.Parameters().Records[0].Positions.PosX, 11);
}

TEST_F(StoredMachine, APathThatCannotBeAFileIsAMachineThatForgets) {
  path = folder.Path();
  Talk talk(WithStore());
  EXPECT_EQ(talk.Machine.Trouble(), "store=" + path + " keeps nothing: Is a directory");
  talk.Write(ToWire({19, 1, 11, 12, 13, 14}));
  EXPECT_EQ(talk.Machine.Parameters().Records[0].Positions.PosX, 11);
  EXPECT_TRUE(Talk(WithStore()).Machine.Parameters() == StoredParameters{});
}

TEST_F(StoredMachine, AFileThatCannotBeWrittenIsToldUntilItCan) {
  path = folder / "missing/machine.txt";
  Talk talk(WithStore());
  EXPECT_EQ(talk.Machine.Trouble(), "") << "nothing was written yet";
  talk.Write(ToWire({19, 1, 11, 12, 13, 14}));
  EXPECT_EQ(talk.Machine.Trouble(),
            "store=" + path + " does not keep what was written: No such file or directory");
  EXPECT_EQ(talk.Machine.Parameters().Records[0].Positions.PosX, 11);
  std::filesystem::create_directory(folder / "missing");
  talk.Write(ToWire({19, 1, 11, 12, 13, 15}));
  EXPECT_EQ(talk.Machine.Trouble(), "");
  EXPECT_EQ(Talk(WithStore()).Machine.Parameters().Records[0].Positions.StartY, 15);
}

}  // namespace
}  // namespace morvane::simulator
