#include "cli/paper_request.h"

#include <filesystem>
#include <utility>

#include "files/format_table.h"
#include "platform/console/progress_line.h"
#include "platform/files.h"
#include "platform/write_check.h"
#include "print/print_checks.h"
#include "print/print_failure.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

using print::PrintOptions;

/// Counts the boards or deals at the terminal.
class PrintProgress {
 public:
  PrintProgress(Terminal& terminal, std::string what) : line_(terminal), what_(std::move(what)) {}
  ~PrintProgress() { line_.Leave(); }
  PrintProgress(const PrintProgress&) = delete;
  PrintProgress& operator=(const PrintProgress&) = delete;
  void OneDone() { line_.Show(what_ + " printed: " + std::to_string(++count_)); }

 private:
  ProgressLine line_;
  std::string what_;
  int count_ = 0;
};

void NameFiles(ConsoleUi& ui, const PaperRequest& request) {
  for (const char* title : {print::kParameterError, "Printing"}) ui.NameFile(title, request.In);
  ui.NameFile(print::kPrintingError, request.Out);
}

PrintOptions OptionsOf(const Program& program, const PaperRequest& request) {
  PrintOptions options = print::LoadPrintOptions(program.Store);
  options.From = request.From.value_or(program.Set.FirstBoard);
  options.To = request.To.value_or(program.Set.LastBoard);
  options.Analysis = options.Analysis && !request.NoAnalysis;
  options.Header = request.Header.value_or(program.Set.EventName);
  if (request.Ten) options.TenAsNumber = *request.Ten == "10";
  if (request.National) options.National = Val(*request.National);
  return options;
}

bool RangeIsRight(Program& program, const PrintOptions& options) {
  const print::RangeFault fault = print::CheckRange(program.Set, options);
  if (fault == print::RangeFault::kNone) return true;
  program.ShowMessage(print::TextOf(fault, program.Texts), kOkCritical, print::kParameterError);
  return false;
}

bool MayLackTables(Job& job, const PrintOptions& options) {
  Program& program = job.Place.Prog;
  if (!print::LacksAnalysis(program.Set, options)) return true;
  if (program.Ask(program.Texts.Msg082, kYesNoQuestion, "Printing") == kYes) return true;
  job.Place.Screen.Error("Not printed; --no-analysis prints without the makeable contracts.\n");
  return false;
}

}  // namespace

PaperRequest ReadPaperRequest(OptionReader& given) {
  PaperRequest request{.In = given.Path(0),
                       .Out = given.Path(1),
                       .From = given.Number("from"),
                       .To = given.Number("to"),
                       .NoAnalysis = given.Has("no-analysis"),
                       .Header = given.Text("header"),
                       .Ten = given.Choice(kTenOption),
                       .National = given.Choice(kNationalOption),
                       .Import = given.Has("import")};
  RefuseSetName(given, request.Out);
  return request;
}

void RefuseSetName(OptionReader& given, const std::string& out) {
  const auto* const format = files::FindFormat(files::ExtensionOf(FileTitle(out)));
  if (format == nullptr || format->Write == nullptr) return;
  given.Refuse(out + " is a board set by its name");
}

std::optional<PrintOptions> TakePaper(Job& job, const PaperRequest& request,
                                      print::PrintMode mode) {
  NameFiles(job.Place.Operator, request);
  if (!MayWriteOut(job, {request.In, request.Out, "set"}) || !Load(job, request.In, request.Import))
    return std::nullopt;
  Program& program = job.Place.Prog;
  PrintOptions options = OptionsOf(program, request);
  options.Mode = mode;
  if (!RangeIsRight(program, options) || !MayLackTables(job, options)) return std::nullopt;
  return options;
}

bool IsItself(Job& job, const PaperFiles& files) {
  std::error_code missing;
  if (!std::filesystem::equivalent(PathOfUtf8(files.In), PathOfUtf8(files.Out), missing)) {
    return false;
  }
  job.Place.Screen.Error(files.Out + " is the " + files.What + " itself.\n");
  return true;
}

bool MayWriteOut(Job& job, const PaperFiles& files) {
  if (IsItself(job, files)) return false;
  const auto error = CheckWritable(files.Out);
  if (error) print::ReportPrintFailure(job.Place.Prog, *error);
  return !error;
}

void LogParameters(Program& program, const PrintOptions& options) {
  program.Log.WriteLine("  Print parameters: " + print::PrintParameters(options));
}

ExitStatus PutOnPaper(Job& job, const std::string& out, const std::string& what,
                      const std::function<bool(const std::function<bool()>&)>& print) {
  Program& program = job.Place.Prog;
  const int before = job.Place.Operator.BoxesShown();
  bool done = false;
  {
    PrintProgress progress(job.Place.Screen, what);
    done = print([&program, &progress] {
      progress.OneDone();
      return program.Loop.Pump();
    });
  }
  if (done) return kDone;
  // A reader that goes ends the program too, but that has been told as the failure.
  if (program.Loop.Quitting() && job.Place.Operator.BoxesShown() == before) {
    job.Place.Screen.Error("Broken off before " + out + "\n");
  }
  return kFailed;
}

Paper SheetOf(const std::optional<std::string>& word) {
  if (!word) return Paper::kPrinters;
  return *word == "letter" ? Paper::kLetter : Paper::kA4;
}

}  // namespace morvane::cli
