#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "bridges/trace/replay_bridge.h"
#include "bridges/trace/traced_bridge.h"
#include "machine/machine_run.h"
#include "machine/open_link.h"
#include "simulator/simulated_machine.h"
#include "support/fakes.h"

namespace morvane::bridges {

/// A program of its own at one machine, with an operator who thinks for a while and goes on where
/// he can.
class LinkSession final : public machine::RunView {
 public:
  LinkSession(machine::MachineKind kind, std::uint64_t seed) : kind_(kind) {
    RuntimeError error;
    EXPECT_TRUE(Desk.Prog.Log.Start(Desk.Folder.Path(), error));
    Desk.Ui.Default = kNo;
    Desk.Random.Seed(seed);
  }

  void Connect(std::unique_ptr<UsbXpress> usb) {
    usb_ = std::move(usb);
    machine_ = std::make_unique<machine::Machine>(Desk.Random, *usb_, kind_);
  }
  [[nodiscard]] machine::Machine& TheMachine() { return *machine_; }
  bool Open(std::int16_t timeoutMs = 200) {
    return machine::OpenLink(Desk.Prog, machine_->Link, timeoutMs);
  }
  /// The link is gone, and the last of the trace with it.
  void Disconnect() { usb_.reset(); }

  /// Without the times of day, the folder and what kind of machine it was.
  [[nodiscard]] std::vector<std::string> LogLines() const {
    static const std::regex kTime("[0-9]+:[0-9][0-9]:[0-9][0-9] [AP]M");
    std::vector<std::string> lines;
    for (const std::string& line : Desk.LogLines()) {
      if (!line.starts_with(" Machine: "))
        lines.push_back(WithoutFolder(std::regex_replace(line, kTime, "TIME")));
    }
    return lines;
  }
  /// Without the folder.
  [[nodiscard]] std::vector<test::FakeUi::Box> Boxes() const {
    std::vector<test::FakeUi::Box> boxes(Desk.Ui.Boxes.begin(), Desk.Ui.Boxes.end());
    for (auto& box : boxes) box.Text = WithoutFolder(box.Text);
    return boxes;
  }

  void ShowState() override {}
  void ShowControls() override {}
  void Close() override {}
  void ShowError(machine::ErrorDialog& dialog) override {
    Errors.push_back(dialog.Error_label + "|" + dialog.Error_code);
    dialog.Open([] {});
    const auto answer = Desk.Loop.StartTimer(ThinkingMs, [&] {
      if (Answer) return Answer(dialog);
      dialog.Continue_button.Visible ? dialog.PressContinue() : dialog.PressCancel2();
    });
    Desk.Loop.RunUntil([&] { return dialog.Closed(); });
  }

  test::TestDesk Desk;
  std::vector<std::string> Errors;
  int ThinkingMs = 250;
  std::function<void(machine::ErrorDialog&)> Answer;  ///< in the place of going on where he can

 private:
  [[nodiscard]] std::string WithoutFolder(std::string text) const {
    const std::string folder = Desk.Folder.Path();
    for (auto at = text.find(folder); at != std::string::npos; at = text.find(folder, at)) {
      text.replace(at, folder.size(), "FOLDER");
    }
    return text;
  }

  machine::MachineKind kind_;
  std::unique_ptr<UsbXpress> usb_;
  std::unique_ptr<machine::Machine> machine_;
};

/// A machine that another program has spoken with: the simulated one, traced, and what the trace
/// makes of it.
class LinkSessions : public ::testing::Test {
 protected:
  using Script = std::function<void(LinkSession&)>;

  test::TempFolder folder;
  std::string path = folder / "run.trace";
  simulator::SimulatedMachine* simulated = nullptr;  ///< while it is traced
  const Playback* playback = nullptr;                ///< while it is replayed
  LinkSession first{machine::MachineKind::kSimulated, 1};
  LinkSession second{machine::MachineKind::kReplayed, 2};
  std::uint64_t largestPart = TraceOrder::kLargestPart;
  bool handsLeftOut = false;

  /// Has the simulated machine of these options, prepared by `prepare`, do it.
  void Trace(
      const std::string& options, const Script& script,
      const std::function<void()>& prepare = [] {}) {
    simulator::Options kind;
    ASSERT_EQ(simulator::ParseOptions("simulated" + options, kind), std::nullopt);
    auto machine = std::make_unique<simulator::SimulatedMachine>(kind, first.Desk.Clock);
    simulated = machine.get();
    prepare();
    TraceOrder order{path, "simulated" + options, handsLeftOut, largestPart};
    first.Connect(std::make_unique<TracedBridge>(std::move(machine), order, first.Desk.Clock));
    script(first);
    simulated = nullptr;
    first.Disconnect();
  }
  /// Has the trace do it, and says how it went.
  std::string Replay(const Script& script) {
    TraceReader reader;
    if (const auto wrong = reader.Open(path)) return *wrong;
    auto replay = std::make_unique<ReplayBridge>(std::move(reader), second.Desk.Clock);
    playback = &replay->Play();
    second.Connect(std::move(replay));
    script(second);
    return playback->Trouble();
  }
  /// All has been played, and both programs have said the same.
  void ExpectTheSame() {
    EXPECT_EQ(playback->Trace().Next(), nullptr) << playback->Trace().Place();
    EXPECT_EQ(first.LogLines(), second.LogLines());
    EXPECT_EQ(first.Boxes(), second.Boxes());
    EXPECT_EQ(first.Errors, second.Errors);
  }
};

}  // namespace morvane::bridges
