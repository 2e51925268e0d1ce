#include "cli/pages/page_files.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "cli/pages/completions.h"
#include "cli/pages/manual.h"
#include "cli/pages/markdown.h"
#include "cli/pages/roff.h"

namespace morvane::pages {
namespace {

void AddCompletions(std::vector<PageFile>& files, const ProgramLine& program) {
  files.push_back({"bash/" + program.Name, BashCompletion(program)});
  files.push_back({"zsh/_" + program.Name, ZshCompletion(program)});
  files.push_back({"fish/" + program.Name + ".fish", FishCompletion(program)});
}

std::string Reference() {
  return "# Command reference\n\nEvery command of `morvane-cli`, with all that it takes.\n\n" +
         Markdown(CommandReference());
}

bool Write(const std::filesystem::path& path, const std::string& bytes) {
  std::error_code failure;
  std::filesystem::create_directories(path.parent_path(), failure);
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  file.close();
  return file.good();
}

}  // namespace

std::vector<PageFile> PageFiles() {
  std::vector<PageFile> files;
  for (const Page& page : Manual()) files.push_back({"man1/" + page.Name + ".1", Roff(page)});
  for (const ProgramLine& program : {ConsoleLine(), DesktopLine(), ServingLine()}) {
    AddCompletions(files, program);
  }
  files.push_back({"command-reference.md", Reference()});
  return files;
}

std::string WritePageFiles(const std::string& folder) {
  for (const PageFile& file : PageFiles()) {
    const std::filesystem::path path = std::filesystem::path(folder) / file.Path;
    if (!Write(path, file.Bytes)) return path.string() + " cannot be written";
  }
  return "";
}

}  // namespace morvane::pages
