#include "maintenance/parameter_transfer.h"

#include "maintenance/service_desk.h"
#include "support/frame_list.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using wire::CardIndex;

class Transfer : public ServiceDesk {
 protected:
  ParameterBoxes boxes;

  bool Read(CardIndex index) { return ReadParameters(link, machine, index, boxes); }
  bool Send(CardIndex index) { return SendParameters(link, machine, index, boxes); }
  void Type(Parameter parameter, const std::string& text) {
    FilteredBox shown{text, static_cast<int>(text.size())};
    boxes.Box(parameter).Change(shown);
  }
};

TEST_F(Transfer, TheRecordOfTheIndexIsReadAndWhatStandsOnce) {
  EXPECT_TRUE(Read(CardIndex::Standard));
  EXPECT_THAT(SubCodes(17), ElementsAre(1, 2, 3, 4, 9, 14));
  EXPECT_NE(boxes.Box(Parameter::pos_x).Text(), "");
  EXPECT_NE(boxes.Box(Parameter::Board_Sen).Text(), "");
  EXPECT_NE(boxes.param_ID, "");
  bridge.Sent.clear();
  EXPECT_TRUE(Read(CardIndex::Jumbo));
  EXPECT_THAT(SubCodes(17), ElementsAre(5, 6, 7, 8, 9, 14));
  bridge.Sent.clear();
  EXPECT_TRUE(Read(CardIndex::Small));
  EXPECT_THAT(SubCodes(17), ElementsAre(10, 11, 12, 13, 9, 14));
}

TEST_F(Transfer, OlderFirmwareIsAskedForLess) {
  for (const auto& [minor, codes] : {std::pair{std::uint8_t{0x43}, std::vector<int>{1, 2, 3, 4}},
                                     {std::uint8_t{0x44}, {1, 2, 3, 4, 9}},
                                     {std::uint8_t{0x7F}, {1, 2, 3, 4, 9}},
                                     {std::uint8_t{0x80}, {1, 2, 3, 4, 9, 14}}}) {
    SCOPED_TRACE(static_cast<int>(minor));
    Use(minor);
    EXPECT_TRUE(Read(CardIndex::Standard));
    EXPECT_EQ(SubCodes(17), codes);
  }
}

TEST_F(Transfer, VideoAndThresholdsAreWrittenFirstAndTheSuitBehindTheSwitches) {
  ASSERT_TRUE(Read(CardIndex::Jumbo));
  bridge.Sent.clear();
  EXPECT_TRUE(Send(CardIndex::Jumbo));
  EXPECT_THAT(SubCodes(19), ElementsAre(14, 9, 5, 6, 8, 7));
  EXPECT_EQ(bridge.Sent.size(), 6U) << "nothing is read back here";
}

TEST_F(Transfer, OlderFirmwareIsToldLessAndItsThresholdsStay) {
  Use(0x43);
  ASSERT_TRUE(Read(CardIndex::Standard));
  Type(Parameter::Bold_th_txt, "9");
  bridge.Sent.clear();
  EXPECT_TRUE(Send(CardIndex::Standard));
  EXPECT_THAT(SubCodes(19), ElementsAre(1, 2, 4, 3));
  EXPECT_EQ(boxes.Box(Parameter::Bold_th_txt).Text(), "9");
  Use(0x7F);
  EXPECT_TRUE(Send(CardIndex::Standard));
  EXPECT_THAT(SubCodes(19), ElementsAre(9, 1, 2, 4, 3));
  EXPECT_EQ(boxes.Box(Parameter::Bold_th_txt).Text(), "10");
}

TEST_F(Transfer, BehindEachWriteTheMachineHasTenMilliseconds) {
  ASSERT_TRUE(Read(CardIndex::Standard));
  std::vector<std::chrono::microseconds> sent;
  OnFrame = [&](const Bytes&) { sent.push_back(desk.Clock.Elapsed()); };
  ASSERT_TRUE(Send(CardIndex::Standard));
  ASSERT_TRUE(Read(CardIndex::Standard));
  ASSERT_EQ(sent.size(), 12U);
  for (std::size_t i = 1; i <= 6; ++i) {
    EXPECT_EQ(sent[i] - sent[i - 1], std::chrono::milliseconds(10)) << i;
  }
}

TEST_F(Transfer, TheSwitchesAreWrittenInBytesAndReadInBits) {
  boxes.SwitchesOn = boxes.UseBoardKnown = true;
  ASSERT_TRUE(Read(CardIndex::Standard));
  boxes.SetIgnore_flip(true);
  boxes.SetUse_Board(true);
  bridge.Sent.clear();
  ASSERT_TRUE(Send(CardIndex::Standard));
  EXPECT_TRUE(FramesAre({bridge.Sent[4]}, {"13 04 01 00 01 00 .."}));
  boxes.SetIgnore_flip(false);
  boxes.SetUse_Board(false);
  ASSERT_TRUE(Read(CardIndex::Standard));
  EXPECT_EQ(boxes.Switches(),
            (wire::SwitchBlock{.IgnoreFlip = true, .IgnoreBox = false, .UseBoard = true}));
}

TEST_F(Transfer, ACheckBoxThatIsOffTakesNoBit) {
  boxes.SwitchesOn = boxes.UseBoardKnown = true;
  ASSERT_TRUE(Read(CardIndex::Standard));
  boxes.SetIgnore_flip(true);
  boxes.SetUse_Board(true);
  ASSERT_TRUE(Send(CardIndex::Standard));
  boxes.SetIgnore_flip(false);
  boxes.SetUse_Board(false);
  boxes.SwitchesOn = boxes.UseBoardKnown = false;
  ASSERT_TRUE(Read(CardIndex::Standard));
  EXPECT_EQ(boxes.Switches(), wire::SwitchBlock{});
}

TEST_F(Transfer, OfTheThreeRecordsOnlyTheSelectedOneChanges) {
  ASSERT_TRUE(Read(CardIndex::Jumbo));
  const std::string jumbo = boxes.Box(Parameter::pos_x).Text();
  ASSERT_TRUE(Read(CardIndex::Standard));
  Type(Parameter::pos_x, "123");
  ASSERT_TRUE(Send(CardIndex::Standard));
  ASSERT_TRUE(Read(CardIndex::Jumbo));
  EXPECT_EQ(boxes.Box(Parameter::pos_x).Text(), jumbo);
  ASSERT_TRUE(Read(CardIndex::Standard));
  EXPECT_EQ(boxes.Box(Parameter::pos_x).Text(), "123");
}

TEST_F(Transfer, AMachineThatAnswersWritesDoesNoHarm) {
  Use(0x90, ",answers-writes=1");
  ASSERT_TRUE(Read(CardIndex::Standard));
  Type(Parameter::start_y, "77");
  ASSERT_TRUE(Send(CardIndex::Standard));
  bridge.Sent.clear();
  ASSERT_TRUE(Read(CardIndex::Standard));
  EXPECT_THAT(SubCodes(17), ElementsAre(1, 2, 3, 4, 9, 14)) << "none was repeated";
  EXPECT_EQ(boxes.Box(Parameter::start_y).Text(), "77");
  EXPECT_EQ(recoveries, 0);
}

TEST_F(Transfer, ALostLinkIsToldOnceAndNothingIsSentBehindIt) {
  Damage = [](const Bytes&, const Bytes&) { return Bytes{}; };
  EXPECT_FALSE(Read(CardIndex::Standard));
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes.back().Text,
            "      Lost Communication with Morvane  -  Maintenance Aborted!      ");
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Communication Error");
  EXPECT_EQ(recoveries, 1);
  EXPECT_THAT(SubCodes(17), ElementsAre(1, 1)) << "one retry";
  bridge.Sent.clear();
  EXPECT_FALSE(Send(CardIndex::Standard));
  EXPECT_FALSE(Read(CardIndex::Standard));
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_EQ(recoveries, 1);
}

TEST_F(Transfer, AnExchangeThatFailsOnceIsRepeated) {
  int replies = 0;
  Damage = [&](const Bytes&, Bytes wire) { return ++replies == 3 ? Bytes{} : wire; };
  EXPECT_TRUE(Read(CardIndex::Standard));
  EXPECT_THAT(SubCodes(17), ElementsAre(1, 2, 3, 3, 4, 9, 14));
}

TEST_F(Transfer, TheLogHasTheValuesInItsOwnOrder) {
  boxes.Take(wire::PositionBlock{1, 2, 3, 4});
  boxes.Take(wire::SymbolBlock{{.MaxX = 5, .MaxY = 6, .MinX = 7, .MinY = 8}});
  boxes.Take(wire::SuitBlock{{.MaxX = 9, .MaxY = 10, .MinX = 11, .MinY = 12}});
  boxes.Take(wire::ThresholdBlock{13, 14, 15, 16, 17});
  boxes.Take(wire::VideoBlock{18, 19, 20});
  boxes.SetIgnore_box(true);
  EXPECT_EQ(ParametersText(boxes, CardIndex::Small),
            "21,2,3,4,5,6,7,8,9,10,11,12,0,1,0,13,15,14,16,18,19,20");
}

TEST_F(Transfer, WhatWasNeverReadIsEmptyInTheLog) {
  EXPECT_EQ(ParametersText(boxes, CardIndex::Standard), "0,,,,,,,,,,,,0,0,0,,,,,,,");
}

}  // namespace
}  // namespace morvane::maintenance
