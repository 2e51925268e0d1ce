#pragma once

#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "maintenance/console_desk.h"
#include "maintenance/paper_service.h"
#include "platform/files.h"

namespace morvane::maintenance {

/// [n] is line n.
inline std::vector<std::string> LinesIn(const std::string& bytes) {
  std::vector<std::string> lines{""};
  std::size_t at = 0;
  for (std::size_t end = 0; (end = bytes.find("\r\n", at)) != std::string::npos; at = end + 2) {
    lines.push_back(bytes.substr(at, end - at));
  }
  EXPECT_EQ(at, bytes.size()) << "behind the last line";
  return lines;
}

/// The console at a machine on paper, and the service files that it leaves.
class ServiceFileDesk : public ConsoleDesk {
 protected:
  static constexpr const char* kFirst = "Service_file_4711_2026_3_3__1.txt";

  PaperService paper;
  /// The reply to this frame, counted from the button on, is spoilt or does not come.
  std::optional<std::size_t> Silent;
  std::optional<std::size_t> SilentOnce;
  std::function<void(const test::Bytes& plain)> OnAsked;

  /// The console is open, the machine known, and nothing sent any more.
  void Begin() {
    std::filesystem::create_directory(desk.Prog.Paths.Data);
    Open();
    Damage = [this](const test::Bytes& plain, const test::Bytes&) { return ReplyTo(plain); };
    desk.Prog.VersionText = "1.0";
    desk.Loop.WaitMs(Maintenance::kFirstContactMs);
    ASSERT_TRUE(console->Controls().MachineKnown);
    Forget();
  }
  void Forget() {
    bridge.Sent.clear();
    asked_ = 0;
    desk.Ui.Boxes.clear();
  }
  [[nodiscard]] std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(desk.Prog.Paths.Data)) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }
  /// Of the first file: [n] is line n.
  [[nodiscard]] std::vector<std::string> Lines(const std::string& name = kFirst) const {
    return LinesIn(test::Content(Path(name)));
  }
  [[nodiscard]] std::string Path(const std::string& name = kFirst) const {
    return JoinPath(desk.Prog.Paths.Data, name);
  }

 private:
  test::Bytes ReplyTo(const test::Bytes& plain) {
    if (OnAsked) OnAsked(plain);
    const std::size_t now = asked_++;
    if (Silent && now >= *Silent) return {};
    if (SilentOnce == now) return {};
    return paper.ReplyTo(plain);
  }
  std::size_t asked_ = 0;
};

}  // namespace morvane::maintenance
