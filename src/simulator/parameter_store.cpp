#include "simulator/parameter_store.h"

#include <array>
#include <charconv>

#include "platform/files.h"
#include "wire/service_commands.h"

namespace morvane::simulator {
namespace {

using namespace wire;

constexpr std::string_view kHeading = "Parameters of a simulated Morvane machine\n";
constexpr std::uint64_t kLongest = 4096;
/// The bytes of a line stand from here on in the frame.
constexpr std::size_t kFirst = 1;
constexpr std::size_t kNumbers = 6;

/// The byte that `text` begins with, of which it and what ends it (`end`) are taken off.
std::optional<std::uint8_t> TakeByte(std::string_view& text, char end) {
  std::uint8_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  const auto length = static_cast<std::size_t>(result.ptr - text.data());
  if (result.ec != std::errc() || length == text.size() || text[length] != end) return std::nullopt;
  text.remove_prefix(length + 1);
  return number;
}

bool TakeLine(std::string_view& text, std::uint8_t subCode, StoredParameters& parameters) {
  Frame frame{};
  SetCode(frame, CmdWriteParameters);
  for (std::size_t i = 0; i < kNumbers; ++i) {
    const auto number = TakeByte(text, i + 1 < kNumbers ? ' ' : '\n');
    if (!number) return false;
    frame[kFirst + i] = *number;
  }
  return SubCodeIn(frame) == subCode && TakeBlock(frame, parameters);
}

}  // namespace

std::string TextOf(const StoredParameters& parameters) {
  std::string text(kHeading);
  for (auto code = StoredParameters::kFirstSubCode; code <= StoredParameters::kLastSubCode;
       ++code) {
    const Frame frame = WriteFrame(code, parameters);
    for (std::size_t i = 0; i < kNumbers; ++i) {
      text += std::to_string(frame[kFirst + i]) + (i + 1 < kNumbers ? " " : "\n");
    }
  }
  return text;
}

std::optional<StoredParameters> ParametersIn(std::string_view text) {
  if (!text.starts_with(kHeading)) return std::nullopt;
  text.remove_prefix(kHeading.size());
  StoredParameters parameters;
  for (auto code = StoredParameters::kFirstSubCode; code <= StoredParameters::kLastSubCode;
       ++code) {
    if (!TakeLine(text, code, parameters)) return std::nullopt;
  }
  return text.empty() ? std::optional(parameters) : std::nullopt;
}

StoredParameters ParameterStore::Load() const {
  std::string text;
  if (path_.empty() || ReadFile(path_, text, kLongest)) return {};
  return ParametersIn(text).value_or(StoredParameters{});
}

void ParameterStore::Save(const StoredParameters& parameters) const {
  if (!path_.empty()) static_cast<void>(WriteFile(path_, TextOf(parameters)));
}

}  // namespace morvane::simulator
