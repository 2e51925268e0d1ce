#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "machine/gates.h"
#include "machine/pocket_state.h"
#include "machine/run_history.h"
#include "machine/run_kind.h"
#include "machine/run_parts.h"

namespace morvane::machine {

/// A run window without its looks, as far as it is the same whatever the machine does: opening, the
/// first contact, the polling between two runs of cards, the lost link, the break and leaving.
/// Opened once; the link must be open. Each public procedure is a control's event. A run of cards
/// is one long procedure that lets events through after every reply, so any of them may come in the
/// middle of it.
class MachineRun {
 public:
  static constexpr int kFirstContactMs = 2000;
  static constexpr int kPollMs = 100;

  virtual ~MachineRun() = default;
  MachineRun(const MachineRun&) = delete;
  MachineRun& operator=(const MachineRun&) = delete;

  void Open(RunView& view);
  /// The close box or `cmdExit`. In the middle of a run it asks the machine to break, and the
  /// window goes when the run has returned.
  void Exit();
  [[nodiscard]] bool Closed() const { return closed_; }

  void cmdBreak();  ///< and `cmdSortBreak`
  void Command1();  ///< asks for the test text, at the highest service level only

  /// One of the options, by its setter; not while cards run.
  template <typename Value>
  void Change(void (RunOptions::*set)(Value), Value value) {
    if (Busy()) return;
    (parts_.Options.*set)(value);
    ShowAll();
  }

  // What the window shows.
  [[nodiscard]] RunKind Kind() const { return kind_; }
  [[nodiscard]] const RunWords& Words() const { return WordsOf(kind_); }
  [[nodiscard]] const RunWindowState& Window() const { return parts_.Window; }
  [[nodiscard]] const RunOptions& Options() const { return parts_.Options; }
  [[nodiscard]] const std::string& TestText() const { return memory_.TestText; }
  [[nodiscard]] const CardRun& Cards() const { return parts_.Run; }
  [[nodiscard]] const Machine& TheMachine() const { return parts_.TheMachine; }
  /// The cards that a pocket takes: its count is on target then.
  [[nodiscard]] int CountTarget() const { return kind_ == RunKind::kSort ? kCards : kFullHand; }
  [[nodiscard]] bool Running() const { return running_; }
  [[nodiscard]] CardFlow Flow() const;
  [[nodiscard]] const RunHistory& History() const { return history_; }
  /// How many boards and copies are still to be done, with the current one.
  [[nodiscard]] virtual int Left() const { return 0; }
  /// What the history calls the run of cards: "Board 7".
  [[nodiscard]] virtual std::string Name() const = 0;
  /// How the last run of cards ended; `kNone` before the first and while one is under way.
  enum class Outcome { kNone, kDone, kStopped, kLinkLost };
  [[nodiscard]] Outcome LastOutcome() const { return outcome_; }

 protected:
  /// `gate`: what the kind of run needs of the machine; null: nothing.
  MachineRun(Program& program, Machine& machine, RunMemory& memory, RunKind kind,
             const VersionGate* gate);

  /// What the window shows besides.
  virtual void OpenParts() {}
  /// The controls, now that the machine has answered.
  virtual void EnableAtContact() = 0;
  /// The controls, now that a run of cards is over.
  virtual void EnableAfterRun() = 0;
  /// The pedal has been pressed or a board inserted.
  virtual void StartFromMachine() = 0;

  /// Runs cards through the machine, to the end of the log line.
  virtual RunEnd RunOnce() = 0;
  /// What the log has before the line of a run.
  [[nodiscard]] virtual std::string LogHead() const = 0;
  /// What follows from how the run ended.
  virtual void Finish(RunEnd /*end*/) {}

  /// One run of cards, from its first frame until somebody may start the next.
  void RunCards();
  /// While cards run nothing can be changed; what the operator has changed is taken back.
  bool Busy();
  void ShowAll();

  [[nodiscard]] RunControls& Controls() { return parts_.Window.Controls; }
  [[nodiscard]] std::uint8_t DealRotation() const { return DealRotation_; }

  RunParts parts_;
  RunMemory& memory_;

 private:
  void FirstContact();
  void ShowContact();
  [[nodiscard]] bool GatePasses();
  void StartPolling();
  void Timer1Tick();
  void TellOfDownload();
  void RunToItsEnd();
  void Abandon();
  void Note(RunEnd end);
  void WindUp();
  void EndRun();
  bool CheckCommLost();
  void LoseLink();
  void RequestBreak();
  void Unload();

  const RunKind kind_;
  const VersionGate* const gate_;
  std::unique_ptr<Timer> Timer1_;
  std::unique_ptr<Timer> Timer3d_;
  RunHistory history_;
  std::uint8_t DealRotation_ = 0;
  Outcome outcome_ = Outcome::kNone;
  bool CommLost_ = false;
  bool running_ = false;
  bool closed_ = false;
};

}  // namespace morvane::machine
