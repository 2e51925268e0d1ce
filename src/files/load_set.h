#pragma once

#include <functional>
#include <string>

#include "platform/ui.h"
#include "program/program.h"

namespace morvane::history {
class History;
}

namespace morvane::files {

struct FileNotes;
struct Format;
class NumberDialog;

/// The Load command: asks whether to save first, takes `startFile` or asks for a file, loads it.
/// `startFile` is empty afterwards, however the command ends. Whether a set was loaded.
bool LoadBoardSet(Program& program, history::History& history, NumberDialog& dialog,
                  std::string& startFile);

/// Loads `path` in place of the current set, and adds it to the history unless a file of that title
/// stands there. All or nothing: after a failure, which the operator has been told where there are
/// words for it, the set is empty. Whether the set was loaded.
bool LoadFile(Program& program, history::History& history, NumberDialog& dialog,
              const std::string& path);

/// Fills the set, which is clear, from `path` as a file of `format`, and gives its boards their
/// numbers. False: the set is not to be kept.
[[nodiscard]] bool ReadSet(Program& program, NumberDialog& dialog, const Format& format,
                           const std::string& path, FileNotes& notes);

/// What tells one way to take another set from the next.
struct SetSource {
  std::string Doing;          ///< in the status bar meanwhile
  std::string LogWord;        ///< in front of the time in the log
  std::string QuestionTitle;  ///< of the question whether to save first
  std::string ErrorTitle;
  /// A set with changes that the operator gives up counts as saved from then on, also when no other
  /// takes its place.
  bool GivesUpAtOnce = false;
  FileRequest (*Request)(const Program& program) = nullptr;
  std::function<bool(const std::string& path)> Take;  ///< whether the set was taken
};

/// The flow of the Load command with another source; `pending` is a file to take without asking for
/// one. Whether a set was taken.
bool ReplaceSet(Program& program, history::History& history, const SetSource& source,
                const std::string& pending);

/// Empties the set before another takes its place, so that nothing of it is shown beside that one.
void ClearSet(Program& program);

/// The end of a load that went well: the set, which came from `path` by `use`, is remembered,
/// logged and shown, and `status` stands in the status bar.
void TakeLoadedSet(Program& program, history::History& history, const std::string& path,
                   FileUse use, const std::string& status);

}  // namespace morvane::files
