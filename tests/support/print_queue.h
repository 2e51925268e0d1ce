#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "support/fakes.h"

namespace morvane::test {

/// Print queues of a spooler that the test has to itself: "Office", which is the default, and
/// "Cellar", which refuses all jobs. Office prints on A4 and Letter, leaves margins of 20, 10, 18
/// and 9 points (left, top, right, bottom; 10 and 9 are less than what is kept free), and can print
/// on both sides. What they print lands in a folder. All queues that this process sees are those of
/// `CUPS_SERVER`, which `paper_environment.cpp` sets.
class PrintQueue {
 public:
  /// Starts the spooler and waits until it answers.
  PrintQueue();
  /// Ends it.
  ~PrintQueue();
  PrintQueue(const PrintQueue&) = delete;
  PrintQueue& operator=(const PrintQueue&) = delete;

  struct Job {
    std::string Title;
    std::string Copies;
    std::string Options;
    std::string PdfFile;
  };
  /// The next job that comes out; the test fails after 20 seconds without one.
  [[nodiscard]] Job Next();
  /// No more of it.
  void Stop();

 private:
  void WriteFiles() const;
  void Start();

  TempFolder folder_;
  pid_t spooler_ = -1;
  int taken_ = 0;
};

}  // namespace morvane::test
