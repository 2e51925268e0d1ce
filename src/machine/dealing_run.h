#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "machine/card_settings.h"
#include "machine/error_dialog.h"
#include "machine/gates.h"
#include "machine/machine.h"
#include "machine/run_view.h"

namespace morvane::machine {

/// What stays between two openings of the run window.
struct RunMemory {
  std::int16_t RunFirst = 0;
  std::int16_t RunLast = 0;
  std::int16_t NumberOfCopies = 0;
};

/// Which controls of the run window can be used now.
struct RunControls {
  bool cmdFirst = false;
  bool cmdPrev = false;
  bool cmdNext = false;
  bool cmdLast = false;
  bool cmdDeal = false;
  bool Deal_next = false;
  bool cmdBreak = false;
  bool cmdExit = false;
  bool PrevCopy = false;
  bool NextCopy = false;
  bool Options = false;  ///< card settings, behaviour and number boxes
};

/// A dealing run: the window `DealinProg` without its looks. Opened once; the link must be open.
/// Each public procedure is a control's event. `DealHand` is one long procedure that lets events
/// through after every reply, so any of them may come in the middle of it.
class DealingRun {
 public:
  static constexpr int kFirstContactMs = 2000;
  static constexpr int kPollMs = 100;
  static constexpr int kCardsAHand = 13;
  static constexpr int kMostCopies = 99;

  DealingRun(Program& program, Machine& machine, RunMemory& memory);

  void Open(RunView& view);
  /// The close box or `cmdExit`. In the middle of a board it asks the machine to break, and the
  /// window goes when the run has returned.
  void Exit();
  [[nodiscard]] bool Closed() const { return closed_; }

  // The buttons.
  void cmdDeal();
  void Deal_next();
  void cmdBreak();
  void Command1();  ///< asks for the test text, at the highest service level only
  void cmdFirst();
  void cmdPrev();
  void cmdNext();
  void cmdLast();
  void PrevCopy();
  void NextCopy();

  // The number boxes, after their filter. The range is checked when the box is left.
  void SetNumberCopies(const std::string& text);
  void LeaveSubfrom(const std::string& text);
  void LeaveSubto(const std::string& text);

  // The options; each is stored at once.
  void SetNational(int national);
  void SetCardType(int cardType);
  void SetThreshold(int threshold);
  void SetCardIndex(int cardIndex);
  void SetCheck_board(bool on);
  void SetStart_from_box(bool on);
  void Disp_boards();

  // What the window shows.
  RunControls Controls;
  bool SettingsShown = false;  ///< what depends on the machine hides until it has answered
  bool CopiesShown = false;
  bool SubRangeShown = false;
  bool Command1Shown = false;
  CardSettings Cards;
  bool Check_board = false;
  bool AutoStartEnabled = false;  ///< `Start_from_box` is ticked
  bool ShowBoards = false;
  std::int16_t CurrentCopy = 1;
  std::string txtDealTime;
  /// How long the last board took, or has taken so far.
  [[nodiscard]] double Seconds() const { return seconds_; }
  bool CountsShown = false;  ///< pocket counts stand empty until the machine has reported some
  [[nodiscard]] const RunMemory& Range() const { return memory_; }
  [[nodiscard]] const Machine& TheMachine() const { return machine_; }
  [[nodiscard]] const Board& CurrentBoard() const { return program_.Set.Current(); }
  /// "Idle", "Busy" ...
  [[nodiscard]] std::string txtStatus() const;
  /// The machine has answered; before, clicks on options that it must be asked about do nothing.
  [[nodiscard]] bool Initialising() const { return runInitialising_; }
  [[nodiscard]] bool Running() const { return running_; }
  /// The window is to go as soon as the board under way lets it.
  [[nodiscard]] bool Leaving() const { return departure_ != Departure::kNo; }
  /// How the last board ended; nothing has been dealt yet: `kNone`.
  enum class Outcome { kNone, kDealt, kStopped, kLinkLost };
  [[nodiscard]] Outcome LastOutcome() const { return outcome_; }

 private:
  // Opening and first contact: dealing_run_open.cpp.
  void TakeRange();
  void FirstContact();
  bool AskMachine();
  void ApplySilentGates();
  void Unload();

  // Between boards: dealing_run.cpp.
  void Timer1Tick();
  void StartFromMachine();
  void MoveTo(int board);
  void MoveToCopy(int copy);
  void NextBoardStep();
  void UpdateWalk();
  void UpdateCopies();
  void SetRange(int first, int last);
  bool CheckCommLost();
  void RequestBreak();
  bool Busy();
  void Refuse(const std::string& text);
  void RefuseIndex(const std::string& text);
  void Store(const SettingKey& key, int value);

  // One board: deal_hand.cpp. False: the run has to stop where it is.
  void DealHand();
  bool DealBoard();
  bool StartGatesPass();
  bool VerifyInsertedBoard();
  bool ReadBoardNumber();
  void BeginBoard();
  [[nodiscard]] StartCommand BuildStart(bool goOn) const;
  bool SendStart(bool goOn);
  bool FollowMachine();
  bool FetchCardLog();
  void AnswerError();
  DialogAnswer OpenErrorDialog(int boardErrorKind, DialogAnswer standing);
  void FinishBoard();
  void WindUp();
  void EndRun();
  void WriteRunLine();
  void PumpRun();
  void DisplayState();
  void StartPolling();

  /// How the window is being left in the middle of a board: after the machine has stopped, or, on a
  /// second request or when the program quits, with the break still on its way.
  enum class Departure { kNo, kAfterBreak, kAtOnce };

  Program& program_;
  Machine& machine_;
  RunMemory& memory_;
  RunView* view_ = nullptr;
  std::unique_ptr<Timer> Timer1_;
  std::unique_ptr<Timer> Timer3d_;
  std::string RunLogLine_;
  std::chrono::microseconds runStart_{0};
  double seconds_ = 0;
  std::uint8_t DealRotation_ = 0;
  DialogAnswer DialogResult_ = kStop;
  Outcome outcome_ = Outcome::kNone;
  bool runInitialising_ = true;
  bool CommLost_ = false;
  bool running_ = false;
  bool breakRequested_ = false;
  Departure departure_ = Departure::kNo;
  bool closed_ = false;
};

}  // namespace morvane::machine
