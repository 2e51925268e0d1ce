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

/// What the leak checker of a build with sanitizers passes over: the spooler's library never frees
/// the papers of a printer's description.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:_ppdCacheCreateWithPPD\n"; }
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
