#include "simulator/flash.h"

#include <algorithm>

namespace morvane::simulator {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t kLengthOfCode = 0;  // each stands in the header of its own piece
constexpr std::size_t kLengthOfBitstream = 2;
constexpr std::size_t kSum = 4;
constexpr std::size_t kBehindSum = 8;
constexpr std::size_t kHeader = 16;
constexpr std::size_t kMajor = 0x20;  // in the code
constexpr std::size_t kMinor = 0x21;

std::uint32_t Word(std::uint8_t high, std::uint8_t low) { return std::uint32_t{high} << 8U | low; }

/// The sum was taken before it was written. An odd piece ends with half a word.
std::uint32_t SumOf(Bytes piece) {
  const auto byte = [&](std::size_t at) {
    const bool isSum = at >= kSum && at < kBehindSum;
    return isSum || at >= piece.size() ? std::uint8_t{0} : piece[at];
  };
  std::uint32_t sum = 0;
  for (std::size_t at = 0; at < piece.size(); at += 2) sum += Word(byte(at), byte(at + 1));
  return sum;
}

/// Whether the piece is all there, with its length at `lengthAt`.
bool IsWhole(Bytes piece, std::size_t lengthAt) {
  const std::size_t length = Word(piece[lengthAt], piece[lengthAt + 1]);
  if (length < kHeader) return false;
  const std::uint32_t sum =
      Word(piece[kSum], piece[kSum + 1]) << 16U | Word(piece[kSum + 2], piece[kSum + 3]);
  return SumOf(piece.first(length)) == sum;
}

}  // namespace

void Flash::Erase() {
  std::fill(code_.begin(), code_.end(), kErased);
  std::fill(bitstream_.begin(), bitstream_.end(), kErased);
}

bool Flash::Write(std::uint16_t block, const Block& content) {
  if (block >= kBlocks) return false;
  std::vector<std::uint8_t>& piece = block < kBlocksOfAPiece ? code_ : bitstream_;
  const std::size_t at = block % kBlocksOfAPiece * content.size();
  std::copy(content.begin(), content.end(), std::span(piece).subspan(at).begin());
  return true;
}

LoadedFirmware Flash::Boot() const {
  if (!IsWhole(code_, kLengthOfCode) || !IsWhole(bitstream_, kLengthOfBitstream)) return {};
  return {true, code_[kMajor], code_[kMinor]};
}

}  // namespace morvane::simulator
