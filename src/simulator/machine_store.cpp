#include "simulator/machine_store.h"

#include <cerrno>
#include <charconv>

#include "platform/files.h"
#include "simulator/version_text.h"
#include "wire/service_commands.h"

namespace morvane::simulator {
namespace {

using namespace wire;

constexpr std::string_view kHeading = "Memory of a simulated Morvane machine\n";
constexpr std::string_view kParametersHeading = "Parameters of a simulated Morvane machine\n";
constexpr std::string_view kNone = "none";
constexpr std::uint64_t kLongest = 16384;
/// The bytes of a parameter line stand from here on in the frame.
constexpr std::size_t kFirst = 1;
constexpr std::size_t kNumbers = 6;

bool TakeWord(std::string_view& text, std::string_view word) {
  if (!text.starts_with(word)) return false;
  text.remove_prefix(word.size());
  return true;
}

/// The number that `text` begins with, of which it and what ends it (`end`) are taken off.
template <typename Number>
bool TakeNumber(std::string_view& text, char end, Number& number) {
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  const auto length = static_cast<std::size_t>(result.ptr - text.data());
  if (result.ec != std::errc() || length == text.size() || text[length] != end) return false;
  text.remove_prefix(length + 1);
  return true;
}

bool TakeBlockLine(std::string_view& text, std::uint8_t subCode, StoredParameters& parameters) {
  Frame frame{};
  SetCode(frame, CmdWriteParameters);
  for (std::size_t i = 0; i < kNumbers; ++i) {
    if (!TakeNumber(text, i + 1 < kNumbers ? ' ' : '\n', frame[kFirst + i])) return false;
  }
  return SubCodeIn(frame) == subCode && TakeBlock(frame, parameters);
}

bool TakeParameters(std::string_view& text, StoredParameters& parameters) {
  for (auto code = StoredParameters::kFirstSubCode; code <= StoredParameters::kLastSubCode;
       ++code) {
    if (!TakeBlockLine(text, code, parameters)) return false;
  }
  return true;
}

bool TakeCounters(std::string_view& text, Counters& counters) {
  if (!TakeWord(text, "boards ") || !TakeNumber(text, '\n', counters.BoardsDealt)) return false;
  for (std::size_t last = 0; TakeWord(text, "stops ");) {
    std::size_t code = 0;
    if (!TakeNumber(text, ' ', code) || code <= last || code >= counters.Stops.size()) return false;
    if (!TakeNumber(text, '\n', counters.Stops[code]) || counters.Stops[code] == 0) return false;
    last = code;
  }
  return true;
}

bool TakeRecord(std::string_view& text, std::optional<ManufacturingRecord>& record) {
  if (!TakeWord(text, "record ")) return true;
  ManufacturingRecord& taken = record.emplace();
  return TakeNumber(text, ' ', taken.SerialNumber) && TakeNumber(text, ' ', taken.HardwareId) &&
         TakeNumber(text, ' ', taken.Day) && TakeNumber(text, ' ', taken.Month) &&
         TakeNumber(text, '\n', taken.Year);
}

bool TakeFirmware(std::string_view& text, std::optional<LoadedFirmware>& firmware) {
  if (!TakeWord(text, "firmware ")) return true;
  LoadedFirmware& taken = firmware.emplace();
  const std::string_view value = text.substr(0, text.find('\n'));
  taken.Runs = value != kNone;
  if (taken.Runs && !TakeVersion(value, taken.Major, taken.Minor)) return false;
  text.remove_prefix(value.size());
  return TakeWord(text, "\n");
}

bool TakeMemory(std::string_view& text, MachineMemory& memory) {
  if (TakeWord(text, kParametersHeading)) return TakeParameters(text, memory.Parameters);
  return TakeWord(text, kHeading) && TakeParameters(text, memory.Parameters) &&
         TakeCounters(text, memory.Counted) && TakeRecord(text, memory.Record) &&
         TakeFirmware(text, memory.Firmware) && TakeWord(text, "end\n");
}

std::string TextOf(const StoredParameters& parameters) {
  std::string text;
  for (auto code = StoredParameters::kFirstSubCode; code <= StoredParameters::kLastSubCode;
       ++code) {
    const Frame frame = WriteFrame(code, parameters);
    for (std::size_t i = 0; i < kNumbers; ++i) {
      text += std::to_string(frame[kFirst + i]) + (i + 1 < kNumbers ? " " : "\n");
    }
  }
  return text;
}

std::string TextOf(const Counters& counters) {
  std::string text = "boards " + std::to_string(counters.BoardsDealt) + "\n";
  for (std::size_t code = 1; code < counters.Stops.size(); ++code) {
    const std::uint32_t stops = counters.Stops[code];
    if (stops != 0) text += "stops " + std::to_string(code) + " " + std::to_string(stops) + "\n";
  }
  return text;
}

std::string TextOf(const ManufacturingRecord& record) {
  return "record " + std::to_string(record.SerialNumber) + " " + std::to_string(record.HardwareId) +
         " " + std::to_string(record.Day) + " " + std::to_string(record.Month) + " " +
         std::to_string(record.Year) + "\n";
}

std::string TextOf(const LoadedFirmware& firmware) {
  return "firmware " +
         (firmware.Runs ? VersionText(firmware.Major, firmware.Minor) : std::string(kNone)) + "\n";
}

}  // namespace

std::string TextOf(const MachineMemory& memory) {
  std::string text = std::string(kHeading) + TextOf(memory.Parameters) + TextOf(memory.Counted);
  if (memory.Record) text += TextOf(*memory.Record);
  if (memory.Firmware) text += TextOf(*memory.Firmware);
  return text + "end\n";
}

std::optional<MachineMemory> MemoryIn(std::string_view text) {
  MachineMemory memory;
  const bool whole = TakeMemory(text, memory) && text.empty();
  return whole ? std::optional(memory) : std::nullopt;
}

MachineMemory MachineStore::Load() {
  kept_ = Read();
  return kept_;
}

MachineMemory MachineStore::Read() {
  std::string text;
  if (path_.empty()) return {};
  if (const auto error = ReadFile(path_, text, kLongest)) {
    if (error->Number != ENOENT) LeaveAlone(error->Description);
    return {};
  }
  if (const auto memory = MemoryIn(text)) return *memory;
  if (text.starts_with(kHeading) || text.starts_with(kParametersHeading)) {
    trouble_ = "store=" + path_ + " is damaged; the machine is a new one";
  } else if (!text.empty()) {
    LeaveAlone("it holds something else");
  }
  return {};
}

void MachineStore::LeaveAlone(const std::string& why) {
  leftAlone_ = true;
  trouble_ = "store=" + path_ + " keeps nothing: " + why;
}

void MachineStore::Keep(const MachineMemory& memory) {
  if (path_.empty() || leftAlone_ || memory == kept_) return;
  kept_ = memory;
  const auto error = WriteFile(path_, TextOf(memory));
  trouble_ =
      error ? "store=" + path_ + " does not keep what was written: " + error->Description : "";
}

}  // namespace morvane::simulator
