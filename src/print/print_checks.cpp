#include "print/print_checks.h"

#include <algorithm>

#include "model/results.h"

namespace morvane::print {

RangeFault CheckRange(const BoardSet& set, const PrintOptions& options) {
  const auto isIn = [&set](int n) { return n >= set.FirstBoard && n <= set.LastBoard; };
  if (!isIn(options.From)) return RangeFault::kFrom;
  if (!isIn(options.To)) return RangeFault::kTo;
  return options.To < options.From ? RangeFault::kOrder : RangeFault::kNone;
}

std::string TextOf(RangeFault fault, const Messages& texts) {
  switch (fault) {
    case RangeFault::kNone:
      break;
    case RangeFault::kFrom:
      return texts.Msg074;
    case RangeFault::kTo:
      return texts.Msg075;
    case RangeFault::kOrder:
      return texts.Msg076;
  }
  return "";
}

bool LacksAnalysis(const BoardSet& set, const PrintOptions& options) {
  if (!options.Analysis) return false;
  const auto* const boards = set.Boards.data();
  return !std::all_of(boards + options.From, boards + options.To + 1, HasResults);
}

}  // namespace morvane::print
