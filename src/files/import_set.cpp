#include "files/import_set.h"

#include <memory>
#include <utility>

#include "files/format_frame.h"
#include "files/last_used.h"
#include "files/load_set.h"
#include "files/pbn_import.h"
#include "program/program.h"
#include "text/text_encoding.h"

namespace morvane::files {
namespace {

constexpr const char* kTitle = "Import PBN";

FileRequest ImportRequest(const Program& program) {
  FileRequest request;
  request.Title = "Import PBN file";
  request.Filter = "PBN files (*.pbn)|*.pbn|All files (*.*)|*.*";
  request.Directory = InitialDirectory(program.Store);
  return request;
}

std::nullopt_t Abort(Program& program, const std::string& path, const std::string& text) {
  program.OnFileUsed(path, FileUse::kRefused);
  program.Status("Import operation aborted");
  program.ShowMessage(text, kOkCritical, kTitle);
  program.Status("Ready");
  program.Operator.RefreshSet();
  return std::nullopt;
}

}  // namespace

std::optional<ImportReport> ImportBoardSet(Program& program, history::History& history,
                                           const std::string& pending) {
  std::optional<ImportReport> report;
  SetSource files;
  files.Doing = "Importing";
  files.LogWord = " File-Import: ";
  files.QuestionTitle = kTitle;
  files.ErrorTitle = kTitle;
  files.Request = ImportRequest;
  files.Take = [&](const std::string& path) {
    report = ImportFile(program, history, path);
    return report.has_value();
  };
  ReplaceSet(program, history, files, pending);
  return report;
}

std::optional<ImportReport> ImportFile(Program& program, history::History& history,
                                       const std::string& path) {
  program.Log.WriteLine("  Import: " + path);
  auto imported = std::make_unique<BoardSet>();
  imported->Clear();
  ImportReport report;
  const auto error = ReadUnderHourglass(program, path, [&](std::string bytes) {
    report = ImportPbn(DecodeAnyText(std::move(bytes)), *imported);
  });
  if (error) {
    return Abort(program, path, "      The file cannot be read: " + error->Description + "      ");
  }
  if (!imported->Exists()) return Abort(program, path, ReportText(report));
  ClearSet(program);
  program.Set = std::move(*imported);
  TakeLoadedSet(program, history, path, FileUse::kImported,
                "Boards imported: " + std::to_string(report.Taken));
  program.Set.MarkSaved();
  program.ShowMessage(ReportText(report),
                      report.PassedOver.Count > 0 ? kOkExclamation : kOkInformation, kTitle);
  return report;
}

}  // namespace morvane::files
