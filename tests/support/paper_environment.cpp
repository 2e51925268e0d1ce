#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

/// The tests of paper see no printers but those of their own spooler, if they start one.
class PaperEnvironment final : public testing::Environment {
 public:
  void SetUp() override {
    const std::string socket = "/tmp/morvane_paper_" + std::to_string(getpid()) + ".sock";
    setenv("CUPS_SERVER", socket.c_str(), 1);
    unsetenv("LPDEST");
    unsetenv("PRINTER");
  }
};

const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new PaperEnvironment);

}  // namespace
