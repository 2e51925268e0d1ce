#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>

namespace morvane::test {

/// Another program, by the name of "sleep", that has a file open for as long as this lives.
class HoldingProgram {
 public:
  explicit HoldingProgram(const std::string& path) {
    const int file = open(path.c_str(), O_RDWR | O_NONBLOCK | O_NOCTTY);  // goes on to the program
    EXPECT_GE(file, 0) << path;
    std::string name = "sleep";
    std::string seconds = "60";
    std::array<char*, 3> words{name.data(), seconds.data(), nullptr};
    EXPECT_EQ(posix_spawnp(&process_, name.c_str(), nullptr, nullptr, words.data(), environ), 0);
    close(file);
  }
  ~HoldingProgram() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  HoldingProgram(const HoldingProgram&) = delete;
  HoldingProgram& operator=(const HoldingProgram&) = delete;

 private:
  pid_t process_ = 0;
};

}  // namespace morvane::test
