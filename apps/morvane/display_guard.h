#pragma once

#include <QtGlobal>
#include <functional>

namespace morvane {

/// While it lives, a display that cannot be opened is told in one line on standard error and ends
/// the program with exit status 1, behind `beforeEnd`, where Qt would abort. It lives while the
/// application is made.
class DisplayGuard {
 public:
  explicit DisplayGuard(std::function<void()> beforeEnd);
  ~DisplayGuard();
  DisplayGuard(const DisplayGuard&) = delete;
  DisplayGuard& operator=(const DisplayGuard&) = delete;

 private:
  QtMessageHandler before_;
};

}  // namespace morvane
