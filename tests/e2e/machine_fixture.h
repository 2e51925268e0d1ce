#pragma once

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "e2e/e2e_fixture.h"

namespace morvane::e2e {

/// Machines as a program of their own, for the programs that deal through them.
class MachineEndToEnd : public EndToEnd {
 protected:
  /// Starts a machine, which is as fast as asked unless its pace is told, with these words too.
  std::unique_ptr<Process> Start(std::vector<std::string> words = {},
                                 const std::string& input = "/dev/null") {
    const bool toldFirst = words.size() > 2 && words[2] == "--pace";
    if (!toldFirst) words.insert(words.begin(), {"--pace", "fast"});
    return std::make_unique<Process>(
        words,
        Surroundings{
            .Folder = folder.Path(), .Input = input, .Program = ProgramNamed("morvane-machine")});
  }
  /// The texts of `--machine` that the first `count` lines say.
  static std::vector<std::string> NamedOf(Process& machine, std::size_t count) {
    EXPECT_TRUE(machine.Until([&] {
      return std::count(machine.Out().begin(), machine.Out().end(), '\n') >=
             static_cast<std::ptrdiff_t>(count);
    })) << machine.Err();
    std::istringstream out(machine.Out());
    std::vector<std::string> named(count);
    for (std::string& name : named) std::getline(out, name);
    return named;
  }
  static std::string Named(Process& machine) { return NamedOf(machine, 1)[0]; }
  Outcome Deal(const std::string& machine) {
    return Run({"--machine", machine, "deal", "set.pbn", "--auto"});
  }
};

}  // namespace morvane::e2e
