#include "text/text_encoding.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace morvane {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The characters of the bytes 0x80..0x9F. The five bytes that Windows-1252 leaves undefined stand
/// for themselves, so that they survive.
constexpr std::array<char32_t, 32> kWindows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct Character {
  char32_t Code = 0;
  std::size_t Size = 0;  ///< in bytes; 0 = the bytes are no UTF-8
};

std::size_t SizeByLead(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

/// The character at the start of `text`, which is not empty.
Character FirstOf(std::string_view text) {
  constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t size = SizeByLead(lead);
  if (size == 1) return {lead, 1};
  if (size == 0 || text.size() < size) return {};
  char32_t code = lead & (0x7FU >> size);
  for (std::size_t i = 1; i < size; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80U) return {};
    code = code << 6U | (byte & 0x3FU);
  }
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  return code < kSmallest[size] || surrogate || code > 0x10FFFF ? Character{}
                                                                : Character{code, size};
}

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t size = FirstOf(bytes).Size;
    if (size == 0) return false;
    bytes.remove_prefix(size);
  }
  return true;
}

void AppendUtf8(std::string& text, char32_t code) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  const auto following = [code](unsigned shift) { return 0x80U | (code >> shift & 0x3FU); };
  if (code < 0x80) return append(code);
  if (code < 0x800) {
    append(0xC0U | code >> 6U);
  } else {
    if (code < 0x10000) {
      append(0xE0U | code >> 12U);
    } else {
      append(0xF0U | code >> 18U);
      append(following(12));
    }
    append(following(6));
  }
  append(following(0));
}

/// The units of UTF-16 bytes behind their mark; a lone byte at the end is half a unit.
class Utf16Units {
 public:
  Utf16Units(std::string_view bytes, bool bigEndian) : rest_(bytes), bigEndian_(bigEndian) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  [[nodiscard]] char32_t Peek() const {
    if (rest_.size() < 2) return kBroken;
    const auto first = static_cast<unsigned char>(rest_[0]);
    const auto second = static_cast<unsigned char>(rest_[1]);
    return static_cast<char32_t>(bigEndian_ ? first << 8U | second : second << 8U | first);
  }
  char32_t Take() {
    const char32_t unit = Peek();
    rest_.remove_prefix(std::min<std::size_t>(2, rest_.size()));
    return unit;
  }
  static constexpr char32_t kBroken = 0xFFFD;

 private:
  std::string_view rest_;
  bool bigEndian_;
};

std::string DecodeUtf16(Utf16Units units) {
  const auto isHigh = [](char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; };
  const auto isLow = [](char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; };
  std::string text;
  while (!units.AtEnd()) {
    char32_t code = units.Take();
    if (isHigh(code) && !units.AtEnd() && isLow(units.Peek())) {
      code = 0x10000 + ((code - 0xD800) << 10U) + (units.Take() - 0xDC00);
    } else if (isHigh(code) || isLow(code)) {
      code = Utf16Units::kBroken;
    }
    AppendUtf8(text, code);
  }
  return text;
}

std::optional<char> Windows1252Byte(char32_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  const auto at = std::find(kWindows1252.begin(), kWindows1252.end(), code);
  if (at == kWindows1252.end()) return std::nullopt;
  return static_cast<char>(0x80 + (at - kWindows1252.begin()));
}

std::optional<std::string> Windows1252Bytes(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const Character character = FirstOf(text);
    if (character.Size == 0) return std::nullopt;
    const auto byte = Windows1252Byte(character.Code);
    if (!byte) return std::nullopt;
    bytes += *byte;
    text.remove_prefix(character.Size);
  }
  return bytes;
}

}  // namespace

std::string DecodeText(std::string bytes) {
  if (IsUtf8(bytes)) {
    if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
    return bytes;
  }
  return TextOfAnsi(bytes);
}

std::string DecodeAnyText(std::string bytes) {
  const std::string_view all = bytes;
  if (all.starts_with("\xFE\xFF")) return DecodeUtf16({all.substr(2), true});
  if (all.starts_with("\xFF\xFE")) return DecodeUtf16({all.substr(2), false});
  return DecodeText(std::move(bytes));
}

std::string EncodeText(std::string_view text) {
  auto bytes = Windows1252Bytes(text);
  // Accented bytes that happen to be UTF-8 too would be read as other characters.
  if (bytes && (*bytes == text || !IsUtf8(*bytes))) return *std::move(bytes);
  std::string utf8(text);
  if (text.starts_with(kByteOrderMark)) utf8.insert(0, kByteOrderMark);
  return utf8;
}

std::string AnsiBytes(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const Character character = FirstOf(text);
    bytes += character.Size == 0 ? '?' : Windows1252Byte(character.Code).value_or('?');
    text.remove_prefix(std::max<std::size_t>(1, character.Size));
  }
  return bytes;
}

std::string TextOfAnsi(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendUtf8(text, byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80U] : byte);
  }
  return text;
}

std::string UpperCaseAnsi(std::string_view bytes) {
  std::string upper(bytes);
  for (char& c : upper) {
    const auto byte = static_cast<unsigned char>(c);
    const bool letter =
        (byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7);
    if (letter) c = static_cast<char>(byte - 0x20);
    if (byte == 0x9A || byte == 0x9C || byte == 0x9E) c = static_cast<char>(byte - 0x10);
    if (byte == 0xFF) c = static_cast<char>(0x9F);
  }
  return upper;
}

std::string_view CharacterAt(std::string_view text, std::size_t at) {
  if (at >= text.size()) return {};
  text.remove_prefix(at);
  return text.substr(0, std::max<std::size_t>(1, FirstOf(text).Size));
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at += CharacterAt(text, at).size()) ++count;
  return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; count > 0 && end < text.size(); --count) end += CharacterAt(text, end).size();
  return text.substr(0, end);
}

}  // namespace morvane
