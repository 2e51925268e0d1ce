#include "files/dup_records.h"

#include <algorithm>

#include "text/text.h"

namespace morvane::files {
namespace {

/// Where a field of the record stands, and its bytes.
struct DupField {
  std::size_t Offset;
  std::size_t Size;
};
constexpr DupField kDupBri{0, kBriHands};
constexpr DupField kDupDge{78, kDgeHands};
constexpr DupField kDupFirst{148, 3};
constexpr DupField kDupLast{153, 3};
constexpr std::string_view kDupBeforeFirst = "YN";  ///< not read
constexpr std::string_view kDupBeforeLast = "1 ";   ///< not read

static_assert(kDupBri.Offset + kDupBri.Size == kDupDge.Offset);
static_assert(kDupDge.Offset + kDupDge.Size + kDupBeforeFirst.size() == kDupFirst.Offset);
static_assert(kDupFirst.Offset + kDupFirst.Size + kDupBeforeLast.size() == kDupLast.Offset);
static_assert(kDupLast.Offset + kDupLast.Size == kDupRecord);

std::string_view FieldOf(std::string_view record, DupField field) {
  return record.substr(std::min(field.Offset, record.size()), field.Size);
}

std::string ParseBothParts(std::string_view record, Board& board, const Messages& texts) {
  std::string error = ParseBriRecord(FieldOf(record, kDupBri), board, BriMode::kDupPart, texts);
  if (!error.empty()) return error;
  Board second;
  error = ParseDgeRecord(FieldOf(record, kDupDge), second, DgeMode::kDupPart, texts);
  if (!error.empty()) return error;
  return board.Cards == second.Cards ? std::string() : texts.Msg022;
}

std::string NumberField(int number) {
  return (std::to_string(number) + "  ").substr(0, kDupFirst.Size);
}

}  // namespace

std::string ParseDupRecord(std::string_view record, Board& board, FileNumbers& numbers,
                           const Messages& texts) {
  if (numbers.First == 0) numbers.First = Val(FieldOf(record, kDupFirst));
  if (numbers.Last == 0) numbers.Last = Val(FieldOf(record, kDupLast));
  return ParseBothParts(record, board, texts);
}

std::string DupBytes(const BoardSet& set) {
  std::string bytes;
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    bytes.append(FormatBriHands(set.At(n))).append(FormatDgeHands(set.At(n)));
    bytes.append(kDupBeforeFirst).append(NumberField(set.FirstBoard));
    bytes.append(kDupBeforeLast).append(NumberField(set.LastBoard));
  }
  return bytes;
}

}  // namespace morvane::files
