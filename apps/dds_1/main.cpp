#include <cstdlib>
#include <string>
#include <vector>

#include "platform/ini_settings.h"
#include "platform/user_folders.h"
#include "solver/adapter.h"

// DDS_1: the solver that Morvane starts for a board. Its arguments are the cards; its answer stands
// in the settings store.

int main(int argc, char** argv) {
  const char* named = std::getenv("MORVANE_SETTINGS");
  morvane::IniSettings store(named != nullptr && *named != '\0' ? named
                                                                : morvane::DefaultSettingsFile());
  const std::vector<std::string> tokens(argv + 1, argv + argc);
  const int status = morvane::solver::Answer(store, tokens, morvane::solver::LibraryVersion(),
                                             morvane::solver::CalcTable);
  // The library cannot be told to stop.
  std::_Exit(status);
}
