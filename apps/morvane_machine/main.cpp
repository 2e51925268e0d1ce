#include <fcntl.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <deque>
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

/// What the system did not do for the terminal of a machine; empty where it did all.
std::string OpenTerminal(morvane::simulator::PseudoTerminal& terminal, const std::string& link) {
  if (const auto error = terminal.Open()) return "no pseudo-terminal: " + error->Description;
  if (link.empty()) return "";
  if (const auto error = terminal.Link(link)) return "--link " + link + ": " + error->Description;
  return "";
}

/// The machines that are asked for, or why there are none.
struct Choices {
  std::vector<morvane::bridges::SimulatedChoice> Machines;
  std::string Error;
};

Choices Choose(const std::vector<morvane::ServedKind>& kinds) {
  Choices choices;
  for (const auto& kind : kinds) {
    choices.Machines.push_back(morvane::bridges::ChooseSimulated(kind.Machine));
    choices.Error = choices.Machines.back().Error;
    if (!choices.Error.empty()) break;
  }
  return choices;
}

int Serve(const std::vector<morvane::ServedKind>& kinds, Choices choices) {
  using namespace morvane::simulator;
  const int endSignals = EndSignals();
  std::signal(SIGPIPE, SIG_IGN);  // whoever has read the first line may be gone
  morvane::SystemClock clock;
  std::deque<ServedMachine> machines;
  for (std::size_t at = 0; at < kinds.size(); ++at) {
    auto& choice = choices.Machines[at];
    ServedMachine& served = machines.emplace_back(choice.Kind, kinds[at].Pace, clock);
    const std::string error = OpenTerminal(served.Terminal(), kinds[at].Link);
    if (!error.empty()) return Fail(kFailed, error);
    served.Machine().LayBoards(std::move(choice.Boards));
  }
  for (ServedMachine& served : machines) std::cout << "serial:" << served.Terminal().Name() << "\n";
  if (!std::cout.flush()) return Fail(kFailed, "standard output cannot be written");
  if (isatty(STDIN_FILENO) != 0) std::cout << "help lists what you can do here." << std::endl;
  LineServer(machines, std::cout, std::cerr).Run({STDIN_FILENO, endSignals});
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
  Choices choices = Choose(arguments.Machines);
  if (!choices.Error.empty()) return Fail(kWrongUsage, choices.Error);
  return Serve(arguments.Machines, std::move(choices));
}
