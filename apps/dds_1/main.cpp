#include <cstdlib>
#include <string>
#include <vector>

#include "platform/system_settings.h"
#include "platform/user_folders.h"
#include "solver/adapter.h"

// DDS_1: the solver that Morvane starts for a board. Its arguments are the cards; its answer stands
// in the settings store.

int main(int argc, char** argv) {
  const auto store = morvane::OpenSettings(morvane::EnvironmentText("MORVANE_SETTINGS"));
  const std::vector<std::string> tokens(argv + 1, argv + argc);
  const int status = morvane::solver::Answer(*store, tokens, morvane::solver::LibraryVersion(),
                                             morvane::solver::CalcTable);
  // The library cannot be told to stop.
  std::_Exit(status);
}
