#include "cli/paper_request.h"

#include <filesystem>

#include "files/format_table.h"
#include "platform/files.h"
#include "platform/write_check.h"
#include "print/print_checks.h"
#include "print/print_failure.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

using print::PrintOptions;

/// Counts the boards at the terminal.
class PrintProgress {
 public:
  explicit PrintProgress(Terminal& terminal) : terminal_(terminal) {}
  ~PrintProgress() {
    if (shown_) terminal_.Out("\n");
  }
  PrintProgress(const PrintProgress&) = delete;
  PrintProgress& operator=(const PrintProgress&) = delete;
  void BoardDone() {
    ++count_;
    if (!terminal_.ShowsProgress()) return;
    terminal_.Out("\rBoards printed: " + std::to_string(count_));
    shown_ = true;
  }

 private:
  Terminal& terminal_;
  int count_ = 0;
  bool shown_ = false;
};

void NameFiles(ConsoleUi& ui, const PaperRequest& request) {
  for (const char* title : {print::kParameterError, "Printing"}) ui.NameFile(title, request.In);
  ui.NameFile(print::kPrintingError, request.Out);
}

/// The set would be gone.
bool IsTheSet(Job& job, const PaperRequest& request) {
  std::error_code missing;
  if (!std::filesystem::equivalent(PathOfUtf8(request.In), PathOfUtf8(request.Out), missing)) {
    return false;
  }
  job.Place.Screen.Error(request.Out + " is the set itself.\n");
  return true;
}

bool MayWriteOut(Job& job, const PaperRequest& request) {
  if (IsTheSet(job, request)) return false;
  const auto error = CheckWritable(request.Out);
  if (error) print::ReportPrintFailure(job.Place.Prog, *error);
  return !error;
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
                       .Ten = given.Choice("ten", {"T", "10"}),
                       .National = given.Choice("national", {"0", "1", "2", "3", "4", "5", "6"}),
                       .Import = given.Has("import")};
  const auto* const format = files::FindFormat(files::ExtensionOf(FileTitle(request.Out)));
  if (format != nullptr && format->Write != nullptr) {
    given.Refuse(request.Out + " is a board set by its name");
  }
  return request;
}

std::optional<PrintOptions> TakePaper(Job& job, const PaperRequest& request,
                                      print::PrintMode mode) {
  NameFiles(job.Place.Operator, request);
  if (!MayWriteOut(job, request) || !Load(job, request.In, request.Import)) return std::nullopt;
  Program& program = job.Place.Prog;
  PrintOptions options = OptionsOf(program, request);
  options.Mode = mode;
  if (!RangeIsRight(program, options) || !MayLackTables(job, options)) return std::nullopt;
  return options;
}

void LogParameters(Program& program, const PrintOptions& options) {
  program.Log.WriteLine("  Print parameters: " + print::PrintParameters(options));
}

ExitStatus PutOnPaper(Job& job, const PaperRequest& request,
                      const std::function<bool(const std::function<bool()>&)>& print) {
  Program& program = job.Place.Prog;
  const int before = job.Place.Operator.BoxesShown();
  bool done = false;
  {
    PrintProgress progress(job.Place.Screen);
    done = print([&program, &progress] {
      progress.BoardDone();
      return program.Loop.Pump();
    });
  }
  if (done) return kDone;
  // A reader that goes ends the program too, but that has been told as the failure.
  if (program.Loop.Quitting() && job.Place.Operator.BoxesShown() == before) {
    job.Place.Screen.Error("Broken off before " + request.Out + "\n");
  }
  return kFailed;
}

}  // namespace morvane::cli
