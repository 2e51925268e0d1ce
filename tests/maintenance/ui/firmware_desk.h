#pragma once

#include <QProgressBar>
#include <map>

#include "maintenance/paper_flash.h"
#include "maintenance/ui/console_desk.h"
#include "maintenance/ui/firmware_window.h"

namespace morvane::maintenance {

/// The console at a machine whose flash is on paper.
class FirmwareDesk : public ConsoleDesk {
 protected:
  explicit FirmwareDesk(const simulator::Options& options = MachineOf()) : ConsoleDesk(options) {}

  const std::string path = desk.Folder / "New 2.adc";
  int blockMs = 100;  ///< that each block takes
  std::uint8_t startStatus = 0;
  std::map<int, std::uint8_t> statuses;  ///< of blocks that are not good, by number on the wire
  std::vector<int> blocks;               ///< the numbers, in the order in which they were sent
  /// Once the window shows what the block with this number on the wire has come to.
  std::function<void(int block)> Behind;

  /// 300 bytes are the blocks 1, 2 and 0 with their header, 200 are 0x201 and 0x200: 516 with the
  /// head of the file.
  void WriteFile(int major = 2, int minor = 0x91) {
    test::WriteContent(path, FileOf(CodeOf(major, minor, 300), std::string(200, 'b')));
  }
  void SetUp() override {
    ConsoleDesk::SetUp();
    camera.Answer = [this](const test::Bytes& plain) { return Answered(plain); };
  }
  void ChooseFile() {
    desk.When("cdOpen", [this](QWidget& dialog) {
      test::Type(dialog, path);
      test::Press(dialog, Qt::Key_Return);
    });
  }
  /// `look` at the box that tells of its end, where one does.
  void Run(const std::function<void(QWidget&)>& look = nullptr) {
    if (window == nullptr) Contact();
    WriteFile();
    ChooseFile();
    if (look) desk.When("MessageBox", look);
    Click("Download");
  }
  void RunUntilTold() {
    Run([](QWidget& box) { box.close(); });
  }
  static QWidget* Shown() { return test::TopWindow("Firmware"); }
  static std::string TextOf(const char* name) { return test::TextOf(*Shown(), name); }
  static std::vector<std::string> TextsOf(std::initializer_list<const char*> names) {
    std::vector<std::string> texts;
    for (const char* name : names) texts.push_back(TextOf(name));
    return texts;
  }
  static std::vector<std::string> Steps() { return TextsOf({"Step_1", "Step_2", "Step_3"}); }
  static std::vector<std::string> Counters() {
    return TextsOf({"lblFrames", "lblSum", "lblComm", "lblProg"});
  }
  static int Bar() { return test::Find<QProgressBar>(*Shown(), "Download_bar").value(); }
  static void PressLetterC() {
    const auto& button = test::Find<QAbstractButton>(*Shown(), "Command1");
    Shown()->activateWindow();
    test::Press(*Shown(), Qt::Key_C, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  }
  static bool CanCancel() { return test::Enabled(*Shown(), "Command1"); }

 private:
  test::Bytes Answered(const test::Bytes& plain) {
    if (plain[0] == 0x29) return test::Short({0x29, startStatus});
    if (plain[0] != 0xAA) return {};
    const int block = plain[2] * 256 + plain[3];
    blocks.push_back(block);
    desk.Clock.Spend(std::chrono::milliseconds(blockMs));
    desk.Loop.Post([this, block] {
      if (Behind && Shown() != nullptr) Behind(block);
    });
    const auto status = statuses.find(block);
    return test::Short({0x2A, status == statuses.end() ? std::uint8_t{0} : status->second});
  }
};

}  // namespace morvane::maintenance
