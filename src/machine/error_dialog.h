#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "machine/machine.h"

namespace morvane::machine {

/// The operator's answer to a fault.
enum DialogAnswer : std::uint8_t {
  kStop = 0,
  kGoOn = 1,        ///< continue the board, or check the inserted board again
  kDealAnyway = 2,  ///< deal to the current board, whatever is in the slot
};

/// Which buttons a fault offers.
enum class ButtonMode : std::uint8_t { kSingle = 0, kGoOnOrStop = 1, kBoardError = 2 };

/// The text of a machine error code and its buttons; an unknown code is "Undefine Error".
struct ErrorText {
  std::string_view Text;
  ButtonMode Mode = ButtonMode::kSingle;
};
[[nodiscard]] ErrorText TextOfError(int code);

/// The modal dialog `Error_disp`: names the fault, plays the sound, and polls the machine so that
/// the pedal can answer too. The same for every run.
class ErrorDialog {
 public:
  static constexpr int kWrongBoard = 64;  ///< a `boardErrorKind`
  static constexpr int kPollMs = 100;

  /// `dialogResult` is the answer that stands until one is given. `boardErrorKind` is 0 or 64.
  ErrorDialog(Program& program, Machine& machine, int boardErrorKind, DialogAnswer dialogResult);

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
  void ChooseText(int boardErrorKind);
  void Tick();
  void Close(DialogAnswer answer);

  Program& program_;
  Machine& machine_;
  std::unique_ptr<Timer> Error_Timer1_;
  std::function<void()> onClosed_;
  bool closed_ = false;
};

}  // namespace morvane::machine
