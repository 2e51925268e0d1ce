#pragma once

#include <functional>

namespace morvane {

/// While it lives, a program that a library ends by `exit`, as Qt does when the display is gone,
/// does `end` first. One at a time.
class EndHook {
 public:
  explicit EndHook(std::function<void()> end);
  ~EndHook();
  EndHook(const EndHook&) = delete;
  EndHook& operator=(const EndHook&) = delete;
};

}  // namespace morvane
