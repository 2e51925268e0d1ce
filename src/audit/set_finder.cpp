#include "audit/set_finder.h"

#include <algorithm>
#include <array>

#include "generate/seeds.h"
#include "model/tables.h"
#include "text/text.h"
#include "text/text_lines.h"

namespace morvane::audit {
namespace {

using generate::GenerateLine;

/// No line that is looked at is nearly as long; of a longer one only the start is kept.
constexpr std::size_t kLongestLine = 4096;
constexpr std::size_t kSeedDigits = 40;
/// Each board of the greatest set twice; what goes beyond is no set any more.
constexpr std::size_t kMostRecords = std::size_t{2} * kMaxBoards;

/// Whether a line shows that the records of a set have come to their end. Messages and lines of a
/// run do not, since a damaged record may look like anything; its length hardly changes.
bool EndsSet(std::string_view line) {
  constexpr std::array<std::string_view, 3> kSecondLevel{GenerateLine::kStart, "  New random bits",
                                                         "  Seed"};
  if (line.empty() || line.size() == log_record::kLongSize) return false;
  const std::size_t blanks = line.find_first_not_of(' ');
  if (blanks < 2) return true;
  return std::any_of(kSecondLevel.begin(), kSecondLevel.end(),
                     [line](std::string_view start) { return line.starts_with(start); });
}

/// The seed in a line that starts so; nothing when it is not one.
std::optional<std::string> SeedIn(std::string_view line, std::string_view start) {
  const std::string_view digits = line.substr(start.size());
  if (digits.size() != kSeedDigits || !BytesOfHex(digits)) return std::nullopt;
  return std::string(digits);
}

}  // namespace

void SetFinder::Add(std::string_view block) {
  const std::size_t end = block.rfind('\n');
  if (end != std::string_view::npos) {
    const std::size_t firstEnd = block.find('\n') + 1;
    rest_.append(block.substr(0, firstEnd));
    TakeLines(rest_);
    rest_.clear();
    TakeLines(block.substr(firstEnd, end + 1 - firstEnd));
    block.remove_prefix(end + 1);
  }
  const std::size_t room = kLongestLine - std::min(rest_.size(), kLongestLine);
  rest_.append(block.substr(0, room));
}

void SetFinder::End() {
  TakeLines(rest_);
  rest_.clear();
  Close();
}

void SetFinder::TakeLines(std::string_view whole) {
  std::string_view line;
  for (Lines lines(whole); lines.Next(line);) TakeLine(line);
}

void SetFinder::TakeLine(std::string_view line) {
  ++line_;
  if (auto record = ParseRecord(line)) {
    record->Line = line_;
    TakeRecord(std::move(*record));
    return;
  }
  if (EndsSet(line)) {
    Close();
    TakeOther(line);
  }
  if (!set_) listener_.OnOtherLine(line);
}

void SetFinder::TakeOther(std::string_view line) {
  if (line.starts_with(GenerateLine::kStart)) {
    const auto what = GenerateLine::Parse(line);
    const auto ofLine = what && what->Dealt ? LoggedSet::kDealt : LoggedSet::kEmpty;
    Open(what ? ofLine : LoggedSet::kDamagedLine, what.value_or(GenerateLine{}));
  } else if (line.starts_with(generate::kSeedrStart)) {
    seedr_ = SeedIn(line, generate::kSeedrStart);
  } else if (line.starts_with(generate::kSeedoStart)) {
    auto seedo = SeedIn(line, generate::kSeedoStart);
    if (seedr_ && seedo) listener_.OnNumberSeeds({line_, std::move(*seedr_), std::move(*seedo)});
    seedr_.reset();
  } else if (line.starts_with(generate::kLfsrStart)) {
    listener_.OnShufflingSeed();
  }
}

void SetFinder::TakeRecord(LoggedRecord record) {
  if (set_ && !BelongsToSet(record)) Close();
  if (!set_) Open(LoggedSet::kNoGenerateLine, {});
  // An empty set has no records: its line has lost its end.
  if (set_->Is == LoggedSet::kEmpty) set_->Is = LoggedSet::kDamagedLine;
  if (set_->Is == LoggedSet::kDealt) {
    Count(record);
    set_->Records.push_back(std::move(record));
  } else {
    ++set_->OtherRecords;
  }
}

/// A record behind a whole set is one of its boards again, or one too many, or the first of a set
/// whose Generate line is gone.
bool SetFinder::BelongsToSet(const LoggedRecord& record) const {
  if (set_->Is != LoggedSet::kDealt) return true;
  const auto& records = set_->Records;
  if (records.size() == kMostRecords) return false;
  if (missing_ > 0) return true;
  if (record.Number < set_->What.First || record.Number > set_->What.Last) return true;
  return std::any_of(records.begin(), records.end(), [&record](const LoggedRecord& other) {
    return other.Number == record.Number && other.Text == record.Text;
  });
}

void SetFinder::Count(const LoggedRecord& record) {
  if (record.Number < set_->What.First || record.Number > set_->What.Last) return;
  auto seen = seen_.begin() + record.Number;
  if (!*seen) --missing_;
  *seen = true;
}

void SetFinder::Open(LoggedSet::Kind kind, const GenerateLine& what) {
  set_.emplace(LoggedSet{kind, line_, what, {}, 0});
  seen_.assign(kMaxBoards + 1, false);
  missing_ = what.Last - what.First + 1;
}

void SetFinder::Close() {
  if (set_) listener_.OnSet(*set_);
  set_.reset();
}

}  // namespace morvane::audit
