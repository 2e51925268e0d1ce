#pragma once

#include <optional>
#include <string>

#include "machine/error_dialog.h"

namespace morvane::machine {

/// What stands in the boxes of the sub-range, entered or still being typed.
struct RangeTexts {
  std::string Subfrom;
  std::string Subto;
};

/// What a run needs of its window. Everything shown is read from the run; the calls only
/// say that it changed.
class RunView : public FaultView {
 public:
  /// The current board and which of its cards have been dealt (`DisplayHand`).
  virtual void ShowBoard() {}
  /// Which controls are there, which are enabled, and the texts of the number boxes.
  virtual void ShowControls() = 0;
  /// Brings the operator to the button that goes on with the work.
  virtual void FocusNext() {}
  /// Nothing: there are no such boxes.
  [[nodiscard]] virtual std::optional<RangeTexts> Range() const { return std::nullopt; }
  /// The run is over: the window goes.
  virtual void Close() = 0;
};

}  // namespace morvane::machine
