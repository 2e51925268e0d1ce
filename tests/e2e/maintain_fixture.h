#pragma once

#include <csignal>
#include <memory>
#include <string>
#include <vector>

#include "e2e/e2e_fixture.h"

namespace morvane::e2e {

/// The service console of the command line at a machine that is another program. Each run costs two
/// seconds before the first contact.
class MaintainEndToEnd : public EndToEnd {
 protected:
  /// Starts a machine that keeps its parameters, and says where it is. Without a line for it to be
  /// at the other end of, the program makes it, and it is started with each.
  std::string Start(const std::string& more = "", const std::string& input = "/dev/null") {
    const std::string simulated = "simulated,speed=0,store=" + (folder / "store") + more;
    if (ForWindows()) return simulated;
    machine = std::make_unique<Process>(
        std::vector<std::string>{"--pace", "wire", "--machine", simulated},
        Surroundings{
            .Folder = folder.Path(), .Input = input, .Program = ProgramNamed("morvane-machine")});
    EXPECT_TRUE(machine->Until([&] { return machine->Out().ends_with('\n'); })) << machine->Err();
    return machine->Out().substr(0, machine->Out().find('\n'));
  }
  /// What is said first where the program makes the machine.
  static std::string InProgram() { return ForWindows() ? "Machine: simulated\n" : ""; }
  void SwitchOff() {
    if (ForWindows()) return;
    machine->Signal(SIGTERM);
    machine->Finish();
  }
  [[nodiscard]] std::vector<std::string> On(const std::string& named,
                                            const std::vector<std::string>& words) const {
    std::vector<std::string> line{"--machine", named, "maintain"};
    line.insert(line.end(), words.begin(), words.end());
    return Whole(line);
  }
  Outcome Maintain(const std::string& named, const std::vector<std::string>& words) {
    return Process(On(named, words), Around()).Finish();
  }
  /// The same with every question answered.
  [[nodiscard]] std::vector<std::string> YesOn(const std::string& named,
                                               const std::vector<std::string>& words) const {
    auto line = On(named, words);
    line.insert(line.begin(), "--yes");
    return line;
  }
  Outcome Yes(const std::string& named, const std::vector<std::string>& words) {
    return Process(YesOn(named, words), Around()).Finish();
  }
  std::unique_ptr<Process> machine;
};

}  // namespace morvane::e2e
