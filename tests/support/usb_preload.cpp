#include "support/usb_preload.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace morvane::test {
namespace {

/// The words of the command line, each with its NUL.
std::string CommandLine() {
  std::ifstream file("/proc/self/cmdline", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

bool StartOverForEmulation() {
  const std::string library = "libumockdev-preload.so.0";
  const char* const preloaded = getenv("LD_PRELOAD");
  const std::string others = preloaded == nullptr ? "" : preloaded;
  if (others.starts_with(library)) return true;
  setenv("LD_PRELOAD", (library + ":" + others).c_str(), 1);
  std::string words = CommandLine();
  std::vector<char*> list;
  for (std::size_t at = 0; at < words.size(); at = words.find('\0', at) + 1) {
    list.push_back(&words[at]);
  }
  list.push_back(nullptr);
  execv("/proc/self/exe", list.data());
  return false;
}

}  // namespace morvane::test
