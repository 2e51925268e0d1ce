#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace morvane::files {

/// Remarks of which only the first are kept; all are counted.
struct Remarks {
  static constexpr std::size_t kKept = 10;

  std::vector<std::string> First;
  int Count = 0;

  void Add(std::string remark) {
    if (First.size() < kKept) First.push_back(std::move(remark));
    ++Count;
  }
};

/// What an import has made of a file. Every game with a board number or a deal is counted once: as
/// taken, as repeated or as passed over.
struct ImportReport {
  bool IsPbn = true;  ///< it has a tag that says something of a set, or calls itself PBN
  int Games = 0;
  int Taken = 0;  ///< boards of the set; their other games are `Repeated`
  int Repeated = 0;
  Remarks PassedOver;  ///< each with its line and the reason
  Remarks Notes;       ///< what was read otherwise than it stands
};

/// The report for a message box, in lines with the padding of the catalogue's texts.
[[nodiscard]] std::string ReportText(const ImportReport& report);

}  // namespace morvane::files
