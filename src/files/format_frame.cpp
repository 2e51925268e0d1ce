#include "files/format_frame.h"

#include <cerrno>
#include <new>
#include <utility>

#include "files/capability_checks.h"
#include "platform/files.h"
#include "program/program.h"

namespace morvane::files {

std::optional<RuntimeError> ReadUnderHourglass(Program& program, const std::string& path,
                                               const std::function<void(std::string)>& take) {
  const Hourglass hourglass(program.Operator);
  std::string bytes;
  auto error = ReadFile(path, bytes, kLargestSetFile);
  if (error) return error;
  // A file decides here how much memory it takes.
  try {
    take(std::move(bytes));
  } catch (const std::bad_alloc&) {
    error = RuntimeError::OfNumber(ENOMEM);
  }
  return error;
}

bool ReadThrough(Program& program, const std::string& path, const Parse& parse) {
  std::optional<FormatFault> fault;
  const auto error = ReadUnderHourglass(
      program, path, [&](std::string bytes) { fault = parse(std::move(bytes)); });
  if (error) ReportLoadFailure(program, *error);
  if (fault) ReportFormatFault(program, *fault);
  return !error && !fault;
}

bool WriteThrough(Program& program, const Format& format, const std::string& path,
                  const std::string& incompleteBoards, const Compose& compose) {
  if (!MaySave(program, program.Set, format, incompleteBoards)) return false;
  std::optional<RuntimeError> error;
  {
    const Hourglass hourglass(program.Operator);
    error = WriteFile(path, compose());
  }
  if (error) ReportSaveFailure(program, *error);
  return !error;
}

}  // namespace morvane::files
