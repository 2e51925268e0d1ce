#include "analysis/solver_process.h"

#include <utility>

#include "platform/files.h"

namespace morvane::analysis {
namespace {

#ifdef _WIN32
constexpr std::string_view kEnding = ".exe";
#else
constexpr std::string_view kEnding;
#endif

}  // namespace

SolverProcess::SolverProcess(ProcessStarter& starter, std::string folder, std::string settingsFile)
    : starter_(starter), folder_(std::move(folder)), settingsFile_(std::move(settingsFile)) {}

std::optional<RuntimeError> SolverProcess::Start(Solver solver, std::vector<std::string> tokens) {
  ProcessOrder order;
  order.Path = JoinPath(folder_, std::string(WordsOf(solver).Program).append(kEnding));
  order.Arguments = std::move(tokens);
  if (!settingsFile_.empty()) order.Variables.push_back("MORVANE_SETTINGS=" + settingsFile_);
  StartedProcess started = starter_.Start(order);
  child_ = std::move(started.Child);
  return started.Error;
}

}  // namespace morvane::analysis
