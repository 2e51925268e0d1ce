#pragma once

#include <functional>
#include <string>

#include "machine/machine_run.h"
#include "poker/pile_plan.h"
#include "poker/poker_dialog.h"
#include "poker/poker_order.h"
#include "poker/poker_stage.h"

namespace morvane::poker {

/// The window `Poker` without its looks: an order of prepared deals, and the machine that stacks
/// them, each in four runs, or reads stacked packs back. What is said of `MachineRun` holds for it.
class Poker final : public machine::MachineRun {
 public:
  Poker(Program& program, machine::Machine& machine, machine::RunMemory& memory)
      : MachineRun(program, machine, memory, machine::RunKind::kPoker, nullptr) {}

  /// A button, if it is on.
  void Press(PokerButton button);
  [[nodiscard]] bool IsOn(PokerButton button) const;
  /// The close box or Escape. While cards run it asks the machine to break, which cancels the run;
  /// pressed again, it leaves the window too. Otherwise the window goes, and its order with it.
  void CloseBox();
  /// One of the texts of the order, as it is typed.
  void Write(std::string PokerOrder::*text, std::string value);
  /// Another order in place of the present one.
  void Take(const PokerOrder& order);

  // What the controls of `Generate` hold, written by the window as it is typed.
  std::string Number_deals = "10";
  bool Empty_set = false;  ///< otherwise `Random`
  /// The pedal may begin a reading too, where there is no button to be pressed.
  bool ReadByPedal = false;

  // What the window shows.
  [[nodiscard]] const PokerOrder& Order() const { return order_; }
  [[nodiscard]] const std::string& Label1() const { return label1_; }
  [[nodiscard]] const std::string& Label3() const { return label3_; }
  [[nodiscard]] PokerStage Stage() const;
  [[nodiscard]] std::string Name() const override;
  /// The button that goes on with the work, which the pedal presses too; `Read` only by hand.
  [[nodiscard]] PokerButton NextButton() const;

 private:
  void EnableAtContact() override {}
  void EnableAfterRun() override {}
  void StartFromMachine() override;
  machine::RunEnd RunOnce() override;
  void Finish(machine::RunEnd end) override;
  [[nodiscard]] std::string LogHead() const override { return "Poker: " + Name(); }

  [[nodiscard]] bool RunIsOn(PokerButton button) const;
  [[nodiscard]] bool BetweenDeals() const { return done_ == 0 || done_ == kRuns; }
  [[nodiscard]] bool AtLastDeal() const { return order_.CurrentDeal >= order_.PokerDealCount; }

  void Apart(const std::function<void()>& work);
  void Generate();
  void Load();
  [[nodiscard]] bool MayDiscard(const char* question);
  void Start(const PokerOrder& order, const char* label);
  void Stand(int done, const char* label);
  void StandAfresh();
  void WalkTo(int deal);
  void Cancel();

  void StartRun();
  void StartReading();
  void Refuse(const std::string& text);
  void RunFromButton(const char* label);
  [[nodiscard]] int CardsOfRun() const;
  [[nodiscard]] std::string CardsNotSeen() const;
  [[nodiscard]] machine::DialogAnswer AnswerToFault();
  void FinishRun();
  void FinishReading();
  void FinishOrder(const char* text);
  void TellIncomplete();

  PokerOrder order_;
  PilePlan plan_;
  std::string label1_;
  std::string label3_;
  int copies_ = 1;          ///< of the printed list
  int done_ = 0;            ///< runs of the current deal that are finished
  bool reading_ = false;    ///< what runs, or ran last, was a reading
  bool readNext_ = false;   ///< a deal has been read, and another comes behind it
  bool printable_ = false;  ///< the order has something to be saved and printed
  bool broken_ = false;     ///< somebody has asked the machine to break this run
  bool apart_ = false;      ///< a box or a printer has the floor
};

}  // namespace morvane::poker
