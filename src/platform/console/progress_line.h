#pragma once

#include <string>

#include "platform/console/terminal.h"

namespace morvane {

/// A line that is written over and over where the terminal can do that.
class ProgressLine {
 public:
  explicit ProgressLine(Terminal& terminal) : terminal_(terminal) {}

  /// Empty: the line is free for other texts.
  void Show(const std::string& text);
  /// What is shown stays; further texts stand below it.
  void Leave();

 private:
  Terminal& terminal_;
  std::string shown_;
};

}  // namespace morvane
