#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "audit/logged_set.h"
#include "generate/number_dealer.h"
#include "history/history_ring.h"

namespace morvane::audit {

/// A set as its seeds and tests make it.
struct DealtAgain {
  /// Board `First` and those behind it, as `FormatBoardForLog` writes them in the long form. They
  /// end where no candidate passes the tests: the set cannot have been made so.
  std::vector<std::string> Boards;
  /// The history counts what was passed over although it passes the other tests.
  generate::RejectCounts Rejected;
};

/// The record of a board, or nothing where the log has none.
using RecordOfBoard = std::vector<const LoggedRecord*>;

/// Deals sets of the number generator again, as `GenerateSet` did. The history of that day is gone:
/// where the log counts rejections by it, a candidate that the other tests let pass may be passed
/// over as often, when that leads to the logged board.
class Redealer {
 public:
  Redealer();
  /// The set of `line`, which has tests, by a dealer with its seeds. `logged` is by board number
  /// 0..640.
  [[nodiscard]] DealtAgain Deal(const generate::GenerateLine& line,
                                const generate::NumberDealer& dealer, const RecordOfBoard& logged);

 private:
  std::unique_ptr<BoardSet> set_;
  history::HistoryRing noHistory_;
};

}  // namespace morvane::audit
