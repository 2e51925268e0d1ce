#pragma once

#include <string>

#include "machine/card_settings.h"
#include "machine/gates.h"
#include "machine/machine.h"
#include "machine/run_kind.h"
#include "program/program.h"

namespace morvane::machine {

/// The run window's options. Each is stored at once; what the machine cannot do is refused with a
/// box and set back.
class RunOptions {
 public:
  RunOptions(Program& program, Machine& machine) : program_(program), machine_(machine) {}

  CardSettings Cards;
  /// What the cards of a read run are: dealt by hand one by one, or a board that was played.
  enum ReadModes { kSimulateDealing = 0, kPlayedBoards = 1 };
  int ReadMode = kSimulateDealing;  ///< `read_mode1`, `read_mode2`
  bool Check_board = false;
  bool AutoStartEnabled = false;  ///< `Start_from_box` is ticked
  /// The machine has answered; before, what it must be asked about cannot be changed.
  bool MachineKnown = false;

  /// From the store, before the machine is known.
  void Load();
  /// The machine is known now: switches off what it cannot do of what a run of `kind` uses, without
  /// a word.
  void ApplySilentGates(RunKind kind);
  /// Whether the cards can be dealt; the operator has been told if not.
  [[nodiscard]] bool StartGatesPass();

  void SetNational(int national);
  void SetCardType(int cardType);
  void SetThreshold(int threshold);
  void SetCardIndex(int cardIndex);
  void SetCheck_board(bool on);
  void SetStart_from_box(bool on);
  void SetReadMode(int readMode);
  /// For this run alone: nothing is stored.
  void UseReadMode(int readMode) { ReadMode = readMode; }

 private:
  [[nodiscard]] std::string WhyNotCheck_board() const;
  bool Refused(const VersionGate& gate);
  void Store(const SettingKey& key, int value);

  Program& program_;
  Machine& machine_;
};

/// A box; nothing starts behind it.
void ShowRunError(Program& program, Machine& machine, const std::string& text,
                  std::string_view title = "Dealing Error");

}  // namespace morvane::machine
