#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "wire/service_replies.h"

namespace morvane::maintenance {

/// How a reading stands beside its number, so that no colour carries it alone.
enum class Shade : std::uint8_t {
  kPlain,    ///< nothing is said of it: the window's colour, or white
  kUnknown,  ///< how it stands is not known, though its number is
  kGood,     ///< light green
  kBad,      ///< the error colour
};

/// One indicator of the console.
struct Reading {
  std::string Text;  ///< empty: not known
  Shade Look = Shade::kPlain;
  bool operator==(const Reading&) const = default;
};
/// The number that it shows, if it shows one.
[[nodiscard]] std::optional<double> NumberIn(const Reading& reading);

/// Of a motor, in the machine's own unit. One that stands is as right as one that runs at its
/// speed.
[[nodiscard]] Reading SpeedReading(int speed);

/// What the sensors say, as the console shows it; decoded from the machine's answers.
struct Readings {
  std::array<Reading, 6> Photo{};  ///< [1..5]
  Reading Front_Switch;
  Reading Cover_Switch;
  Reading Box_Switch;
  Reading Flip_Switch;
  std::array<Reading, 5> Motor_speed{};  ///< [1..4]
  Reading Inside_temp;
  Reading Supply_volt;
  std::string Board_no_txt;
  std::string Board_no_test_txt;
  std::uint8_t LastSwitchByte = 0;

  void Take(const wire::PhotoReply& reply);
  /// `first` is motor 1 or 3.
  void Take(const wire::MotorReply& reply, std::size_t first);
  void Take(const wire::ClimateReply& reply);
  void Take(const wire::LabelReply& reply);
  /// Its sensor sees nothing without the light of the camera's LEDs.
  void TakeFlipPlate(const wire::SensorHead& head, bool camLeds);
};

}  // namespace morvane::maintenance
