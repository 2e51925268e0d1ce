#include <iostream>

#include "cli/pages/page_files.h"

// Writes the manual, the completions and the guide's list of commands. It serves the build and is
// not installed.

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "Usage: command_pages FOLDER\n";
    return 2;
  }
  const std::string error = morvane::pages::WritePageFiles(argv[1]);
  if (error.empty()) return 0;
  std::cerr << "command_pages: " << error << "\n";
  return 1;
}
