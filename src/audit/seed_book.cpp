#include "audit/seed_book.h"

#include <algorithm>

#include "audit/set_audit.h"
#include "generate/seeds.h"
#include "text/text.h"

namespace morvane::audit {
namespace {

/// As many processes at once as nobody has; more would make a long log of failed runs slow.
constexpr std::size_t kMostWaiting = 32;

/// Whether the deal number of a record is that of its block under these seeds.
bool Fits(const LoggedRecord& record, generate::NumberDealer dealer) {
  const auto counter = CounterOf(record);
  if (!counter || *counter == 0 || *counter > kHighestCounter) return false;
  dealer.BlockCounter = static_cast<std::int32_t>(*counter) - 1;
  Board board;
  dealer.NextNumberDeal(board);
  return HexBytes(board.DealCounter) == record.DealCounter() &&
         HexBytes(board.DealNumber) == record.DealNumber();
}

}  // namespace

void SeedBook::AddNumberSeeds(LoggedSeeds seeds) {
  SeededDealer seeded{std::move(seeds), {}};
  latestIsShuffling_ = false;
  if (!generate::SetNumberSeeds(seeded.Dealer, seeded.Seeds.Seedr, seeded.Seeds.Seedo)) return;
  waiting_.push_back(std::move(seeded));
  if (waiting_.size() <= kMostWaiting) return;
  givenUp_.push_back(waiting_.front().Seeds.Line);
  waiting_.pop_front();
}

void SeedBook::AddShufflingSeed() {
  ++shufflingSeeds_;
  latestIsShuffling_ = true;
}

std::optional<SeededDealer> SeedBook::TakeFitting(std::span<const LoggedRecord> records) {
  auto best = waiting_.rend();
  std::ptrdiff_t most = 0;
  const auto all = static_cast<std::ptrdiff_t>(records.size());
  for (auto seeds = waiting_.rbegin(); seeds != waiting_.rend() && most < all; ++seeds) {
    const auto fitting =
        std::count_if(records.begin(), records.end(),
                      [&](const LoggedRecord& record) { return Fits(record, seeds->Dealer); });
    if (fitting <= most) continue;
    most = fitting;
    best = seeds;
  }
  if (best == waiting_.rend()) return std::nullopt;
  SeededDealer taken = std::move(*best);
  waiting_.erase(std::next(best).base());
  return taken;
}

std::optional<SeededDealer> SeedBook::LatestNumberSeeds() const {
  if (waiting_.empty()) return std::nullopt;
  return waiting_.back();
}

bool SeedBook::TakeShufflingSeed() {
  if (shufflingSeeds_ == 0) return false;
  --shufflingSeeds_;
  return true;
}

std::vector<std::size_t> SeedBook::Unused() const {
  std::vector<std::size_t> lines = givenUp_;
  for (const SeededDealer& seeds : waiting_) lines.push_back(seeds.Seeds.Line);
  return lines;
}

}  // namespace morvane::audit
