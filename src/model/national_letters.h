#pragma once

#include <array>
#include <string_view>

#include "model/tables.h"

namespace morvane {

/// The letters of Ace, King, Queen, Jack and Ten on cards of each country, in the order of the
/// options `National_1` to `National_7`. The Swedish Jack alone has two letters.
inline constexpr std::array<std::array<std::string_view, 5>, 7> NationalLetters{{
    {"A", "K", "Q", "J", "T"},
    {"A", "R", "D", "V", "X"},
    {"1", "R", "D", "V", "X"},
    {"A", "K", "D", "B", "Z"},
    {"A", "H", "V", "B", "T"},
    {"E", "K", "D", "B", "T"},
    {"E", "K", "D", "Kn", "T"},
}};

/// The letter of card 1..52 in the country `national` 0..6; the ranks below Ten are everywhere the
/// same.
[[nodiscard]] constexpr std::string_view NationalLetter(int national, int card) {
  const auto rank = static_cast<std::size_t>(RankPosition(card)) - 1;
  const auto& letters = NationalLetters[static_cast<std::size_t>(national)];
  return rank < letters.size() ? letters[rank] : CardLetters.substr(rank, 1);
}

}  // namespace morvane
