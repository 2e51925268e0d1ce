#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string>

#include "simulator/camera_organ.h"
#include "simulator/flash_organ.h"
#include "simulator/identity_organ.h"
#include "simulator/machine_store.h"
#include "simulator/parameter_organ.h"
#include "simulator/run_organ.h"
#include "simulator/sensor_organ.h"
#include "simulator/slot_organ.h"

namespace morvane::simulator {

/// The machine behind its wire: plain commands in, plain replies out. What happens meanwhile is
/// told in the answer to the next status poll; only what it took a fed card for comes unasked. Each
/// command belongs to one organ; here stands only what concerns several.
class Firmware {
 public:
  using Time = std::chrono::microseconds;

  explicit Firmware(const Options& options);
  Firmware(const Firmware&) = delete;
  Firmware& operator=(const Firmware&) = delete;

  /// Obeys the plain `command` at time `now`. The size of the plain `reply`, 0 when there is none:
  /// an unknown command is not answered.
  std::size_t Answer(const wire::Frame& command, Time now, wire::Frame& reply);
  /// The same of a plain frame that it says behind an answer though nobody has asked.
  std::size_t Unasked(Time now, wire::Frame& frame);

  void PressPedal();
  /// A raw label byte, whether it is one or not.
  void InsertBoard(std::uint8_t label);
  /// Out of a run in progress, this stops it.
  void RemoveBoard();
  /// What a power cycle leaves: boards, cards and the memory stay, everything else is forgotten. A
  /// firmware that was loaded runs from here on.
  void Restart();
  /// Nobody drives the machine any more: behind a download it starts again.
  void LatchDropped();

  [[nodiscard]] CardWay& Run() { return run_.Run(); }
  [[nodiscard]] const CardWay& Run() const { return run_.Run(); }
  [[nodiscard]] const BoardSlot& Slot() const { return slot_.Slot(); }
  [[nodiscard]] Sensors& Seen() { return sensors_.Seen(); }
  [[nodiscard]] const Sensors& Seen() const { return sensors_.Seen(); }
  [[nodiscard]] Camera& Eye() { return camera_.Eye(); }
  [[nodiscard]] const Camera& Eye() const { return camera_.Eye(); }
  [[nodiscard]] const MachineMemory& Memory() const { return memory_; }
  /// As `MachineStore::Trouble`.
  [[nodiscard]] const std::string& Trouble() const { return store_.Trouble(); }
  [[nodiscard]] std::string StateText() const;
  [[nodiscard]] std::uint64_t Changes() const {
    return changes_ + Run().Changes() + Seen().Changes() + Eye().Changes();
  }

 private:
  bool Dispatch(const wire::Frame& command, Time now, wire::Frame& reply);
  bool AnswerStatus(const wire::Frame& command, wire::Frame& reply);
  bool AnswerFlash(const wire::Frame& command, wire::Frame& reply);
  void LookForBoard() { slot_.Look(parameters_.BoardSensitivity()); }
  void TakeFlags(std::uint8_t flags);
  bool AnswerTest(wire::Frame& reply) const;
  bool AnswerOutputs(const wire::Frame& command, Time now, wire::Frame& reply);
  bool AnswerSensor(const wire::Frame& command, Time now, wire::Frame& reply);
  bool AnswerCamera(const wire::Frame& command, wire::Frame& reply);
  [[nodiscard]] bool Write(const wire::Frame& command);
  bool WriteParameters(const wire::Frame& command);
  bool WriteTest(const wire::Frame& command);

  Options kind_;  ///< as it is now; the organs look at it
  MachineStore store_;
  MachineMemory memory_;
  RunOrgan run_;
  SlotOrgan slot_;
  IdentityOrgan identity_;
  SensorOrgan sensors_;
  ParameterOrgan parameters_;
  CameraOrgan camera_;
  FlashOrgan flash_;
  std::array<std::uint8_t, 2> testNumbers_{};
  Report pedal_;
  std::uint64_t changes_ = 0;
};

}  // namespace morvane::simulator
