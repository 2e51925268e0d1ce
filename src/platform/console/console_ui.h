#pragma once

#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "platform/console/terminal.h"
#include "platform/entropy.h"
#include "platform/ui.h"

namespace morvane {

/// The operator at a terminal. Messages go to standard error as the catalogue has them, without
/// their padding; questions are asked there. With `yes` they are answered Yes, or Cancel where
/// there is no Yes; without anybody to ask, with the cautious answer: No, or Cancel where there is
/// one. Whether a file is replaced is another question: with `overwrite` it is, unasked; otherwise
/// only on a Yes at the terminal. There is no mouse: where it would be, the system's random source
/// says.
class ConsoleUi final : public Ui {
 public:
  ConsoleUi(Terminal& terminal, Entropy& random, bool yes, bool overwrite = false)
      : terminal_(terminal), random_(random), yes_(yes), overwrite_(overwrite) {}

  /// `text` is answered so from now on, without being asked.
  void AnswerAlways(const std::string& text, int answer) { answers_[text] = answer; }
  /// Boxes of that title that can be answered OK or Cancel are shown and answered OK from now on.
  void PressOk(const std::string& title) { pressedOk_.insert(title); }
  /// From now on a question that gets its Yes is not asked again, or no more.
  void KeepConsent(bool keep) { keepsConsent_ = keep; }
  /// Boxes of that title say from now on that they are about the file.
  void NameFile(const std::string& title, std::string path) { files_[title] = std::move(path); }
  /// The next file dialog is answered with `path`; every other is cancelled.
  void AnswerNextFile(std::string path) { AnswerNextFiles({std::move(path)}); }
  /// The next file dialogs are answered with `paths`, in order; every other is cancelled.
  void AnswerNextFiles(std::deque<std::string> paths) { nextFiles_ = std::move(paths); }

  int MessageBox(const std::string& text, int flags, const std::string& title) override;
  void Status(const std::string&) override {}
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
  std::optional<std::string> NextFile();
  [[nodiscard]] int Answer(int buttons);
  [[nodiscard]] bool MayReplace(const std::string& path, const std::string& title);
  [[nodiscard]] std::optional<int> KnownAnswer(const std::string& text) const;
  void Show(const std::string& title, const std::string& text);
  void Keep(const std::string& text, int answer);

  Terminal& terminal_;
  Entropy& random_;
  bool yes_;
  bool overwrite_;
  bool keepsConsent_ = false;
  int boxesShown_ = 0;
  mutable bool failureTold_ = false;
  std::deque<std::string> nextFiles_;
  std::map<std::string, int> answers_;        ///< by the question's text
  std::map<std::string, std::string> files_;  ///< by the title of their boxes
  std::set<std::string> pressedOk_;           ///< titles
};

}  // namespace morvane
