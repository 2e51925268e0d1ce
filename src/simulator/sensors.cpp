#include "simulator/sensors.h"

#include "wire/service_commands.h"

namespace morvane::simulator {
namespace {

using wire::OutputsCommand;

constexpr std::uint8_t kLit = 35;
constexpr std::uint8_t kDark = 210;

bool Within(int number, int low, int high) { return number >= low && number <= high; }

std::size_t At(int number) { return static_cast<std::size_t>(number - 1); }

}  // namespace

void Sensors::TakeOutputs(std::uint8_t outputs) {
  if (outputs != outputs_) ++changes_;
  outputs_ = outputs;
}

void Sensors::Cover(int photo, bool covered) {
  if (!Within(photo, 1, kPhotos)) return;
  covered_[At(photo)] = covered;
  ++changes_;
}

void Sensors::Set(Switch which, bool on) {
  on_[static_cast<std::size_t>(which)] = on;
  ++changes_;
}

void Sensors::SetSpeed(int motor, int speed) {
  if (!Within(motor, 1, kMotors) || !Within(speed, 0, kHighestSpeed)) return;
  speed_[At(motor)] = speed;
  ++changes_;
}

void Sensors::SetTemperature(int tenths) {
  if (!Within(tenths, 0, kHighestTemperature)) return;
  temperature_ = tenths;
  ++changes_;
}

void Sensors::SetSupply(int tenths) {
  if (!Within(tenths, 0, kHighestSupply)) return;
  supply_ = tenths;
  ++changes_;
}

bool Sensors::Covered(int photo) const { return Within(photo, 1, kPhotos) && covered_[At(photo)]; }

bool Sensors::On(Switch which) const { return on_[static_cast<std::size_t>(which)]; }

std::uint8_t Sensors::Photo(int photo) const { return Covered(photo) ? kDark : kLit; }

int Sensors::Speed(int motor) const {
  const bool turns = (outputs_ & OutputsCommand::kMotors) != 0;
  return turns && Within(motor, 1, kMotors) ? speed_[At(motor)] : 0;
}

bool Sensors::FlipPlateSeen() const {
  return On(Switch::FlipPlate) && (outputs_ & OutputsCommand::kCamLeds) != 0;
}

}  // namespace morvane::simulator
