#include "simulator/parameter_store.h"

#include <cerrno>
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

StoredParameters ParameterStore::Load() {
  std::string text;
  if (path_.empty()) return {};
  if (const auto error = ReadFile(path_, text, kLongest)) {
    if (error->Number != ENOENT) LeaveAlone(error->Description);
    return {};
  }
  if (const auto parameters = ParametersIn(text)) return *parameters;
  if (text.starts_with(kHeading)) {
    trouble_ = "store=" + path_ + " is damaged; the parameters are those of a new machine";
  } else if (!text.empty()) {
    LeaveAlone("it holds something else");
  }
  return {};
}

void ParameterStore::LeaveAlone(const std::string& why) {
  leftAlone_ = true;
  trouble_ = "store=" + path_ + " keeps no parameters: " + why;
}

void ParameterStore::Save(const StoredParameters& parameters) {
  if (path_.empty() || leftAlone_) return;
  const auto error = WriteFile(path_, TextOf(parameters));
  trouble_ =
      error ? "store=" + path_ + " does not keep what was written: " + error->Description : "";
}

}  // namespace morvane::simulator
