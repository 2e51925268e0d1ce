#pragma once

#include <string>
#include <vector>

namespace morvane {

/// The desktop around the program: what it does for it, and what it says of itself.
class Desktop {
 public:
  virtual ~Desktop() = default;
  /// Shows a file or folder in the program that its user has for it. False: none could be started.
  [[nodiscard]] virtual bool Show(const std::string& path) = 0;
  /// Puts the text onto the clipboard.
  virtual void Copy(const std::string& text) = 0;
  /// What a fault may come from: the system, the toolkit, the screens; a line each, "Name: value".
  [[nodiscard]] virtual std::vector<std::string> Facts() const = 0;
};

}  // namespace morvane
