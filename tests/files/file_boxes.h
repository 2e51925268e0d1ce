#pragma once

#include <string>

#include "support/fakes.h"

namespace morvane::files {

// The boxes of Load and Save, to the letter.

/// The whole text that the operator sees for one specific line on a file's form.
inline std::string Told(const std::string& line, const std::string& padding = "      ") {
  return "      File format error     \r\n      " + line + padding +
         "\r\n\r\n      Load operation aborted!      ";
}
inline const std::string kTooMany = Told("Too many records", "     ");
inline const std::string kFileIsEmpty = Told("File is empty");

/// The box in which it stands.
inline test::FakeUi::Box LoadError(const std::string& text) { return {text, 16, "Load Error"}; }

/// The system failed; `number` and `description` are its own.
inline test::FakeUi::Box LoadFailure(const std::string& number, const std::string& description) {
  return {"      Error: " + number + " during load operation - " + description +
              "      \r\n      Load operation aborted!      ",
          16, "Load Error"};
}
inline test::FakeUi::Box SaveFailure(const std::string& number, const std::string& description) {
  return {"      Error: " + number + " during save operation - " + description +
              "      \r\n      Save operation aborted!      ",
          16, "Save Error"};
}

/// `boards` as in "Boards number: 1, 2 are".
inline test::FakeUi::Box Refusal(const std::string& boards, const std::string& format) {
  return {"      " + boards + " incomplete.      \r\n      This Board Set cannot be saved in " +
              format +
              " format.      \r\n      If you need to save this Board Set please use PBN or BRE "
              "format.      \r\n",
          16, "Save Error"};
}
inline test::FakeUi::Box IncompleteQuestion(const std::string& boards, const std::string& format) {
  return {"      " + boards + " incomplete.      \r\n      Incomplete boards can be saved in " +
              format + " format.      \r\n\r\n      Do you want to proceed?      \r\n",
          52, "Save Board Set"};
}

inline test::FakeUi::Box ForbiddenCharacters() {
  return {
      "      In PBN format characters []{};\"% are not allowed in the Event Name, Event Site and "
      "Event Date fields      ",
      16, "Save Error"};
}

inline test::FakeUi::Box EventWarning(const std::string& format) {
  return {"      " + format +
              " format does not support Event Name, Event Site and Event Date Information.      "
              "\r\n      This information will not be saved.      \r\n      If you need to save "
              "this information please use PBN or BRE formats.      \r\n\r\n      Do you want to "
              "save current Board Set in " +
              format + " format anyway?      \r\n",
          68, "Save Boards Set"};
}
inline test::FakeUi::Box NumbersWarning(const std::string& format) {
  return {"      First Board for the current Board Set is not board number 1.      \r\n      " +
              format +
              " format does not support board numbers.      \r\n      If you need to save board "
              "numbers please use PBN format.      \r\n\r\n      Do you want to save current Board "
              "Set in " +
              format + " format anyway?      \r\n",
          68, "Save Boards Set"};
}

}  // namespace morvane::files
