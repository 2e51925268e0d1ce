#include <cstdint>
#include <memory>
#include <string>

#include "board_files.h"
#include "files/csv_file.h"
#include "model/text_encoding.h"

namespace {

using namespace morvane;
using namespace morvane::files;

void RequireSound(const BoardSet& set) {
  Require(set.FirstBoard == 1 && set.LastBoard >= 2 && set.LastBoard <= kMaxBoards);
  for (int n = 0; n <= kMaxBoards; ++n) {
    const Board& board = set.At(n);
    if (board.Number == 0) {
      Require(board == Board{});
      continue;
    }
    Require(n >= 1 && n <= set.LastBoard);
    RequireBoard(set, n);
  }
}

/// A set that was read is written and read again; the cards must be the same.
void RequireSameAfterRoundTrip(const BoardSet& set, const Messages& texts) {
  const auto again = ClearSet();
  Require(!ParseCsv(CsvText(set), *again, texts));
  Require(again->FirstBoard == set.FirstBoard && again->LastBoard == set.LastBoard);
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    // An empty line between the boards is a board now.
    Require(again->At(n).Number == n);
    Require(set.At(n).Number == 0 ? again->At(n) == NumberedBoard(n) : again->At(n) == set.At(n));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Messages texts = InitMessages();
  const auto set = ClearSet();
  const auto fault = ParseCsv(DecodeText(std::string(data, data + size)), *set, texts);
  if (fault) {
    RequireFormatError(*fault);
  } else {
    RequireSound(*set);
    RequireSameAfterRoundTrip(*set, texts);
  }
  return 0;
}
