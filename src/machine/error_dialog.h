#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "machine/dialog_answer.h"
#include "machine/machine.h"
#include "program/program.h"

namespace morvane::machine {

/// Which buttons a fault offers.
enum class ButtonMode : std::uint8_t { kSingle = 0, kGoOnOrStop = 1, kBoardError = 2 };

/// Where a run has come to grief.
struct Fault {
  int Board = 0;  ///< the one that is dealt or read; 0 where there is none
  int Card = 0;   ///< the how-manieth the machine stopped at, 1..52; 0 = not known
  /// Another board is in the slot: this one, 0 when it is unreadable.
  std::optional<int> Label = std::nullopt;
};

/// The modal dialog `Error_disp`: names the fault, plays the sound, and polls the machine so that
/// the pedal can answer too. The same for every run.
class ErrorDialog {
 public:
  static constexpr int kPollMs = 100;

  /// About `MachineError`, or about the wrong board where `fault` has one. `dialogResult` is the
  /// answer that stands until one is given.
  ErrorDialog(Program& program, Machine& machine, DialogAnswer dialogResult, const Fault& fault);

  struct Button {
    std::string Caption;
    bool Visible = false;
  };
  std::string Error_label;
  std::string Error_code;
  std::string Error_board;  ///< "Board 5, card 17 of 52", as far as there are both; may be empty
  Button Continue_button;
  Button Cancel_button;
  Button Cancel2;
  morvane::machine::ButtonMode ButtonMode = morvane::machine::ButtonMode::kSingle;
  DialogAnswer DialogResult;

  /// `Error_label` as a window or a terminal shows it: a text of the catalogue without its padding,
  /// a fault's text to the letter.
  [[nodiscard]] std::string ErrorText() const;
  std::function<void()> OnLinkLost;  ///< called before the operator is told of it
  /// Off where another would take the link before who asks has it again.
  bool PedalFreesLink = true;

  /// Starts the polling and the sound; `closed` is called once, when the dialog has its answer.
  void Open(std::function<void()> closed);
  void PressContinue() { Close(kGoOn); }
  void PressCancel() { Close(kStop); }
  void PressCancel2();
  [[nodiscard]] bool Closed() const { return closed_; }

 private:
  int NameFault();
  int NameWrongBoard(const Fault& fault);
  void Tick();
  void Close(DialogAnswer answer);

  Program& program_;
  Machine& machine_;
  std::unique_ptr<Timer> Error_Timer1_;
  std::function<void()> onClosed_;
  bool closed_ = false;
};

/// What a run needs of its window when the machine has stopped on a fault.
class FaultView {
 public:
  virtual ~FaultView() = default;
  /// State, time and pocket counts; repaints at once, since a run does not wait for paint events.
  virtual void ShowState() = 0;
  /// Shows the dialog modally; returns when it has its answer.
  virtual void ShowError(ErrorDialog& dialog) = 0;
};

/// Asks about `MachineError` or the wrong board; `standing` is the answer until one is given.
[[nodiscard]] DialogAnswer AskAboutError(Program& program, Machine& machine, FaultView& view,
                                         DialogAnswer standing, const Fault& fault,
                                         bool pedalFreesLink = true);

}  // namespace morvane::machine
