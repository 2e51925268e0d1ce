#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {
class Program;
struct BoardSet;
struct Messages;
}  // namespace morvane

namespace morvane::files {

struct Format;
struct FormatFault;

/// The first and last board number that a file gives for its whole set; 0 = none.
struct FileNumbers {
  int First = 0;
  int Last = 0;
};

/// What a reader finds besides the boards.
struct FileNotes {
  FileNumbers Numbers;
  bool HasTags = false;  ///< a "[" stands in it, so Import may take what Load refuses
};

/// Fills `set`, which is clear, from the bytes of a file and asks nobody; the first fault in them.
/// After one the set holds what came before it.
using Parser = std::optional<FormatFault> (*)(std::string&& bytes, const Format& format,
                                              BoardSet& set, FileNotes& notes,
                                              const Messages& texts);
/// Fills the set, which is clear, from the file. False: the operator has been told why.
using Reader = bool (*)(Program& program, const Format& format, const std::string& path,
                        FileNotes& notes);
/// Writes the set, whose `IncompleteBoardList` is given, to the file. False: nothing was saved,
/// because of an error that the operator has been told or because of an answer.
using Writer = bool (*)(Program& program, const Format& format, const std::string& path,
                        const std::string& incompleteBoards);

/// One board-file format: how it is called and what it can hold.
struct Format {
  enum class Numbers { kNone, kFirstAndLast, kEachBoard };

  std::string_view Extension;  ///< upper case, without the dot
  std::string_view Name;       ///< in messages
  bool EventTexts = false;
  bool LimitsEventTexts = false;  ///< some characters can't stand in them
  Numbers BoardNumbers = Numbers::kNone;
  bool IncompleteBoards = false;
  Parser Parse = nullptr;  ///< none: the operator has to be asked
  Reader Read = nullptr;
  Writer Write = nullptr;  ///< none: this format can't be saved
};

/// The format of an upper-case extension; null when there is none. The extension alone decides,
/// never the content.
[[nodiscard]] const Format* FindFormat(std::string_view extension);

/// The lower-case extensions of the formats that can be saved; first the one that can hold
/// everything.
[[nodiscard]] std::vector<std::string> SavedExtensions();

/// The upper-cased text behind the last "." of a file title; empty without one.
[[nodiscard]] std::string ExtensionOf(std::string_view title);

/// What stands before the last "." of a file title; all of it without one.
[[nodiscard]] std::string NameOf(std::string_view title);

/// The filter rows of the two file dialogs.
[[nodiscard]] std::string OpenFilter(int serviceLevel);
[[nodiscard]] std::string SaveFilter();

/// The filter row, counted from 1, that the last used format preselects; 0 is the first row too.
[[nodiscard]] int OpenFilterIndex(std::string_view initFormat, int serviceLevel);
[[nodiscard]] int SaveFilterIndex(std::string_view initFormat);

}  // namespace morvane::files
