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

/// The board in the slot is not the one that is to be dealt.
struct WrongBoard {
  int Expected = 0;
  int Read = 0;  ///< 0 = the label cannot be read
};

/// The modal dialog `Error_disp`: names the fault, plays the sound, and polls the machine so that
/// the pedal can answer too. The same for every run.
class ErrorDialog {
 public:
  static constexpr int kPollMs = 100;

  /// About `MachineError`, or about `wrongBoard`. `dialogResult` is the answer that stands until
  /// one is given.
  ErrorDialog(Program& program, Machine& machine, DialogAnswer dialogResult,
              const std::optional<WrongBoard>& wrongBoard = std::nullopt);

  struct Button {
    std::string Caption;
    bool Visible = false;
  };
  std::string Error_label;
  std::string Error_code;
  Button Continue_button;
  Button Cancel_button;
  Button Cancel2;
  morvane::machine::ButtonMode ButtonMode = morvane::machine::ButtonMode::kSingle;
  DialogAnswer DialogResult;

  /// Starts the polling and the sound; `closed` is called once, when the dialog has its answer.
  void Open(std::function<void()> closed);
  void PressContinue() { Close(kGoOn); }
  void PressCancel() { Close(kStop); }
  void PressCancel2();
  [[nodiscard]] bool Closed() const { return closed_; }

 private:
  int NameFault();
  int NameWrongBoard(const WrongBoard& wrongBoard);
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
  /// Shows the dialog modally; returns when it has its answer.
  virtual void ShowError(ErrorDialog& dialog) = 0;
};

/// Asks about `MachineError` or the wrong board; `standing` is the answer until one is given.
[[nodiscard]] DialogAnswer AskAboutError(Program& program, Machine& machine, FaultView& view,
                                         DialogAnswer standing,
                                         const std::optional<WrongBoard>& wrongBoard = {});

}  // namespace morvane::machine
