#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "simulator/machine_memory.h"

namespace morvane::simulator {

/// The flash that holds the firmware, in two pieces: the code for the signal processor and the
/// bitstream for the programmable logic. Each begins with its length, header included, and its sum.
class Flash {
 public:
  using Block = std::array<std::uint8_t, wire::FlashBlockCommand::kSize>;
  static constexpr std::uint16_t kBlocksOfAPiece = wire::FlashBlockCommand::kFirstOfBitstream;
  static constexpr std::uint16_t kBlocks = 2 * kBlocksOfAPiece;
  static constexpr std::uint8_t kErased = 0xFF;

  Flash() : code_(kPieceSize, kErased), bitstream_(kPieceSize, kErased) {}

  void Erase();
  /// Block 0..`kBlocks` - 1; any other is not there, and false.
  bool Write(std::uint16_t block, const Block& content);
  /// What it boots: a firmware, when length and sum of both pieces hold, or none.
  [[nodiscard]] LoadedFirmware Boot() const;

 private:
  static constexpr std::size_t kPieceSize = std::size_t{kBlocksOfAPiece} * Block{}.size();

  std::vector<std::uint8_t> code_;
  std::vector<std::uint8_t> bitstream_;
};

}  // namespace morvane::simulator
