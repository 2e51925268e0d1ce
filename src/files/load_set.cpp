#include "files/load_set.h"

#include <utility>

#include "files/format_table.h"
#include "files/last_used.h"
#include "files/save_set.h"
#include "model/text.h"
#include "platform/files.h"
#include "program/program.h"

namespace morvane::files {
namespace {

/// Whether the current set may go: it has no changes, they were saved, or the operator gives it up.
bool MayReplaceSet(Program& program, const std::string& title) {
  int answer = kYes;
  if (program.Set.Changed()) {
    answer = program.Ask(program.Texts.Msg062, kYesNoCancelExclamation, title);
    if (answer == kYes) SaveBoardSet(program);
  }
  return (answer == kYes && !program.Set.Changed()) || answer == kNo;
}

FileRequest OpenRequest(const Program& program) {
  FileRequest request;
  request.Title = "Open Board Set file";
  request.Filter = OpenFilter(program.ServiceLevel);
  request.FilterIndex = OpenFilterIndex(program.Store.Get(kInitFormat), program.ServiceLevel);
  request.Directory = InitialDirectory(program.Store);
  return request;
}

void ClearSet(Program& program) {
  program.Set.Clear();
  program.Set.BoardSetFile.clear();
  program.Set.BoardSetChanged = "0";  // before the refresh, which shows it
  program.Operator.RefreshSet();
}

bool ReadByExtension(Program& program, const std::string& path) {
  std::string extension = ExtensionOf(FileTitle(path));
  if (extension == "TXT" && program.ServiceLevel == 0) extension.clear();
  const Format* const format = FindFormat(extension);
  if (format != nullptr && format->Read != nullptr) {
    return format->Read(program, format->Name, path);
  }
  program.Status("Load operation aborted");
  program.ShowMessage(Fill(program.Texts.Msg011, "***", extension), kOkCritical, "Load Error");
  return false;
}

/// What the status bar says after a failed load. A PBN file that can be read was refused for its
/// form, of which Import asks less; without any bracket there is nothing in it for Import either.
std::string StatusAfterFailure(const std::string& path) {
  std::string bytes;
  const bool forImport = ExtensionOf(FileTitle(path)) == "PBN" && !ReadFile(path, bytes) &&
                         bytes.find('[') != std::string::npos;
  return forImport ? "Load operation aborted. File - Import PBN may take this file" : "Ready";
}

}  // namespace

void TakeLoadedSet(Program& program, const std::string& path) {
  BoardSet& set = program.Set;
  RememberFile(program, path);
  program.Log.Boards(set, set.FirstBoard, set.LastBoard, false);
  set.BoardSetFile = path;
  program.Operator.RefreshSet();
  program.Status("Boards loaded: " + std::to_string(set.Count()));
}

bool LoadBoardSet(Program& program, std::string& startFile) {
  const std::string pending = std::exchange(startFile, {});
  SetSource files;
  files.Doing = "Loading";
  files.LogWord = " File-Load: ";
  files.QuestionTitle = "Load New Board Set";
  files.ErrorTitle = "Load Error";
  files.GivesUpAtOnce = true;  // even when the dialog is cancelled: required
  files.Request = OpenRequest;
  files.Take = [&](const std::string& path) { return LoadFile(program, path); };
  return ReplaceSet(program, files, pending);
}

bool ReplaceSet(Program& program, const SetSource& source, const std::string& pending) {
  if (program.AnalysisRunning) {
    program.ShowMessage(program.Texts.Msg103, kOkCritical, source.ErrorTitle);
    return false;
  }
  program.Status(source.Doing);
  if (!MayReplaceSet(program, source.QuestionTitle)) {
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

bool LoadFile(Program& program, const std::string& path) {
  ClearSet(program);
  program.Log.WriteLine("  Load: " + path);
  const bool loaded = ReadByExtension(program, path);
  if (loaded) {
    TakeLoadedSet(program, path);
  } else {
    ClearSet(program);
    program.Status(StatusAfterFailure(path));
  }
  program.Set.BoardSetChanged = "0";
  return loaded;
}

}  // namespace morvane::files
