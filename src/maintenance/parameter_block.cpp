#include "maintenance/parameter_block.h"

#include "machine/gates.h"
#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

using machine::CardSettings;
using machine::Passes;
using machine::VersionGate;

constexpr VersionGate kSwitchesGate{0x20, nullptr};
constexpr VersionGate kUseBoardGate{0x70, nullptr};

/// By `Mode`.
constexpr std::array kLogHeads{
    "   Parameters update: ", "   Autosetup temporary parameters update: ",
    "   Autosetup revert parameters: "};

}  // namespace

void ParameterBlock::LoadSelection() {
  Boxes = {};
  known_ = false;
  CardSelection = CardSettings::Load(program_.Store);
  if (askedIndex_) CardSelection.CardIndex = *askedIndex_;
}

void ParameterBlock::KeepSelection(std::optional<int> index) {
  keepsSelection_ = true;
  askedIndex_ = index;
}

void ParameterBlock::SaveSelection() {
  if (keepsSelection_) return;
  const auto store = [&](const SettingKey& key, int value) {
    program_.StoreSetting(key, std::to_string(value));
  };
  store(kNational, CardSelection.National);
  store(kCardType, CardSelection.CardType);
  store(kThreshold, CardSelection.Threshold);
  store(kCardIndex, CardSelection.CardIndex);
}

/// A machine for standard cards alone loses the small index too: required.
bool ParameterBlock::ApplyGates() {
  Boxes.SwitchesOn = Passes(machine_, kSwitchesGate);
  Boxes.UseBoardKnown = Passes(machine_, kUseBoardGate);
  if (askedIndex_) return CanDo(*askedIndex_);
  if (!HasRecord(machine_, wire::CardIndex::Jumbo) ||
      (CardSelection.CardIndex == CardSettings::kSmallIndex &&
       !HasRecord(machine_, wire::CardIndex::Small))) {
    CardSelection.CardIndex = CardSettings::kStandardIndex;
  }
  return true;
}

bool ParameterBlock::Read() {
  if (!ReadParameters(link_, machine_, Index(), Boxes)) return false;
  known_ = true;
  return true;
}

bool ParameterBlock::ReadOver() {
  LogLostEdits();
  return Read();
}

void ParameterBlock::LogLostEdits() {
  if (!Boxes.Edited()) return;
  program_.Log.WriteLine("   Parameters that were not written are read again");
}

bool ParameterBlock::Send(ParameterBoxes& boxes) {
  return SendParameters(link_, machine_, Index(), boxes);
}

bool ParameterBlock::Write(Mode mode) {
  if (!Send(Boxes)) return false;
  program_.Log.WriteLine(kLogHeads[static_cast<std::size_t>(mode)] +
                         ParametersText(Boxes, Index()));
  return mode != Mode::kUpdate || Update();
}

/// A write frame has no answer: what was lost on the way shows in what the machine holds.
bool ParameterBlock::Update() {
  ParameterBoxes wanted = Boxes;
  if (!Read()) return false;
  if (!Boxes.DiffersFrom(wanted).empty() && (!Send(wanted) || !Read())) return false;
  const std::string refused = Boxes.DiffersFrom(wanted);
  if (refused.empty()) {
    program_.ShowMessage(program_.Texts.Msg056, kOkInformation, "Parameters update");
  } else {
    program_.ShowMessage("      The machine has not taken these values:      \r\n      " + refused +
                             "      \r\n      The boxes show what it holds.      ",
                         kOkCritical, "Parameters update");
  }
  return true;
}

bool ParameterBlock::Save() {
  const int answer = program_.Ask(program_.Texts.Msg124, kYesNoExclamation, "Parameters Update");
  return answer == kYes ? Write(Mode::kUpdate) : Read();
}

bool ParameterBlock::CanDo(int index) {
  const std::string refusal =
      WhyNotIndex(machine_, program_.Texts, index, machine_.FirmwareInHex());
  if (!refusal.empty()) program_.ShowMessage(refusal, kOkCritical, "Maintenance Error");
  return refusal.empty();
}

bool ParameterBlock::SelectIndex(int index) {
  CardSelection.CardIndex = CanDo(index) ? index : CardSettings::kStandardIndex;
  return Read();
}

}  // namespace morvane::maintenance
