#include "machine/run_options.h"

namespace morvane::machine {

using wire::IdentityReply;

void RunOptions::Load() {
  Cards = CardSettings::Load(program_.Store);
  Check_board = program_.Store.IsOn(kCheckBoard);
  AutoStartEnabled = program_.Store.IsOn(kInitStartFromBox);
  ReadMode = program_.Store.Get(kInitReadMode) == "1" ? kPlayedBoards : kSimulateDealing;
  MachineKnown = false;
}

void RunOptions::ApplySilentGates(RunKind kind) {
  const bool boards = kind != RunKind::kPoker;
  if (boards && Check_board &&
      (!Passes(machine_, kCheckBoardOpenGate) ||
       !machine_.HasHardware(IdentityReply::kBoardNumberReader))) {
    Check_board = false;
    Store(kCheckBoard, 0);
  }
  if (Cards.CardIndex == CardSettings::kLargeIndex &&
      (!Passes(machine_, kLargeIndexOpenGate) ||
       !machine_.HasHardware(IdentityReply::kLargeIndexCards))) {
    Cards.CardIndex = CardSettings::kStandardIndex;
    Store(kCardIndex, Cards.CardIndex);
  }
  MachineKnown = true;
}

bool RunOptions::StartGatesPass() {
  if (Cards.National != CardSettings::kStandard && Refused(kNationalGate)) return false;
  if (Cards.National == CardSettings::kDanish && Refused(kDanishGate)) return false;
  return Cards.National != CardSettings::kSwedish || !Refused(kSwedishGate);
}

bool RunOptions::Refused(const VersionGate& gate) {
  if (Passes(machine_, gate)) return false;
  ShowRunError(program_, machine_, GateText(machine_, program_.Texts, gate));
  return true;
}

void RunOptions::SetNational(int national) {
  Cards.National = national;
  Store(kNational, national);
}

void RunOptions::SetCardType(int cardType) {
  Cards.CardType = cardType;
  Store(kCardType, cardType);
}

void RunOptions::SetThreshold(int threshold) {
  Cards.Threshold = threshold;
  Store(kThreshold, threshold);
}

void RunOptions::SetCardIndex(int cardIndex) {
  if (!MachineKnown) return;
  const std::string refusal =
      WhyNotIndex(machine_, program_.Texts, cardIndex, machine_.FirmwareVersion());
  Cards.CardIndex = refusal.empty() ? cardIndex : CardSettings::kStandardIndex;
  if (!refusal.empty()) ShowRunError(program_, machine_, refusal);
  Store(kCardIndex, Cards.CardIndex);
}

void RunOptions::SetCheck_board(bool on) {
  if (!MachineKnown) return;
  const std::string refusal = on ? WhyNotCheck_board() : "";
  Check_board = on && refusal.empty();
  if (!refusal.empty()) ShowRunError(program_, machine_, refusal);
  Store(kCheckBoard, Check_board ? 1 : 0);
}

std::string RunOptions::WhyNotCheck_board() const {
  if (!machine_.HasHardware(IdentityReply::kBoardNumberReader)) return program_.Texts.Msg046;
  if (Passes(machine_, kCheckBoardClickGate)) return "";
  return GateText(machine_, program_.Texts, kCheckBoardClickGate);
}

void RunOptions::SetStart_from_box(bool on) {
  AutoStartEnabled = on;
  Store(kInitStartFromBox, on ? 1 : 0);
}

void RunOptions::SetReadMode(int readMode) {
  ReadMode = readMode;
  Store(kInitReadMode, readMode);
}

void RunOptions::Store(const SettingKey& key, int value) {
  const LinkHold hold(machine_);  // a failure shows a box
  program_.StoreSetting(key, std::to_string(value));
}

void ShowRunError(Program& program, Machine& machine, const std::string& text,
                  std::string_view title) {
  const LinkHold hold(machine);
  program.ShowMessage(text, kOkCritical, std::string(title));
  machine.ForgetStarts();
}

}  // namespace morvane::machine
