#pragma once

#include <array>
#include <cstdint>

#include "generate/ripemd160.h"
#include "model/board.h"

namespace morvane::generate {

/// The number generator: draws evenly distributed deal numbers by hashing its seeds together with
/// a running counter.
struct NumberDealer {
  std::array<std::uint8_t, 21> Seedr{};  ///< [1..20] from the system; index 0 is never used
  Digest Seedo{};                        ///< digest of the random pool
  std::int32_t BlockCounter = 0;         ///< hash blocks since the seeds were taken

  /// One candidate: cards, `DealNumber` and `DealCounter`; everything else is empty.
  void NextNumberDeal(Board& board);

 private:
  const Digest& DigestOfBlock();

  std::array<std::uint32_t, 16> rowStart_{};  ///< the block of `row_[0]`; all zero is no block
  std::array<Digest, kBlockRow> row_{};
};

}  // namespace morvane::generate
