#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "maintenance/firmware_download.h"

namespace morvane::maintenance {

/// What the window `Firmware` tells of a download beside the counters, and when it is to be told.
class FirmwareProgress {
 public:
  using Phase = FirmwareDownload::Phase;
  /// The phases that are shown as steps.
  static constexpr std::array<Phase, 3> kSteps{Phase::kCode, Phase::kBitstream, Phase::kHeaders};
  enum class Step : std::uint8_t { kAhead, kUnderWay, kDone, kBrokenOff, kNotKnown };
  /// A block may take less than a screen can show.
  static constexpr double kShownEverySeconds = 0.05;

  /// What `Doing` can say.
  static constexpr const char* kStarting = "Starting the download ...";
  static constexpr const char* kSendingCode = "Sending the code ...";
  static constexpr const char* kSendingBitstream = "Sending the bitstream ...";
  static constexpr const char* kCancelling = "Cancelling ...";
  static constexpr const char* kSendingHeaders =
      "Writing the headers. From here on it cannot be cancelled.";
  static constexpr const char* kTaken = "The machine has taken the firmware.";
  static constexpr const char* kWithErrors =
      "All blocks were sent, but not all of them could be written.";
  static constexpr const char* kNotBegun = "Nothing was sent to the machine.";
  static constexpr const char* kRefused =
      "The machine has refused the download. Nothing was written.";
  static constexpr const char* kNotWhole =
      "The machine holds no whole firmware. It can be loaded again.";
  static constexpr const char* kNotKnown = "It is not known what firmware the machine holds now.";
  static constexpr std::array<const char*, 11> kDoings{
      kStarting,   kSendingCode, kSendingBitstream, kCancelling, kSendingHeaders, kTaken,
      kWithErrors, kNotBegun,    kRefused,          kNotWhole,   kNotKnown};

  /// `download` outlives it.
  explicit FirmwareProgress(const FirmwareDownload& download) : download_(download) {}
  /// Something has changed, at these `seconds` of any steady clock. Whether it is to be shown: not
  /// every block is, but a phase, an error and the end are at once.
  bool Take(double seconds);

  [[nodiscard]] Step At(Phase step) const;
  [[nodiscard]] std::string Doing() const;
  /// It goes no further, though a box may still tell of it.
  [[nodiscard]] bool Ended() const;
  [[nodiscard]] bool MayCancel() const;
  /// What the blocks behind let expect of the rest; nothing before the first, and behind the end.
  [[nodiscard]] std::optional<double> SecondsLeft() const;

 private:
  struct Seen {
    Phase Now = Phase::kOver;
    bool Ended = false;
    bool Cancelled = false;
    int Errors = 0;
    bool operator==(const Seen&) const = default;
  };

  const FirmwareDownload& download_;
  Seen seen_;
  Phase reached_ = Phase::kStart;
  double began_ = 0;  ///< the first block
  double last_ = 0;
  double shown_ = 0;
};

[[nodiscard]] const char* WordOf(FirmwareProgress::Step step);
/// "Code".
[[nodiscard]] const char* NameOf(FirmwareDownload::Phase step);

/// As the machine's is shown: "2.7F".
[[nodiscard]] std::string TextOf(const FirmwareVersion& version);
/// What the machine holds beside it: "2.90, the file is older".
[[nodiscard]] std::string InMachine(const machine::Machine& machine, const FirmwareVersion& file);

}  // namespace morvane::maintenance
