#include <fcntl.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <deque>
#include <iostream>

#include "arguments.h"
#include "bridges/simulated_choice.h"
#include "bridges/trace/line_trace.h"
#include "platform/system_clock.h"
#include "simulator/line/line_server.h"
#include "written_out.h"

namespace {

using morvane::ServedKind;
using morvane::bridges::SimulatedChoice;
using morvane::simulator::LineServer;
using morvane::simulator::PseudoTerminal;
using morvane::simulator::ServedMachine;

enum ExitStatus : int { kDone = 0, kFailed = 1, kWrongUsage = 2, kNotWholly = 3 };

/// A file that can be read from when the system tells the program to end. Signals that were ignored
/// stay so.
int EndSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
    struct sigaction now {};
    if (sigaction(number, nullptr, &now) == 0 && now.sa_handler != SIG_IGN) {
      sigaddset(&signals, number);
    }
  }
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

/// The machines that are asked for, or why there are none.
struct Choices {
  std::vector<SimulatedChoice> Machines;
  std::string Error;
};

Choices Choose(const std::vector<ServedKind>& kinds) {
  Choices choices;
  std::vector<std::string> stores;
  for (const auto& kind : kinds) {
    choices.Machines.push_back(morvane::bridges::ChooseSimulated(kind.Machine));
    choices.Error = choices.Machines.back().Error;
    if (!choices.Error.empty()) return choices;
    stores.push_back(choices.Machines.back().Kind.Store);
  }
  const std::string store = morvane::NamedTwice(stores);
  if (!store.empty()) choices.Error = "store=" + store + ": for two machines";
  return choices;
}

/// What stands there to be served.
struct Served {
  morvane::SystemClock Clock;
  std::deque<morvane::bridges::LineTrace> Traces;
  std::deque<ServedMachine> Machines;
};

/// What the system did not do for the terminal of a machine; empty where it did all.
std::string OpenTerminal(PseudoTerminal& terminal, const std::string& link) {
  if (const auto error = terminal.Open()) return "no pseudo-terminal: " + error->Description;
  if (link.empty()) return "";
  if (const auto error = terminal.Link(link)) return "--link " + link + ": " + error->Description;
  return "";
}

/// Why there is no trace of the last machine; empty where there is one.
std::string StartTrace(Served& served, const ServedKind& kind) {
  const auto& trace = served.Traces.emplace_back(
      morvane::bridges::TraceOrder{
          .Path = kind.Trace, .Machine = kind.Machine, .HandsLeftOut = kind.TraceWithoutHands},
      served.Clock);
  served.Machines.back().TellTo(served.Traces.back());
  return trace.Trouble();
}

/// Puts one more up. Why it does not stand; empty where it does.
std::string PutUp(Served& served, const ServedKind& kind, SimulatedChoice choice) {
  ServedMachine& machine = served.Machines.emplace_back(choice.Kind, kind.Pace, served.Clock);
  std::string error = OpenTerminal(machine.Terminal(), kind.Link);
  if (!error.empty()) return error;
  machine.Machine().LayBoards(std::move(choice.Boards));
  return kind.Trace.empty() ? "" : StartTrace(served, kind);
}

/// The exit status: a trace that was asked for and is not whole is no success.
int EndTraces(Served& served) {
  int status = kDone;
  for (auto& trace : served.Traces) {
    const std::string told = trace.Trouble();
    trace.End();
    if (trace.Trouble().empty()) continue;
    status = kNotWholly;
    if (told.empty()) std::cerr << "morvane-machine: " << trace.Trouble() << "\n";
  }
  return status;
}

int Serve(const std::vector<ServedKind>& kinds, Choices choices) {
  const int endSignals = EndSignals();
  std::signal(SIGPIPE, SIG_IGN);  // whoever has read the first line may be gone
  Served served;
  for (std::size_t at = 0; at < kinds.size(); ++at) {
    const std::string error = PutUp(served, kinds[at], std::move(choices.Machines[at]));
    if (!error.empty()) return Fail(kFailed, error);
  }
  for (auto& machine : served.Machines) {
    std::cout << "serial:" << machine.Terminal().Name() << "\n";
  }
  if (!std::cout.flush()) return Fail(kFailed, "standard output cannot be written");
  if (isatty(STDIN_FILENO) != 0) std::cout << "help lists what you can do here." << std::endl;
  LineServer(served.Machines, std::cout, std::cerr).Run({STDIN_FILENO, endSignals});
  return EndTraces(served);
}

}  // namespace

int main(int argc, char** argv) {
  HoldStandardFiles();
  const auto arguments = morvane::ParseMachineArguments({argv + 1, argv + argc});
  if (!arguments.Help.empty()) {
    return morvane::WriteOut("morvane-machine", arguments.Help) ? kDone : kFailed;
  }
  if (!arguments.Error.empty()) {
    return Fail(kWrongUsage, arguments.Error + "\nTry 'morvane-machine --help'.");
  }
  Choices choices = Choose(arguments.Machines);
  if (!choices.Error.empty()) return Fail(kWrongUsage, choices.Error);
  return Serve(arguments.Machines, std::move(choices));
}
