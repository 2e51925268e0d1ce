#pragma once

#include <functional>
#include <string>
#include <vector>

#include "machine/dealing_run.h"
#include "support/fakes.h"
#include "support/paper_machine.h"

namespace morvane::machine {

/// A run window that notes what it is told and answers the error dialog from a list.
class RecordingView final : public RunView {
 public:
  explicit RecordingView(test::TestDesk& desk) : desk_(desk) {}
  void ShowState() override {
    if (OnState) OnState();
    if (OnStatus) OnStatus();
  }
  void ShowBoard() override { ++BoardsShown; }
  void ShowControls() override {
    if (OnStatus) OnStatus();
  }
  void FocusNext() override { ++Focused; }
  void ShowError(ErrorDialog& dialog) override {
    Errors.push_back(dialog.Error_label + "|" + dialog.Error_code);
    Places.push_back(dialog.Error_board);
    dialog.Open([] {});
    if (!Answers.empty()) {
      const auto answer = Answers.front();
      Answers.pop_front();
      desk_.Loop.Post([&dialog, answer] { answer(dialog); });
    }
    desk_.Loop.RunUntil([&] { return dialog.Closed(); });
  }
  void Close() override { ++Closings; }

  std::function<void()> OnState;
  std::function<void()> OnStatus;  ///< in each call that shows the state
  std::deque<std::function<void(ErrorDialog&)>> Answers;
  std::vector<std::string> Errors;
  std::vector<std::string> Places;
  int BoardsShown = 0;
  int Focused = 0;
  int Closings = 0;

 private:
  test::TestDesk& desk_;
};

inline void Continue(ErrorDialog& dialog) { dialog.PressContinue(); }
inline void Cancel(ErrorDialog& dialog) { dialog.PressCancel(); }
inline void Third(ErrorDialog& dialog) { dialog.PressCancel2(); }

/// A run over boards 1 to 3 on the paper machine.
class RunFixture : public ::testing::Test {
 protected:
  test::TestDesk desk;
  test::ScriptedBridge bridge{desk.Clock};
  test::PaperMachine paper{bridge};
  Machine machine{desk.Random, bridge};
  RunMemory memory;
  RecordingView view{desk};
  DealingRun run{desk.Prog, machine, memory};

  void SetUp() override {
    test::FillSet(desk.Prog.Set, 1, 3);
    machine.Link.UsbHandle = 7;
    machine.Link.SetLinkTimeouts(200);
  }

  void TearDown() override {
    EXPECT_EQ(bridge.Overlaps, 0) << "more than one frame outstanding";
    EXPECT_EQ(bridge.Malformed, 0);
  }

  void Open() { run.Open(view); }
  /// Opens and goes through the first contact.
  void Contact() {
    Open();
    desk.Loop.WaitMs(DealingRun::kFirstContactMs);
    bridge.Sent.clear();
    bridge.Calls.clear();
  }
  /// The codes of all frames sent since `Contact`.
  [[nodiscard]] std::vector<int> SentCodes() const {
    std::vector<int> codes;
    for (const auto& frame : bridge.Sent) codes.push_back(frame[0]);
    return codes;
  }
  /// The frames sent with this code.
  [[nodiscard]] std::vector<test::Bytes> SentOf(int code) const {
    std::vector<test::Bytes> frames;
    for (const auto& frame : bridge.Sent) {
      if (frame[0] == code) frames.push_back(frame);
    }
    return frames;
  }
  [[nodiscard]] std::string LastLine() const { return desk.LogLines().back(); }
  [[nodiscard]] std::string LastBox() const {
    return desk.Ui.Boxes.empty() ? "" : desk.Ui.Boxes.back().Text;
  }
};

}  // namespace morvane::machine
