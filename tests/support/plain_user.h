#pragma once

#ifndef _WIN32

#include <gtest/gtest.h>
#include <unistd.h>

namespace morvane::test {

/// While it lives, a test run by root is someone whom permissions stop.
class PlainUser {
 public:
  PlainUser() : ok_(geteuid() != 0 || seteuid(kNobody) == 0) {}
  ~PlainUser() { EXPECT_EQ(seteuid(getuid()), 0); }
  PlainUser(const PlainUser&) = delete;
  PlainUser& operator=(const PlainUser&) = delete;
  [[nodiscard]] bool Ok() const { return ok_; }

 private:
  static constexpr uid_t kNobody = 65534;
  bool ok_;
};

}  // namespace morvane::test

#endif
