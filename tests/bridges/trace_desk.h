#pragma once

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "bridges/trace/traced_bridge.h"
#include "support/fakes.h"
#include "support/scripted_bridge.h"
#include "support/virtual_time.h"
#include "text/text.h"
#include "text/text_lines.h"

namespace morvane::test {

inline const std::string kTraceHead =
    "# Morvane link trace 1\n# began 2026-03-03 15:04:05.000\n# machine scripted\n# part 1\n";

/// A trace in a folder of its own, on a clock that the test moves.
class TraceDesk : public ::testing::Test {
 protected:
  [[nodiscard]] bridges::TraceOrder Order() const {
    bridges::TraceOrder order;
    order.Path = Path;
    order.Machine = "scripted";
    return order;
  }
  /// The lines of a file behind its head.
  [[nodiscard]] static std::vector<std::string> LinesOf(const std::string& path) {
    const std::string text = Content(path);
    Lines lines(text);
    std::vector<std::string> found;
    for (std::string_view line; lines.Next(line);) {
      if (!line.starts_with('#')) found.emplace_back(line);
    }
    return found;
  }

  TempFolder Folder;
  VirtualClock Clock;
  const std::string Path = Folder / "run.trace";
};

/// The same with a scripted bridge that is traced.
class TracedDesk : public TraceDesk {
 protected:
  explicit TracedDesk(bool handsLeftOut = false) {
    auto scripted = std::make_unique<ScriptedBridge>(Clock);
    Scripted = scripted.get();
    auto order = Order();
    order.HandsLeftOut = handsLeftOut;
    Usb = std::make_unique<bridges::TracedBridge>(std::move(scripted), order, Clock);
    EXPECT_EQ(Usb->File().Trouble(), "");
  }

  void Write(const Bytes& bytes) {
    std::uint32_t written = 0;
    Usb->Write(7, bytes, written);
  }
  Bytes Read(std::size_t count) {
    Bytes bytes(count);
    std::uint32_t read = 0;
    Usb->Read(7, bytes, read);
    bytes.resize(read);
    return bytes;
  }
  /// What is there to be read.
  void Arrives(const Bytes& bytes) {
    Scripted->Unread.insert(Scripted->Unread.end(), bytes.begin(), bytes.end());
  }
  [[nodiscard]] std::vector<std::string> Traced() const { return LinesOf(Path); }

  ScriptedBridge* Scripted = nullptr;
  std::unique_ptr<bridges::TracedBridge> Usb;
};

}  // namespace morvane::test
