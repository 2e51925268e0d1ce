#include "maintenance/firmware_file.h"

#include <algorithm>
#include <utility>

namespace morvane::maintenance {
namespace {

using wire::FlashBlockCommand;

constexpr std::size_t kBlock = FlashBlockCommand::kSize;
constexpr std::size_t kSumAt = 4;

/// One of the lengths in the head of a file.
std::size_t LengthAt(std::string_view bytes, std::size_t at) {
  constexpr std::uint32_t kCounts = 0x0FFFFFFF;
  std::uint32_t length = 0;
  for (std::size_t i = 4; i-- > 0;) {
    length = length << 8U | static_cast<std::uint8_t>(bytes[at + i]);
  }
  return length & kCounts;
}

}  // namespace

FlashImage::FlashImage(FirmwarePiece piece, std::string_view content)
    : piece_(piece), bytes_(kHeader + content.size()) {
  std::copy(content.begin(), content.end(), bytes_.begin() + kHeader);
  PutNumber(piece == FirmwarePiece::kCode ? 0 : 2, 2, Length());
  PutNumber(kSumAt, 4, Sum());
}

void FlashImage::PutNumber(std::size_t at, std::size_t bytes, std::uint32_t value) {
  for (std::size_t i = bytes; i > 0; --i, value >>= 8U) {
    bytes_[at + i - 1] = static_cast<std::uint8_t>(value);
  }
}

/// Of its 16-bit words, high byte first, while the place of the sum is still 0.
std::uint32_t FlashImage::Sum() const {
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i < bytes_.size(); i += 2) {
    sum += static_cast<std::uint32_t>(At(i) << 8U | At(i + 1));
  }
  return sum;
}

std::uint8_t FlashImage::At(std::size_t index) const {
  return index < bytes_.size() ? bytes_[index] : std::uint8_t{0};
}

int FlashImage::LastBlock() const { return static_cast<int>(bytes_.size() / kBlock); }

FlashImage::Block FlashImage::BlockAt(int block) const {
  Block content{};
  for (std::size_t i = 0; i < kBlock; ++i) {
    content[i] = At(static_cast<std::size_t>(block) * kBlock + i);
  }
  return content;
}

std::uint16_t FlashImage::NumberOnWire(int block) const {
  const int first = piece_ == FirmwarePiece::kCode ? 0 : FlashBlockCommand::kFirstOfBitstream;
  return static_cast<std::uint16_t>(first + block);
}

std::optional<FirmwareFile> FirmwareIn(std::string_view bytes, std::string path) {
  if (bytes.size() < FirmwareFile::kFileHeader || bytes.size() > FirmwareFile::kLargest) {
    return std::nullopt;
  }
  const std::size_t dsp = LengthAt(bytes, 0);
  const std::size_t bit = LengthAt(bytes, 4);
  if (dsp + bit + FirmwareFile::kFileHeader != bytes.size()) return std::nullopt;
  if (std::max(dsp, bit) > FlashImage::kLongest) return std::nullopt;
  const std::string_view content = bytes.substr(FirmwareFile::kFileHeader);
  return FirmwareFile{std::move(path), bytes.size(),
                      FlashImage(FirmwarePiece::kCode, content.substr(0, dsp)),
                      FlashImage(FirmwarePiece::kBitstream, content.substr(dsp))};
}

}  // namespace morvane::maintenance
