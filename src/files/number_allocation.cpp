#include "files/number_allocation.h"

#include "files/load_number.h"
#include "program/program.h"

namespace morvane::files {
namespace {

/// Whether the file's own numbers are those of a set of `count` boards. A single board does not
/// count as one, so that its number is asked for: required.
bool Fit(const FileNumbers& numbers, int count) {
  return numbers.First > 0 && numbers.First < numbers.Last &&
         numbers.Last - numbers.First + 1 == count && numbers.Last <= kMaxBoards;
}

}  // namespace

void MoveSet(BoardSet& set, int newFirst) {
  const int count = set.Count();
  set.FirstBoard = static_cast<std::int16_t>(newFirst);
  set.LastBoard = static_cast<std::int16_t>(newFirst + count - 1);
  for (int from = count, to = set.LastBoard; from >= 1; --from, --to) set.At(to) = set.At(from);
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    Board& board = set.At(n);
    board.Number = static_cast<std::int16_t>(n);
    board.Dealer = static_cast<std::uint8_t>(DealerOfNumber(n));
    board.Vul = static_cast<std::uint8_t>(VulOfNumber(n));
  }
}

bool AllocateNumbers(Program& program, NumberDialog& dialog, const Format& format,
                     const FileNumbers& numbers) {
  if (format.BoardNumbers == Format::Numbers::kEachBoard) return true;
  if (format.BoardNumbers == Format::Numbers::kFirstAndLast && Fit(numbers, program.Set.Count())) {
    MoveSet(program.Set, numbers.First);
    return true;
  }
  if (!program.Store.IsOn(kLoadAllocation)) return true;
  LoadNumber question(program, format);
  dialog.ShowLoadNumber(question);
  return question.Closed();
}

}  // namespace morvane::files
