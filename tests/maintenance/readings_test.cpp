#include "maintenance/readings.h"

#include <gtest/gtest.h>

namespace morvane::maintenance {
namespace {

Reading SpeedOf(int speed) {
  Readings readings;
  readings.Take(
      wire::MotorReply{.Head = {}, .First = 0, .Second = static_cast<std::uint16_t>(32767 - speed)},
      3);
  return readings.Motor_speed[4];
}

TEST(Readings, AMotorIsRightBetween13001And15999) {
  EXPECT_EQ(SpeedOf(13000), (Reading{"13000", Shade::kBad}));
  EXPECT_EQ(SpeedOf(13001), (Reading{"13001", Shade::kGood}));
  EXPECT_EQ(SpeedOf(15999), (Reading{"15999", Shade::kGood}));
  EXPECT_EQ(SpeedOf(16000), (Reading{"16000", Shade::kBad}));
}

TEST(Readings, AMotorThatStandsIsPlain) { EXPECT_EQ(SpeedOf(0), (Reading{"0", Shade::kPlain})); }

TEST(Readings, TheAnswersOfSelector0And1BelongToTwoMotorsEach) {
  Readings readings;
  readings.Take(wire::MotorReply{.Head = {}, .First = 32767, .Second = 32766}, 1);
  EXPECT_EQ(readings.Motor_speed[1].Text, "0");
  EXPECT_EQ(readings.Motor_speed[2].Text, "1");
  EXPECT_EQ(readings.Motor_speed[3].Text, "");
}

// 277 x 0.00322265 - 0.4 = 0.49267..., / 0.00195 = 252.65: 25.3 degrees. 63 x 0.381884 = 24.06:
// 2.4 volts; 628 x 0.381884 = 239.8: 24.0.
TEST(Readings, TemperatureAndSupplyComeInTheConvertersSteps) {
  Readings readings;
  readings.Take(wire::ClimateReply{.Head = {}, .Temperature = 277, .Supply = 63});
  EXPECT_EQ(readings.Inside_temp.Text, "25.3");
  EXPECT_EQ(readings.Supply_volt.Text, "2.4");
  readings.Take(wire::ClimateReply{.Head = {}, .Temperature = 277, .Supply = 628});
  EXPECT_EQ(readings.Supply_volt.Text, "24.0");
}

// 123 x 0.00322265 - 0.4 = -0.0036..., / 0.00195 = -1.86.
TEST(Readings, BelowZeroTheSignStandsInFront) {
  Readings readings;
  readings.Take(wire::ClimateReply{.Head = {}, .Temperature = 123, .Supply = 0});
  EXPECT_EQ(readings.Inside_temp.Text, "-0.2");
  EXPECT_EQ(readings.Supply_volt.Text, "0.0");
}

TEST(Readings, APhotoSensorThatSeesSomethingIsGreenWhateverItMeasures) {
  Readings readings;
  readings.Take(wire::PhotoReply{.Photo = {0, 10, 20, 30, 40, 255}, .Switches = 0b00010010});
  EXPECT_EQ(readings.Photo[1], (Reading{"10", Shade::kPlain}));
  EXPECT_EQ(readings.Photo[2], (Reading{"20", Shade::kGood}));
  EXPECT_EQ(readings.Photo[5], (Reading{"255", Shade::kGood}));
  EXPECT_EQ(readings.LastSwitchByte, 0b00010010);
}

TEST(Readings, TheSwitchesStandInTheUpperBits) {
  Readings readings;
  readings.Take(wire::PhotoReply{.Photo = {}, .Switches = 0b01000000});
  EXPECT_EQ(readings.Front_Switch, (Reading{"OFF", Shade::kPlain}));
  EXPECT_EQ(readings.Cover_Switch, (Reading{"ON", Shade::kGood}));
  EXPECT_EQ(readings.Box_Switch, (Reading{"OFF", Shade::kPlain}));
  readings.Take(wire::PhotoReply{.Photo = {}, .Switches = 0b10100000});
  EXPECT_EQ(readings.Front_Switch.Text + readings.Cover_Switch.Text + readings.Box_Switch.Text,
            "ONOFFON");
}

TEST(Readings, TheFlipPlateIsBlankWithoutTheCamerasLight) {
  Readings readings;
  readings.TakeFlipPlate({.Selector = 0, .FlipPlate = true}, true);
  EXPECT_EQ(readings.Flip_Switch, (Reading{"ON", Shade::kGood}));
  readings.TakeFlipPlate({.Selector = 0, .FlipPlate = false}, true);
  EXPECT_EQ(readings.Flip_Switch, (Reading{"OFF", Shade::kBad}));
  for (const bool plate : {false, true}) {
    readings.TakeFlipPlate({.Selector = 0, .FlipPlate = plate}, false);
    EXPECT_EQ(readings.Flip_Switch, Reading{});
  }
}

// The labels are the bytes with four bits set: 15 is the first, 23 the second.
TEST(Readings, ABoardLabelIsShownRawAndDecoded) {
  Readings readings;
  readings.Take(wire::LabelReply{.Head = {}, .Label = 23});
  EXPECT_EQ(readings.Board_no_test_txt, "23");
  EXPECT_EQ(readings.Board_no_txt, "2");
  readings.Take(wire::LabelReply{.Head = {}, .Label = 1});
  EXPECT_EQ(readings.Board_no_txt, "0");
}

}  // namespace
}  // namespace morvane::maintenance
