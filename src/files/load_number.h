#pragma once

#include <string>

#include "files/format_table.h"
#include "text/number_filter.h"

namespace morvane::files {

/// The dialog `Load_number`: shows the numbers that the boards of a file without numbers have been
/// given, 1 to their count, and takes another first one. It has no cancel.
class LoadNumber {
 public:
  LoadNumber(Program& program, const Format& format);

  std::string lblBoardLoaded;
  std::string lblFormat;
  std::string lblFirstBoard;
  std::string lblLastBoard;
  std::string lblChangeBoards;
  std::string txtFirstBoard;
  std::string txtLastBoard;

  /// `txtFirstBoard`, after every change by the operator. What the box is to show; `txtLastBoard`
  /// follows it, also to numbers that no board can have.
  FilteredBox ChangeFirstBoard(FilteredBox box);
  /// Moves the set to `txtFirstBoard` and closes; whether it did. A first
  /// number with which the set would end above 640 is told, and the dialog stays.
  bool Command1();
  [[nodiscard]] bool Closed() const { return closed_; }

 private:
  Program& program_;
  std::string previous_ = "1";
  bool closed_ = false;
};

/// Brings up the dialog.
class NumberDialog {
 public:
  virtual ~NumberDialog() = default;
  /// Shows it modally and returns when it is closed, or when nobody can close it any more because
  /// the program ends: the load is given up then.
  /// A program that has no such window does nothing, with the same end.
  virtual void ShowLoadNumber(LoadNumber& /*dialog*/) {}
};

}  // namespace morvane::files
