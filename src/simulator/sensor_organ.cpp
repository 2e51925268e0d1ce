#include "simulator/sensor_organ.h"

#include <cmath>

#include "simulator/agrees.h"

namespace morvane::simulator {
namespace {

using namespace wire;

/// What a photo sensor measures that sees nothing, or something.
constexpr std::uint8_t kLit = 35;
constexpr std::uint8_t kDark = 210;
constexpr std::uint8_t kMotorsSince = 0x20;
constexpr std::uint8_t kClimateSince = 0x24;
constexpr std::uint8_t kSpareSince = 0x26;

/// The steps of the converter that the program turns back into the tenths.
std::uint16_t TemperatureSteps(int tenths) {
  return static_cast<std::uint16_t>(std::lround((tenths * 0.00195 + 0.4) / 0.00322265));
}

std::uint16_t SupplySteps(int tenths) {
  return static_cast<std::uint16_t>(std::lround(tenths / 0.381884));
}

}  // namespace

void SensorOrgan::Answer(const OutputsCommand& outputs, bool boardInSlot, Time now, Frame& reply) {
  sensors_.Advance(now);
  sensors_.TakeOutputs(outputs.Outputs);
  PhotoReply photos;
  unsigned switches = boardInSlot ? PhotoReply::kBoxSwitch : 0U;
  for (std::size_t photo = 1; photo < photos.Photo.size(); ++photo) {
    const int number = static_cast<int>(photo);
    const bool sees = sensors_.Covered(number) || feed_.IsAt(number, now);
    photos.Photo[photo] = sees ? kDark : kLit;
    if (sees) switches |= PhotoReply::PhotoBit(photo);
  }
  if (sensors_.On(Sensors::Switch::Front)) switches |= PhotoReply::kFrontSwitch;
  if (sensors_.On(Sensors::Switch::Cover)) switches |= PhotoReply::kCoverSwitch;
  photos.Switches = static_cast<std::uint8_t>(switches);
  Put(photos, reply);
}

void SensorOrgan::Forget() {
  sensors_.Forget();
  feed_.Forget();
}

bool SensorOrgan::AnswerStatus(const Frame& command, Time now, Frame& reply) {
  const auto asked = Get<SensorCommand>(command);
  if (!Agrees(asked, command)) return false;
  sensors_.Advance(now);
  switch (asked.Selector) {
    case kMotors1And2.Selector:
      reply = Motors(asked.Selector, 1);
      return options_.FirmwareSince(kMotorsSince);
    case kMotors3And4.Selector:
      reply = Motors(asked.Selector, 3);
      return options_.FirmwareSince(kMotorsSince);
    case kClimate.Selector:
      reply = Climate();
      return options_.FirmwareSince(kClimateSince);
    case kSpareSensor.Selector:
      Put(SpareSensorReply{{asked.Selector, sensors_.FlipPlateSeen()}}, reply);
      return options_.FirmwareSince(kSpareSince);
    default:
      return false;
  }
}

Frame SensorOrgan::Motors(std::uint8_t selector, int first) const {
  const auto rest = [this](int motor) {
    return static_cast<std::uint16_t>(MotorReply::kStill - sensors_.Speed(motor));
  };
  Frame reply{};
  Put(MotorReply{{selector, sensors_.FlipPlateSeen()}, rest(first), rest(first + 1)}, reply);
  return reply;
}

Frame SensorOrgan::Climate() const {
  Frame reply{};
  Put(ClimateReply{{kClimate.Selector, sensors_.FlipPlateSeen()},
                   TemperatureSteps(sensors_.Temperature()),
                   SupplySteps(sensors_.Supply())},
      reply);
  return reply;
}

}  // namespace morvane::simulator
