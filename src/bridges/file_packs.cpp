#include "bridges/file_packs.h"

#include "bridges/pack_file.h"
#include "files/format_table.h"
#include "files/last_used.h"
#include "platform/files.h"

namespace morvane::bridges {

std::optional<std::vector<Board>> FilePacks::Ask() {
  FileRequest request;
  request.Title = "Load boards for reading";
  request.Filter = files::OpenFilter(0);
  request.Directory = files::InitialDirectory(program_.Store);
  const auto path = program_.Operator.AskFile(request);
  if (!path) return std::nullopt;
  std::vector<Board> boards;
  const auto error = ReadPackFile(*path, boards);
  if (!error) return boards;
  program_.ShowMessage(FileTitle(*path) + ": " + *error, kOkCritical, "Load Error");
  return std::nullopt;
}

}  // namespace morvane::bridges
