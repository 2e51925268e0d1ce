#pragma once

#include <array>
#include <string>

#include "machine/machine_run.h"
#include "poker/pile_plan.h"
#include "poker/poker_order.h"
#include "poker/poker_stage.h"
#include "poker/poker_view.h"

namespace morvane::poker {

/// The window `Poker` without its looks: an order of prepared deals, and the machine that stacks
/// them, each in four runs, or reads stacked packs back. What is said of `MachineRun` holds for it.
class Poker final : public machine::MachineRun {
 public:
  Poker(Program& program, machine::Machine& machine, machine::RunMemory& memory);

  /// A button, if it is on.
  void Press(PokerButton button);
  [[nodiscard]] bool IsOn(PokerButton button) const;
  /// One of the texts of the order, as it is typed.
  void Write(std::string PokerOrder::*text, std::string value);

  // What the controls of `Generate` hold, written by the window as it is typed.
  std::string Number_deals = "10";
  bool Empty_set = false;  ///< otherwise `Random`

  // What the window shows.
  [[nodiscard]] const PokerOrder& Order() const { return order_; }
  [[nodiscard]] const std::string& Label1() const { return label1_; }
  [[nodiscard]] const std::string& Label3() const { return label3_; }
  [[nodiscard]] PokerStage Stage() const;
  /// The boxes of the order can be typed in: not while cards run.
  [[nodiscard]] bool OrderOpen() const { return !Running(); }
};

}  // namespace morvane::poker
