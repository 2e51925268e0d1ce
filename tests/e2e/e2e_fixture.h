#pragma once

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "e2e/process.h"
#include "support/fakes.h"

namespace morvane::e2e {

/// The signals by which the system ends a program. Of these a Windows program has only the first,
/// as Ctrl-C.
inline std::vector<int> EndSignals() {
  if (ForWindows()) return {SIGINT};
  return {SIGINT, SIGTERM, SIGHUP};
}

/// A folder with a data folder and a settings store of its own, in which the real program runs.
class EndToEnd : public ::testing::Test {
 protected:
  test::TempFolder folder{test::FolderPlace::kMemory};
  const std::string data = folder / "data";
  const std::string settings = folder / "settings.ini";

  [[nodiscard]] std::vector<std::string> Whole(std::vector<std::string> words) const {
    const std::vector<std::string> own{"--data", data, "--settings", settings};
    words.insert(words.begin(), own.begin(), own.end());
    return words;
  }
  [[nodiscard]] Surroundings Around() const { return {.Folder = folder.Path()}; }
  Outcome Run(const std::vector<std::string>& words) {
    return Process(Whole(words), Around()).Finish();
  }
  /// Writes boards `first`..`last` into the file, each hand with one suit, North the spades.
  std::string SetFile(const std::string& name, int first, int last) {
    std::string text;
    for (int n = first; n <= last; ++n) {
      text += "[Board \"" + std::to_string(n) +
              "\"]\r\n[Deal \"N:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. "
              "...AKQJT98765432\"]\r\n";
    }
    test::WriteContent(folder / name, text);
    return folder / name;
  }
  /// The log, whatever month it is; empty when there is none.
  [[nodiscard]] std::string LogPath() const {
    std::error_code missing;
    for (const auto& entry : std::filesystem::directory_iterator(data, missing)) {
      if (entry.path().filename().string().starts_with("Log_")) return entry.path().string();
    }
    return "";
  }
  [[nodiscard]] std::vector<std::string> LogLines() const {
    std::vector<std::string> lines;
    const std::string path = LogPath();
    const std::string text = path.empty() ? "" : test::Content(path);
    for (std::size_t at = 0, end = 0; (end = text.find("\r\n", at)) != std::string::npos;) {
      lines.push_back(InOurWords(text.substr(at, end - at)));
      at = end + 2;
    }
    return lines;
  }
  [[nodiscard]] int CountLines(const std::string& start, const std::string& ending = "") const {
    const auto lines = LogLines();
    return static_cast<int>(std::count_if(lines.begin(), lines.end(), [&](const auto& line) {
      return line.starts_with(start) && line.ends_with(ending);
    }));
  }
};

}  // namespace morvane::e2e
