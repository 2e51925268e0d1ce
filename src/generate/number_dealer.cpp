#include "generate/number_dealer.h"

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

DealNumber NumberOfDigest(const Digest& digest) {
  std::array<std::uint8_t, 12> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = DigestByte(digest, i);
  return DealNumber::OfBytes(bytes);
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
    Digest digest = kRipemdInitial;
    Compress(digest, MessageBlock(*this));
    number = NumberOfDigest(digest);
  } while (number >= MaxDealNumber);
  board = Board{};
  board.DealNumber = number.Bytes();
  board.DealCounter = CounterBytes(BlockCounter);
  DecodeDeal(number, board);
}

}  // namespace morvane::generate
