#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

const std::string kLibrary = "libumockdev-preload.so.0";

/// The words of the command line, each with its NUL.
std::string CommandLine() {
  std::ifstream file("/proc/self/cmdline", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A process that emulates a bus has umockdev's library before all others, which only its start can
/// do. It is started over.
class UsbEnvironment final : public testing::Environment {
 public:
  void SetUp() override {
    const char* const preloaded = getenv("LD_PRELOAD");
    const std::string others = preloaded == nullptr ? "" : preloaded;
    if (others.starts_with(kLibrary)) return;
    setenv("LD_PRELOAD", (kLibrary + ":" + others).c_str(), 1);
    std::string words = CommandLine();
    std::vector<char*> list;
    for (std::size_t at = 0; at < words.size(); at = words.find('\0', at) + 1) {
      list.push_back(&words[at]);
    }
    list.push_back(nullptr);
    execv("/proc/self/exe", list.data());
    FAIL() << "not started over";
  }
};

const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new UsbEnvironment);

}  // namespace
