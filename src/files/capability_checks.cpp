#include "files/capability_checks.h"

#include "program/program.h"

namespace morvane::files {
namespace {

constexpr std::size_t kListLength = 30;
constexpr std::size_t kOneNumber = 3;  // a longer list names several boards

bool AllowsIncompleteBoards(Program& program, const Format& format, const std::string& list) {
  if (list.empty()) return true;
  const Messages& texts = program.Texts;
  const bool one = list.size() <= kOneNumber;
  const auto text = [&](const std::string& message) {
    return Fill(Fill(message, "nnn", list), "***", format.Name);
  };
  if (!format.IncompleteBoards) {
    program.ShowMessage(text(one ? texts.Msg002 : texts.Msg004), kOkCritical, "Save Error");
    return false;
  }
  return !program.Store.IsOn(kSaveIncomplete) ||
         program.Ask(text(one ? texts.Msg003 : texts.Msg005), kYesNoExclamation,
                     "Save Board Set") == kYes;
}

/// These boxes are called "Save Boards Set", the one above "Save Board Set": required.
bool AcceptsLoss(Program& program, const Format& format, const std::string& message) {
  return program.Ask(Fill(message, "***", format.Name), kYesNoInformation, "Save Boards Set") ==
         kYes;
}

bool AllowsEventTexts(Program& program, const Format& format) {
  // The setting alone decides, also when there are no event texts: required.
  return format.EventTexts || !program.Store.IsOn(kSaveEvent) ||
         AcceptsLoss(program, format, program.Texts.Msg001);
}

bool AllowsNumbers(Program& program, const BoardSet& set, const Format& format) {
  return format.BoardNumbers != Format::Numbers::kNone || set.FirstBoard == 1 ||
         !program.Store.IsOn(kSaveNumbers) || AcceptsLoss(program, format, program.Texts.Msg006);
}

bool AllowsCharacters(Program& program, const BoardSet& set, const Format& format) {
  if (!format.LimitsEventTexts || !HasPbnForbiddenChars(set)) return true;
  program.ShowMessage(program.Texts.Msg033, kOkCritical, "Save Error");
  return false;
}

}  // namespace

std::string IncompleteBoardList(const BoardSet& set) {
  std::string list;
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    if (set.At(n).Status == Board::kComplete) continue;
    if (list.size() >= kListLength) return list + ".... ";
    if (!list.empty()) list += ", ";
    list += std::to_string(n);
  }
  return list;
}

bool HasPbnForbiddenChars(const BoardSet& set) {
  constexpr std::string_view kForbidden = "[]{}%;\"";
  const auto has = [&](const std::string& text) {
    return text.find_first_of(kForbidden) != std::string::npos;
  };
  return has(set.EventName) || has(set.EventSite) || has(set.EventDate);
}

bool MaySave(Program& program, const BoardSet& set, const Format& format,
             const std::string& incompleteBoards) {
  return AllowsIncompleteBoards(program, format, incompleteBoards) &&
         AllowsEventTexts(program, format) && AllowsNumbers(program, set, format) &&
         AllowsCharacters(program, set, format);
}

}  // namespace morvane::files
