#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "wire/flash_commands.h"

namespace morvane::maintenance {

/// What a firmware consists of.
enum class FirmwarePiece : std::uint8_t { kCode, kBitstream };

/// One piece as it lies in the machine's flash: a header of 16 bytes and the content, in blocks of
/// 128 bytes. With n the length of both, the code's header holds n in bytes 0 and 1, the
/// bitstream's in bytes 2 and 3; both hold the sum in bytes 4 to 7; high byte first.
class FlashImage {
 public:
  static constexpr std::size_t kHeader = 16;
  /// So much content at most: its length with the header has to fit 16 bits.
  static constexpr std::size_t kLongest = 65535 - kHeader;
  using Block = std::array<std::uint8_t, wire::FlashBlockCommand::kSize>;

  /// `content` is at most `kLongest` bytes.
  FlashImage(FirmwarePiece piece, std::string_view content);

  /// n.
  [[nodiscard]] std::uint16_t Length() const { return static_cast<std::uint16_t>(bytes_.size()); }
  /// The last of the blocks that are sent, counted from 0: the last one of which 128 bytes each
  /// would not reach beyond n. It is all zero where n is a whole number of blocks.
  [[nodiscard]] int LastBlock() const;
  /// Zeros behind the end.
  [[nodiscard]] Block BlockAt(int block) const;
  /// Its number on the wire, where the bitstream's begin at 0x200.
  [[nodiscard]] std::uint16_t NumberOnWire(int block) const;
  /// Zero behind the end.
  [[nodiscard]] std::uint8_t At(std::size_t index) const;

 private:
  void PutNumber(std::size_t at, std::size_t bytes, std::uint32_t value);
  [[nodiscard]] std::uint32_t Sum() const;

  FirmwarePiece piece_;
  std::vector<std::uint8_t> bytes_;
};

/// A version as the machine reports it: shown with both bytes in hexadecimal, "2.80".
struct FirmwareVersion {
  std::uint8_t Major = 0;
  std::uint8_t Minor = 0;
  auto operator<=>(const FirmwareVersion&) const = default;
};

/// A firmware, as a file `.adc` holds it: little-endian numbers of 4 bytes, the length of the code,
/// of the bitstream (of both only the low 28 bits count) and two that mean nothing; then the code
/// and the bitstream.
struct FirmwareFile {
  static constexpr std::size_t kSmallest = 9;
  static constexpr std::size_t kLargest = 131050;
  static constexpr std::size_t kFileHeader = 16;

  std::string Path;
  std::size_t Size = 0;  ///< of the file, in bytes
  FlashImage DspImage;
  FlashImage BitImage;

  /// By convention in the code.
  [[nodiscard]] FirmwareVersion Version() const { return {DspImage.At(0x20), DspImage.At(0x21)}; }
};

/// Nothing: `bytes` are no firmware file, or a piece of it is longer than the machine can hold.
[[nodiscard]] std::optional<FirmwareFile> FirmwareIn(std::string_view bytes, std::string path);

}  // namespace morvane::maintenance
