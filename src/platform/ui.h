#pragma once

#include <optional>
#include <string>

#include "text/box_text.h"

namespace morvane {

/// What a file dialog asks for. `Filter` is a row of "caption|pattern" pairs joined by "|";
/// `FilterIndex` counts its rows from 1, 0 is the first too.
struct FileRequest {
  std::string Title;
  std::string Filter;
  int FilterIndex = 1;
  std::string Directory;
  bool Saving = false;  ///< prompt before overwriting; otherwise the file must exist
};

struct Point {
  int X = 0;
  int Y = 0;
};

/// The operator: boxes, dialogs and the main window, as the procedures see them.
class Ui {
 public:
  virtual ~Ui() = default;
  /// A message box; `flags` and the answer are those of `BoxFlags` and `BoxAnswer`.
  virtual int MessageBox(const std::string& text, int flags, const std::string& title) = 0;
  /// The same with an OK button, for who works beside the flows: it waits for nobody.
  virtual void BoxBeside(const std::string& text, int flags, const std::string& title) {
    MessageBox(text, flags, title);
  }
  /// The first panel of the status bar.
  virtual void Status(const std::string& text) = 0;
  /// The full path chosen, nothing when the dialog was cancelled. A name without an extension gets
  /// none: what kind of file it is stands in its name alone.
  virtual std::optional<std::string> AskFile(const FileRequest& request) = 0;
  /// The set, its texts or its file name have changed: the main window shows them anew.
  virtual void RefreshSet() = 0;
  /// The hourglass, on or off.
  virtual void Busy(bool on) = 0;
  /// What the program waits for, blocked, under the hourglass and in place of the status; empty: it
  /// goes on.
  virtual void Waiting(const std::string& /*what*/) {}
  /// The mouse in the main window's client coordinates.
  [[nodiscard]] virtual Point Mouse() const = 0;
};

/// Shows the hourglass for as long as it lives; no box may be open meanwhile.
class Hourglass {
 public:
  explicit Hourglass(Ui& ui) : ui_(ui) { ui_.Busy(true); }
  ~Hourglass() { ui_.Busy(false); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  Ui& ui_;
};

}  // namespace morvane
