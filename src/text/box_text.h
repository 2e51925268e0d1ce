#pragma once

#include <string>
#include <string_view>

namespace morvane {

// The words of boxes: texts with placeholders, their buttons, icons and answers.

inline constexpr std::string_view kCrLf = "\r\n";

/// `text` with every occurrence of `placeholder` replaced by `value`.
[[nodiscard]] std::string Fill(std::string text, std::string_view placeholder,
                               std::string_view value);

/// `text` as a log line wants it: every line break becomes " : ", then six blanks in a row go,
/// wherever they stand; fewer stay, as do those that a longer run leaves over.
[[nodiscard]] std::string OneLine(std::string_view text);

/// `text` as a box of ours shows it: the padding, made for a plainer box, is taken off each line,
/// lines end with LF, and there are no empty ones at either end.
[[nodiscard]] std::string WithoutPadding(std::string_view text);

/// Buttons and icon of a message box, in the encoding of the catalogue's callers.
enum BoxFlags : int {
  kOkCancel = 1,
  kYesNo = 4,
  kOkCritical = 16,
  kOkCancelCritical = 17,
  kYesNoQuestion = 36,
  kOkExclamation = 48,
  kOkCancelExclamation = 49,
  kYesNoCancelExclamation = 51,
  kYesNoExclamation = 52,
  kOkInformation = 64,
  kOkCancelInformation = 65,
  kYesNoCancelInformation = 67,
  kYesNoInformation = 68,
  kYesNoExclamationNo = 308,  ///< Return answers No
  kYesNoSystem = 4356,        ///< a question without an icon over all windows; Return answers No
};

/// The answers of a message box.
enum BoxAnswer : int { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

}  // namespace morvane
