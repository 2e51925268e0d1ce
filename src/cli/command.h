#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace morvane::cli {

struct Job;
class OptionReader;

/// Exit statuses of the command line.
enum ExitStatus : int {
  kDone = 0,
  kFailed = 1,  ///< or refused
  kWrongUsage = 2,
  kPartly = 3,  ///< done, but not wholly
};

/// A word behind the command's name that is no option.
struct Operand {
  enum class Kind {
    kFile,          ///< must be there, and is made absolute
    kCommandName,   ///< may be left out
    kOptionalFile,  ///< the same of a file
  };

  std::string_view Word;   ///< that stands for it, "IN"
  std::string_view Means;  ///< in a few words
  Kind Is = Kind::kFile;
  bool Several = false;  ///< more than one may be given
};

struct Option {
  std::string_view Name;   ///< without its dashes
  std::string_view Value;  ///< the word that stands for its value, "N"; empty: a switch
  std::string_view Means;  ///< in a few words
  bool WithNext = false;   ///< it goes together with the one behind it
};

/// What a command line asks for: work on a desk, or only a text, for which nothing else is touched.
struct Task {
  std::function<ExitStatus(Job& job)> Work;
  std::string Text;
};

/// A console command: what it takes, what is said about it and what it does.
struct Command {
  std::string_view Name;  ///< the word that calls it
  std::span<const Operand> Operands = {};
  std::span<const Option> Options = {};  ///< beside those of every command
  std::string_view Summary;              ///< what it does, for its help
  std::string_view Note = {};            ///< what the usage page has to say about it too
  bool Draws = false;                    ///< pages, with fonts
  /// Takes the options. What is wrong with them is left in `given`, and the task then means
  /// nothing.
  Task (*Prepare)(OptionReader& given) = nullptr;
};

/// The work of a command: `Read` makes its own options of the words given, `Run` works by them.
template <auto Read, auto Run>
Task TaskOf(OptionReader& given) {
  return {[options = Read(given)](Job& job) { return Run(job, options); }, ""};
}

}  // namespace morvane::cli
