#include "bridges/trace/trace_line.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <span>
#include <system_error>

#include "text/printable.h"
#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::bridges {
namespace {

using std::chrono::microseconds;

struct Row {
  std::string_view Name;
  std::array<std::string_view, 3> Numbers;  ///< empty: no more of them
  bool HasBytes = false;
};

/// By `Operation`.
constexpr std::array<Row, 14> kRows{{{"GetDllVersion", {"high", "low"}},
                                     {"GetDriverVersion", {"high", "low"}},
                                     {"GetNumDevices", {"count"}},
                                     {"GetProductString", {"index", "option"}, true},
                                     {"Open", {"index", "handle"}},
                                     {"SetTimeouts", {"read", "write"}},
                                     {"SetBaudRate", {"handle", "rate"}},
                                     {"SetLineControl", {"handle", "control"}},
                                     {"FlushBuffers", {"handle", "transmit", "receive"}},
                                     {"Write", {"handle", "written"}, true},
                                     {"Read", {"handle", "asked"}, true},
                                     {"WriteLatch", {"handle", "mask", "value"}},
                                     {"Close", {"handle"}},
                                     {"Advice", {}, true}}};

const Row& RowOf(Operation what) { return kRows[static_cast<std::size_t>(what)]; }

constexpr std::string_view kBegan = "# began ";
constexpr std::string_view kMachine = "# machine ";
constexpr std::string_view kPart = "# part ";
constexpr std::string_view kHandsLeftOut = "# hands left out";
constexpr std::string_view kRemark = " ; ";

constexpr std::int64_t kMicroseconds = 1'000'000;
constexpr std::size_t kDecimals = 6;
constexpr std::size_t kMostSecondDigits = 9;
constexpr microseconds kLatest{999'999'999'999'999};
constexpr std::size_t kMostSaid = 200;      ///< characters
constexpr std::size_t kMostQuoted = 40;     ///< characters
constexpr std::size_t kMostMachine = 1000;  ///< characters

// Numbers.

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool AreDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), IsDigit); }

/// The whole of `text` as a number of its type.
template <typename T>
bool TakeNumber(std::string_view text, T& number) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc{} && result.ptr == end;
}

template <typename T>
void AppendNumber(T number, std::string& text) {
  std::array<char, 20> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  text.append(digits.data(), result.ptr);
}

/// "12.345678".
void AppendTime(microseconds time, std::string& text) {
  const std::int64_t whole = std::clamp(time, microseconds(0), kLatest).count();
  AppendNumber(whole / kMicroseconds, text);
  // A leading 1 keeps the zeros behind it.
  const std::size_t point = text.size();
  AppendNumber(kMicroseconds + whole % kMicroseconds, text);
  text[point] = '.';
}

bool TakeTime(std::string_view text, microseconds& time) {
  const std::size_t point = text.find('.');
  if (point == 0 || point > kMostSecondDigits || text.size() != point + 1 + kDecimals) return false;
  const std::string_view fraction = text.substr(point + 1);
  std::int64_t seconds = 0;
  std::int64_t rest = 0;
  if (!AreDigits(text.substr(0, point)) || !AreDigits(fraction)) return false;
  if (!TakeNumber(text.substr(0, point), seconds) || !TakeNumber(fraction, rest)) return false;
  time = microseconds(seconds * kMicroseconds + rest);
  return true;
}

// The head.

bool TakeRest(std::string_view line, std::string_view name, std::string_view& rest) {
  if (!line.starts_with(name)) return false;
  rest = line.substr(name.size());
  return true;
}

/// Whether it looks like "2026-03-03 15:04:05.123".
bool IsDateAndTime(std::string_view text) {
  constexpr std::string_view kLook = "0000-00-00 00:00:00.000";
  return std::equal(text.begin(), text.end(), kLook.begin(), kLook.end(),
                    [](char c, char look) { return look == '0' ? IsDigit(c) : c == look; });
}

bool TakePart(std::string_view text, int& part) {
  int number = 0;
  if (!TakeNumber(text, number) || number < 1) return false;
  part = number;
  return true;
}

// A line of an operation.

std::string Quoted(std::string_view word) {
  return "\"" + PrintableLine(std::string(FirstCharacters(word, kMostQuoted))) + "\"";
}

/// The words of a line, with one blank between two of them.
class Words {
 public:
  explicit Words(std::string_view text) : rest_(text), ended_(text.empty()) {}

  bool Next(std::string_view& word) {
    if (ended_) return false;
    const std::size_t blank = rest_.find(' ');
    ended_ = blank == std::string_view::npos;
    word = rest_.substr(0, blank);
    rest_.remove_prefix(ended_ ? rest_.size() : blank + 1);
    return true;
  }

 private:
  std::string_view rest_;
  bool ended_;
};

using Fault = std::optional<std::string>;

Fault CutOff(std::string_view before) {
  return "the line is cut off before " + std::string(before);
}

Fault TakeTimes(Words& words, TraceLine& line) {
  std::string_view word;
  if (!words.Next(word)) return "no time";
  if (!TakeTime(word, line.At)) return Quoted(word) + " is no time";
  if (!words.Next(word)) return CutOff("the duration");
  if (!TakeTime(word, line.Took)) return Quoted(word) + " is no duration";
  return std::nullopt;
}

/// False: there is no operation of this name.
bool TakeName(std::string_view name, Operation& what) {
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    if (kRows[i].Name != name) continue;
    what = static_cast<Operation>(i);
    return true;
  }
  return false;
}

Fault TakeOperation(Words& words, TraceLine& line) {
  std::string_view word;
  if (!words.Next(word)) return CutOff("the operation");
  if (!TakeName(word, line.What)) return "unknown operation " + Quoted(word);
  if (!words.Next(word)) return CutOff("the status");
  if (!TakeNumber(word, line.Result)) return Quoted(word) + " is no status";
  return std::nullopt;
}

/// The value of the next word, which has to be `name`=value.
Fault TakeValue(Words& words, std::string_view name, std::string_view& value) {
  const std::string start = std::string(name) + "=";
  if (!words.Next(value)) return CutOff(start);
  if (!value.starts_with(start)) return start + " is missing";
  value.remove_prefix(start.size());
  return std::nullopt;
}

Fault TakeNumbers(Words& words, TraceLine& line) {
  const Row& row = RowOf(line.What);
  for (std::size_t i = 0; i < row.Numbers.size() && !row.Numbers[i].empty(); ++i) {
    std::string_view value;
    if (Fault fault = TakeValue(words, row.Numbers[i], value)) return fault;
    if (TakeNumber(value, line.Numbers[i])) continue;
    return std::string(row.Numbers[i]) + "=" + Quoted(value) + " is no number of 32 bits";
  }
  return std::nullopt;
}

Fault TakeBytes(Words& words, TraceLine& line) {
  if (!RowOf(line.What).HasBytes) return std::nullopt;
  std::string_view value;
  if (Fault fault = TakeValue(words, "bytes", value)) return fault;
  if (value.size() % 2 != 0) return "an odd number of hex digits";
  if (value.size() > kMostTraceBytes * 2) return "more bytes than a line has";
  auto bytes = BytesOfHex(value);
  if (!bytes) return "bytes= has what is no hex digit";
  line.Bytes = std::move(*bytes);
  return std::nullopt;
}

Fault Parse(std::string_view text, TraceLine& line) {
  if (text.size() >= kLongestTraceLine) return "the line is too long";
  Words words(text.substr(0, text.find(kRemark)));
  if (Fault fault = TakeTimes(words, line)) return fault;
  if (Fault fault = TakeOperation(words, line)) return fault;
  if (Fault fault = TakeNumbers(words, line)) return fault;
  if (Fault fault = TakeBytes(words, line)) return fault;
  std::string_view more;
  if (words.Next(more)) return Quoted(more) + " is too much";
  return std::nullopt;
}

void AppendField(std::string_view name, std::string& text) {
  text += ' ';
  text += name;
  text += '=';
}

void AppendNumbers(const TraceLine& line, std::string& text) {
  const Row& row = RowOf(line.What);
  for (std::size_t i = 0; i < row.Numbers.size() && !row.Numbers[i].empty(); ++i) {
    AppendField(row.Numbers[i], text);
    AppendNumber(line.Numbers[i], text);
  }
}

void AppendBytes(const TraceLine& line, std::string& text) {
  if (!RowOf(line.What).HasBytes) return;
  AppendField("bytes", text);
  const std::span<const std::uint8_t> bytes = line.Bytes;
  text += HexBytes(bytes.first(std::min(bytes.size(), kMostTraceBytes)));
}

}  // namespace

std::string_view NameOf(Operation what) { return RowOf(what).Name; }

std::string TextOf(const TraceHead& head) {
  std::string text(kTraceMark);
  text.append("\n").append(kBegan).append(head.Began);
  const std::string machine = PrintableLine(head.Machine);
  text.append("\n").append(kMachine).append(FirstCharacters(machine, kMostMachine));
  text.append("\n").append(kPart).append(std::to_string(head.Part)).append("\n");
  if (head.HandsLeftOut) text.append(kHandsLeftOut).append("\n");
  return text;
}

bool TakeHeadLine(std::string_view line, TraceHead& head) {
  std::string_view rest;
  if (TakeRest(line, kBegan, rest)) {
    if (!IsDateAndTime(rest)) return false;
    head.Began = rest;
    return true;
  }
  if (TakeRest(line, kMachine, rest)) {
    head.Machine = PrintableLine(std::string(FirstCharacters(rest, kMostMachine)));
    return true;
  }
  if (TakeRest(line, kPart, rest)) return TakePart(rest, head.Part);
  if (line != kHandsLeftOut) return false;
  head.HandsLeftOut = true;
  return true;
}

std::string TextOf(const TraceLine& line, std::string_view said) {
  std::string text;
  AppendTime(line.At, text);
  text += ' ';
  AppendTime(line.Took, text);
  text.append(" ").append(NameOf(line.What)).append(" ");
  AppendNumber(line.Result, text);
  AppendNumbers(line, text);
  AppendBytes(line, text);
  if (!said.empty()) {
    text.append(kRemark).append(PrintableLine(std::string(FirstCharacters(said, kMostSaid))));
  }
  return text += '\n';
}

std::optional<std::string> ParseTraceLine(std::string_view text, TraceLine& line) {
  TraceLine read;
  if (Fault fault = Parse(text, read)) return fault;
  line = std::move(read);
  return std::nullopt;
}

}  // namespace morvane::bridges
