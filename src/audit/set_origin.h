#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace morvane::audit {

/// A file that a set was to be saved in.
struct LoggedSave {
  std::string Path;     ///< bytes of the log
  bool Failed = false;  ///< an error stands behind it; a No of the operator leaves no line
};

/// What the lines around a set tell of it. Lines of several programs may stand among each other.
struct SetOrigin {
  std::string Started;  ///< the last start before it, "2026-03-03 3:04:05 PM"; empty: none
  std::string New;      ///< the last File-New since then, "3:04:05 PM"; empty: none
  std::vector<LoggedSave> Saves;  ///< the first few

  static constexpr std::size_t kMostSaves = 100;
};

/// Follows a log from line to line.
class OriginBook {
 public:
  /// What is known of a set whose lines are just over.
  [[nodiscard]] SetOrigin Before() const { return {started_, new_, {}}; }

  /// Takes a line that is no record, and puts what it tells of the set before into `latest`.
  /// Whether that set may still be told of: no other has taken its place, and no program has
  /// started or ended.
  bool Take(std::string_view line, SetOrigin& latest);

 private:
  std::string started_;
  std::string new_;
};

}  // namespace morvane::audit
