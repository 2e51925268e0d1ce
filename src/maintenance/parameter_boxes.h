#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "maintenance/value_box.h"
#include "wire/service_replies.h"

namespace morvane::maintenance {

/// The boxes of the parameter block, by the system's names.
enum class Parameter : std::uint8_t {
  pos_x,
  pos_y,
  start_x,
  start_y,
  Sym_x_max,
  Sym_y_max,
  Sym_x_min,
  Sym_y_min,
  Suit_x_max,
  Suit_y_max,
  Suit_x_min,
  Suit_y_min,
  Bold_th_txt,
  Bold_th1_txt,
  Fine_th_txt,
  Fine_th1_txt,
  Reco_option_txt,
  Video_Brightness,
  Video_Contrast,
  Board_Sen,
};
inline constexpr std::size_t kParameters = 20;
[[nodiscard]] std::string_view NameOf(Parameter parameter);

/// What the boxes and check boxes of the parameter block hold: the only copy outside the machine.
class ParameterBoxes {
 public:
  ParameterBoxes();

  [[nodiscard]] ValueBox& Box(Parameter parameter) { return boxes_[IndexOf(parameter)]; }
  [[nodiscard]] const ValueBox& Box(Parameter parameter) const {
    return boxes_[IndexOf(parameter)];
  }
  /// The check boxes `Ignore_flip`, `Ignore_box`, `Use_Board`.
  [[nodiscard]] const wire::SwitchBlock& Switches() const { return switches_; }
  void SetIgnore_flip(bool on) { switches_.IgnoreFlip = on; }
  /// A board switch that nobody looks at needs nothing in its place: `Use_Board` goes with it.
  void SetIgnore_box(bool on);
  void SetUse_Board(bool on) { switches_.UseBoard = on; }
  bool SwitchesOn = false;     ///< `Ignore_flip` and `Ignore_box` are enabled
  bool UseBoardKnown = false;  ///< the machine knows `Use_Board`
  [[nodiscard]] bool UseBoardOn() const { return UseBoardKnown && !switches_.IgnoreBox; }
  std::string param_ID;  ///< shown, never written; empty until it has been read

  // What the machine has answered.
  void Take(const wire::PositionBlock& block);
  void Take(const wire::SymbolBlock& block);
  void Take(const wire::SuitBlock& block);
  /// A check box takes its bit only while it is enabled.
  void Take(const wire::SwitchAnswer& answer);
  void Take(const wire::ThresholdBlock& block);
  void Take(const wire::VideoBlock& block);

  // What it is to be told.
  [[nodiscard]] wire::PositionBlock Positions() const;
  [[nodiscard]] wire::SymbolBlock Symbol() const;
  [[nodiscard]] wire::SuitBlock Suit() const;
  [[nodiscard]] wire::ThresholdBlock Thresholds() const;
  [[nodiscard]] wire::VideoBlock Video() const;

  /// A box that still has the focus has not been left: its threshold is put right before it is
  /// sent.
  void ClampThresholds();
  /// What differs from what the machine was last heard to hold: any of it, or one check box.
  [[nodiscard]] bool Edited() const;
  [[nodiscard]] bool Edited(bool wire::SwitchBlock::*checkBox) const {
    return switches_.*checkBox != taken_.*checkBox;
  }
  /// The names of what differs from `other`, by commas.
  [[nodiscard]] std::string DiffersFrom(const ParameterBoxes& other) const;

 private:
  [[nodiscard]] static std::size_t IndexOf(Parameter parameter) {
    return static_cast<std::size_t>(parameter);
  }
  std::array<ValueBox, kParameters> boxes_;
  wire::SwitchBlock switches_;
  wire::SwitchBlock taken_;  ///< as they came from the machine
};

/// A check box of the parameter block, by the system's name.
struct ParameterSwitch {
  std::string_view Name;
  bool wire::SwitchBlock::*Bit;
  void (ParameterBoxes::*Set)(bool);
};
inline constexpr std::array<ParameterSwitch, 3> kParameterSwitches{{
    {"Ignore_flip", &wire::SwitchBlock::IgnoreFlip, &ParameterBoxes::SetIgnore_flip},
    {"Ignore_box", &wire::SwitchBlock::IgnoreBox, &ParameterBoxes::SetIgnore_box},
    {"Use_Board", &wire::SwitchBlock::UseBoard, &ParameterBoxes::SetUse_Board},
}};

}  // namespace morvane::maintenance
