#pragma once

#include <optional>
#include <string>
#include <vector>

#include "audit/logged_set.h"
#include "audit/redeal.h"
#include "audit/set_origin.h"

namespace morvane::audit {

/// What is wrong with a board, or with one of its records.
struct BoardFinding {
  enum Verdict {
    kDiffers,     ///< it is not as its seeds make it
    kMissing,     ///< the log has no record of it
    kTwice,       ///< the log has a record of it already
    kNotInRange,  ///< the set has no such board
    kOutOfOrder   ///< as its seeds make it, but behind a later board
  };
  int Number = 0;
  Verdict Is = kDiffers;
  std::size_t Line = 0;  ///< of the record; 0 for a missing one
  // Of a board that differs:
  bool Hands = false;
  bool DealNumber = false;
  bool DealCounter = false;
  bool BeyondReach = false;    ///< the counter is greater than that of any set
  bool CannotBeDealt = false;  ///< there are no seeds, or no candidate passes the tests
  bool operator==(const BoardFinding&) const = default;
};

/// A set of the log held against what its seeds make.
struct SetAudit {
  enum Kind { kNumber, kShuffling, kEmpty, kDamagedLine, kNoGenerateLine };
  Kind Is = kNumber;
  std::size_t Line = 0;
  generate::GenerateLine What;  ///< not of damaged ones
  int Records = 0;
  /// Those it was held against; nothing when the log has none left.
  std::optional<LoggedSeeds> Seeds;
  bool SeedsFit = false;  ///< at least one board's deal number is of these seeds
  int SameBoards = 0;
  std::vector<BoardFinding> Findings;
  /// What the tests reject when the set is dealt again; nothing when it cannot be, whole.
  std::optional<generate::RejectCounts> Rejected;
  SetOrigin Origin;
  std::string Fingerprint;  ///< empty unless each board of the range has one record, and no other

  /// Whether anything in it can be proved: it is of the number generator, or nobody knows.
  [[nodiscard]] bool IsChecked() const { return Is != kShuffling && Is != kEmpty; }
  /// Whether the log shows the set as its seeds and tests make it, in every board and count.
  [[nodiscard]] bool IsSame() const;
  [[nodiscard]] bool CountsAreSame() const;
};

/// Block counters of a set are far below: 640 boards of 49 candidates take about 46,000 blocks.
inline constexpr std::uint32_t kHighestCounter = 1'000'000;

/// The block counter of a record; nothing when it is not eight hexadecimal digits.
[[nodiscard]] std::optional<std::uint32_t> CounterOf(const LoggedRecord& record);

/// Holds a dealt `set` against what `dealer` with its seeds, where there are any, makes of it.
/// `audit` is what is known of it so far.
void AuditBoards(const LoggedSet& set, const std::optional<generate::NumberDealer>& dealer,
                 Redealer& redealer, SetAudit& audit);

}  // namespace morvane::audit
