#include "audit/redeal.h"

#include "generate/board_maker.h"
#include "program/log_record.h"

namespace morvane::audit {
namespace {

using generate::RejectionTests;

/// A candidate, the dealer behind it, and what was rejected up to it.
struct Candidate {
  Board Deal;
  generate::NumberDealer Dealer;
  generate::RejectCounts Rejected;
};

/// Whether the log means this candidate, even if some of its record was changed.
bool IsLogged(const Board& deal, const LoggedRecord& logged) {
  const LoggedRecord record{0, 0, FormatBoardForLog(deal, true)};
  return record.Hands() == logged.Hands() || record.DealNumber() == logged.DealNumber() ||
         record.DealCounter() == logged.DealCounter();
}

bool Rejects(RejectionTests& tests, Candidate& candidate, int k) {
  const int shapeRejects = tests.ShapeRejects;
  if (!tests.Rejects(candidate.Deal, k)) return false;
  ++(tests.ShapeRejects > shapeRejects ? candidate.Rejected.Shape : candidate.Rejected.Inner);
  return true;
}

/// The candidate behind `at` that became board `k`: the logged one, if it can be reached by passing
/// over no more than `historyRejects` in the whole set, otherwise the first that passes.
std::optional<Candidate> FindBoard(RejectionTests& tests, Candidate at, int k,
                                   const LoggedRecord* logged, int historyRejects) {
  std::optional<Candidate> first;
  for (int attempt = 1; attempt < generate::kAttempts; ++attempt) {
    at.Dealer.NextNumberDeal(at.Deal);
    AnalyzeBoard(at.Deal);
    if (Rejects(tests, at, k)) continue;
    if (!first) first = at;
    if (logged == nullptr) break;
    if (IsLogged(at.Deal, *logged)) return at;
    if (at.Rejected.History >= historyRejects) break;
    ++at.Rejected.History;
  }
  return first;
}

}  // namespace

Redealer::Redealer() : set_(std::make_unique<BoardSet>()) {}

DealtAgain Redealer::Deal(const generate::GenerateLine& line, const generate::NumberDealer& dealer,
                          const RecordOfBoard& logged) {
  set_->ShapeCount.fill(0);
  const auto& [on, rejected] = *line.Dealt;
  RejectionTests tests(*set_, noHistory_, line.First, {on.Shape, on.Inner, false}, {});
  const int historyRejects = on.History ? rejected.History : 0;
  DealtAgain result;
  Candidate at{{}, dealer, {}};
  for (int k = line.First; k <= line.Last; ++k) {
    const auto found = FindBoard(tests, at, k, logged[static_cast<std::size_t>(k)], historyRejects);
    if (!found) break;
    at = *found;
    generate::Accept(*set_, at.Deal, k);
    result.Boards.push_back(FormatBoardForLog(at.Deal, true));
  }
  result.Rejected = at.Rejected;
  return result;
}

}  // namespace morvane::audit
