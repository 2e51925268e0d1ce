#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "model/board.h"
#include "platform/clock.h"
#include "platform/usb_xpress.h"
#include "simulator/byte_queue.h"
#include "simulator/fault_plan.h"
#include "simulator/firmware.h"
#include "simulator/line_noise.h"
#include "simulator/options.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// A machine on a bridge that is made of neither: wire bytes in, wire bytes out. It takes its time
/// from `clock` as a real one would (the wire's and its own; none at speed 0), and a read that
/// lacks bytes always costs the whole read time-out. An exchange allocates nothing.
class SimulatedMachine final : public UsbXpress {
 public:
  SimulatedMachine(const Options& options, Clock& clock);

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
  void LayBoards(std::vector<Board> boards) { firmware_.Run().Boards().Lay(std::move(boards)); }
  /// Off, the machine hears and says nothing; on again, it has forgotten its run.
  void PowerOff();
  void PowerOn() { powered_ = true; }
  /// What goes wrong on the wire.
  [[nodiscard]] FaultPlan& Faults() { return faults_; }

  // What a person can see.
  using CardPiles = std::array<std::vector<int>, 5>;
  /// [pocket 1..4]: the program cards 1..52 in it, lowest first.
  [[nodiscard]] CardPiles CardsByPocket() const;
  /// [hand 1..4]: the program cards in the hand's pocket, lowest first.
  [[nodiscard]] CardPiles CardsByHand() const;
  /// The cards as they lie in the pockets, analysed; its number is 0.
  [[nodiscard]] Board DealtBoard() const;
  /// Boards dealt to the end since the machine was made.
  [[nodiscard]] int BoardsDealt() const { return static_cast<int>(firmware_.Run().BoardsDealt()); }
  /// Boards that lie ready to be read.
  [[nodiscard]] std::size_t BoardsToRead() const { return firmware_.Run().Boards().Left(); }
  [[nodiscard]] bool Busy() const { return firmware_.Run().Busy(); }
  [[nodiscard]] bool LatchOn() const { return latch_; }
  [[nodiscard]] bool PowerIsOn() const { return powered_; }
  /// "off", "idle", "dealing card 12 of 52", "stopped at card 12 of 52 with code 57".
  [[nodiscard]] std::string StateText() const;
  /// Goes up with every change of what can be seen.
  [[nodiscard]] std::uint64_t Changed() const { return changes_ + firmware_.Changes(); }

  Status GetDllVersion(std::uint32_t& high, std::uint32_t& low) override;
  Status GetDriverVersion(std::uint32_t& high, std::uint32_t& low) override;
  Status GetNumDevices(std::uint32_t& count) override;
  Status GetProductString(std::uint32_t index, ProductString& text, std::uint32_t option) override;
  Status Open(std::uint32_t index, Handle& handle) override;
  Status SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) override;
  Status SetBaudRate(Handle handle, std::uint32_t rate) override;
  Status SetLineControl(Handle handle, std::uint16_t control) override;
  Status FlushBuffers(Handle handle, std::uint8_t transmit, std::uint8_t receive) override;
  Status Write(Handle handle, std::span<const std::uint8_t> bytes, std::uint32_t& written) override;
  Status Read(Handle handle, std::span<std::uint8_t> bytes, std::uint32_t& read) override;
  Status WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) override;
  Status Close(Handle handle) override;

 private:
  using Time = std::chrono::microseconds;

  [[nodiscard]] bool IsOpen(Handle handle) const;
  void Hear(std::uint8_t byte);
  void TakeFrame(std::size_t size);
  void Send(wire::Frame& reply, std::size_t size, const LinkFault& fault);
  void DeliverLate();

  Options options_;
  Clock& clock_;
  Firmware firmware_;
  FaultPlan faults_;
  LineNoise noise_;
  bool open_ = false;
  bool latch_ = false;
  bool powered_ = true;
  Time readTimeout_{0};
  std::uint64_t changes_ = 0;

  // The machine's end of the line.
  wire::Frame heard_{};
  std::size_t heardCount_ = 0;
  bool deaf_ = false;  ///< after a bad frame, until the line has been silent
  Time heardAt_{0};
  Time onItsWay_{0};  ///< what the next read has to wait before the reply begins

  // The program's end.
  ByteQueue received_;
  wire::Frame late_{};
  std::size_t lateCount_ = 0;
  bool lateMissed_ = false;  ///< a read has timed out on it
};

}  // namespace morvane::simulator
