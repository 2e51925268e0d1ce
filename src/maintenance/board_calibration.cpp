#include "maintenance/board_calibration.h"

#include <algorithm>
#include <utility>

#include "text/box_text.h"
#include "wire/service_commands.h"

namespace morvane::maintenance {
namespace {

constexpr const char* kCaption = "Board Switch Calibration";
constexpr int kHalf = 50;  // of the progress, a sweep each

wire::WriteParametersCommand<wire::VideoBlock> Trial(int sensitivity) {
  return WriteBlock(
      wire::CardIndex::Standard,
      wire::VideoBlock{.BoardSen = static_cast<std::uint8_t>(sensitivity), .Trial = true});
}

}  // namespace

BoardCalibration::BoardCalibration(Program& program, ServiceLink& link,
                                   std::function<bool()> leaving)
    : program_(program), link_(link), leaving_(std::move(leaving)) {
  points_.reserve(std::size_t{2} * kHighest);
}

void BoardCalibration::Run(BoardCalibrationView& view) {
  if (!SweepDown(view) || !SweepUp(view)) return;
  over_ = true;
  if (sensOn_ >= kMostRecommended) {
    recommendedSensitivity_ = kMostRecommended;
  } else if (sensOn_ != kLowest) {
    recommendedSensitivity_ = sensOn_ - sensOn_ / 10;
  }
  view.ShowCalibration();
  TellOutcome();
}

bool BoardCalibration::SweepDown(BoardCalibrationView& view) {
  while (boardSeen_ == 1 && trialSensitivity_ > kLowest) {
    if (!Step(Sweep::kDown, view)) return false;
  }
  sensOn_ = trialSensitivity_;
  label2_ = "On: " + std::to_string(sensOn_);
  return true;
}

bool BoardCalibration::SweepUp(BoardCalibrationView& view) {
  while (boardSeen_ == 0 && trialSensitivity_ < kHighest) {
    if (!Step(Sweep::kUp, view)) return false;
  }
  label3_ = "Off: " + std::to_string(trialSensitivity_);
  progress_ = 2 * kHalf;
  return true;
}

/// The value counts on before it is shown: required.
bool BoardCalibration::Step(Sweep way, BoardCalibrationView& view) {
  if (!link_.Write(Trial(trialSensitivity_))) return false;
  const auto sensor = link_.Ask(wire::BoardSensorCommand{});
  if (!sensor) return false;
  boardSeen_ = sensor->Seen;
  points_.push_back({trialSensitivity_, boardSeen_ == 1, way});
  const bool down = way == Sweep::kDown;
  trialSensitivity_ += down ? -1 : 1;
  progress_ = down ? (kHighest - trialSensitivity_) * kHalf / kHighest
                   : trialSensitivity_ * kHalf / kHighest + kHalf;
  label1_ = "Check: " + std::to_string(trialSensitivity_) + "    " + std::to_string(boardSeen_);
  view.ShowCalibration();
  program_.Loop.Pump();
  return !cancelRequested_ && !leaving_();
}

std::optional<int> BoardCalibration::First(Sweep way, bool seen) const {
  const auto found = std::find_if(points_.begin(), points_.end(), [=](const Point& point) {
    return point.Way == way && point.Seen == seen;
  });
  return found == points_.end() ? std::nullopt : std::optional(found->Sensitivity);
}

void BoardCalibration::TellOutcome() {
  const bool keeps = Ask();
  program_.Log.WriteLine("   Board Switch Calibration: " + std::to_string(sensOn_) + "," +
                         std::to_string(trialSensitivity_));
  if (!keeps) recommendedSensitivity_ = 0;
}

bool BoardCalibration::Ask() {
  const Messages& texts = program_.Texts;
  if (recommendedSensitivity_ == 0) {
    program_.ShowMessage(texts.Msg113, kOkCritical, kCaption);
    return false;
  }
  if (sensOn_ >= kMostRecommended) return program_.Ask(texts.Msg114, kYesNo, kCaption) == kYes;
  const std::string text = Fill(texts.Msg115, "***", std::to_string(recommendedSensitivity_));
  return program_.Ask(text, kYesNoInformation, kCaption) == kYes;
}

}  // namespace morvane::maintenance
