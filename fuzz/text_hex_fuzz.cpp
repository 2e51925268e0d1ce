#include <cctype>
#include <cstdint>
#include <numeric>
#include <span>
#include <string>
#include <string_view>

#include "maintenance/factory_files.h"
#include "support.h"
#include "text/text.h"
#include "text/text_lines.h"

namespace {

using namespace morvane;
using namespace morvane::maintenance;

constexpr std::string_view kEnd = ":00000001FF\r\n";

int LinesOf(std::string_view text) {
  Lines lines(text);
  int count = 0;
  for (std::string_view line; lines.Next(line);) ++count;
  return count;
}

/// The data of a record, which must have its check, and the address behind the one before.
std::string DataOf(std::string_view record, std::size_t& address) {
  Require(record.starts_with(':'));
  const auto bytes = BytesOfHex(record.substr(1));
  Require(bytes && bytes->size() >= 6 && bytes->size() == bytes->front() + 5U);
  Require(std::accumulate(bytes->begin(), bytes->end(), 0U) % 256 == 0);
  const std::size_t at = bytes->at(1) * 256U + bytes->at(2);
  Require(at == address && bytes->front() <= 16 && at + bytes->front() <= 0x10000);
  address += bytes->front();
  return HexBytes(std::span(*bytes).subspan(4, bytes->front()));
}

/// The hexadecimal digits of the lines between the address and the end, and no others.
std::string DigitsOf(std::string_view text) {
  Lines lines(text);
  std::string digits;
  std::string_view line;
  Require(lines.Next(line));
  while (lines.Next(line) && !line.starts_with('q')) {
    for (const char c : line) {
      if (std::isxdigit(static_cast<unsigned char>(c)) != 0) digits += UpperLetter(c);
    }
  }
  return digits;
}

void RequireSame(std::string_view text, std::string_view hex) {
  Require(hex.ends_with(kEnd));
  hex.remove_suffix(kEnd.size());
  std::size_t address = 0;
  if (!hex.empty()) {
    const auto start = BytesOfHex(hex.substr(3, 4));
    Require(start.has_value());
    address = start->at(0) * 256U + start->at(1);
  }
  Lines records(hex);
  std::string data;
  for (std::string_view record; records.Next(record);) data += DataOf(record, address);
  Require(data == DigitsOf(text));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  std::string hex = "as it was";
  const auto fault = TextToHex(text, hex);
  if (fault) {
    Require(hex == "as it was" && !fault->What.empty());
    Require(fault->Line >= 1 && fault->Line <= LinesOf(text) + 1);
  } else {
    RequireSame(text, hex);
  }
  return 0;
}
