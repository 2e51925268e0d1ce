#include "files/format_frame.h"

#include <utility>

#include "files/capability_checks.h"
#include "platform/files.h"
#include "program/program.h"

namespace morvane::files {

bool ReadThrough(Program& program, const std::string& path, const Parse& parse) {
  std::string bytes;
  if (const auto error = ReadFile(path, bytes)) {
    ReportLoadFailure(program, *error);
    return false;
  }
  if (const auto fault = parse(std::move(bytes))) {
    ReportFormatFault(program, *fault);
    return false;
  }
  return true;
}

bool WriteThrough(Program& program, const Format& format, const std::string& path,
                  const std::string& incompleteBoards, const Compose& compose) {
  if (!MaySave(program, format, incompleteBoards)) return false;
  if (const auto error = WriteFile(path, compose())) {
    ReportSaveFailure(program, *error);
    return false;
  }
  return true;
}

}  // namespace morvane::files
