#pragma once

#include <string>

#include "files/import_report.h"
#include "model/board_set.h"

namespace morvane::files {

/// Reads PBN as other programs write it, by the import format of the notation and with patience for
/// its usual faults, into `set`, which must be clear. What can't be used is left out and told in
/// the report; without a board taken the set stays without one. What is taken can be saved as PBN
/// and read back the same. `text` is UTF-8 with line ends of any kind.
[[nodiscard]] ImportReport ImportPbn(std::string text, BoardSet& set);

}  // namespace morvane::files
