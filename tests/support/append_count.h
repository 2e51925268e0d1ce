#pragma once

#ifndef _WIN32

#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <string>

namespace morvane::test {

/// Counts how often a file, which is there, is opened to be written and closed again.
class AppendCount {
 public:
  explicit AppendCount(const std::string& path) : watch_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    // Opened and closed in turn, since equal events that follow each other would become one.
    EXPECT_GE(inotify_add_watch(watch_, path.c_str(), IN_OPEN | IN_CLOSE_WRITE), 0);
  }
  ~AppendCount() { close(watch_); }
  AppendCount(const AppendCount&) = delete;
  AppendCount& operator=(const AppendCount&) = delete;

  /// Since it was asked last.
  int Get() {
    alignas(inotify_event) std::array<char, 4096> events{};
    int count = 0;
    for (ssize_t size = 0; (size = read(watch_, events.data(), events.size())) > 0;) {
      for (ssize_t at = 0; at < size;) {
        const auto* event =
            reinterpret_cast<const inotify_event*>(&events[static_cast<size_t>(at)]);
        if ((event->mask & IN_CLOSE_WRITE) != 0U) ++count;
        at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
      }
    }
    return count;
  }

 private:
  int watch_;
};

}  // namespace morvane::test

#endif
