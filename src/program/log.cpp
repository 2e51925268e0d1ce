#include "program/log.h"

#include <algorithm>
#include <filesystem>

#include "model/hand_text.h"
#include "model/messages.h"
#include "model/text.h"
#include "platform/files.h"
#include "platform/ui.h"
#include "program/data_folder.h"

namespace morvane {

bool Log::Start(const std::string& dataFolder, RuntimeError& error) {
  std::error_code failure;
  on_ = std::filesystem::is_directory(PathOfUtf8(dataFolder), failure);
  if (!on_) {
    error = failure ? RuntimeError::Of(failure) : RuntimeError::OfNumber(ENOTDIR);
    return false;
  }
  const LocalTime now = clock_.Now();
  folder_ = dataFolder;
  path_ = JoinPath(dataFolder,
                   "Log_" + std::to_string(now.Year) + "_" + std::to_string(now.Month) + ".txt");
  return true;
}

void Log::WriteLine(std::string_view text) {
  if (!on_) return;
  std::string line(text);
  // A name or text from a file must not begin a line of its own, which could pass for a record.
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  if (const auto error = Append(line.append(kCrLf))) {
    on_ = false;
    ui_.MessageBox("Error: " + std::to_string(error->Number) + ", " + error->Description +
                       std::string(kCrLf) + "File Name: " + path_,
                   kOkCritical, "Log Write Error");
  }
}

std::optional<RuntimeError> Log::Append(std::string_view bytes) const {
  const auto lock = LockDataFolder(folder_);
  return AppendToFile(path_, bytes);
}

void Log::WriteTime(std::string_view text) { WriteLine(std::string(text) + TimeText(clock_)); }

void Log::Boards(const BoardSet& set, int first, int last, bool longForm) {
  for (int n = first; n <= last; ++n) {
    WriteLine("   " + ThreeDigits(n) + " : " + FormatBoardForLog(set.At(n), longForm));
  }
}

std::string FormatBoardForLog(const Board& board, bool longForm) {
  std::string text;
  for (int hand = kNorth; hand <= kWest; ++hand) {
    text += HandText(board, hand, ".") + ' ';
  }
  if (longForm) {
    text += ' ' + HexBytes(board.DealNumber) + "  " + HexBytes(board.DealCounter);
  }
  return text;
}

std::string TimeText(const Clock& clock) {
  const LocalTime now = clock.Now();
  return ClockText(now.Hour, now.Minute, now.Second);
}

}  // namespace morvane
