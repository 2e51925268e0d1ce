#include "audit/set_audit.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "model/tables.h"
#include "text/text.h"

namespace morvane::audit {
namespace {

BoardFinding Found(BoardFinding::Verdict verdict, int number, std::size_t line) {
  BoardFinding finding;
  finding.Number = number;
  finding.Is = verdict;
  finding.Line = line;
  return finding;
}

/// What of `record` is not as in `dealt`; nothing when it is the same.
std::optional<BoardFinding> Difference(const LoggedRecord& record, const std::string& dealt) {
  const LoggedRecord expected{0, record.Number, dealt};
  if (record.Text == expected.Text) return std::nullopt;
  BoardFinding finding = Found(BoardFinding::kDiffers, record.Number, record.Line);
  finding.Hands = record.Hands() != expected.Hands();
  finding.DealNumber = record.DealNumber() != expected.DealNumber();
  finding.DealCounter = record.DealCounter() != expected.DealCounter();
  finding.BeyondReach = CounterOf(record).value_or(0) > kHighestCounter;
  return finding;
}

/// The first record of each board; the records that are too many go to the findings.
RecordOfBoard Sorted(const LoggedSet& set, std::vector<BoardFinding>& findings) {
  RecordOfBoard ofBoard(kMaxBoards + 1, nullptr);
  for (const LoggedRecord& record : set.Records) {
    if (record.Number < set.What.First || record.Number > set.What.Last) {
      findings.push_back(Found(BoardFinding::kNotInRange, record.Number, record.Line));
    } else if (auto& first = ofBoard[static_cast<std::size_t>(record.Number)]; first == nullptr) {
      first = &record;
    } else {
      findings.push_back(Found(BoardFinding::kTwice, record.Number, record.Line));
    }
  }
  return ofBoard;
}

void AuditBoard(const LoggedRecord& record, const std::string* dealt, bool inOrder,
                SetAudit& audit) {
  if (dealt == nullptr) {
    audit.Findings.push_back(Found(BoardFinding::kDiffers, record.Number, record.Line));
    audit.Findings.back().CannotBeDealt = true;
  } else if (const auto difference = Difference(record, *dealt)) {
    audit.Findings.push_back(*difference);
  } else if (!inOrder) {
    audit.Findings.push_back(Found(BoardFinding::kOutOfOrder, record.Number, record.Line));
  } else {
    ++audit.SameBoards;
  }
}

}  // namespace

bool SetAudit::CountsAreSame() const {
  return Rejected && What.Dealt && *Rejected == What.Dealt->Rejected;
}

bool SetAudit::IsSame() const { return Is == kNumber && Findings.empty() && CountsAreSame(); }

std::optional<std::uint32_t> CounterOf(const LoggedRecord& record) {
  const std::string_view digits = record.DealCounter();
  std::uint32_t counter = 0;
  const char* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, counter, 16);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return counter;
}

void AuditBoards(const LoggedSet& set, const std::optional<generate::NumberDealer>& dealer,
                 Redealer& redealer, SetAudit& audit) {
  const RecordOfBoard ofBoard = Sorted(set, audit.Findings);
  DealtAgain again;
  const auto [first, last] = std::pair(set.What.First, set.What.Last);
  if (dealer && !set.Records.empty()) {
    again = redealer.Deal(set.What, *dealer, ofBoard);
    if (static_cast<int>(again.Boards.size()) == last - first + 1) audit.Rejected = again.Rejected;
  }
  std::size_t lastLine = 0;
  for (int k = first; k <= last; ++k) {
    const LoggedRecord* const record = ofBoard[static_cast<std::size_t>(k)];
    if (record == nullptr) {
      audit.Findings.push_back(Found(BoardFinding::kMissing, k, 0));
      continue;
    }
    const auto place = static_cast<std::size_t>(k - first);
    AuditBoard(*record, place < again.Boards.size() ? &again.Boards[place] : nullptr,
               record->Line > lastLine, audit);
    lastLine = record->Line;
  }
  std::stable_sort(
      audit.Findings.begin(), audit.Findings.end(),
      [](const BoardFinding& a, const BoardFinding& b) { return a.Number < b.Number; });
}

}  // namespace morvane::audit
