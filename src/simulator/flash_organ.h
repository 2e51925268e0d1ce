#pragma once

#include "simulator/flash.h"
#include "simulator/machine_memory.h"
#include "simulator/options.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// Programs the flash: a firmware, block by block, and the manufacturing record. What the machine
/// is (`kind`) follows what was programmed: the record at once, the firmware when it boots.
class FlashOrgan {
 public:
  /// `kind` and `memory` outlive it; what `memory` holds already is taken into `kind`.
  FlashOrgan(Options& kind, MachineMemory& memory);

  /// As `RunOrgan::Answer`.
  bool Answer(const wire::Frame& command, wire::Frame& reply);
  /// A download has begun, and the machine has not been started again since. It runs nothing then.
  [[nodiscard]] bool Loading() const { return loading_; }
  /// The machine starts. Without a download it is what it was, otherwise what the flash holds, or
  /// without firmware.
  void Boot();

 private:
  bool Start(const wire::Frame& command, wire::Frame& reply);
  bool TakeBlock(const wire::Frame& command, wire::Frame& reply);
  bool EraseRecord(const wire::Frame& command, wire::Frame& reply);
  bool WriteRecord(const wire::Frame& command, wire::Frame& reply);
  std::uint8_t Program(const wire::FlashBlockCommand& block);
  std::uint8_t Program(const wire::ManufacturingRecord& record);
  [[nodiscard]] std::uint8_t TakePlanned(int step);
  void Run(const LoadedFirmware& firmware);
  void Keep(const wire::ManufacturingRecord& record);

  Options& kind_;
  MachineMemory& memory_;
  Flash flash_;
  std::vector<FlashFault> plan_;
  std::uint8_t bootMajor_;
  std::uint8_t bootMinor_;
  bool loading_ = false;
};

}  // namespace morvane::simulator
