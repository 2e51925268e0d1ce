#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/board.h"

namespace morvane::files {

// The values of PBN as other programs write them, out of a `PlainText`: the only blank is ' '.
// Those at the ends are gone already.

/// In bytes; no value that can be used is longer.
inline constexpr std::size_t kLongestValue = 1024;

/// 1..640; nothing for any other text.
[[nodiscard]] std::optional<int> ImportedNumber(std::string_view text);
/// A hand 1..4 by its letter or name, in any case.
[[nodiscard]] std::optional<std::uint8_t> ImportedDealer(std::string_view text);
/// 1 None .. 4 All; case, blanks and the sign between two letters do not count.
[[nodiscard]] std::optional<std::uint8_t> ImportedVul(std::string_view text);

/// What a `Deal` says.
struct ImportedDeal {
  decltype(Board::Cards) Cards{};
  /// [hand]: the deal says what it holds. A hand without cards is given, "-" and a hand that is
  /// left out are not.
  std::array<bool, 5> Given{};
  std::string Fault;  ///< in plain words; empty when the deal can be used
};
/// `text` may begin with any hand and have fewer than four.
[[nodiscard]] ImportedDeal ReadImportedDeal(std::string_view text);

/// The double-dummy results of a board, laid out as `Board::Tricks`.
using ImportedTricks = decltype(Board::Tricks);
// Each gives nothing unless all 20 results are there: what is left open in a part would stand as
// "no level makes" in the set. Tricks below 7 are level 0.

/// The 20 characters of `DoubleDummyTricks`.
[[nodiscard]] std::optional<ImportedTricks> TricksOfDigits(std::string_view text);
/// The lines of an `OptimumResultTable` whose columns stand in `header`.
[[nodiscard]] std::optional<ImportedTricks> TricksOfTable(std::string_view header,
                                                          std::string_view rows);
/// The `Ability` of each declarer: "N:67B58 S:67B58 EW:75482", "N:6-7B58".
[[nodiscard]] std::optional<ImportedTricks> TricksOfAbility(std::string_view text);

}  // namespace morvane::files
