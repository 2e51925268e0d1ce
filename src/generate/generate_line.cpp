#include "generate/generate_line.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <span>

#include "model/tables.h"

namespace morvane::generate {
namespace {

constexpr std::string_view kBetween = " : ";

std::string Triple(int a, int b, int c) {
  return std::to_string(a) + "," + std::to_string(b) + "," + std::to_string(c);
}

/// Whatever stands between the digits; the caller compares the whole text.
bool ReadNumbers(std::string_view text, std::span<int> numbers) {
  for (int& number : numbers) {
    const std::size_t digit = text.find_first_of("0123456789");
    if (digit == std::string_view::npos) return false;
    text.remove_prefix(digit);
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc()) return false;
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
  }
  return true;
}

}  // namespace

std::string GenerateLine::Text() const {
  std::string text = std::string(kStart) + std::to_string(First) + "," + std::to_string(Last);
  if (Dealt) {
    const auto& [on, rejected] = *Dealt;
    text.append(kBetween).append(Triple(on.Shape, on.Inner, on.History));
    text.append(kBetween).append(Triple(rejected.Shape, rejected.Inner, rejected.History));
  }
  return text;
}

std::optional<GenerateLine> GenerateLine::Parse(std::string_view text) {
  std::array<int, 8> numbers{};
  GenerateLine line;
  const bool dealt = text.find(kBetween) != std::string_view::npos;
  if (!ReadNumbers(text, std::span(numbers).first(dealt ? 8 : 2))) return std::nullopt;
  line.First = numbers[0];
  line.Last = numbers[1];
  if (dealt) {
    line.Dealt = {{numbers[2] != 0, numbers[3] != 0, numbers[4] != 0},
                  {numbers[5], numbers[6], numbers[7]}};
  }
  const bool inRange = line.First >= 1 && line.First <= line.Last && line.Last <= kMaxBoards;
  if (!inRange || line.Text() != text) return std::nullopt;
  return line;
}

}  // namespace morvane::generate
