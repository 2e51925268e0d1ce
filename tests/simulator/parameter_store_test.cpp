#include "simulator/parameter_store.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files.h"
#include "simulator/talk.h"
#include "support/fakes.h"

namespace morvane::simulator {
namespace {

constexpr const char* kText =
    "Parameters of a simulated Morvane machine\n"
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

TEST(ParameterStore, ALineIsASubCodeWithItsFiveBytes) {
  const auto parameters = ParametersIn(kText);
  ASSERT_TRUE(parameters);
  EXPECT_EQ(parameters->Records[0].Positions.StartX, 13);
  EXPECT_EQ(parameters->Records[0].Symbol.Limits.MinY, 30);
  EXPECT_TRUE(parameters->Records[0].Switches.UseBoard);
  EXPECT_TRUE(parameters->Records[1].Switches.IgnoreBox);
  EXPECT_EQ(parameters->Records[2].Suit.Limits.MaxX, 21);
  EXPECT_EQ(parameters->Thresholds.RecoOption, 255);
  EXPECT_EQ(parameters->Video.BoardSen, 200);
  EXPECT_EQ(TextOf(*parameters), kText);
}

TEST(ParameterStore, ATextOfAnyOtherShapeIsNone) {
  const std::string text = kText;
  EXPECT_FALSE(ParametersIn(""));
  EXPECT_FALSE(ParametersIn(std::string(600, '\0')));
  for (std::size_t length = 0; length < text.size(); ++length) {
    EXPECT_FALSE(ParametersIn(text.substr(0, length))) << length;
  }
  EXPECT_FALSE(ParametersIn(text + "\n"));
  EXPECT_FALSE(ParametersIn(text + "15 0 0 0 0 0\n"));
  const auto with = [&](std::string_view old, std::string_view put) {
    std::string changed = text;
    return ParametersIn(changed.replace(changed.find(old), old.size(), put));
  };
  EXPECT_FALSE(with("1 11", "2 11"));
  EXPECT_FALSE(with("1 11 12", "1 256 12"));
  EXPECT_FALSE(with("1 11 12", "1 -1 12"));
  EXPECT_FALSE(with("1 11 12", "1 11\t12"));
  EXPECT_FALSE(with("4 1 0 1", "4 2 0 1"));
  EXPECT_TRUE(with("1 11 12", "1 255 12"));
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
  ASSERT_FALSE(WriteFile(path, std::string(kText).substr(0, 90)));
  Talk talk(WithStore());
  EXPECT_TRUE(talk.Machine.Parameters() == StoredParameters{});
  EXPECT_EQ(talk.Machine.Trouble(),
            "store=" + path + " is damaged; the parameters are those of a new machine");
  talk.Write(ToWire({19, 1, 11, 12, 13, 14}));
  EXPECT_EQ(talk.Machine.Trouble(), "");
  std::string bytes;
  ASSERT_FALSE(ReadFile(path, bytes));
  EXPECT_TRUE(ParametersIn(bytes));
}

TEST_F(StoredMachine, AFileOfAnotherKindIsLeftAlone) {
  const std::string set = "[Event \"\"]\n[Board \"1\"]\n";
  ASSERT_FALSE(WriteFile(path, set));
  Talk talk(WithStore());
  EXPECT_EQ(talk.Machine.Trouble(),
            "store=" + path + " keeps no parameters: it holds something else");
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
  EXPECT_EQ(talk.Machine.Trouble(), "store=" + path + " keeps no parameters: Is a directory");
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
