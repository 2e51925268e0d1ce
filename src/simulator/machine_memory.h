#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "simulator/stored_parameters.h"
#include "wire/flash_commands.h"
#include "wire/replies.h"

namespace morvane::simulator {

/// What it counts over its whole life.
struct Counters {
  std::uint32_t BoardsDealt = 0;
  /// [1..240]: how often a run has stopped with this code; the errors among the counters.
  std::array<std::uint32_t, wire::StatusReply::kLastError + 1> Stops{};
  bool operator==(const Counters&) const = default;
};

/// What the last download has left: a firmware that runs, with its version, or none.
struct LoadedFirmware {
  bool Runs = false;
  std::uint8_t Major = 0;
  std::uint8_t Minor = 0;
  bool operator==(const LoadedFirmware&) const = default;
};

/// What a machine keeps without power. Where a program has not written anything yet, it is as the
/// options say.
struct MachineMemory {
  StoredParameters Parameters;
  Counters Counted;
  std::optional<wire::ManufacturingRecord> Record;
  std::optional<LoadedFirmware> Firmware;
  bool operator==(const MachineMemory&) const = default;
};

}  // namespace morvane::simulator
