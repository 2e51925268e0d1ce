#pragma once

#include <chrono>
#include <cstdint>

#include "platform/clock.h"
#include "support/passing_bridge.h"

namespace morvane::test {

/// A bridge that lets everything through and notes how long the program leaves the wire idle inside
/// its runs: from the end of each reply to the next send. A run goes from its start frame to the
/// reply of the version probe that ends it; what lies between two runs is the operator's. In the
/// service console the runs are its polls, from the frame of the outputs to the last reply before
/// the next one, or its pictures, from the first line asked for to the reply with the last, or its
/// downloads, from the start to the reply to the code's first block.
class LinkGaps final : public PassingBridge {
 public:
  using Time = std::chrono::microseconds;
  enum class Of : std::uint8_t { kRuns, kPolls, kPictures, kDownloads };

  /// All that passed inside the runs.
  struct Figures {
    int Runs = 0;
    std::uint64_t Sends = 0;
    std::uint64_t Bytes = 0;  ///< in both directions
    Time Taken{0};            ///< by the runs, from first to last byte
    Time Gaps{0};             ///< their sum
    Time Worst{0};            ///< the longest of them
    Time Writes{0};           ///< inside the writes, until the system had the bytes
    /// Ten bits a byte at 115200 baud.
    [[nodiscard]] Time OnTheWire() const { return Time(Bytes * 10 * 1'000'000 / kBaudRate); }
    [[nodiscard]] double PerCent() const {
      return 100.0 * static_cast<double>(Gaps.count()) / static_cast<double>(OnTheWire().count());
    }
  };

  LinkGaps(UsbXpress& usb, const Clock& time, Of of = Of::kRuns)
      : PassingBridge(usb), time_(time), of_(of) {}
  [[nodiscard]] const Figures& Noted() const { return figures_; }

  Status Write(Handle handle, std::span<const std::uint8_t> bytes, std::uint32_t& written) override;
  Status Read(Handle handle, std::span<std::uint8_t> bytes, std::uint32_t& read) override;

 private:
  void NoteSend(std::span<const std::uint8_t> bytes, Time now);
  void EndRun();
  [[nodiscard]] bool Starts(std::uint8_t code) const;
  [[nodiscard]] bool Ends(std::span<const std::uint8_t> bytes) const;

  const Clock& time_;
  const Of of_;
  Figures figures_;
  bool running_ = false;
  bool ending_ = false;  ///< the reply to what is sent ends the run
  Time start_{0};
  Time replied_{0};  ///< the end of the last read
};

}  // namespace morvane::test
