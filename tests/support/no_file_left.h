#pragma once

#ifndef _WIN32

#include <gtest/gtest.h>
#include <sys/resource.h>

namespace morvane::test {

/// While it lives, this process opens no file beyond those that it has open.
class NoFileLeft {
 public:
  NoFileLeft() {
    EXPECT_EQ(getrlimit(RLIMIT_NOFILE, &old_), 0);
    const rlimit limit{0, old_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
  }
  ~NoFileLeft() { setrlimit(RLIMIT_NOFILE, &old_); }
  NoFileLeft(const NoFileLeft&) = delete;
  NoFileLeft& operator=(const NoFileLeft&) = delete;

 private:
  rlimit old_{};
};

}  // namespace morvane::test

#endif
