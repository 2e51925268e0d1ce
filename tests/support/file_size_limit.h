#pragma once

#ifndef _WIN32

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

namespace morvane::test {

/// While it lives, no file of this process grows beyond so many bytes: a write fails with EFBIG, as
/// it would with ENOSPC on a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : oldAction_(std::signal(SIGXFSZ, SIG_IGN)) {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &old_), 0);
    const rlimit limit{bytes, old_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, oldAction_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit old_{};
  void (*oldAction_)(int);
};

}  // namespace morvane::test

#endif
