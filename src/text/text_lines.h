#pragma once

#include <string_view>

namespace morvane {

/// The lines of a text, one after the other. A line ends with CR LF or with LF alone; a lone CR
/// and every other byte, NUL and 0x1A included, belong to the line. No empty line follows the last
/// line end.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  /// The next line without its end; false when there is none.
  bool Next(std::string_view& line) {
    if (rest_.empty()) return false;
    const std::size_t end = rest_.find('\n');
    line = rest_.substr(0, end);
    if (end == std::string_view::npos) {
      rest_ = {};
      return true;
    }
    rest_.remove_prefix(end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return true;
  }

  /// What stands behind the last line taken and its end.
  [[nodiscard]] std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

}  // namespace morvane
