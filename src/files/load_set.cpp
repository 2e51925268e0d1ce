#include "files/load_set.h"

#include <utility>

#include "files/format_table.h"
#include "files/last_used.h"
#include "files/load_number.h"
#include "files/number_allocation.h"
#include "files/save_set.h"
#include "history/history.h"
#include "platform/files.h"
#include "program/program.h"
#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::files {
namespace {

/// Whether the current set may go: it has no changes, they were saved, or the operator gives it up.
bool MayReplaceSet(Program& program, history::History& history, const std::string& title) {
  if (!program.Set.Changed()) return true;
  const int answer = program.Ask(program.Texts.Msg062, kYesNoCancelExclamation, title);
  if (answer == kYes) SaveBoardSet(program, history);
  return answer == kNo || (answer == kYes && !program.Set.Changed());
}

FileRequest OpenRequest(const Program& program) {
  FileRequest request;
  request.Title = "Open Board Set file";
  request.Filter = OpenFilter(program.ServiceLevel);
  request.FilterIndex = OpenFilterIndex(program.Store.Get(kInitFormat), program.ServiceLevel);
  request.Directory = InitialDirectory(program.Store);
  return request;
}

bool ReadByExtension(Program& program, NumberDialog& dialog, const std::string& path,
                     FileNotes& notes) {
  std::string extension = ExtensionOf(FileTitle(path));
  if (extension == "TXT" && program.ServiceLevel == 0) extension.clear();
  if (const Format* const format = FindFormat(extension)) {
    return ReadSet(program, dialog, *format, path, notes);
  }
  program.Status("Load operation aborted");
  program.ShowMessage(Fill(program.Texts.Msg011, "***", extension), kOkCritical, "Load Error");
  return false;
}

}  // namespace

void ClearSet(Program& program) {
  program.Set.Clear();
  program.Set.BoardSetFile.clear();
  program.Set.MarkSaved();  // before the refresh, which shows it
  program.Operator.RefreshSet();
}

void TakeLoadedSet(Program& program, history::History& history, const std::string& path,
                   FileUse use, const std::string& status) {
  BoardSet& set = program.Set;
  RememberFile(program, path);
  program.OnFileUsed(path, use);
  const std::string title = NameOf(FileTitle(path));
  history.AddUnlessKnown(program, FirstCharacters(title, history::kNameCharacters));
  program.Log.Boards(set, set.FirstBoard, set.LastBoard, false);
  set.BoardSetFile = path;
  program.Operator.RefreshSet();
  program.Status(status);
}

bool LoadBoardSet(Program& program, history::History& history, NumberDialog& dialog,
                  std::string& startFile) {
  const std::string pending = std::exchange(startFile, {});
  SetSource files;
  files.Doing = "Loading";
  files.LogWord = " File-Load: ";
  files.QuestionTitle = "Load New Board Set";
  files.ErrorTitle = "Load Error";
  files.GivesUpAtOnce = true;  // even when the dialog is cancelled: required
  files.Request = OpenRequest;
  files.Take = [&](const std::string& path) { return LoadFile(program, history, dialog, path); };
  return ReplaceSet(program, history, files, pending);
}

bool ReplaceSet(Program& program, history::History& history, const SetSource& source,
                const std::string& pending) {
  if (program.AnalysisRunning) {
    program.ShowMessage(program.Texts.Msg103, kOkCritical, source.ErrorTitle);
    return false;
  }
  program.Status(source.Doing);
  if (!MayReplaceSet(program, history, source.QuestionTitle)) {
    program.Status("Ready");
    return false;
  }
  program.Log.WriteTime(source.LogWord);
  if (!pending.empty()) return source.Take(pending);
  if (source.GivesUpAtOnce) program.Set.BoardSetChanged = "0";
  if (const auto path = program.Operator.AskFile(source.Request(program)))
    return source.Take(*path);
  program.Status("Ready");
  program.Operator.RefreshSet();
  return false;
}

bool LoadFile(Program& program, history::History& history, NumberDialog& dialog,
              const std::string& path) {
  ClearSet(program);
  program.Log.WriteLine("  Load: " + path);
  FileNotes notes;
  const bool loaded = ReadByExtension(program, dialog, path, notes);
  if (loaded) {
    TakeLoadedSet(program, history, path, FileUse::kLoaded,
                  "Boards loaded: " + std::to_string(program.Set.Count()));
  } else {
    ClearSet(program);
    program.OnFileUsed(path, FileUse::kRefused);
    // A file with tags was refused for its form, of which Import asks less.
    program.Status(notes.HasTags ? "Load operation aborted. File - Import PBN may take this file"
                                 : "Ready");
  }
  program.Set.MarkSaved();
  return loaded;
}

bool ReadSet(Program& program, NumberDialog& dialog, const Format& format, const std::string& path,
             FileNotes& notes) {
  return format.Read(program, format, path, notes) &&
         AllocateNumbers(program, dialog, format, notes.Numbers);
}

}  // namespace morvane::files
