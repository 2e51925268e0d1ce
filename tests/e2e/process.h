#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace morvane::e2e {

/// A program of ours, as "morvane-cli": of this build, or in the folder that the variable
/// MORVANE_PROGRAMS names.
std::string ProgramNamed(const std::string& name);

/// Whether those are Windows programs: MORVANE_PROGRAMS_OF is "windows" then.
bool ForWindows();
/// A text of such a program with the paths and line ends that the tests know: its drive Z: is our
/// root. The same text of any other program.
std::string InOurWords(const std::string& text);

/// How a program ended and what it wrote.
struct Outcome {
  int Status = -1;  ///< exit status; below 0 the signal that ended it
  std::string Out;
  std::string Err;
};

/// What a program finds around it.
struct Surroundings {
  std::string Folder;               ///< its working directory and the user's home
  std::string Input = "/dev/null";  ///< its standard input
  std::string Program = ProgramNamed("morvane-cli");
  std::vector<std::string> Variables = {};  ///< "NAME=value", over the test's own environment
};

/// What has come of one of its outputs.
struct Written {
  std::string Raw;
  std::string Text;  ///< in our words
};

/// One of our programs as a process of its own.
class Process {
 public:
  Process(const std::vector<std::string>& arguments, const Surroundings& around);
  /// Ends it, should it still run.
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  /// Takes in what it writes until `condition` holds. False when it ended without that, or when a
  /// minute has passed.
  bool Until(const std::function<bool()>& condition);
  void Signal(int number) const;
  /// Ends it without letting it do anything more.
  void Kill();
  /// Waits for its end; fails the test after a minute.
  Outcome Finish();

  [[nodiscard]] const std::string& Out() const { return out_.Text; }
  [[nodiscard]] const std::string& Err() const { return err_.Text; }

 private:
  bool TakeIn(int ms);
  void Reap();

  pid_t pid_ = -1;
  int outEnd_ = -1;
  int errEnd_ = -1;
  int status_ = 0;
  Written out_;
  Written err_;
};

}  // namespace morvane::e2e
