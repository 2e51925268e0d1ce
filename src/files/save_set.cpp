#include "files/save_set.h"

#include "files/capability_checks.h"
#include "files/failure_reports.h"
#include "files/format_table.h"
#include "files/last_used.h"
#include "history/history.h"
#include "platform/files.h"
#include "platform/write_check.h"
#include "program/has_set.h"
#include "program/program.h"

namespace morvane::files {
namespace {

FileRequest SaveRequest(const Program& program) {
  FileRequest request;
  request.Title = "Save Board Set";
  request.Filter = SaveFilter();
  request.FilterIndex = SaveFilterIndex(program.Store.Get(kInitFormat));
  request.Directory = InitialDirectory(program.Store);
  request.Saving = true;
  return request;
}

/// The time of day with a colon behind the seconds, unlike everywhere else: required.
std::string SaveTime(const Clock& clock) {
  constexpr std::size_t kHalfOfDay = 3;  // " AM", " PM"
  std::string time = TimeText(clock);
  return time.insert(time.size() - kHalfOfDay, 1, ':');
}

/// The format of the file; null when there is none to save in, which the operator has been told.
const Format* SaveFormat(Program& program, const std::string& path) {
  const std::string extension = ExtensionOf(FileTitle(path));
  const Format* const format = FindFormat(extension);
  if (format != nullptr && format->Write != nullptr) return format;
  program.Status("Save operation aborted");
  program.ShowMessage(Fill(program.Texts.Msg010, "***", extension), kOkCritical, "Save Error");
  return nullptr;
}

void TakeSavedSet(Program& program, history::History& history, const std::string& path) {
  // A set saved twice stands there twice: required.
  history.AddToHistory(program, NameOf(FileTitle(path)));
  RememberFile(program, path);
  program.OnFileUsed(path, FileUse::kSaved);
  program.Status("Boards Saved: " + std::to_string(program.Set.Count()));
  program.Set.BoardSetFile = path;
  program.Set.MarkSaved();  // before the refresh, which shows it
  program.Operator.RefreshSet();
}

}  // namespace

bool SaveBoardSet(Program& program, history::History& history) {
  program.Status("Saving");
  if (!HasSet(program, "Save Error")) return false;
  program.Log.WriteLine(" File-Save: " + SaveTime(program.Time));
  if (const auto path = program.Operator.AskFile(SaveRequest(program)))
    return SaveFile(program, history, *path);
  program.Status("Ready");
  program.Operator.RefreshSet();
  return false;
}

bool SaveFile(Program& program, history::History& history, const std::string& path) {
  program.Log.WriteLine("  Save: " + path);
  const Format* const format = SaveFormat(program, path);
  if (format == nullptr) return false;
  if (!format->Write(program, *format, path, IncompleteBoardList(program.Set))) {
    program.Status("Save operation aborted");
    program.Status("Ready");
    return false;
  }
  TakeSavedSet(program, history, path);
  return true;
}

bool MaySaveFile(Program& program, const BoardSet& set, const std::string& path) {
  const Format* const format = SaveFormat(program, path);
  if (format == nullptr) return false;
  if (const auto error = CheckWritable(path)) {
    ReportSaveFailure(program, *error);
    return false;
  }
  return MaySave(program, set, *format, IncompleteBoardList(set));
}

}  // namespace morvane::files
