#pragma once

#ifdef _WIN32
#include <sstream>
#include <streambuf>
#endif

namespace morvane {

#ifdef _WIN32

/// While it lives, what is written to the standard streams is kept where nobody reads those, as
/// those of a program with windows are unless they were redirected. At its end that is shown: on
/// the console that the program was started from, or else in a box.
class SeenWords {
 public:
  SeenWords();
  ~SeenWords();
  SeenWords(const SeenWords&) = delete;
  SeenWords& operator=(const SeenWords&) = delete;

 private:
  std::ostringstream kept_;
  std::streambuf* out_ = nullptr;  ///< of the stream before; null: it is left as it was
  std::streambuf* error_ = nullptr;
};

#else

struct SeenWords {};  // there is a reader

#endif

}  // namespace morvane
