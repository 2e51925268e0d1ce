#include "audit/log_audit.h"

#include <algorithm>
#include <utility>

#include "audit/fingerprint.h"

namespace morvane::audit {
namespace {

/// Whether the record says that its deal has a number, which the shuffling generator's do not.
bool HasNumber(const LoggedRecord& record) {
  const auto anyDigit = [](std::string_view digits) {
    return digits.find_first_not_of('0') != std::string_view::npos;
  };
  return anyDigit(record.DealNumber()) || anyDigit(record.DealCounter());
}

bool IsWhole(const LoggedSet& set) {
  std::vector<int> numbers;
  for (const LoggedRecord& record : set.Records) numbers.push_back(record.Number);
  std::sort(numbers.begin(), numbers.end());
  int next = set.What.First;
  for (const int number : numbers) {
    if (number != next++) return false;
  }
  return next == set.What.Last + 1;
}

}  // namespace

void LogAudit::End() {
  finder_.End();
  GiveLatest();
}

void LogAudit::OnOtherLine(std::string_view line) {
  SetOrigin nobodys;
  if (!origins_.Take(line, latest_ ? latest_->Origin : nobodys)) GiveLatest();
}

void LogAudit::GiveLatest() {
  if (latest_) onSet_(*latest_);
  latest_.reset();
}

void LogAudit::OnSet(const LoggedSet& set) {
  GiveLatest();
  SetAudit audit;
  audit.Origin = origins_.Before();
  audit.Is = KindOf(set);
  audit.Line = set.Line;
  audit.What = set.What;
  audit.Records = static_cast<int>(set.Records.size()) + set.OtherRecords;
  if (set.Is == LoggedSet::kDealt && IsWhole(set)) audit.Fingerprint = SetFingerprint(set.Records);
  if (audit.Is == SetAudit::kNumber) CheckBoards(set, audit);
  if (audit.IsChecked()) ++checked_;
  if (audit.IsSame()) ++same_;
  latest_ = std::move(audit);
}

/// A dealt set without any number is the shuffling generator's only where such a seed stands before
/// it; otherwise its numbers have been wiped out.
SetAudit::Kind LogAudit::KindOf(const LoggedSet& set) {
  if (set.Is == LoggedSet::kEmpty) {
    seeds_.TakeShufflingSeed();  // its button draws one all the same
    return SetAudit::kEmpty;
  }
  if (set.Is == LoggedSet::kDamagedLine) return SetAudit::kDamagedLine;
  if (set.Is == LoggedSet::kNoGenerateLine) return SetAudit::kNoGenerateLine;
  if (std::any_of(set.Records.begin(), set.Records.end(), HasNumber)) return SetAudit::kNumber;
  if (set.Records.empty() && !seeds_.LatestIsShuffling()) return SetAudit::kNumber;
  return seeds_.TakeShufflingSeed() ? SetAudit::kShuffling : SetAudit::kNumber;
}

void LogAudit::CheckBoards(const LoggedSet& set, SetAudit& audit) {
  auto seeded = seeds_.TakeFitting(set.Records);
  audit.SeedsFit = seeded.has_value();
  if (!seeded) seeded = seeds_.LatestNumberSeeds();
  std::optional<generate::NumberDealer> dealer;
  if (seeded) {
    audit.Seeds = seeded->Seeds;
    dealer = seeded->Dealer;
  }
  AuditBoards(set, dealer, redealer_, audit);
}

}  // namespace morvane::audit
