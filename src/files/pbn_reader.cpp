#include "files/pbn_reader.h"

#include <array>

#include "files/pbn_values.h"
#include "text/box_text.h"
#include "text/text.h"
#include "text/text_encoding.h"
#include "text/text_lines.h"

namespace morvane::files {
namespace {

struct TagName {
  std::string_view Name;
  PbnTag Tag;
};
/// In order of comparison: only the name's length is compared, so `Dealer` stands before `Deal`.
constexpr std::array<TagName, 8> kTagNames{{{"Event", PbnTag::kEvent},
                                            {"Site", PbnTag::kSite},
                                            {"Date", PbnTag::kDate},
                                            {"Board", PbnTag::kBoard},
                                            {"Dealer", PbnTag::kDealer},
                                            {"Vulnerable", PbnTag::kVul},
                                            {"Deal", PbnTag::kDeal},
                                            {"DoubleDummyTricks", PbnTag::kDouble}}};

struct VulWord {
  std::string_view Word;
  std::uint8_t Vul;
};
constexpr std::array<VulWord, 13> kVulWords{{{"None", 1},
                                             {"Love", 1},
                                             {"-", 1},
                                             {"none", 1},
                                             {"love", 1},
                                             {"NS", 2},
                                             {"ns", 2},
                                             {"EW", 3},
                                             {"ew", 3},
                                             {"All", 4},
                                             {"Both", 4},
                                             {"all", 4},
                                             {"both", 4}}};

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

std::string InvalidString(const Messages& texts, std::string_view value) {
  return Fill(texts.Msg025, "***", '"' + std::string(value) + '"');
}

void SetEventText(std::string& text, std::string_view value) {
  // A repeat mark alone says "as before"; in front of a text it is taken off.
  if (value.empty() || value == "#" || value == "##") return;
  for (int mark = 0; mark < 2 && value.starts_with('#'); ++mark) value.remove_prefix(1);
  text = value;
}

std::string SetBoardNumber(PbnReading& reading, std::string_view value) {
  reading.State = PbnReading::Stage::kBoard;
  const std::size_t other = value.find_first_not_of("0123456789");
  if (other != std::string_view::npos) {
    return Fill(reading.Texts.Msg027, "***", CharacterAt(value, other));
  }
  const int number = Val(value);
  if (number < 1 || number > kMaxBoards) return reading.Texts.Msg024;
  reading.BoardNumber = number;
  reading.Set.At(number) = Board{};
  reading.Set.At(number).Number = static_cast<std::int16_t>(number);
  return {};
}

std::string SetDealer(PbnReading& reading, std::string_view value) {
  const int hand = value.size() == 1 ? HandOfLetter(value[0]) : 0;
  if (hand == 0) return InvalidString(reading.Texts, value);
  reading.Set.At(reading.BoardNumber).Dealer = static_cast<std::uint8_t>(hand);
  return {};
}

std::string SetVul(PbnReading& reading, std::string_view value) {
  for (const auto& [word, vul] : kVulWords) {
    if (word != value) continue;
    reading.Set.At(reading.BoardNumber).Vul = vul;
    return {};
  }
  return InvalidString(reading.Texts, value);
}

std::string SetDeal(PbnReading& reading, std::string_view value) {
  if (reading.State != PbnReading::Stage::kBoard) return reading.Texts.Msg026;
  reading.State = PbnReading::Stage::kDeal;
  return ParsePbnDeal(value, reading.Set.At(reading.BoardNumber), reading.Texts);
}

std::string SetTricks(PbnReading& reading, std::string_view value) {
  if (reading.State != PbnReading::Stage::kDeal) return reading.Texts.Msg026;
  return ParsePbnTricks(value, reading.Set.At(reading.BoardNumber), reading.Texts);
}

const TagName* TagAt(std::string_view text) {
  for (const TagName& tag : kTagNames) {
    if (text.starts_with(tag.Name)) return &tag;
  }
  return nullptr;
}

/// Reads the value and the closing bracket of a known tag from `p` on, and applies it.
std::string ReadTag(PbnReading& reading, PbnTag tag, std::string_view line, std::size_t& p) {
  const std::size_t open = line.find_first_of("]\"", p);
  if (open == std::string_view::npos || line[open] != '"') {
    return Fill(reading.Texts.Msg023, "***", "\"");
  }
  const std::size_t close = line.find_first_of("]\"", open + 1);
  if (close == std::string_view::npos || line[close] != '"') {
    return Fill(reading.Texts.Msg023, "***", "\"");
  }
  const std::size_t end = line.find(']', close);
  if (end == std::string_view::npos) return Fill(reading.Texts.Msg023, "***", "]");
  p = end + 1;
  return ApplyPbnTag(reading, tag, line.substr(open + 1, close - open - 1));
}

/// Reads every known tag of a line, left to right; whatever else stands there is skipped.
std::string ReadLine(PbnReading& reading, std::string_view line) {
  std::size_t p = 0;
  while (true) {
    p = line.find('[', p);
    while (p < line.size() && !IsLetter(line[p])) ++p;
    if (p >= line.size()) return {};
    const TagName* const tag = TagAt(line.substr(p));
    if (tag == nullptr) continue;
    p += tag->Name.size();
    if (auto error = ReadTag(reading, tag->Tag, line, p); !error.empty()) return error;
  }
}

/// First and last board by the numbers found; false when there is none.
bool SetLimits(BoardSet& set) {
  for (int n = 1; n <= kMaxBoards; ++n) {
    if (set.At(n).Number == 0) continue;
    if (!set.Exists()) set.FirstBoard = static_cast<std::int16_t>(n);
    set.LastBoard = static_cast<std::int16_t>(n);
  }
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) AnalyzeBoard(set.At(n));
  return set.Exists();
}

}  // namespace

std::string ApplyPbnTag(PbnReading& reading, PbnTag tag, std::string_view value) {
  switch (tag) {
    case PbnTag::kEvent:
      SetEventText(reading.Set.EventName, value);
      return {};
    case PbnTag::kSite:
      SetEventText(reading.Set.EventSite, value);
      return {};
    case PbnTag::kDate:
      SetEventText(reading.Set.EventDate, value);
      return {};
    case PbnTag::kBoard:
      return SetBoardNumber(reading, value);
    case PbnTag::kDealer:
      return SetDealer(reading, value);
    case PbnTag::kVul:
      return SetVul(reading, value);
    case PbnTag::kDeal:
      return SetDeal(reading, value);
    case PbnTag::kDouble:
      return SetTricks(reading, value);
  }
  return {};
}

std::optional<FormatFault> ParsePbn(std::string_view text, BoardSet& set, const Messages& texts) {
  PbnReading reading{set, texts};
  Lines lines(text);
  int number = 0;
  for (std::string_view line; lines.Next(line);) {
    ++number;
    if (auto error = ReadLine(reading, line); !error.empty()) {
      return FormatFault{std::move(error), number};
    }
  }
  if (!SetLimits(set)) return FormatFault{texts.Msg013, number};
  return std::nullopt;
}

}  // namespace morvane::files
