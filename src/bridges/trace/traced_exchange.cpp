#include "bridges/trace/traced_exchange.h"

#include <algorithm>
#include <span>

#include "bridges/trace/trace_question.h"

namespace morvane::bridges {
namespace {

/// More than any exchange reads.
constexpr std::size_t kMostLines = 8;

}  // namespace

void TracedExchange::Begin(const TraceLine& write) {
  End();
  command_ = CommandIn(write);
  lines_.push_back(write);
}

TracedExchange::Reply TracedExchange::Take(const TraceLine& read) {
  whole_ = lines_.size() < kMostLines;
  if (whole_) lines_.push_back(read);
  const bool isWhole = read.Bytes.size() == read.Numbers[1];
  if (!isWhole || received_ + read.Bytes.size() > reply_.size()) {
    received_ = 0;
    return Reply::kNone;
  }
  std::copy(read.Bytes.begin(), read.Bytes.end(), reply_.begin() + received_);
  received_ += read.Bytes.size();
  return Judge();
}

TracedExchange::Reply TracedExchange::Judge() {
  if (received_ < wire::kShortFrame) return Reply::kBegun;
  const auto wanted = wire::SizeOnTheWire(std::span(reply_).first(wire::kShortFrame));
  if (received_ < wanted) return Reply::kBegun;
  received_ = 0;
  const bool holds = wire::Unscramble(std::span(reply_).first(wanted), wire::kStepFromMachine);
  return holds ? Reply::kGood : Reply::kBad;
}

}  // namespace morvane::bridges
