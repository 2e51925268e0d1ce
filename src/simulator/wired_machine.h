#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "model/board.h"
#include "simulator/fault_plan.h"
#include "simulator/firmware.h"
#include "simulator/frame_log.h"
#include "simulator/line_noise.h"
#include "simulator/options.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// The machine with its end of the line: wire bytes in, wire bytes out, whatever carries them. It
/// knows no clock, it is told the time with what it hears. An exchange allocates nothing, but for
/// one that changes what a file keeps.
class WiredMachine {
 public:
  using Time = std::chrono::microseconds;
  /// A pause of this length ends a frame that was never completed, and a machine's deafness.
  static constexpr Time kSilence{20'000};

  explicit WiredMachine(const Options& options);

  /// Ten bits a byte at 115200 baud.
  [[nodiscard]] static Time WireTime(std::size_t bytes);
  /// How long it thinks about a command; no time at speed 0.
  [[nodiscard]] Time ThinkingTime() const { return thinkingTime_; }

  // What a person can do to the machine.
  void PressPedal() { firmware_.PressPedal(); }
  /// Board 1..70 carries a label, any other none that can be read. A board that is in the slot
  /// already is taken out first, at leisure; `RemoveBoard` and this at once are a board pulled and
  /// pushed back.
  void InsertBoard(int number);
  /// Any label byte, also one that is no label.
  void InsertBoardWithLabel(std::uint8_t label) { firmware_.InsertBoard(label); }
  /// In the middle of a run, this stops it with code 58.
  void RemoveBoard() { firmware_.RemoveBoard(); }
  /// The next card does not fall: the machine stops with `code` 1..240; others are ignored.
  void CauseFault(int code);
  /// The packs to come are those of this seed.
  void ShuffleWith(std::uint64_t seed) { firmware_.Run().Cards().Seed(seed); }
  /// The next deal feeds these program cards 1..52, first one first. False, and nothing changes,
  /// unless each is there once.
  bool LoadPack(const std::array<int, kCards>& cards);
  /// The cards that every reading run to come finds, hand by hand.
  void LayBoard(const Board& board) { firmware_.Run().Boards().LayForGood(board); }
  /// The complete boards that the reading runs to come find, one after the other: one that is read
  /// to its end makes room for the next. Behind the last one the feeder is empty, which stops the
  /// run with code 55; then the boards are put back.
  void LayBoards(std::vector<Board> boards);
  /// These machine cards 1..55 lie in the feeder now, the first one is fed first: the next stacking
  /// run, or a stopped one that goes on, finds them. False, and nothing changes, while cards fall
  /// or unless they differ.
  bool LayInFeeder(std::span<const int> machineCards);
  /// The pile of North goes into the feeder as it lies, for the next stacking run. False, and
  /// nothing changes, while cards fall or when there is none.
  bool PutBackPack() { return firmware_.Run().PutBack(); }
  /// How the piles of a stacking run are carried to the feeder at the start of the next one; those
  /// after it are right again.
  void CarryNext(Carry way);
  /// Off, the machine hears and says nothing; on again, it has forgotten its run.
  void PowerOff();
  void PowerOn() { powered_ = true; }
  /// What a person sees and does at the open machine, and what the outputs do.
  [[nodiscard]] Sensors& Opened() { return firmware_.Seen(); }
  [[nodiscard]] const Sensors& Opened() const { return firmware_.Seen(); }
  /// Lays machine card 1..55 before the camera, or none with 0.
  void ShowCard(int machineCard) { firmware_.Eye().Show(machineCard); }
  /// The machine card before it; 0 is none.
  [[nodiscard]] int CardShown() const { return firmware_.Eye().Card(); }
  /// What it keeps without power.
  [[nodiscard]] const MachineMemory& Memory() const { return firmware_.Memory(); }
  [[nodiscard]] const StoredParameters& Parameters() const { return Memory().Parameters; }
  /// What is wrong with the file of `store=`, in a line for its owner; empty while nothing is.
  [[nodiscard]] const std::string& Trouble() const { return firmware_.Trouble(); }
  /// What goes wrong on the wire.
  [[nodiscard]] FaultPlan& Faults() { return faults_; }

  // What a person can see.
  using CardPiles = std::array<std::vector<int>, 5>;
  /// [pocket 1..4]: the machine cards 1..55 in it, lowest first.
  [[nodiscard]] CardPiles MachineCardsByPocket() const;
  /// [pocket 1..4]: the program cards 1..52 in it, lowest first; 0 is a joker.
  [[nodiscard]] CardPiles CardsByPocket() const;
  /// [hand 1..4]: the program cards in the hand's pocket, as above.
  [[nodiscard]] CardPiles CardsByHand() const;
  /// The cards as they lie in the pockets, analysed; its number is 0.
  [[nodiscard]] Board DealtBoard() const;
  /// Boards dealt to the end in the machine's whole life, or what a program has set them to.
  [[nodiscard]] int BoardsDealt() const { return static_cast<int>(Memory().Counted.BoardsDealt); }
  /// Boards that lie ready to be read.
  [[nodiscard]] std::size_t BoardsToRead() const { return firmware_.Run().Boards().Left(); }
  /// Those and the ones that have been read, until they are put back.
  [[nodiscard]] std::size_t BoardsLaid() const { return firmware_.Run().Boards().Count(); }
  [[nodiscard]] bool Busy() const { return firmware_.Run().Busy(); }
  /// The kind of the run that is carried out or has stopped, of the last one otherwise.
  [[nodiscard]] RunKind Run() const { return firmware_.Run().Kind(); }
  [[nodiscard]] bool LatchOn() const { return latch_; }
  [[nodiscard]] bool PowerIsOn() const { return powered_; }
  /// "off", "idle", "dealing card 12 of 52", "stopped at card 12 of 52 with code 57".
  [[nodiscard]] std::string StateText() const;
  /// Those that wait to be fed.
  [[nodiscard]] std::size_t CardsInFeeder() const { return firmware_.Run().Cards().Left(); }
  [[nodiscard]] bool PackCanBePutBack() const { return firmware_.Run().CanPutBack(); }
  /// How the piles are carried the next time.
  [[nodiscard]] Carry NextCarry() const { return firmware_.Run().PileCarrier().Next(); }
  /// The next `most` program cards that it feeds, the first one first; 0 is a joker.
  [[nodiscard]] std::vector<int> NextCards(std::size_t most) const;
  /// The exchanges as it sees them.
  [[nodiscard]] const FrameLog& Frames() const { return frames_; }
  /// Goes up with every change of what can be seen but the frames.
  [[nodiscard]] std::uint64_t Changed() const { return changes_ + firmware_.Changes(); }

  // The line.
  /// What the machine says; its bytes stay until it hears the next one.
  struct Saying {
    std::span<const std::uint8_t> Wire;
    std::span<const std::uint8_t> Unasked;  ///< a second frame behind it, or nothing
    /// What befalls it on its way; the faults of its bytes have been done.
    LinkFault::Kind How = LinkFault::Kind::None;
  };
  /// Hears a byte at `now`, which never goes back; what it says, should that byte have completed a
  /// command.
  std::optional<Saying> Hear(std::uint8_t byte, Time now);
  /// The line has gone: what was half heard is no command.
  void ForgetHalfHeard() { heardCount_ = 0; }
  /// The line by which the program shows that it drives the machine. When it drops behind a
  /// download, the machine starts what it was given.
  void TakeLatch(bool on);

 private:
  std::optional<Saying> TakeFrame(std::size_t size, Time now);
  Saying Say(std::size_t size, const LinkFault& fault);
  std::span<const std::uint8_t> SayUnasked(Time now);

  Firmware firmware_;
  FaultPlan faults_;
  FrameLog frames_;
  LineNoise noise_;
  Time thinkingTime_;
  bool latch_ = false;
  bool powered_ = true;
  std::uint64_t changes_ = 0;

  wire::Frame heard_{};
  std::size_t heardCount_ = 0;
  bool deaf_ = false;  ///< after a bad frame, until the line has been silent
  Time heardAt_{0};
  wire::Frame reply_{};
  wire::Frame unasked_{};
};

}  // namespace morvane::simulator
