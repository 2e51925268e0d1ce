#include "maintenance/firmware_download.h"

#include <algorithm>

#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

using machine::MachineLink;
using wire::DownloadReply;
using wire::FlashBlockCommand;

constexpr int kHeaderBlocks = 2;

}  // namespace

void FirmwareDownload::Run(FirmwareView& view) {
  view_ = &view;
  view_->ShowDownload();
  program_.Loop.Pump();
  if (!Cancelled()) Transfer();
  Enter(Phase::kOver);
  LogEnd();
}

bool FirmwareDownload::Transfer() {
  return Start() && SendPiece(file_.DspImage, Phase::kCode) &&
         SendPiece(file_.BitImage, Phase::kBitstream) && SendHeaders();
}

bool FirmwareDownload::Start() {
  outcome_ = Outcome::kUnknown;
  if (!Ask(wire::StartDownloadCommand{})) return false;
  if (ProgStatus_ == DownloadReply::kGood) {
    outcome_ = Outcome::kPartial;  // until the last block is there
    return true;
  }
  // An earlier start whose answer was lost may have been taken.
  if (CommErrors_ == 0) outcome_ = Outcome::kUntouched;
  TellFault("at ###", ".", "before the first block");
  return false;
}

bool FirmwareDownload::SendPiece(const FlashImage& image, Phase phase) {
  Enter(phase);
  for (int block = 1; block <= image.LastBlock(); ++block) {
    if (!SendBlock(image, block)) return false;
    program_.Loop.Pump();
    if (Cancelled()) return false;
  }
  return true;
}

bool FirmwareDownload::Cancelled() {
  if (leaving_()) Cancel();
  return cancelRequested_;
}

/// Nothing goes behind the code's.
bool FirmwareDownload::SendHeaders() {
  Enter(Phase::kHeaders);
  if (!SendBlock(file_.BitImage, 0)) return false;
  outcome_ = Outcome::kUnknown;  // it may be whole from here on, whether we hear of it or not
  if (!SendBlock(file_.DspImage, 0)) return false;
  const bool acknowledged =
      ProgStatus_ == DownloadReply::kGood || ProgStatus_ == DownloadReply::kPassedOver;
  if (acknowledged) outcome_ = Outcome::kDone;
  return acknowledged;
}

bool FirmwareDownload::SendBlock(const FlashImage& image, int block) {
  const std::uint16_t number = image.NumberOnWire(block);
  const std::uint16_t badBefore = CommErrors_;
  if (!Ask(FlashBlockCommand{number, image.BlockAt(block)})) return false;
  ++FramesCount_;
  ++blocksSent_;
  if (ProgStatus_ == DownloadReply::kPassedOver) ++ProgErrors_;
  view_->ShowDownload();
  if (ProgStatus_ != DownloadReply::kFault1 && ProgStatus_ != DownloadReply::kFault2) return true;
  // The last block may have been taken before its answer was lost.
  if (CommErrors_ == badBefore) outcome_ = Outcome::kPartial;
  TellFault("###", std::to_string(number), "at block " + std::to_string(number));
  return false;
}

template <typename Command>
bool FirmwareDownload::Ask(const Command& command) {
  const auto reply = link_.Ask(
      command, [] {}, [this](MachineLink::Receive received) { Count(received); });
  if (reply) ProgStatus_ = reply->Status;
  return reply.has_value();
}

void FirmwareDownload::Count(MachineLink::Receive received) {
  if (received == MachineLink::kBadCheck) ++SumErrors_;
  ++CommErrors_;
  view_->ShowDownload();
}

void FirmwareDownload::Enter(Phase phase) {
  phase_ = phase;
  view_->ShowDownload();
}

/// `Msg058` keeps its first numbers for the rest of the run: required. So the true ones are told
/// beside it.
void FirmwareDownload::TellFault(std::string_view place, const std::string& with,
                                 const std::string& where) {
  const std::string status = std::to_string(ProgStatus_);
  fault_ = "Error " + status + " " + where;
  view_->ShowDownload();
  std::string& text = program_.Texts.Msg058;
  text = Fill(Fill(text, "***", status), place, with);
  program_.ShowMessage(text, kOkCritical, "Download Error");
}

int FirmwareDownload::Blocks() const {
  return file_.DspImage.LastBlock() + file_.BitImage.LastBlock() + kHeaderBlocks;
}

/// The closing blocks do not count.
int FirmwareDownload::Download_bar() const {
  const int counted = std::min(blocksSent_, Blocks() - kHeaderBlocks);
  const auto bytes = static_cast<std::size_t>(counted) * FlashBlockCommand::kSize;
  return static_cast<int>(std::min<std::size_t>(100, bytes * 100 / file_.Size));
}

void FirmwareDownload::LogEnd() {
  if (outcome_ == Outcome::kUnknown) {
    program_.Log.WriteLine("   Firmware download: not known what the machine holds: " + Why());
  } else if (outcome_ != Outcome::kDone) {
    program_.Log.WriteLine("   Firmware download not completed: " + Why());
  } else if (ProgErrors_ > 0) {
    program_.Log.WriteLine("   Firmware download: blocks that could not be written: " +
                           std::to_string(ProgErrors_));
  }
}

std::string FirmwareDownload::Why() const {
  if (!fault_.empty()) return fault_;
  if (link_.LinkFailed()) return "the link was lost";
  if (cancelRequested_) return "cancelled";
  return "the last answer was " + std::to_string(ProgStatus_);
}

}  // namespace morvane::maintenance
