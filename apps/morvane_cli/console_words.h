#pragma once

#ifdef _WIN32
#include <memory>
#include <streambuf>
#endif

namespace morvane {

#ifdef _WIN32

/// While it lives, what is written to the standard streams stands on a console in its own
/// characters, whatever its code page is. Files and pipes get the text as it is, with the line ends
/// of the system.
class ConsoleWords {
 public:
  ConsoleWords();
  ~ConsoleWords();
  ConsoleWords(const ConsoleWords&) = delete;
  ConsoleWords& operator=(const ConsoleWords&) = delete;

 private:
  std::unique_ptr<std::streambuf> out_;  ///< null: it is no console, and is left as it was
  std::unique_ptr<std::streambuf> error_;
  std::streambuf* outBefore_ = nullptr;
  std::streambuf* errorBefore_ = nullptr;
};

#else

struct ConsoleWords {};  // a terminal takes them as they are

#endif

}  // namespace morvane
