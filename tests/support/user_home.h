#pragma once

#include <cstdlib>
#include <string>

#include "platform/user_folders.h"

namespace morvane::test {

/// A home that the user has while this lives.
class UserHome {
 public:
  explicit UserHome(const std::string& path) : before_(HomeFolder()) { Move(path); }
  ~UserHome() { Move(before_); }
  UserHome(const UserHome&) = delete;
  UserHome& operator=(const UserHome&) = delete;

  static void Move(const std::string& path) {
#ifdef _WIN32
    _putenv_s("USERPROFILE", path.c_str());
#else
    setenv("HOME", path.c_str(), 1);
#endif
  }

 private:
  std::string before_;
};

}  // namespace morvane::test
