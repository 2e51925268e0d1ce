#include "program/log.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

#include "platform/files.h"
#include "platform/ui.h"
#include "program/data_folder.h"
#include "program/log_record.h"
#include "text/box_text.h"
#include "text/text.h"

namespace morvane {

bool Log::Start(const std::string& dataFolder, RuntimeError& error) {
  const auto failure = WhyNoDataFolder(dataFolder);
  on_ = !failure;
  if (failure) {
    error = *failure;
    return false;
  }
  const LocalTime now = clock_.Now();
  folder_ = dataFolder;
  path_ = JoinPath(dataFolder,
                   "Log_" + std::to_string(now.Year) + "_" + std::to_string(now.Month) + ".txt");
  return true;
}

void Log::WriteLine(std::string_view text) { Lines(std::array{std::string(text)}); }

void Log::Lines(std::span<const std::string> texts) {
  if (!on_ || texts.empty()) return;
  std::string bytes;
  for (const std::string& text : texts) {
    // A name or text from a file must not begin a line of its own, which could pass for a record.
    std::replace_copy_if(
        text.begin(), text.end(), std::back_inserter(bytes),
        [](char c) { return c == '\r' || c == '\n'; }, ' ');
    bytes.append(kCrLf);
  }
  if (const auto error = Append(bytes)) {
    on_ = false;
    ui_.MessageBox("Error: " + std::to_string(error->Number) + ", " + error->Description +
                       std::string(kCrLf) + "File Name: " + path_,
                   kOkCritical, "Log Write Error");
  }
}

std::optional<RuntimeError> Log::Append(std::string_view bytes) const {
  const auto lock = LockDataFolder(folder_, locks_);
  return AppendLines(path_, bytes, NewFile::kPrivate);
}

void Log::WriteTime(std::string_view text) { WriteLine(std::string(text) + TimeText(clock_)); }

void Log::Boards(const BoardSet& set, int first, int last, bool longForm,
                 const std::string& heading) {
  std::vector<std::string> lines;
  if (!heading.empty()) lines.push_back(heading);
  for (int n = first; n <= last; ++n) lines.push_back(LogRecord(n, set.At(n), longForm));
  Lines(lines);
}

std::string TimeText(const Clock& clock) {
  const LocalTime now = clock.Now();
  return ClockText(now.Hour, now.Minute, now.Second);
}

std::string DateTimeText(const LocalTime& now) {
  const auto two = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
  return std::to_string(now.Year) + "-" + two(now.Month) + "-" + two(now.Day) + " " +
         ClockText(now.Hour, now.Minute, now.Second);
}

}  // namespace morvane
