#pragma once

#include <string>
#include <string_view>

#include "files/format_table.h"
#include "model/board_set.h"

namespace morvane::files {

/// The set as the UTF-8 text of a PBN file; `withAnalysis` adds the double-dummy results of the
/// boards that have any.
[[nodiscard]] std::string PbnText(const BoardSet& set, std::string_view versionText,
                                  bool withAnalysis);

bool WritePbnFile(Program& program, const Format& format, const std::string& path,
                  const std::string& incompleteBoards);

}  // namespace morvane::files
