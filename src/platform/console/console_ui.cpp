#include "platform/console/console_ui.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <utility>

#include "platform/files.h"
#include "text/box_text.h"
#include "text/printable.h"
#include "text/text.h"

namespace morvane {
namespace {

constexpr int kButtons = 15;
enum Buttons : int { kOnlyOk = 0, kOkAndCancel = 1, kYesNoAndCancel = 3, kYesAndNo = 4 };

const char* PromptOf(int buttons) {
  switch (buttons) {
    case kOkAndCancel:
      return "[o]k, [c]ancel? ";
    case kYesNoAndCancel:
      return "[y]es, [n]o, [c]ancel? ";
    default:
      return "[y]es, [n]o? ";
  }
}

int Cautious(int buttons) { return buttons == kYesAndNo ? kNo : kCancel; }

/// The answer that a line gives, 0 when it gives none.
int AnswerOf(const std::string& line, int buttons) {
  const std::string word = LowerCase(Trim(line));
  if (word.empty()) return 0;
  const bool canCancel = buttons != kYesAndNo;
  switch (word.front()) {
    case 'o':
      return buttons == kOkAndCancel ? kOk : 0;
    case 'y':
      return buttons != kOkAndCancel ? kYes : 0;
    case 'n':
      return buttons != kOkAndCancel ? kNo : 0;
    case 'c':
      return canCancel ? kCancel : 0;
    default:
      return 0;
  }
}

}  // namespace

int ConsoleUi::MessageBox(const std::string& text, int flags, const std::string& title) {
  if (const auto known = KnownAnswer(text)) return *known;
  const auto file = files_.find(title);
  Show(title, (file == files_.end() ? "" : file->second + ": ") + WithoutPadding(text));
  const int buttons = flags & kButtons;
  if (buttons == kOnlyOk) return kOk;
  if (buttons == kOkAndCancel && pressedOk_.contains(title)) return kOk;
  const int answer = Answer(buttons);
  Keep(text, answer);
  return answer;
}

int ConsoleUi::Answer(int buttons) {
  // "Try again" is no Yes: a script that met a missing machine would ask for ever.
  if (yes_) return buttons == kOkAndCancel ? kCancel : kYes;
  if (terminal_.CanAsk()) return Ask(buttons);
  if (buttons != kOkAndCancel) terminal_.Error("There is nobody to ask; --yes would answer Yes.\n");
  return Cautious(buttons);
}

std::optional<std::string> ConsoleUi::AskFile(const FileRequest& request) {
  auto path = NextFile();
  std::error_code none;
  if (!path || !request.Saving || !std::filesystem::is_regular_file(PathOfUtf8(*path), none)) {
    return path;
  }
  if (MayReplace(*path, request.Title)) return path;
  terminal_.Error("Not replaced.\n");
  return std::nullopt;
}

std::optional<std::string> ConsoleUi::NextFile() {
  if (nextFiles_.empty()) return std::nullopt;
  std::string path = std::move(nextFiles_.front());
  nextFiles_.pop_front();
  return path;
}

bool ConsoleUi::MayReplace(const std::string& path, const std::string& title) {
  if (overwrite_) return true;
  const std::string question = path + " exists already. Replace it?";
  if (const auto known = KnownAnswer(question)) return *known == kYes;
  Show(title, question);
  if (!terminal_.CanAsk()) {
    terminal_.Error("There is nobody to ask; --overwrite would replace it.\n");
    return false;
  }
  const int answer = Ask(kYesAndNo);
  Keep(question, answer);
  return answer == kYes;
}

std::optional<int> ConsoleUi::KnownAnswer(const std::string& text) const {
  const auto known = answers_.find(text);
  if (known == answers_.end()) return std::nullopt;
  return known->second;
}

void ConsoleUi::Show(const std::string& title, const std::string& text) {
  ++boxesShown_;
  terminal_.Error(Printable(title + ": " + text) + "\n");
}

void ConsoleUi::Keep(const std::string& text, int answer) {
  if (keepsConsent_ && answer == kYes) answers_[text] = kYes;
}

int ConsoleUi::Ask(int buttons) {
  while (true) {
    terminal_.Error(PromptOf(buttons));
    const auto line = terminal_.ReadLine();
    if (!line) return Cautious(buttons);
    if (const int answer = AnswerOf(*line, buttons); answer != 0) return answer;
  }
}

void ConsoleUi::Waiting(const std::string& what) {
  if (!what.empty()) terminal_.Error(Printable(what) + "\n");
}

Point ConsoleUi::Mouse() const {
  std::array<std::uint8_t, 4> bytes{};
  if (random_.SystemRandom(bytes).Ok) {
    return {bytes[0] * 256 + bytes[1], bytes[2] * 256 + bytes[3]};
  }
  if (!failureTold_) {
    terminal_.Error("The system's random source failed: the random pool gets nothing new.\n");
  }
  failureTold_ = true;
  return {};
}

}  // namespace morvane
