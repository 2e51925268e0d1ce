#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/console/terminal.h"
#include "platform/entropy.h"
#include "platform/ui.h"

namespace morvane {

/// The operator at a terminal. Messages go to standard error as the catalogue has them, without
/// their padding; questions are asked there. With `yes` they are answered Yes, or Cancel where
/// there is no Yes; without anybody to ask, with the cautious answer: No, or Cancel where there is
/// one. There is no mouse: where it would be, the system's random source says.
class ConsoleUi final : public Ui {
 public:
  ConsoleUi(Terminal& terminal, Entropy& random, bool yes)
      : terminal_(terminal), random_(random), yes_(yes) {}

  /// `text` is answered so from now on, without being asked.
  void AnswerAlways(const std::string& text, int answer) { answers_[text] = answer; }
  /// The next file dialog is answered with `path`; every other is cancelled.
  void AnswerNextFile(std::string path) { nextFile_ = std::move(path); }

  int MessageBox(const std::string& text, int flags, const std::string& title) override;
  void Status(const std::string&) override {}
  /// A file that exists is replaced only on a Yes.
  std::optional<std::string> AskFile(const FileRequest& request) override;
  void RefreshSet() override {}
  void Busy(bool) override {}
  /// How many messages and questions the operator has seen so far.
  [[nodiscard]] int BoxesShown() const { return boxesShown_; }
  void Waiting(const std::string& what) override;
  /// Both coordinates have 16 random bits. Always the same place, which feeds no pool, when the
  /// source fails, and that is told once.
  [[nodiscard]] Point Mouse() const override;

 private:
  int Ask(int buttons);
  Terminal& terminal_;
  Entropy& random_;
  bool yes_;
  int boxesShown_ = 0;
  mutable bool failureTold_ = false;
  std::optional<std::string> nextFile_;
  std::map<std::string, int> answers_;
};

}  // namespace morvane
