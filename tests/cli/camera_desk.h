#pragma once

#include "cli/cli_desk.h"
#include "maintenance/paper_camera.h"
#include "maintenance/picture_store.h"
#include "simulator/wired_machine.h"
#include "support/scripted_bridge.h"

namespace morvane::cli {

/// A real machine, for all that can be seen, whose camera is on paper.
struct CameraDesk : CliDesk {
  explicit CameraDesk(bool yes = false, const std::string& more = "", bool overwrite = false)
      : CliDesk(yes, AtSpeed(0), overwrite), Behind(Asked(more)) {
    Bridge.Answer = [this](const test::Bytes& plain) { return Answered(plain); };
  }

  maintenance::PaperCamera Camera;
  simulator::WiredMachine Behind;
  test::ScriptedBridge Bridge{Clock};
  std::function<void(const test::Bytes& plain)> OnFrame;
  /// It does not hear these frames.
  std::function<bool(const test::Bytes& plain)> Deaf;
  test::Bytes Verdict{0x15, 1, 2, 10, 1, 46, 0};
  int Classes = 256;  ///< of the picture: pixel (x, y) is x + y of them

  /// Byte `at` of the frames sent with this code.
  [[nodiscard]] std::vector<int> Sent(int code, std::size_t at = 1) const {
    std::vector<int> bytes;
    for (const auto& frame : Bridge.Sent) {
      if (frame[0] == code) bytes.push_back(frame[at]);
    }
    return bytes;
  }

 private:
  test::Bytes Answered(const test::Bytes& plain) {
    if (OnFrame) OnFrame(plain);
    if (Deaf && Deaf(plain)) return {};
    if (plain[0] == 0x15) return test::OnTheWire(test::Short(Verdict), 21);
    if (plain[0] == 0x01) return test::OnTheWire(Line(plain[1]), 21);
    const test::Bytes reply = Camera.ReplyTo(plain);
    return reply.empty() ? Others(plain) : reply;
  }
  [[nodiscard]] test::Bytes Line(int y) const {
    test::Bytes line = test::Long({0x81, static_cast<std::uint8_t>(y)});
    for (int x = 0; x < maintenance::PixelPlane::kWidth; ++x) {
      line[8 + static_cast<std::size_t>(x)] = static_cast<std::uint8_t>((x + y) % Classes);
    }
    return line;
  }
  test::Bytes Others(const test::Bytes& plain) {
    test::Bytes reply;
    for (const std::uint8_t byte : test::OnTheWire(plain, 23)) {
      if (const auto saying = Behind.Hear(byte, Clock.Elapsed())) {
        reply.assign(saying->Wire.begin(), saying->Wire.end());
      }
    }
    return reply;
  }
};

}  // namespace morvane::cli
