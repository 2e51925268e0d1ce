#include "poker/pkr_file.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "text/box_text.h"
#include "text/text.h"
#include "text/text_encoding.h"
#include "text/text_lines.h"
#include "wire/machine_card.h"

namespace morvane::poker {
namespace {

constexpr std::size_t kField = 3;
constexpr std::size_t kDealLine = kSlots * kField;
constexpr std::string_view kPlayersLine = "  6";  // written always, never looked at: required

/// A field's card 0..55; blanks may stand on both sides of its digits.
std::optional<std::uint8_t> SlotOf(std::string_view field) {
  const std::size_t from = std::min(field.find_first_not_of(' '), field.size());
  const std::size_t to = field.find_last_not_of(' ') + 1;
  int card = -1;
  const auto digits = field.substr(from, std::max(from, to) - from);
  const auto* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, card);
  const bool right = read.ec == std::errc() && read.ptr == end && digits.front() != '-' &&
                     card <= wire::MachineCard::kLast;
  return right ? std::optional(static_cast<std::uint8_t>(card)) : std::nullopt;
}

std::optional<PokerDeal> DealOf(std::string_view line) {
  if (line.size() != kDealLine) return std::nullopt;
  PokerDeal deal{};
  for (std::size_t slot = 1; slot <= kSlots; ++slot) {
    const auto card = SlotOf(line.substr((slot - 1) * kField, kField));
    if (!card) return std::nullopt;
    deal[slot] = *card;
  }
  return deal;
}

bool ReadTexts(Lines& lines, PokerOrder& order) {
  std::string_view line;
  for (const auto text :
       {&PokerOrder::Poker_Event, &PokerOrder::Poker_Site, &PokerOrder::Poker_Date}) {
    if (!lines.Next(line)) return false;
    order.*text = line;
  }
  return lines.Next(line);
}

/// How many deals follow; nothing when one of them is none, or there are too few or too many.
std::optional<int> ReadDeals(Lines& lines, PokerOrder& order) {
  int count = 0;
  for (std::string_view line; lines.Next(line);) {
    const auto deal = DealOf(line);
    if (!deal || count == kMostDeals) return std::nullopt;
    order.PokerDeals[static_cast<std::size_t>(++count)] = *deal;
  }
  return count == 0 ? std::nullopt : std::optional(count);
}

/// A number behind as many blanks as make it a field.
std::string FieldOf(std::uint8_t card) {
  std::string digits = std::to_string(card);
  return digits.insert(0, kField - digits.size(), ' ');
}

std::string LineOf(const PokerDeal& deal) {
  std::string line;
  for (std::size_t slot = 1; slot <= kSlots; ++slot) line += FieldOf(deal[slot]);
  return line;
}

}  // namespace

bool ReadPokerFile(std::string bytes, PokerOrder& order) {
  const std::string text = DecodeText(std::move(bytes));
  Lines lines(text);
  if (!ReadTexts(lines, order)) return false;
  const auto count = ReadDeals(lines, order);
  if (count) order.PokerDealCount = static_cast<std::int16_t>(*count);
  return count.has_value();
}

std::string PokerFileBytes(const PokerOrder& order) {
  std::string text;
  const auto add = [&text](std::string_view line) { text.append(line).append(kCrLf); };
  for (const std::string& line : {order.Poker_Event, order.Poker_Site, order.Poker_Date}) {
    add(WithoutControls(line));
  }
  add(kPlayersLine);
  for (int deal = 1; deal <= order.PokerDealCount; ++deal) {
    add(LineOf(order.PokerDeals[static_cast<std::size_t>(deal)]));
  }
  return EncodeText(text);
}

}  // namespace morvane::poker
