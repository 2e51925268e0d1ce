#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/pbn_import_scanner.h"

namespace morvane::files {

/// The tags that say something about a board set.
enum class GameTag : std::size_t {
  kEvent,
  kSite,
  kDate,
  kEventDate,
  kBoard,
  kDealer,
  kVulnerable,
  kDeal,
  kDoubleDummyTricks,
  kOptimumResultTable,
  kAbility,
};
inline constexpr std::size_t kGameTags = 11;

/// A tag's value in one game.
struct GameValue {
  /// Repeat marks are replaced by what they repeat; no blanks at the ends. Empty when nothing is
  /// known: no tag, or one of the marks for it ("", "?", "????.??.??").
  [[nodiscard]] std::string_view Text() const { return Shared ? *Shared : std::string_view(); }

  /// The text, shared by the games that repeat it: a short game may repeat a long one. Null =
  /// empty.
  std::shared_ptr<const std::string> Shared;
  int Line = 0;          ///< where it was read; 0 = the game has no such tag
  bool Changed = false;  ///< another than the game before has
};

/// One game of a PBN text.
struct PbnGame {
  std::array<GameValue, kGameTags> Values;
  std::string TableRows;       ///< the lines of its `OptimumResultTable`
  int Line = 0;                ///< of its first tag that counts; 0 = none yet
  std::vector<PbnFlaw> Flaws;  ///< the first few

  [[nodiscard]] const GameValue& At(GameTag tag) const {
    return Values[static_cast<std::size_t>(tag)];
  }
};

/// Reads the games of a PBN text one after the other. A game ends in front of an `Event`, `Site`,
/// `Date`, `Board`, `Dealer`, `Vulnerable` or `Deal` that it has already, and, once it has a deal,
/// in front of any of these behind a line of blanks. Of other tags that it has twice the first
/// counts.
class PbnGames {
 public:
  /// `text` as the scanner takes it.
  explicit PbnGames(std::string_view text);

  /// The next game, which holds until the next call; null when there is none.
  const PbnGame* Next();

 private:
  using SharedText = std::shared_ptr<const std::string>;

  void Begin();
  void Take(GameTag which);
  [[nodiscard]] SharedText Resolved(std::size_t at);
  [[nodiscard]] SharedText Share(std::size_t at, std::string_view text) const;
  [[nodiscard]] bool BeginsGame(GameTag which) const;
  void FillIn();

  PbnImportScanner scanner_;
  PbnTagPair tag_;  ///< read ahead
  bool more_ = false;
  PbnGame game_;
  std::array<SharedText, kGameTags> before_;  ///< the texts of the game before
  /// What a game without the tag has, from a "##" on.
  std::array<std::optional<SharedText>, kGameTags> defaults_;
};

}  // namespace morvane::files
