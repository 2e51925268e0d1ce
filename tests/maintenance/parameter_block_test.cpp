#include "maintenance/parameter_block.h"

#include "maintenance/console_desk.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Box = test::FakeUi::Box;

class TheParameters : public ConsoleDesk {
 protected:
  [[nodiscard]] Box Question() const {
    return {desk.Prog.Texts.Msg124, kYesNoExclamation, "Parameters Update"};
  }
  [[nodiscard]] Box Updated() const {
    return {desk.Prog.Texts.Msg056, kOkInformation, "Parameters update"};
  }
  /// Silence for the write frames with this sub-code, as many of them.
  void LoseWrites(std::uint8_t subCode, int times) {
    lost = times;
    Deaf = [this, subCode](const Bytes& plain) {
      return plain[0] == 0x13 && plain[1] == subCode && lost-- > 0;
    };
  }
  int lost = 0;
};

TEST_F(TheParameters, SavingAsksWritesReadsBackAndTells) {
  Start("firmware=2.80");
  Type(Parameter::pos_x, "123");
  EXPECT_TRUE(console->Boxes().Edited());
  bridge.Sent.clear();
  desk.Ui.Answers = {kYes};
  console->save_param();
  EXPECT_THAT(SubCodes(0x13), ElementsAre(14, 9, 1, 2, 4, 3));
  EXPECT_THAT(SubCodes(0x11), ElementsAre(1, 2, 3, 4, 9, 14));
  EXPECT_EQ(desk.Ui.Boxes, (std::vector<Box>{Question(), Updated()}));
  EXPECT_EQ(Text(Parameter::pos_x), "123");
  EXPECT_FALSE(console->Boxes().Edited());
}

TEST_F(TheParameters, AnyOtherAnswerThrowsTheEditsAway) {
  Start();
  const std::string before = Text(Parameter::pos_x);
  Type(Parameter::pos_x, "123");
  bridge.Sent.clear();
  desk.Ui.Answers = {kNo};
  console->save_param();
  EXPECT_THAT(SubCodes(0x13), IsEmpty());
  EXPECT_EQ(Text(Parameter::pos_x), before);
  EXPECT_EQ(desk.Ui.Boxes, (std::vector<Box>{Question()}));
  EXPECT_THAT(LinesWith("update"), IsEmpty());
}

TEST_F(TheParameters, TheUpdateIsLoggedWithTheValuesThatWereSent) {
  Start("firmware=2.80");
  int value = 11;
  for (const Parameter parameter :
       {Parameter::pos_x, Parameter::pos_y, Parameter::start_x, Parameter::start_y,
        Parameter::Sym_x_max, Parameter::Sym_y_max, Parameter::Sym_x_min, Parameter::Sym_y_min,
        Parameter::Suit_x_max, Parameter::Suit_y_max, Parameter::Suit_x_min, Parameter::Suit_y_min,
        Parameter::Bold_th_txt, Parameter::Fine_th_txt, Parameter::Bold_th1_txt,
        Parameter::Fine_th1_txt, Parameter::Video_Brightness, Parameter::Video_Contrast,
        Parameter::Board_Sen}) {
    Type(parameter, std::to_string(value++));
  }
  console->Boxes().SetIgnore_flip(true);
  console->Boxes().SetIgnore_box(false);
  console->Boxes().SetUse_Board(true);
  desk.Ui.Answers = {kYes};
  console->save_param();
  EXPECT_THAT(LinesWith("Parameters update: "),
              ElementsAre("   Parameters update: 011,12,13,14,15,16,17,18,19,20,21,22,1,0,1,23,24,"
                          "25,26,27,28,29",
                          HasSubstr("Parameters updated OK")));
}

TEST_F(TheParameters, AWriteFrameThatWasLostIsWrittenAgain) {
  Start("firmware=2.90");
  Type(Parameter::start_y, "77");
  LoseWrites(1, 1);
  bridge.Sent.clear();
  desk.Ui.Answers = {kYes};
  console->save_param();
  EXPECT_THAT(SubCodes(0x13), ElementsAre(14, 9, 1, 2, 4, 3, 14, 9, 1, 2, 4, 3));
  EXPECT_EQ(desk.Ui.Boxes, (std::vector<Box>{Question(), Updated()}));
  EXPECT_EQ(Text(Parameter::start_y), "77");
}

TEST_F(TheParameters, WhatTheMachineDoesNotTakeIsNamedAndNothingIsCalledUpdated) {
  Start("firmware=2.90");
  const std::string before = Text(Parameter::start_y);
  Type(Parameter::start_y, "77");
  Type(Parameter::pos_x, "78");
  Type(Parameter::Suit_x_max, "79");
  LoseWrites(1, 2);
  desk.Ui.Answers = {kYes};
  console->save_param();
  ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_THAT(desk.Ui.Boxes.back().Text, HasSubstr("pos_x, start_y "));
  EXPECT_EQ(desk.Ui.Boxes.back().Flags, kOkCritical);
  EXPECT_EQ(Text(Parameter::start_y), before) << "the boxes show what the machine holds";
  EXPECT_EQ(Text(Parameter::Suit_x_max), "79");
}

TEST_F(TheParameters, ACheckBoxThatWasNotTakenIsNamedToo) {
  Start("firmware=2.90");
  console->Boxes().SetIgnore_flip(!console->Boxes().Switches().IgnoreFlip);
  LoseWrites(4, 2);
  desk.Ui.Answers = {kYes};
  console->save_param();
  EXPECT_THAT(desk.Ui.Boxes.back().Text, HasSubstr(" Ignore_flip "));
}

TEST_F(TheParameters, NothingIsWrittenBeforeAllHasBeenRead) {
  Open();
  console->save_param();
  Start("firmware=2.90,boot=0.00");
  bridge.Sent.clear();
  console->save_param();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(TheParameters, AutoSetupWritesInSilenceAndSaysInTheLogThatItWasIt) {
  Use(0x90);
  ParameterBlock block(desk.Prog, link, machine);
  ASSERT_TRUE(block.Read());
  const std::string values = ParametersText(block.Boxes, wire::CardIndex::Standard);
  bridge.Sent.clear();
  EXPECT_TRUE(block.Write(ParameterBlock::Mode::kAutoSetup));
  EXPECT_TRUE(block.Write(ParameterBlock::Mode::kRevert));
  EXPECT_EQ(bridge.Sent.size(), 12U) << "nothing is read back";
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(LinesWith("Autosetup"),
              ElementsAre("   Autosetup temporary parameters update: " + values,
                          "   Autosetup revert parameters: " + values));
}

// The card index.

TEST_F(TheParameters, AnotherIndexIsReadAtOnce) {
  Start("firmware=2.90");
  bridge.Sent.clear();
  console->SelectIndex(1);
  EXPECT_THAT(SubCodes(0x11), ElementsAre(5, 6, 7, 8, 9, 14));
  bridge.Sent.clear();
  console->SelectIndex(2);
  EXPECT_THAT(SubCodes(0x11), ElementsAre(10, 11, 12, 13, 9, 14));
  bridge.Sent.clear();
  console->SelectIndex(0);
  EXPECT_THAT(SubCodes(0x11), ElementsAre(1, 2, 3, 4, 9, 14));
}

TEST_F(TheParameters, AnIndexThatTheMachineCannotReadFallsBackToTheStandardOne) {
  struct Row {
    const char* Options;
    int Index;
    std::string Messages::*Text;  ///< null: it can
  };
  for (const Row& row : {Row{"firmware=2.90,hardware=0x77", 1, &Messages::Msg045},
                         {"firmware=2.3F,hardware=0x77", 1, &Messages::Msg045},
                         {"firmware=2.3F,hardware=0x08", 1, &Messages::Msg040},
                         {"firmware=2.40,hardware=0x08", 1, nullptr},
                         {"firmware=1.00,hardware=0x08", 1, nullptr},
                         {"firmware=2.65,hardware=0x08", 2, &Messages::Msg042},
                         {"firmware=2.66,hardware=0x00", 2, nullptr},
                         {"firmware=3.00,hardware=0x08", 1, nullptr},
                         {"firmware=3.00,hardware=0x00", 2, nullptr}}) {
    SCOPED_TRACE(std::string(row.Options) + " " + std::to_string(row.Index));
    desk.Ui.Boxes.clear();
    Start(row.Options);
    bridge.Sent.clear();
    console->SelectIndex(row.Index);
    const bool can = row.Text == nullptr;
    EXPECT_EQ(console->Parameters().CardSelection.CardIndex, can ? row.Index : 0);
    EXPECT_EQ(SubCodes(0x11).front(), !can ? 1 : row.Index == 1 ? 5 : 10);
    ASSERT_EQ(desk.Ui.Boxes.size(), can ? 0U : 1U);
    if (can) continue;
    EXPECT_EQ(desk.Ui.Boxes[0].Text,
              Fill(desk.Prog.Texts.*row.Text, "***", std::string(row.Options).substr(9, 4)));
    EXPECT_EQ(desk.Ui.Boxes[0].Title, "Maintenance Error");
  }
}

TEST_F(TheParameters, BeforeTheMachineIsKnownNoIndexIsSelected) {
  Open();
  console->SelectIndex(1);
  EXPECT_EQ(console->Parameters().CardSelection.CardIndex, 0);
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(TheParameters, OnlyTheSelectedRecordIsWritten) {
  Start("firmware=2.90");
  console->SelectIndex(1);
  const std::string jumbo = Text(Parameter::pos_x);
  console->SelectIndex(2);
  const std::string small = Text(Parameter::pos_x);
  console->SelectIndex(0);
  Type(Parameter::pos_x, "99");
  desk.Ui.Answers = {kYes};
  console->save_param();
  console->SelectIndex(1);
  EXPECT_EQ(Text(Parameter::pos_x), jumbo);
  console->SelectIndex(2);
  EXPECT_EQ(Text(Parameter::pos_x), small);
}

}  // namespace
}  // namespace morvane::maintenance
