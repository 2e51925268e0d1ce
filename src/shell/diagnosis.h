#pragma once

#include <span>
#include <string>
#include <vector>

#include "machine/machine.h"
#include "program/program.h"

namespace morvane::shell {

struct Library;

/// A text that helps to find a fault and can be handed to anybody (`handed_on.h`).
class Diagnosis {
 public:
  /// As many lines of the log at most.
  static constexpr std::size_t kLogLines = 30;

  explicit Diagnosis(const Program& program);

  void AddVersions(const std::string& version, std::span<const Library> libraries);
  void AddLines(std::span<const std::string> lines);
  void AddMachine(const machine::Machine& machine, const std::string& name);
  /// Those that change what the program does; what seeds deals is none of them.
  void AddSettings();
  void AddLog();

  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  void Add(const std::string& line);

  const Program& program_;
  std::string text_;
};

}  // namespace morvane::shell
