#pragma once

#include <string>

namespace morvane::test {

/// Where the system finds the program `name` of `folder`.
inline std::string ProgramIn(const std::string& folder, const std::string& name) {
#ifdef _WIN32
  return folder + "\\" + name + ".exe";
#else
  return folder + "/" + name;
#endif
}

}  // namespace morvane::test
