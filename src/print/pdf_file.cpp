#include "print/pdf_file.h"

#include <cerrno>

#include "platform/files.h"
#include "print/document.h"
#include "print/print_failure.h"
#include "program/program.h"

namespace morvane::print {
namespace {

/// What a reader of the file calls it.
std::string TitleOf(const PrintOptions& options) {
  if (!options.Header.empty()) return options.Header;
  return options.Mode == PrintMode::kScoreCards ? "Score cards" : "Hand records";
}

void LogRun(Log& log, const PrintOptions& options, const std::string& path) {
  if (options.Mode == PrintMode::kScoreCards) {
    log.WriteLine("   Print score cards to: " + path);
    return;
  }
  log.WriteLine("   Header: " + options.Header);
  log.WriteLine("   Print hands to: " + path);
}

std::optional<RuntimeError> WriteWhole(const std::string& path, const std::string& bytes) {
  if (bytes.empty()) return RuntimeError{ENOENT, "There are no fonts"};
  return WriteFile(path, bytes);
}

}  // namespace

bool WritePdf(Program& program, const PrintOptions& options, const std::string& path, Paper sheet,
              const std::function<bool()>& boardDone) {
  LogRun(program.Log, options, path);
  const Document document(program.Set, options);
  bool whole = true;
  const auto draw = [&](Canvas& canvas) { whole = document.Draw(canvas, boardDone); };
  const PrintJob job{TitleOf(options), options.Copies, sheet};
  const std::string bytes = program.ThePrinter.Pdf(job, draw);
  if (!whole) return false;
  const auto error = WriteWhole(path, bytes);
  if (error) ReportPrintFailure(program, *error);
  return !error;
}

}  // namespace morvane::print
