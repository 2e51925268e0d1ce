#include "print/print_run.h"

#include <cerrno>
#include <filesystem>

#include "files/last_used.h"
#include "platform/files.h"
#include "platform/printer.h"
#include "print/document.h"
#include "print/print_failure.h"
#include "text/text.h"

namespace morvane::print {
namespace {

bool AreCards(const PrintOptions& job) { return job.Mode == PrintMode::kScoreCards; }

/// What the printer's queue and a PDF's reader call it.
std::string TitleOf(const PrintOptions& job) {
  if (!job.Header.empty()) return job.Header;
  return AreCards(job) ? "Score cards" : "Hand records";
}

PrintJob JobOf(const PrintOptions& job) { return {TitleOf(job), job.Copies}; }

/// `target`: the printer or a file.
void LogRun(Log& log, const PrintOptions& job, const std::string& target) {
  if (AreCards(job)) return log.WriteLine("   Print score cards to: " + target);
  log.WriteLine("   Header: " + job.Header);
  log.WriteLine("   Print hands to: " + target);
}

/// Of a PDF, which is empty where nothing could be drawn.
std::optional<RuntimeError> WriteWhole(const std::string& path, const std::string& bytes) {
  if (bytes.empty()) return RuntimeError{ENOENT, "There are no fonts"};
  return WriteFile(path, bytes);
}

/// A dot may also be of a date.
bool IsNamedPdf(const std::string& path) { return LowerCase(path).ends_with(".pdf"); }

/// The file asked for, ".pdf" added to a name without it; nothing when it was cancelled, or when
/// that is another file's name which is to be kept.
std::optional<std::string> AskPdfFile(Program& program) {
  auto path = program.Operator.AskFile(
      {"Save as PDF", "PDF (*.pdf)|*.pdf", 1, files::InitialDirectory(program.Store), true});
  if (!path || IsNamedPdf(*path)) return path;
  const std::string named = *path + ".pdf";
  std::error_code unknown;
  if (!std::filesystem::exists(PathOfUtf8(named), unknown)) return named;
  const std::string question =
      "      " + named + "      \r\n      already exists. Do you want to replace it?      ";
  if (program.Ask(question, kYesNoExclamation, "Save as PDF") != kYes) return std::nullopt;
  return named;
}

}  // namespace

bool PrintPages(Program& program, const PrintOptions& job, const std::function<bool()>& boardDone) {
  LogRun(program.Log, job, program.ThePrinter.DeviceName());
  const Document document(program.Set, job);
  const auto error = program.ThePrinter.Print(
      JobOf(job), [&](Canvas& canvas) { document.Draw(canvas, boardDone); });
  if (program.Loop.Quitting()) return false;
  if (error) ReportPrintFailure(program, *error);
  return !error;
}

bool SavePages(Program& program, const PrintOptions& job, const std::function<bool()>& boardDone) {
  const auto path = AskPdfFile(program);
  return path && WritePdf(program, job, *path, Paper::kPrinters, boardDone);
}

bool WritePdf(Program& program, const PrintOptions& job, const std::string& path, Paper sheet,
              const std::function<bool()>& boardDone) {
  LogRun(program.Log, job, path);
  const Document document(program.Set, job);
  bool whole = true;
  const std::string pdf =
      program.ThePrinter.Pdf({TitleOf(job), job.Copies, sheet},
                             [&](Canvas& canvas) { whole = document.Draw(canvas, boardDone); });
  return whole && SavePdf(program, path, pdf);
}

bool SavePdf(Program& program, const std::string& path, const std::string& bytes) {
  const auto error = WriteWhole(path, bytes);
  if (error) ReportPrintFailure(program, *error);
  return !error;
}

void PreviewPages(Program& program, const PrintOptions& job, const std::function<void()>& print,
                  const std::function<void()>& save) {
  const Document document(program.Set, job);
  const auto goOn = [&program] { return !program.Loop.Quitting(); };
  program.ThePrinter.Preview(JobOf(job), [&](Canvas& canvas) { document.Draw(canvas, goOn); },
                             {{"cmdPrint", "&Print", print}, {"cmdPdf", "&Save as PDF...", save}});
}

std::optional<int> SetUpPrinter(Program& program, int copies) {
  const auto why = program.ThePrinter.WhyNoSetup();
  if (!why) return program.ThePrinter.Setup(copies);
  program.ShowMessage("      " + why->Description + "      ", kOkExclamation, kPrintingError);
  return std::nullopt;
}

}  // namespace morvane::print
