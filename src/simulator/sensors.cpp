#include "simulator/sensors.h"

#include <algorithm>
#include <cmath>

#include "wire/service_commands.h"

namespace morvane::simulator {
namespace {

using wire::OutputsCommand;

constexpr double kRunUp = 10'000.0;  ///< of a motor, speed a second
constexpr double kWarming = 0.5;     ///< while motors turn, tenths a second; and back
constexpr double kMostWarmth = 80.0;
// What is drawn from the supply, in tenths.
constexpr int kByLights = 1;
constexpr int kByMotors = 3;
constexpr int kByRunningUp = 2;  ///< of one motor
constexpr double kAlmost = 0.5;

/// `from` moved towards `to`, by `step` at most.
double Towards(double from, double to, double step) {
  return from + std::clamp(to - from, -step, step);
}

bool Within(int number, int low, int high) { return number >= low && number <= high; }

std::size_t At(int number) { return static_cast<std::size_t>(number - 1); }

}  // namespace

void Sensors::Advance(Time now) {
  const double seconds = std::chrono::duration<double>(now - now_).count() * pace_;
  now_ = now;
  for (std::size_t at = 0; at < turns_.size(); ++at) {
    turns_[at] = Towards(turns_[at], Aim(at), pace_ > 0.0 ? kRunUp * seconds : kHighestSpeed);
  }
  const double warmest = IsOn(OutputsCommand::kMotors) ? kMostWarmth : 0.0;
  warmth_ = Towards(warmth_, warmest, kWarming * seconds);
}

double Sensors::Aim(std::size_t at) const { return IsOn(OutputsCommand::kMotors) ? speed_[at] : 0; }

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
  warmth_ = 0.0;
  ++changes_;
}

void Sensors::SetSupply(int tenths) {
  if (!Within(tenths, 0, kHighestSupply)) return;
  supply_ = tenths;
  ++changes_;
}

bool Sensors::Covered(int photo) const { return Within(photo, 1, kPhotos) && covered_[At(photo)]; }

bool Sensors::On(Switch which) const { return on_[static_cast<std::size_t>(which)]; }

int Sensors::SpeedSet(int motor) const { return Within(motor, 1, kMotors) ? speed_[At(motor)] : 0; }

int Sensors::Speed(int motor) const {
  return Within(motor, 1, kMotors) ? static_cast<int>(std::lround(turns_[At(motor)])) : 0;
}

int Sensors::Temperature() const { return temperature_ + static_cast<int>(std::lround(warmth_)); }

int Sensors::Supply() const {
  int drawn = IsOn(OutputsCommand::kCamLeds | OutputsCommand::kCamPower) ? kByLights : 0;
  if (IsOn(OutputsCommand::kMotors)) drawn += kByMotors;
  for (std::size_t at = 0; at < turns_.size(); ++at) {
    if (Aim(at) - turns_[at] > kAlmost) drawn += kByRunningUp;
  }
  return std::max(0, supply_ - drawn);
}

bool Sensors::FlipPlateSeen() const {
  return On(Switch::FlipPlate) && IsOn(OutputsCommand::kCamLeds);
}

}  // namespace morvane::simulator
