#pragma once

#include <memory>

namespace morvane {

/// While it lives, what is written to the standard streams is kept where nobody reads those, as
/// those of a Windows program with windows are unless they were redirected. At its end that is
/// shown: on the console that the program was started from, or else in a box. On other systems
/// there is a reader.
class SeenWords {
 public:
  SeenWords();
  ~SeenWords();
  SeenWords(const SeenWords&) = delete;
  SeenWords& operator=(const SeenWords&) = delete;

  /// Shows at once what has been kept so far, for the program will not come to the end.
  void Show();

 private:
  class Kept;
  std::unique_ptr<Kept> kept_;
};

}  // namespace morvane
