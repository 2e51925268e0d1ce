#include "simulator/sensors.h"

#include <gtest/gtest.h>

namespace morvane::simulator {
namespace {

using std::chrono::milliseconds;

constexpr std::uint8_t kMotors = 1;
constexpr std::uint8_t kCamLeds = 16;

/// A machine whose motors were switched on at once, after `ms`.
Sensors Running(int ms, double pace = 1.0) {
  Sensors sensors(pace);
  sensors.TakeOutputs(kMotors);
  sensors.Advance(milliseconds(ms));
  return sensors;
}

TEST(Sensors, AMotorRunsUpByTenThousandASecondAndDownAgain) {
  Sensors sensors = Running(300);
  EXPECT_EQ(sensors.Speed(1), 3000);
  sensors.Advance(milliseconds(1449));
  EXPECT_EQ(sensors.Speed(4), 14490);
  sensors.Advance(milliseconds(5000));
  EXPECT_EQ(sensors.Speed(4), 14500);
  sensors.TakeOutputs(0);
  sensors.Advance(milliseconds(5400));
  EXPECT_EQ(sensors.Speed(4), 10500);
  sensors.Advance(milliseconds(9000));
  EXPECT_EQ(sensors.Speed(4), 0);
}

TEST(Sensors, HowOftenTimeIsToldMakesNoDifference) {
  Sensors sensors(1.0);
  sensors.TakeOutputs(kMotors);
  for (int ms = 1; ms <= 700; ++ms) sensors.Advance(milliseconds(ms));
  EXPECT_EQ(sensors.Speed(2), 7000);
  for (int ms = 701; ms <= 30'000; ++ms) sensors.Advance(milliseconds(ms));
  EXPECT_EQ(sensors.Speed(2), 14500);
  EXPECT_EQ(sensors.Temperature(), 268) << "half a minute at a tenth in two seconds";
}

TEST(Sensors, AMotorThatIsSetSlowerIsSlowedDown) {
  Sensors sensors = Running(2000);
  sensors.SetSpeed(3, 13000);
  sensors.Advance(milliseconds(2100));
  EXPECT_EQ(sensors.Speed(3), 13500);
  EXPECT_EQ(sensors.Speed(2), 14500);
  sensors.Advance(milliseconds(3000));
  EXPECT_EQ(sensors.Speed(3), 13000);
}

TEST(Sensors, TheInsideWarmsByEightDegreesAndCools) {
  Sensors sensors = Running(10'000);
  EXPECT_EQ(sensors.Temperature(), 258);
  sensors.Advance(milliseconds(200'000));
  EXPECT_EQ(sensors.Temperature(), 333);
  sensors.TakeOutputs(kCamLeds);
  sensors.Advance(milliseconds(220'000));
  EXPECT_EQ(sensors.Temperature(), 323);
  EXPECT_EQ(sensors.TemperatureSet(), 253);
  sensors.SetTemperature(400);
  EXPECT_EQ(sensors.Temperature(), 400) << "what is set is what it is";
}

TEST(Sensors, TheSupplyGivesWayUnderLoad) {
  Sensors sensors(1.0);
  EXPECT_EQ(sensors.Supply(), 240);
  sensors.TakeOutputs(kMotors);
  EXPECT_EQ(sensors.Supply(), 229) << "3 by motors that are on, 2 by each of four that runs up";
  sensors.Advance(milliseconds(2000));
  EXPECT_EQ(sensors.Supply(), 237);
  sensors.TakeOutputs(kMotors | kCamLeds);
  EXPECT_EQ(sensors.Supply(), 236);
  sensors.TakeOutputs(0);
  EXPECT_EQ(sensors.Supply(), 240);
  EXPECT_EQ(sensors.SupplySet(), 240);
  sensors.SetSupply(2);
  sensors.TakeOutputs(kMotors);
  EXPECT_EQ(sensors.Supply(), 0) << "never below";
}

TEST(Sensors, APaceOfTenIsTenTimesAsFast) {
  const Sensors sensors = Running(100, 10.0);
  EXPECT_EQ(sensors.Speed(1), 10'000);
}

TEST(Sensors, WithoutAPaceMotorsAreThereAtOnceAndNothingWarms) {
  Sensors sensors = Running(0, 0.0);
  EXPECT_EQ(sensors.Speed(1), 14500);
  sensors.Advance(milliseconds(3'600'000));
  EXPECT_EQ(sensors.Temperature(), 253);
  EXPECT_EQ(sensors.Supply(), 237);
}

}  // namespace
}  // namespace morvane::simulator
