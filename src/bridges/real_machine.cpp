#include "bridges/real_machine.h"

#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "bridges/serial_bridge.h"
#include "bridges/usb/usb_direct.h"

namespace morvane::bridges {
namespace {

/// A number of four hexadecimal digits.
std::optional<std::uint16_t> UsbNumber(std::string_view text) {
  std::uint16_t number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, 16);
  const bool isWhole = text.size() == 4 && result.ec == std::errc() && result.ptr == end;
  return isWhole ? std::optional(number) : std::nullopt;
}

/// "SERIAL", "VVVV:PPPP" or "VVVV:PPPP:SERIAL". A serial string has no colon.
std::optional<UsbWhich> WhichUsb(const std::string& text) {
  constexpr std::size_t kColon = 4;
  constexpr std::size_t kNumbers = 9;
  if (text.find(':') == std::string::npos) return UsbWhich{{}, {}, text};
  const auto vendor = UsbNumber(std::string_view(text).substr(0, kColon));
  if (!vendor || text[kColon] != ':') return std::nullopt;
  const auto product = UsbNumber(std::string_view(text).substr(kColon + 1, kColon));
  if (!product) return std::nullopt;
  if (text.size() == kNumbers) return UsbWhich{vendor, product, ""};
  const bool namesOne = text[kNumbers] == ':' && text.size() > kNumbers + 1;
  return namesOne ? std::optional(UsbWhich{vendor, product, text.substr(kNumbers + 1)})
                  : std::nullopt;
}

}  // namespace

RealMachine MachineAtUsb(const std::string& which) {
  auto wanted = WhichUsb(which);
  return {wanted ? std::make_unique<UsbDirect>(std::move(*wanted)) : nullptr};
}

RealMachine MachineAtSerial(const std::string& path) {
  return {std::make_unique<SerialBridge>(path)};
}

}  // namespace morvane::bridges
