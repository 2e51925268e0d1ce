#include "support/emulated_chip.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace morvane::test {
namespace {

using bridges::ControlRequest;

constexpr std::size_t kSetup = 8;

// Types of requests.
constexpr std::uint8_t kOfTheBus = 0x80;
constexpr std::uint8_t kToInterface = 0x41;
constexpr std::uint8_t kToDevice = 0x40;
constexpr std::uint8_t kFromDevice = 0xC0;
constexpr std::uint8_t kOfTheMaker = 0x40;
constexpr std::uint8_t kGives = 0x80;

constexpr std::uint16_t kEnglish = 0x0409;
constexpr std::uint16_t kSerialString = 0x0303;

std::uint16_t Word(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8U);
}

ControlRequest RequestOf(std::span<const std::uint8_t> setup) {
  ControlRequest request{.Type = setup[0],
                         .Code = setup[1],
                         .Value = Word(setup.subspan(2)),
                         .Index = Word(setup.subspan(4)),
                         .Length = Word(setup.subspan(6))};
  const auto data = setup.subspan(kSetup);
  if ((request.Type & kGives) == 0) {
    std::copy_n(data.begin(), std::min(data.size(), request.Data.size()), request.Data.begin());
  }
  return request;
}

}  // namespace

void EmulatedChip::PowerUp() {
  Switch(0);
  babble_.clear();
}

std::optional<int> EmulatedChip::Control(std::span<std::uint8_t> setup) {
  const ControlRequest request = RequestOf(setup);
  if ((request.Type & kOfTheMaker) != 0) requests_.push_back(request);
  if (silent_.contains(request.Code)) return std::nullopt;
  if (const auto failing = failing_.find(request.Code); failing != failing_.end()) {
    return -failing->second;
  }
  const auto answer = Do(request);
  if (!answer) return -EPIPE;
  if ((request.Type & kGives) == 0) return request.Length;
  const auto data = setup.subspan(kSetup);
  const std::size_t count = std::min(answer->size(), data.size());
  std::copy_n(answer->begin(), count, data.begin());
  return static_cast<int>(count);
}

std::optional<Bytes> EmulatedChip::Do(const ControlRequest& request) {
  switch (request.Type) {
    case kOfTheBus:
      return String(request);
    case kToInterface:
      return request.Index == 0 && Set(request) ? std::optional(Bytes()) : std::nullopt;
    default:
      return request.Code == 0xFF ? Further(request) : std::nullopt;
  }
}

std::optional<Bytes> EmulatedChip::String(const ControlRequest& request) const {
  const bool isThere = !kind_.Serial.empty() && request.Code == 6 &&
                       request.Value == kSerialString && request.Index == kEnglish;
  if (!isThere) return std::nullopt;
  Bytes text{static_cast<std::uint8_t>(2 + 2 * kind_.Serial.size()), 3};
  for (const char c : kind_.Serial) text.insert(text.end(), {static_cast<std::uint8_t>(c), 0});
  return text;
}

std::optional<Bytes> EmulatedChip::Further(const ControlRequest& request) const {
  if (request.Type == kFromDevice && request.Value == 0x370B) return Bytes{kind_.PartNumber};
  const bool latches = request.Type == kToDevice && request.Value == 0x37E1;
  return latches && kind_.PartNumber > 2 ? std::optional(Bytes()) : std::nullopt;
}

bool EmulatedChip::Set(const ControlRequest& request) {
  switch (request.Code) {
    case 0x00:
      return Switch(request.Value);
    case 0x01:
      return SetSpeed(request.Value != 0);
    case 0x03:
      return request.Value == 0x0800;
    case 0x12:
      return Purge(request.Value);
    case 0x1E:
      return SetSpeed(request.Length == 4 && request.Data != std::array<std::uint8_t, 4>{});
    default:
      return false;
  }
}

bool EmulatedChip::Switch(std::uint16_t on) {
  on_ = on == 1;
  hasSpeed_ = false;
  packets_.clear();
  return on <= 1;
}

bool EmulatedChip::SetSpeed(bool known) {
  hasSpeed_ = hasSpeed_ || known;
  return known;
}

bool EmulatedChip::Purge(std::uint16_t which) {
  if ((which & 0x0AU) != 0) packets_.clear();
  Say(std::exchange(behindPurge_, {}));
  return which <= 0x0F;
}

std::size_t EmulatedChip::Hear(std::span<const std::uint8_t> bytes) {
  if (!Works()) return bytes.size();
  ++transfersHeard_;
  const auto taken = bytes.first(std::min(bytes.size(), room_.value_or(bytes.size())));
  if (room_) *room_ -= taken.size();
  heard_.insert(heard_.end(), taken.begin(), taken.end());
  if (answer_) Say(answer_(taken));
  return taken.size();
}

void EmulatedChip::Say(const Bytes& bytes) {
  if (!Works()) return;
  const std::size_t longest = std::min<std::size_t>(kind_.PacketSize, 64);
  for (std::size_t at = 0; at < bytes.size(); at += longest) {
    const auto packet = std::span(bytes).subspan(at, std::min(longest, bytes.size() - at));
    packets_.emplace_back(packet.begin(), packet.end());
  }
}

std::optional<Bytes> EmulatedChip::NextPacket() {
  if (packets_.empty()) Say(babble_);
  if (packets_.empty()) return std::nullopt;
  Bytes packet = std::move(packets_.front());
  packets_.pop_front();
  return packet;
}

}  // namespace morvane::test
