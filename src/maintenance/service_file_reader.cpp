#include "maintenance/service_file_reader.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "text/text.h"
#include "text/text_encoding.h"
#include "text/text_lines.h"

namespace morvane::maintenance {
namespace {

constexpr std::size_t kLongestLine = 65536;
/// Behind it only the file's end is to come.
constexpr int kLastTaken = 413;

/// Takes the fields of a line one after the other; behind the last they are empty.
class Fields {
 public:
  explicit Fields(std::string_view line) : rest_(line) {}

  std::string_view Next() {
    const std::size_t comma = rest_.find(',');
    const std::string_view field = rest_.substr(0, comma);
    rest_.remove_prefix(comma == std::string_view::npos ? rest_.size() : comma + 1);
    return field;
  }

 private:
  std::string_view rest_;
};

bool Holds(const FieldRange& range, std::string_view text) {
  if (range.IsText() || text.empty()) return true;
  int value = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, value);
  return read.ec == std::errc() && read.ptr == end && value >= range.Lowest &&
         value <= range.Highest;
}

// Each takes a line; false: something in it is not what it has to be, and what stands before that
// has been taken.

bool TakeInfo(ServiceFile& file, int /*line*/, std::string_view text) {
  file.Info = text;
  return true;
}

/// A field with a comma in it is made up of as many as it may have, also where it has none and the
/// next one's text lands in it: required.
std::string TextOfField(const ServiceField& field, Fields& fields) {
  std::string text(fields.Next());
  for (int part = 1; part < field.Parts; ++part) text.append(",").append(fields.Next());
  return text;
}

bool TakeNamed(ServiceFile& file, int line, std::string_view text) {
  Fields fields(text);
  for (std::size_t at = 0; at < kServiceFields.size(); ++at) {
    if (kServiceFields[at].Line != line) continue;
    std::string value = TextOfField(kServiceFields[at], fields);
    if (!Holds(kServiceFields[at].Range, value)) return false;
    file[ServiceFieldName(at)] = std::move(value);
  }
  return true;
}

bool TakeRecord(ServiceFile& file, int line, std::string_view text) {
  Fields fields(text);
  const int record = line - service_line::kRecords.First;
  for (std::string& value : file.Records[static_cast<std::size_t>(record)]) {
    const std::string_view field = fields.Next();
    if (!Holds(kByteRange, field)) return false;
    value = field;
  }
  return true;
}

/// -1: it is no digit.
int DigitValue(char digit) {
  const std::size_t value = std::string_view("0123456789ABCDEF").find(digit);
  return value == std::string_view::npos ? -1 : static_cast<int>(value);
}

bool TakeRow(PixelPlane& picture, int y, std::string_view digits) {
  if (digits.size() < std::size_t{2} * PixelPlane::kWidth) return false;
  for (int x = 0; x < PixelPlane::kWidth; ++x) {
    const std::size_t at = std::size_t{2} * static_cast<std::size_t>(x);
    const int high = DigitValue(digits[at]);
    const int low = DigitValue(digits[at + 1]);
    if (high < 0 || low < 0) return false;
    picture.Set(x, y, static_cast<std::uint8_t>(16 * high + low));
  }
  return true;
}
bool TakeGrey(ServiceFile& file, int line, std::string_view text) {
  return TakeRow(file.CardImage, line - service_line::kGrey.First, text);
}
bool TakeLabels(ServiceFile& file, int line, std::string_view text) {
  return TakeRow(file.LabelImage, line - service_line::kLabels.First, text);
}

template <std::size_t N>
bool TakePart(std::array<std::string, N>& all, int part, std::string_view text) {
  Fields fields(text);
  for (std::size_t i = 0; i < kNumbersOfLine; ++i) {
    all[static_cast<std::size_t>(part) * kNumbersOfLine + i] = fields.Next();
  }
  return true;
}
bool TakeCounters(ServiceFile& file, int line, std::string_view text) {
  return TakePart(file.ErrorCounters, line - service_line::kCounters.First, text);
}
bool TakeTestBytes(ServiceFile& file, int line, std::string_view text) {
  return TakePart(file.TestBytes, line - service_line::kTestBytes.First, text);
}

bool TakeFrames(ServiceFile& file, int /*line*/, std::string_view text) {
  Fields fields(text);
  for (wire::SymbolFrame* box : {&file.SymbolBox, &file.SuitBox}) {
    for (const auto edge : kFrameEdges) {
      const std::string_view field = fields.Next();
      if (!Holds(kByteRange, field)) return false;
      box->*edge = static_cast<std::uint8_t>(Val(field));
    }
  }
  return true;
}

struct Taker {
  service_line::Range Lines;
  bool (*Take)(ServiceFile& file, int line, std::string_view text);
};
/// A line that is not among these has named fields, or nothing that is looked at.
constexpr std::array kTakers{
    Taker{service_line::kInfo, TakeInfo},         Taker{service_line::kRecords, TakeRecord},
    Taker{service_line::kGrey, TakeGrey},         Taker{service_line::kLabels, TakeLabels},
    Taker{service_line::kCounters, TakeCounters}, Taker{service_line::kTestBytes, TakeTestBytes},
    Taker{service_line::kFrames, TakeFrames},
};

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }

bool TakeLine(ServiceFile& file, int line, std::string_view text) {
  if (text.size() > kLongestLine || std::any_of(text.begin(), text.end(), IsControl)) return false;
  for (const Taker& taker : kTakers) {
    if (taker.Lines.Has(line)) return taker.Take(file, line, text);
  }
  return TakeNamed(file, line, text);
}

/// "Error:   7  -  12", with two blanks in the place of a digit, which is twice as wide.
std::string ListText(std::string_view what, const std::vector<LabelledNumber>& numbers,
                     std::size_t digits) {
  std::string text;
  for (const LabelledNumber& number : numbers) {
    const std::string label = std::to_string(number.Label);
    text.append(what).append(2 * (digits - label.size()), ' ').append(label);
    text.append("  -  ").append(number.Text).append("\n");
  }
  return text;
}

/// `count` of a line's numbers, the first of which has this label.
template <std::size_t N>
std::vector<LabelledNumber> Labelled(const std::array<std::string, N>& all, int part, int label,
                                     std::size_t count) {
  std::vector<LabelledNumber> numbers;
  for (std::size_t i = 0; i < count; ++i) {
    numbers.push_back({label++, all[static_cast<std::size_t>(part) * kNumbersOfLine + i]});
  }
  return numbers;
}

}  // namespace

std::optional<int> ServiceFileRead::Fault() const {
  if (Lines >= kLastTaken) return std::nullopt;
  return Lines + 1;
}

ServiceFileRead ServiceFileIn(std::string bytes) {
  ServiceFileRead read;
  const std::string text = DecodeText(std::move(bytes));
  ::morvane::Lines lines(text);
  std::string_view line;
  while (read.Lines < kLastTaken && lines.Next(line) && TakeLine(read.File, read.Lines + 1, line)) {
    ++read.Lines;
  }
  return read;
}

std::vector<LabelledNumber> ErrorsOfLine(const ServiceFile& file, int line) {
  constexpr service_line::Range kListed{397, 398};
  if (!kListed.Has(line)) return {};
  const int part = line - service_line::kCounters.First;
  return Labelled(file.ErrorCounters, part, part * static_cast<int>(kNumbersOfLine) + 1,
                  kNumbersOfLine - 1);
}

std::vector<LabelledNumber> TestBytesOfLine(const ServiceFile& file, int line) {
  if (!service_line::kTestBytes.Has(line)) return {};
  const int part = line - service_line::kTestBytes.First;
  return Labelled(file.TestBytes, part, part * static_cast<int>(kNumbersOfLine), kNumbersOfLine);
}

std::string ErrorsText(const ServiceFileRead& read) {
  std::string text;
  for (int line = 1; line <= read.Lines; ++line) {
    text += ListText("Error: ", ErrorsOfLine(read.File, line), 2);
  }
  return text;
}

std::string TestText(const ServiceFileRead& read) {
  std::string text;
  for (int line = 1; line <= read.Lines; ++line) {
    text += ListText("", TestBytesOfLine(read.File, line), 3);
  }
  return text;
}

}  // namespace morvane::maintenance
