#include "bridges/usb/bridge_chip.h"

namespace morvane::bridges::chip {
namespace {

constexpr std::uint8_t kToInterface = 0x41;
constexpr std::uint8_t kToDevice = 0x40;
constexpr std::uint8_t kFromDevice = 0xC0;

constexpr std::uint8_t kEnableCode = 0x00;
constexpr std::uint8_t kBaudDivisorCode = 0x01;
constexpr std::uint8_t kLineControlCode = 0x03;
constexpr std::uint8_t kPurgeCode = 0x12;
constexpr std::uint8_t kBaudRateCode = 0x1E;
/// The value then says which of the maker's further requests is meant.
constexpr std::uint8_t kFurtherCode = 0xFF;
constexpr std::uint16_t kPartNumber = 0x370B;
constexpr std::uint16_t kWriteLatch = 0x37E1;

constexpr std::uint32_t kDividedRate = 3'686'400;

constexpr std::uint16_t kPurgeTransmit = 0x05;
constexpr std::uint16_t kPurgeReceive = 0x0A;

ControlRequest ToInterface(std::uint8_t code, std::uint16_t value) {
  return {.Type = kToInterface, .Code = code, .Value = value, .Index = kInterface};
}

std::uint8_t ByteOf(std::uint32_t number, unsigned place) {
  return static_cast<std::uint8_t>(number >> (8U * place));
}

}  // namespace

ControlRequest Enable(bool on) { return ToInterface(kEnableCode, on ? 1 : 0); }

ControlRequest BaudRate(std::uint32_t rate) {
  ControlRequest request = ToInterface(kBaudRateCode, 0);
  request.Length = 4;
  for (unsigned place = 0; place < 4; ++place) request.Data[place] = ByteOf(rate, place);
  return request;
}

ControlRequest BaudDivisor(std::uint32_t rate) {
  return ToInterface(kBaudDivisorCode, static_cast<std::uint16_t>(kDividedRate / rate));
}

bool HasDivisor(std::uint32_t rate) {
  return rate > kDividedRate / 0x10000 && rate <= kDividedRate;
}

ControlRequest LineControl(std::uint16_t control) { return ToInterface(kLineControlCode, control); }

ControlRequest Purge(bool transmit, bool receive) {
  const int which = (transmit ? kPurgeTransmit : 0) | (receive ? kPurgeReceive : 0);
  return ToInterface(kPurgeCode, static_cast<std::uint16_t>(which));
}

ControlRequest PartNumber() {
  return {.Type = kFromDevice, .Code = kFurtherCode, .Value = kPartNumber, .Index = 0, .Length = 1};
}

ControlRequest WriteLatch(std::uint8_t mask, std::uint8_t value) {
  const int lines = value << 8U | mask;
  return {.Type = kToDevice,
          .Code = kFurtherCode,
          .Value = kWriteLatch,
          .Index = static_cast<std::uint16_t>(lines)};
}

}  // namespace morvane::bridges::chip
