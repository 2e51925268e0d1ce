#include "generate/number_dealer.h"

#include <algorithm>

#include "generate/deal_number.h"

namespace morvane::generate {
namespace {

constexpr std::size_t kMessageWords = 11;
constexpr std::uint32_t kPaddingBit = 0x80;

/// One padded RIPEMD-160 block of the message counter, `Seedr`, `Seedo`.
std::array<std::uint32_t, 16> MessageBlock(const NumberDealer& dealer) {
  std::array<std::uint32_t, 16> block{};
  block[0] = static_cast<std::uint32_t>(dealer.BlockCounter);
  for (std::size_t i = 0; i < 5; ++i) {
    block[1 + i] = LittleEndianWord(std::span<const std::uint8_t, 4>(&dealer.Seedr[1 + 4 * i], 4));
    block[6 + i] = dealer.Seedo[i];
  }
  block[kMessageWords] = kPaddingBit;
  block[14] = kMessageWords * 32;
  return block;
}

std::uint32_t Reversed(std::uint32_t word) {
  return word << 24U | (word & 0xFF00U) << 8U | (word >> 8U & 0xFF00U) | word >> 24U;
}

/// The digest's first twelve bytes, which begin with the low byte of each word.
DealNumber NumberOfDigest(const Digest& digest) {
  return {{Reversed(digest[0]), Reversed(digest[1]), Reversed(digest[2])}};
}

std::array<std::uint8_t, 4> CounterBytes(std::int32_t counter) {
  const auto value = static_cast<std::uint32_t>(counter);
  return {static_cast<std::uint8_t>(value >> 24U), static_cast<std::uint8_t>(value >> 16U),
          static_cast<std::uint8_t>(value >> 8U), static_cast<std::uint8_t>(value)};
}

}  // namespace

void NumberDealer::NextNumberDeal(Board& board) {
  DealNumber number;
  do {
    ++BlockCounter;
    number = NumberOfDigest(DigestOfBlock());
  } while (number >= MaxDealNumber);
  board = Board{};
  board.DealNumber = number.Bytes();
  board.DealCounter = CounterBytes(BlockCounter);
  DecodeDeal(number, board);
}

const Digest& NumberDealer::DigestOfBlock() {
  const std::array<std::uint32_t, 16> block = MessageBlock(*this);
  const std::uint32_t place = block[0] - rowStart_[0];
  const bool inRow =
      place < kBlockRow && std::equal(block.begin() + 1, block.end(), rowStart_.begin() + 1);
  if (inRow) return row_[place];
  rowStart_ = block;
  row_ = DigestRow(block);
  return row_[0];
}

}  // namespace morvane::generate
