#include "maintenance/parameter_transfer.h"

#include "wire/service_commands.h"

namespace morvane::maintenance {
namespace {

using machine::Passes;
using machine::VersionGate;
using wire::CardIndex;

constexpr VersionGate kThresholdGate{0x44, nullptr};
constexpr VersionGate kJumboGate{0x40, nullptr};
constexpr VersionGate kSmallGate{0x66, nullptr};

/// One block into its boxes; false when the link was lost.
template <typename Block>
bool Read(ServiceLink& link, CardIndex index, ParameterBoxes& boxes) {
  if (const auto reply = link.Ask(wire::ReadBlock<Block>(index))) boxes.Take(reply->Values);
  return !link.LinkFailed();
}

template <typename Block>
bool Write(ServiceLink& link, CardIndex index, const Block& block) {
  return link.Write(wire::WriteBlock(index, block));
}

/// Those that the log has, in its order, in front of the check boxes and behind them.
constexpr std::array kLoggedFirst{
    Parameter::pos_x,      Parameter::pos_y,      Parameter::start_x,    Parameter::start_y,
    Parameter::Sym_x_max,  Parameter::Sym_y_max,  Parameter::Sym_x_min,  Parameter::Sym_y_min,
    Parameter::Suit_x_max, Parameter::Suit_y_max, Parameter::Suit_x_min, Parameter::Suit_y_min};
constexpr std::array kLoggedLast{Parameter::Bold_th_txt,      Parameter::Fine_th_txt,
                                 Parameter::Bold_th1_txt,     Parameter::Fine_th1_txt,
                                 Parameter::Video_Brightness, Parameter::Video_Contrast};

}  // namespace

bool HasRecord(const machine::Machine& machine, CardIndex index) {
  if (index == CardIndex::Small) return Passes(machine, kSmallGate);
  return index == CardIndex::Standard ||
         (Passes(machine, kJumboGate) &&
          machine.HasHardware(wire::IdentityReply::kLargeIndexCards));
}

bool ReadParameters(ServiceLink& link, const machine::Machine& machine, CardIndex index,
                    ParameterBoxes& boxes) {
  return Read<wire::PositionBlock>(link, index, boxes) &&
         Read<wire::SymbolBlock>(link, index, boxes) && Read<wire::SuitBlock>(link, index, boxes) &&
         Read<wire::SwitchAnswer>(link, index, boxes) &&
         (!Passes(machine, kThresholdGate) || Read<wire::ThresholdBlock>(link, index, boxes)) &&
         (!Passes(machine, kVideoGate) || Read<wire::VideoBlock>(link, index, boxes));
}

bool SendParameters(ServiceLink& link, const machine::Machine& machine, CardIndex index,
                    ParameterBoxes& boxes) {
  if (Passes(machine, kVideoGate) && !Write(link, index, boxes.Video())) return false;
  if (Passes(machine, kThresholdGate)) {
    boxes.ClampThresholds();
    if (!Write(link, index, boxes.Thresholds())) return false;
  }
  // The suit comes behind the switches: required.
  return Write(link, index, boxes.Positions()) && Write(link, index, boxes.Symbol()) &&
         Write(link, index, boxes.Switches()) && Write(link, index, boxes.Suit());
}

const machine::VersionGate* GateOf(Parameter parameter) {
  if (parameter < Parameter::Bold_th_txt) return nullptr;
  return parameter < Parameter::Video_Brightness ? &kThresholdGate : &kVideoGate;
}

/// No comma parts the digit of the index from the first number: required.
std::string ParametersText(const ParameterBoxes& boxes, CardIndex index) {
  std::string text = std::to_string(static_cast<int>(index));
  for (const Parameter parameter : kLoggedFirst) text += boxes.Box(parameter).Text() + ",";
  for (const ParameterSwitch& checkBox : kParameterSwitches) {
    text += boxes.Switches().*checkBox.Bit ? "1," : "0,";
  }
  for (const Parameter parameter : kLoggedLast) text += boxes.Box(parameter).Text() + ",";
  return text + boxes.Box(Parameter::Board_Sen).Text();
}

}  // namespace morvane::maintenance
