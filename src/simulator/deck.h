#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <utility>

#include "model/board.h"
#include "model/tables.h"
#include "wire/card_bytes.h"

namespace morvane::simulator {

/// A pile of machine cards of at most four packs, lowest first. It never allocates.
class Pile {
 public:
  static constexpr std::size_t kCapacity = 4 * std::size_t{kCards};
  void Clear() { count_ = 0; }
  /// A card more than the pile holds is dropped.
  void Add(int card) {
    if (count_ < kCapacity) cards_[count_++] = static_cast<std::uint8_t>(card);
  }
  /// All cards of `pile` on top, as they lie.
  void AddAll(const Pile& pile);
  /// Takes the card at `at` out.
  void RemoveAt(std::size_t at);
  /// Takes `card` out, where it is there.
  void Remove(int card);
  void Exchange(std::size_t a, std::size_t b) { std::swap(cards_[a], cards_[b]); }
  /// The lowest card becomes the topmost.
  void TurnOver();
  [[nodiscard]] std::size_t Count() const { return count_; }
  [[nodiscard]] int operator[](std::size_t at) const { return cards_[at]; }

 private:
  friend class Feeder;
  std::array<std::uint8_t, kCapacity> cards_{};
  std::size_t count_ = 0;
};

/// A pack by its machine cards, first one first.
using Pack = std::array<std::uint8_t, kCards>;
/// Whether each of 1..52 is there once.
[[nodiscard]] bool IsWhole(Pack pack);

/// The cards that wait to be fed. Every load is a fresh, fairly shuffled pack, unless there is one
/// order for all; the same seed gives the same packs on every system.
class Feeder {
 public:
  explicit Feeder(std::uint64_t seed) : engine_(seed) {}
  void Seed(std::uint64_t seed) { engine_.seed(seed); }

  /// One pack: that of `Prepare` when there is one, otherwise as `LieAlways` has said, or shuffled.
  void LoadPack();
  /// So many packs, four at most, shuffled together.
  void LoadPacks(int packs);
  /// A pack in which the card at place k of the feeder belongs to the hand of pocket element k of
  /// `pockets`, as far as `board` has such a card; the others lie as loaded.
  void LoadForReading(const Board& board, const wire::CardBytes& pockets);

  /// The next `LoadPack` has these machine cards, first one first. False unless it is whole.
  bool Prepare(const Pack& cards);
  /// Each pack, but not several at once, lies like this from now on.
  void LieAlways(const Pack& cards) { always_ = cards; }

  /// The cards of `pile` instead of what lies there; the lowest is fed first.
  void Load(const Pile& pile);
  /// The same by somebody who means the next run to find these cards, until another load.
  void Lay(const Pile& pile);
  /// Whether somebody has done so; only once.
  [[nodiscard]] bool TakeLaid() { return std::exchange(laid_, false); }

  void Empty();
  [[nodiscard]] std::size_t Left() const { return cards_.Count() - fed_; }
  [[nodiscard]] std::size_t Loaded() const { return cards_.Count(); }
  /// The card in front of the camera; there must be one.
  [[nodiscard]] int Front() const { return cards_[fed_]; }
  /// The card that comes `at` cards behind it.
  [[nodiscard]] int Waiting(std::size_t at) const { return cards_[fed_ + at]; }
  void Feed() { ++fed_; }

 private:
  void Shuffle();
  std::size_t Below(std::size_t limit);

  std::mt19937_64 engine_;
  Pile cards_;
  std::size_t fed_ = 0;
  bool laid_ = false;
  std::optional<Pack> prepared_;
  std::optional<Pack> always_;
};

}  // namespace morvane::simulator
