#include "bridges/pack_file.h"

#include <memory>
#include <utility>

#include "files/failure_reports.h"
#include "files/format_frame.h"
#include "files/format_table.h"
#include "model/board_set.h"
#include "model/messages.h"
#include "platform/files.h"
#include "text/box_text.h"

namespace morvane::bridges {
namespace {

/// The text of a box on one line, as far as its first paragraph goes.
std::string FirstParagraph(const std::string& text) {
  const std::string plain = WithoutPadding(text);
  return Fill(plain.substr(0, plain.find("\n\n")), "\n", ": ");
}

/// Fills `set` as Load would; what it would say against the file.
std::optional<std::string> Load(const std::string& path, BoardSet& set) {
  const files::Format* const format = files::FindFormat(files::ExtensionOf(FileTitle(path)));
  if (format == nullptr || format->Parse == nullptr) return "this is no kind of board file";
  std::string bytes;
  if (const auto error = ReadFile(path, bytes, files::kLargestSetFile)) return error->Description;
  files::FileNotes notes;
  const auto fault = format->Parse(std::move(bytes), *format, set, notes, InitMessages());
  if (!fault) return std::nullopt;
  return fault->Text.empty() ? "this is no board file" : FirstParagraph(files::FaultText(*fault));
}

/// Puts the boards of `set` behind `packs`; what is wrong with one of them.
std::optional<std::string> TakePacks(const BoardSet& set, std::vector<Board>& packs) {
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    Board board = set.At(n);
    AnalyzeBoard(board);
    if (board.Status == Board::kEmpty) continue;
    if (board.Status != Board::kComplete) return "board " + std::to_string(n) + " is not complete";
    packs.push_back(board);
  }
  if (packs.empty()) return "there is no complete board in it";
  return std::nullopt;
}

}  // namespace

std::optional<std::string> ReadPackFile(const std::string& path, std::vector<Board>& boards) {
  const auto set = std::make_unique<BoardSet>();
  set->Clear();
  std::vector<Board> packs;
  auto error = Load(path, *set);
  if (!error) error = TakePacks(*set, packs);
  if (!error) boards = std::move(packs);
  return error;
}

}  // namespace morvane::bridges
