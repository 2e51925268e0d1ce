#pragma once

#include <array>
#include <cstdint>

namespace morvane::bridges {

/// A control request to the bridge chip: one that tells sends the first `Length` of `Data`, one
/// that asks is given as many.
struct ControlRequest {
  std::uint8_t Type = 0;
  std::uint8_t Code = 0;
  std::uint16_t Value = 0;
  std::uint16_t Index = 0;
  std::uint16_t Length = 0;
  std::array<std::uint8_t, 4> Data{};

  bool operator==(const ControlRequest&) const = default;
};

/// What the bridge chip understands, and by which numbers it is known on the bus.
namespace chip {

inline constexpr std::uint16_t kVendor = 0x10C4;
inline constexpr std::array<std::uint16_t, 3> kProducts{0xEA60, 0xEA61, 0xEA70};
inline constexpr int kInterface = 0;

/// Of `PartNumber`: the chips up to this one have no latch lines.
inline constexpr std::uint8_t kLastWithoutLatch = 2;

/// The serial side works only while it is on.
[[nodiscard]] ControlRequest Enable(bool on);
[[nodiscard]] ControlRequest BaudRate(std::uint32_t rate);
/// For the chips that stall on `BaudRate`. `rate` is one of `HasDivisor`.
[[nodiscard]] ControlRequest BaudDivisor(std::uint32_t rate);
[[nodiscard]] bool HasDivisor(std::uint32_t rate);
[[nodiscard]] ControlRequest LineControl(std::uint16_t control);
/// Forgets what waits in the chip.
[[nodiscard]] ControlRequest Purge(bool transmit, bool receive);
/// Asks for one byte.
[[nodiscard]] ControlRequest PartNumber();
/// The lines of `mask` take their bits of `value`.
[[nodiscard]] ControlRequest WriteLatch(std::uint8_t mask, std::uint8_t value);

}  // namespace chip
}  // namespace morvane::bridges
