#include "maintenance/factory_files.h"

#include <charconv>
#include <numeric>
#include <vector>

#include "platform/files.h"
#include "text/box_text.h"
#include "text/text.h"
#include "text/text_encoding.h"
#include "text/text_lines.h"

namespace morvane::maintenance {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kEntriesOfLine = 16;
constexpr std::size_t kBytesOfRecord = 16;
constexpr std::uint32_t kMostAddress = 0xFFFF;

void PutWord(std::string& bytes, std::uint64_t word) {
  for (unsigned shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(word >> shift);
}

/// What the first line says; nothing when it does not say it.
std::optional<std::uint32_t> StartAddress(std::string_view line) {
  if (!line.starts_with('@')) return std::nullopt;
  const std::string digits = Trim(line.substr(1));
  const char* const end = digits.data() + digits.size();
  std::uint32_t address = 0;
  const auto result = std::from_chars(digits.data(), end, address, 16);
  if (result.ec != std::errc() || result.ptr != end || address > kMostAddress) return std::nullopt;
  return address;
}

/// The bytes of a data line, with blanks between them or without; empty when it has anything else.
Bytes BytesOfLine(std::string_view line) {
  constexpr std::string_view kBlanks = " \t";
  Bytes all;
  for (std::size_t at = line.find_first_not_of(kBlanks); at != std::string_view::npos;) {
    const std::size_t end = line.find_first_of(kBlanks, at);
    const auto bytes = BytesOfHex(line.substr(at, end - at));
    if (!bytes) return {};
    all.insert(all.end(), bytes->begin(), bytes->end());
    at = line.find_first_not_of(kBlanks, end);
  }
  return all;
}

std::string Record(std::uint32_t address, const Bytes& data) {
  Bytes record{static_cast<std::uint8_t>(data.size()), static_cast<std::uint8_t>(address >> 8U),
               static_cast<std::uint8_t>(address), 0};
  record.insert(record.end(), data.begin(), data.end());
  const auto sum = std::accumulate(record.begin(), record.end(), 0U);
  record.push_back(static_cast<std::uint8_t>(0U - sum));
  return ":" + HexBytes(record) + std::string(kCrLf);
}

/// Takes the lines of a text hex file one after the other.
class TextHexReader {
 public:
  explicit TextHexReader(std::string_view text) : lines_(text) {}

  /// What is wrong; empty when nothing is.
  std::string_view Read();
  [[nodiscard]] int Line() const { return line_; }
  [[nodiscard]] const std::string& Hex() const { return hex_; }

 private:
  bool Next(std::string_view& line);
  std::string_view Take(const Bytes& data);

  Lines lines_;
  int line_ = 0;
  std::uint32_t address_ = 0;
  bool short_ = false;  ///< the line before had fewer bytes than a record
  std::string hex_;
};

std::string_view TextHexReader::Read() {
  std::string_view line;
  const auto start = Next(line) ? StartAddress(line) : std::nullopt;
  if (!start) return "\"@\" and a hexadecimal address up to FFFF are missing";
  address_ = *start;
  while (Next(line)) {
    // Whatever stands behind it is no data.
    if (line.starts_with('q')) return "";
    if (const std::string_view wrong = Take(BytesOfLine(line)); !wrong.empty()) return wrong;
  }
  return "the line with \"q\" behind the data is missing";
}

bool TextHexReader::Next(std::string_view& line) {
  ++line_;
  return lines_.Next(line);
}

std::string_view TextHexReader::Take(const Bytes& data) {
  if (data.empty()) return "these are no hexadecimal bytes";
  if (data.size() > kBytesOfRecord) return "these are more than 16 bytes";
  if (short_) return "the line before has fewer than 16 bytes and is not the last";
  if (address_ + data.size() > kMostAddress + 1) return "there is no address beyond FFFF";
  hex_ += Record(address_, data);
  address_ += kBytesOfRecord;
  short_ = data.size() < kBytesOfRecord;
  return "";
}

}  // namespace

std::string FirmwareBytes(std::string_view code, std::string_view bitstream) {
  std::string bytes;
  PutWord(bytes, code.size());
  // Twice more where nobody reads it: required.
  for (int i = 0; i < 3; ++i) PutWord(bytes, bitstream.size());
  return bytes.append(code).append(bitstream);
}

std::string BootSource(std::string_view boot) {
  constexpr std::uint8_t kNothing = 0xFF;
  std::string text = "const unsigned char boot[] = {" + std::string(kCrLf);
  for (std::size_t i = 0; i < kBootSizes.Most; ++i) {
    text += "0x" + Hex2(i < boot.size() ? static_cast<std::uint8_t>(boot[i]) : kNothing) + ",";
    if ((i + 1) % kEntriesOfLine == 0) text += kCrLf;
  }
  return text.append("};").append(kCrLf);
}

std::optional<TextHexFault> TextToHex(std::string_view text, std::string& hex) {
  TextHexReader reader(text);
  if (const std::string_view wrong = reader.Read(); !wrong.empty())
    return TextHexFault{reader.Line(), wrong};
  hex = reader.Hex() + ":00000001FF" + std::string(kCrLf);
  return std::nullopt;
}

std::string HexFileOf(std::string_view path) {
  constexpr std::size_t kLetters = 3;
  const std::string title = FileTitle(path);
  const std::size_t count = CharacterCount(title);
  if (count < kLetters) return std::string(path) + ".hex";
  return FolderOf(path) + std::string(FirstCharacters(title, count - kLetters)) + "hex";
}

}  // namespace morvane::maintenance
