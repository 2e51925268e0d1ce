#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "model/board_set.h"
#include "platform/clock.h"
#include "platform/runtime_error.h"

namespace morvane {

class LockPatience;
class Ui;

/// The monthly journal "Log_<year>_<month>.txt" in the data folder. Each line, or block of lines
/// that belong together, is one write, so that nothing is lost in a crash. The file is its user's
/// alone. The first failure tells the operator and turns logging off until the program ends; a
/// failing log never stops the work.
class Log {
 public:
  Log(Ui& ui, const Clock& clock, LockPatience& locks) : ui_(ui), clock_(clock), locks_(locks) {}

  /// Turns logging on with a file name fixed for the whole run. False, and the error, when the
  /// folder can't be entered: logging stays off.
  bool Start(const std::string& dataFolder, RuntimeError& error);

  /// Appends one line, ended with CR LF; does nothing when logging is off. A CR or LF within `text`
  /// becomes a blank.
  void WriteLine(std::string_view text);

  /// `WriteLine` of each text in turn, but in one append: lines of another process that shares the
  /// log stand before or behind them, never between.
  void Lines(std::span<const std::string> texts);

  /// `WriteLine` of `text` followed by the time of day in the format "h:mm:ss AM/PM".
  void WriteTime(std::string_view text);

  /// One record for each board of `set` from `first` to `last`, behind the line `heading` if there
  /// is one, in one append.
  void Boards(const BoardSet& set, int first, int last, bool longForm,
              const std::string& heading = {});

  [[nodiscard]] bool On() const { return on_; }
  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  [[nodiscard]] std::optional<RuntimeError> Append(std::string_view bytes) const;

  Ui& ui_;
  const Clock& clock_;
  LockPatience& locks_;
  std::string folder_;
  std::string path_;
  bool on_ = false;
};

/// The time of day of `clock` in the format "h:mm:ss AM/PM".
[[nodiscard]] std::string TimeText(const Clock& clock);
/// Date and time in the form "2026-11-22 3:04:05 PM".
[[nodiscard]] std::string DateTimeText(const LocalTime& now);

}  // namespace morvane
