#include "maintenance/firmware_progress.h"

#include <utility>

#include "maintenance/identity.h"

namespace morvane::maintenance {

using Phase = FirmwareDownload::Phase;
using Outcome = FirmwareDownload::Outcome;

bool FirmwareProgress::Take(double seconds) {
  const Phase now = download_.Now();
  if (now == Phase::kCode && reached_ == Phase::kStart) began_ = seconds;
  if (now != Phase::kOver) reached_ = now;
  last_ = seconds;
  const Seen seen{now, Ended(), download_.CancelRequested(),
                  download_.CommErrors() + download_.ProgErrors()};
  const bool same = std::exchange(seen_, seen) == seen;
  if (same && seconds - shown_ < kShownEverySeconds) return false;
  shown_ = seconds;
  return true;
}

FirmwareProgress::Step FirmwareProgress::At(Phase step) const {
  if (step != reached_) return step < reached_ ? Step::kDone : Step::kAhead;
  if (!Ended()) return Step::kUnderWay;
  if (download_.Result() == Outcome::kUnknown) return Step::kNotKnown;
  return download_.Result() == Outcome::kDone ? Step::kDone : Step::kBrokenOff;
}

std::string FirmwareProgress::Doing() const {
  if (Ended()) {
    switch (download_.Result()) {
      case Outcome::kNotBegun:
        return kNotBegun;
      case Outcome::kDone:
        return download_.ProgErrors() == 0 ? kTaken : kWithErrors;
      case Outcome::kUntouched:
        return kRefused;
      case Outcome::kPartial:
        return kNotWhole;
      case Outcome::kUnknown:
        return kNotKnown;
    }
  }
  if (reached_ == Phase::kHeaders) return kSendingHeaders;
  if (download_.CancelRequested()) return kCancelling;
  if (reached_ == Phase::kStart) return kStarting;
  return reached_ == Phase::kCode ? kSendingCode : kSendingBitstream;
}

bool FirmwareProgress::Ended() const {
  return download_.Now() == Phase::kOver || !download_.Fault().empty() || download_.LinkFailed();
}

bool FirmwareProgress::MayCancel() const {
  return download_.MayCancel() && !download_.CancelRequested() && !Ended();
}

std::optional<double> FirmwareProgress::SecondsLeft() const {
  const int sent = download_.BlocksSent();
  if (sent == 0 || Ended()) return std::nullopt;
  return (last_ - began_) / sent * (download_.Blocks() - sent);
}

const char* WordOf(FirmwareProgress::Step step) {
  switch (step) {
    case FirmwareProgress::Step::kAhead:
      return "not begun";
    case FirmwareProgress::Step::kUnderWay:
      return "under way";
    case FirmwareProgress::Step::kDone:
      return "done";
    case FirmwareProgress::Step::kNotKnown:
      return "not known";
    case FirmwareProgress::Step::kBrokenOff:
      break;
  }
  return "not completed";
}

const char* NameOf(FirmwareDownload::Phase step) {
  if (step == Phase::kCode) return "Code";
  return step == Phase::kBitstream ? "Bitstream" : "Headers";
}

std::string TextOf(const FirmwareVersion& version) {
  return machine::VersionInHex(version.Major, version.Minor);
}

std::string InMachine(const machine::Machine& machine, const FirmwareVersion& file) {
  if (!HasFirmware(machine)) {
    return machine.HardwareId == 0 ? "no firmware (its hardware is not known)" : "no firmware";
  }
  const FirmwareVersion held{machine.Version.FirmwareMajor, machine.Version.FirmwareMinor};
  const std::string text = TextOf(held) + ", the file ";
  if (file == held) return text + "has the same";
  return text + (file > held ? "is newer" : "is older");
}

}  // namespace morvane::maintenance
