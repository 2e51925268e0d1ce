#pragma once

#include <array>
#include <chrono>
#include <cstdint>

namespace morvane::simulator {

/// What a person finds at the open machine, and what the outputs do to it as time goes by: motors
/// run up and down, it warms slowly while they turn, and they draw on the supply. Speeds are as the
/// program shows them, temperature and supply in tenths of a degree and of a volt.
class Sensors {
 public:
  using Time = std::chrono::microseconds;
  static constexpr int kPhotos = 5;
  static constexpr int kMotors = 4;
  static constexpr int kHighestSpeed = 32767;
  static constexpr int kHighestTemperature = 1000;
  static constexpr int kHighestSupply = 400;
  static constexpr int kUsualSpeed = 14500;
  enum class Switch : std::uint8_t { Front, Cover, FlipPlate };

  /// Time goes by `pace` times as fast as `Advance` says; at 0 motors need none, and nothing warms.
  explicit Sensors(double pace = 0.0) : pace_(pace) {}

  void Advance(Time now);
  /// The program switches: a bit an output, as in `wire::OutputsCommand`.
  void TakeOutputs(std::uint8_t outputs);
  /// The power has gone: all outputs are off. What hands have done stays.
  void Forget() { TakeOutputs(0); }

  // A person's hands. Numbers out of range change nothing.
  void Cover(int photo, bool covered);  ///< 1..5
  void Set(Switch which, bool on);
  void SetSpeed(int motor, int speed);  ///< of motor 1..4, while the motors are on
  void SetTemperature(int tenths);      ///< now, and without warm motors
  void SetSupply(int tenths);           ///< without load

  [[nodiscard]] std::uint8_t Outputs() const { return outputs_; }
  [[nodiscard]] bool Covered(int photo) const;
  [[nodiscard]] bool On(Switch which) const;
  /// As hands have set it; so are the next two.
  [[nodiscard]] int SpeedSet(int motor) const;
  [[nodiscard]] int TemperatureSet() const { return temperature_; }
  [[nodiscard]] int SupplySet() const { return supply_; }

  [[nodiscard]] int Speed(int motor) const;
  [[nodiscard]] int Temperature() const;
  [[nodiscard]] int Supply() const;
  /// Its sensor needs the light of the camera's LEDs.
  [[nodiscard]] bool FlipPlateSeen() const;
  /// Goes up with every change.
  [[nodiscard]] std::uint64_t Changes() const { return changes_; }

 private:
  [[nodiscard]] bool IsOn(unsigned outputs) const { return (outputs_ & outputs) != 0; }
  [[nodiscard]] double Aim(std::size_t at) const;

  double pace_;
  Time now_{0};
  std::uint8_t outputs_ = 0;
  std::array<bool, kPhotos> covered_{};
  std::array<bool, 3> on_{false, true, true};
  std::array<int, kMotors> speed_{kUsualSpeed, kUsualSpeed, kUsualSpeed, kUsualSpeed};
  std::array<double, kMotors> turns_{};
  double warmth_ = 0.0;  ///< of the motors, in tenths of a degree
  int temperature_ = 253;
  int supply_ = 240;
  std::uint64_t changes_ = 0;
};

}  // namespace morvane::simulator
