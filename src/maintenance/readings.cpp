#include "maintenance/readings.h"

#include <charconv>
#include <cmath>

#include "wire/board_labels.h"

namespace morvane::maintenance {
namespace {

using wire::PhotoReply;

Reading SwitchReading(bool on) { return {on ? "ON" : "OFF", on ? Shade::kGood : Shade::kPlain}; }

Reading RawSpeedReading(std::uint16_t raw) { return SpeedReading(wire::MotorReply::kStill - raw); }

/// "25.3" of 253.
std::string Tenths(double tenths) {
  const long rounded = std::lround(tenths);
  const long size = std::abs(rounded);
  return (rounded < 0 ? "-" : "") + std::to_string(size / 10) + "." + std::to_string(size % 10);
}

}  // namespace

std::optional<double> NumberIn(const Reading& reading) {
  double number = 0;
  const char* end = reading.Text.data() + reading.Text.size();
  const auto read = std::from_chars(reading.Text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

Reading SpeedReading(int speed) {
  constexpr int kSlowest = 13000;
  constexpr int kFastest = 16000;
  const bool good = speed > kSlowest && speed < kFastest;
  const Shade look = speed == 0 ? Shade::kPlain : good ? Shade::kGood : Shade::kBad;
  return {std::to_string(speed), look};
}

void Readings::Take(const PhotoReply& reply) {
  for (std::size_t sensor = 1; sensor <= 5; ++sensor) {
    const bool seen = (reply.Switches & PhotoReply::PhotoBit(sensor)) != 0;
    Photo[sensor] = {std::to_string(reply.Photo[sensor]), seen ? Shade::kGood : Shade::kPlain};
  }
  Front_Switch = SwitchReading((reply.Switches & PhotoReply::kFrontSwitch) != 0);
  Cover_Switch = SwitchReading((reply.Switches & PhotoReply::kCoverSwitch) != 0);
  Box_Switch = SwitchReading((reply.Switches & PhotoReply::kBoxSwitch) != 0);
  LastSwitchByte = reply.Switches;
}

void Readings::Take(const wire::MotorReply& reply, std::size_t first) {
  Motor_speed[first] = RawSpeedReading(reply.First);
  Motor_speed[first + 1] = RawSpeedReading(reply.Second);
}

/// The converter's steps in volts, then in tenths of a degree; and in tenths of a volt.
void Readings::Take(const wire::ClimateReply& reply) {
  Inside_temp = {Tenths((reply.Temperature * 0.00322265 - 0.4) / 0.00195), Shade::kPlain};
  Supply_volt = {Tenths(reply.Supply * 0.381884), Shade::kPlain};
}

void Readings::Take(const wire::LabelReply& reply) {
  Board_no_test_txt = std::to_string(reply.Label);
  Board_no_txt = std::to_string(wire::BoardLabelTable[reply.Label]);
}

void Readings::TakeFlipPlate(const wire::SensorHead& head, bool camLeds) {
  if (!camLeds) {
    Flip_Switch = {};
  } else {
    Flip_Switch = {head.FlipPlate ? "ON" : "OFF", head.FlipPlate ? Shade::kGood : Shade::kBad};
  }
}

}  // namespace morvane::maintenance
