#include <fcntl.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <iostream>

#include "arguments.h"
#include "bridges/simulated_choice.h"
#include "platform/system_clock.h"
#include "simulator/line/line_server.h"

namespace {

enum ExitStatus : int { kDone = 0, kFailed = 1, kWrongUsage = 2 };

/// A file that can be read from when the system tells the program to end. Signals that were ignored
/// stay so.
int EndSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : {SIGTERM, SIGHUP, SIGINT}) sigaddset(&signals, number);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  return signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
}

/// A standard file that is closed would be taken by the line, and what is said there told to it.
void HoldStandardFiles() {
  int file = 0;
  while (file >= 0 && file <= STDERR_FILENO) file = open("/dev/null", O_RDWR);
  if (file >= 0) close(file);
}

int Fail(int status, const std::string& why) {
  std::cerr << "morvane-machine: " << why << "\n";
  return status;
}

int Serve(const morvane::MachineArguments& arguments, morvane::bridges::SimulatedChoice choice) {
  using namespace morvane::simulator;
  const int endSignals = EndSignals();
  std::signal(SIGPIPE, SIG_IGN);  // whoever has read the first line may be gone
  PseudoTerminal terminal;
  if (const auto error = terminal.Open()) {
    return Fail(kFailed, "no pseudo-terminal: " + error->Description);
  }
  if (!arguments.Link.empty()) {
    if (const auto error = terminal.Link(arguments.Link)) {
      return Fail(kFailed, "--link " + arguments.Link + ": " + error->Description);
    }
  }
  WiredMachine machine(choice.Kind);
  machine.LayBoards(std::move(choice.Boards));
  std::cout << "serial:" << terminal.Name() << std::endl;
  if (!std::cout) return Fail(kFailed, "standard output cannot be written");
  if (isatty(STDIN_FILENO) != 0) std::cout << "help lists what you can do here." << std::endl;
  morvane::SystemClock clock;
  LineServer server(machine, terminal, clock, arguments.Pace, std::cout, std::cerr);
  server.Run({STDIN_FILENO, endSignals});
  return kDone;
}

}  // namespace

int main(int argc, char** argv) {
  HoldStandardFiles();
  const auto arguments = morvane::ParseMachineArguments({argv + 1, argv + argc});
  if (!arguments.Help.empty()) {
    std::cout << arguments.Help;
    return kDone;
  }
  if (!arguments.Error.empty()) {
    return Fail(kWrongUsage, arguments.Error + "\nTry 'morvane-machine --help'.");
  }
  auto choice = morvane::bridges::ChooseSimulated(arguments.Machine);
  if (!choice.Error.empty()) return Fail(kWrongUsage, choice.Error);
  return Serve(arguments, std::move(choice));
}
