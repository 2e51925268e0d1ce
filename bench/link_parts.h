#pragma once

#include <gmock/gmock.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include "bridges/serial_bridge.h"
#include "e2e/process.h"
#include "platform/console/terminal.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/system_clock.h"
#include "platform/system_entropy.h"
#include "program/program.h"
#include "support/fakes.h"
#include "support/link_gaps.h"

namespace morvane::bench {

/// What both programs have from the system, and the way to the machine.
struct LinkParts {
  explicit LinkParts(const std::string& path, test::LinkGaps::Of of = test::LinkGaps::Of::kRuns)
      : LinkParts([&](Clock&) { return std::make_unique<bridges::SerialBridge>(path); }, of) {}
  explicit LinkParts(const std::function<std::unique_ptr<UsbXpress>(Clock& time)>& make,
                     test::LinkGaps::Of of = test::LinkGaps::Of::kRuns)
      : Usb(make(Time)), Gaps(*Usb, Time, of) {}
  test::TempFolder Folder;
  SystemClock Time;
  SystemEntropy Random;
  QtEventLoop Loop;
  test::MemorySettings Store;
  test::FakeSound Silence;
  test::FakePrinter NoPaper;
  test::FakeProcesses NoPrograms;
  std::unique_ptr<UsbXpress> Usb;
  test::LinkGaps Gaps;

  [[nodiscard]] morvane::Ports On(Ui& ui) {
    return {ui, Loop, Time, Store, Random, Silence, NoPaper};
  }
  [[nodiscard]] ProgramPaths Paths() const { return {Folder.Path(), Folder / "Morvane_Data"}; }
};

/// A terminal whose every line is really written, progress included, though nobody sees it.
class UnseenTerminal final : public Terminal {
 public:
  void Out(const std::string& text) override { file_ << text << std::flush; }
  void Error(const std::string& text) override { std::fputs(text.c_str(), stderr); }
  [[nodiscard]] bool CanAsk() const override { return false; }
  [[nodiscard]] bool ShowsProgress() const override { return true; }
  std::optional<std::string> ReadLine() override { return std::nullopt; }
  std::optional<std::string> ReadLineIfAny() override { return std::nullopt; }
  [[nodiscard]] bool InputEnded() const override { return true; }

 private:
  std::ofstream file_{"/dev/null"};
};

inline double Seconds(test::LinkGaps::Time time) { return static_cast<double>(time.count()) / 1e6; }
inline const char* Mark(bool good) { return good ? "" : "  FELL SHORT"; }

inline void ShowBytes(const test::LinkGaps::Figures& noted) {
  std::printf("  %-44s %9.2f s\n", "their bytes on the wire, 10 bits at 115200",
              Seconds(noted.OnTheWire()));
}
inline void ShowGaps(const test::LinkGaps::Figures& noted) {
  std::printf("  %-44s %9.3f s\n", "gaps between reply and next send, sum", Seconds(noted.Gaps));
  std::printf("  %-44s %9.3f ms\n", "  the longest", Seconds(noted.Worst) * 1e3);
}

/// The device at whose other end `machine`, a `morvane-machine`, is; empty when it says none.
inline std::string DeviceOf(e2e::Process& machine) {
  const std::string prefix = "serial:";
  if (!machine.Until([&] { return machine.Out().find('\n') != std::string::npos; })) return "";
  const std::size_t at = machine.Out().find(prefix) + prefix.size();
  return machine.Out().substr(at, machine.Out().find('\n', at) - at);
}

}  // namespace morvane::bench
