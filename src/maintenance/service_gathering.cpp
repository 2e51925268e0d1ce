#include "maintenance/service_gathering.h"

#include "maintenance/picture_fetch.h"

namespace morvane::maintenance {
namespace {

using Kind = PictureStore::Kind;

/// What the feeder is given to settle, twice, and how long a cancel may wait for it.
constexpr int kSettleMs = 1000;
constexpr int kHeardMs = 50;

}  // namespace

bool ServiceGathering::Run(ServiceFileView& view) {
  view_ = &view;
  run_.ServiceCancelled = false;
  run_.ServiceCaptureTime = 0;
  run_.ServiceFocus = 0;
  const bool gathered = Settle(5) && Settle(10) &&
                        (run_.TestDealError ? FetchErrorPictures() : TakePictures()) && Labels();
  stage_ = Stage::kOver;
  if (gathered) {
    Show(progress_);
    program_.Loop.Paint();
  }
  return gathered;
}

void ServiceGathering::Cancel() {
  if (stage_ != Stage::kOver) run_.ServiceCancelled = true;
}

bool ServiceGathering::Settle(int progress) {
  Show(progress);
  for (int waited = 0; waited < kSettleMs && GoesOn(); waited += kHeardMs) {
    program_.Loop.WaitMs(kHeardMs);
  }
  return GoesOn();
}

bool ServiceGathering::TakePictures() {
  if (const auto taken = link_.Ask(wire::CaptureCommand{RecognitionOf(cards_).Index})) Take(*taken);
  Show(15);
  if (!GoesOn() || !Fetch<wire::PictureLineCommand>(Kind::kGrey, 15, 45)) return false;
  const auto verdict = link_.Ask(RecognitionOf(cards_));
  if (verdict) run_.LastVerdict = *verdict;
  return GoesOn();
}

bool ServiceGathering::FetchErrorPictures() {
  if (const auto verdict = link_.Ask(wire::ErrorVerdictCommand{})) run_.LastVerdict = *verdict;
  return GoesOn() && Fetch<wire::ErrorPictureLineCommand>(Kind::kGrey, 15, 45);
}

void ServiceGathering::Take(const wire::CaptureReply& reply) {
  run_.ServiceCaptureTime = reply.Time;
  if (TellsFocus(machine_, reply)) run_.ServiceFocus = reply.Focus;
}

template <typename Line>
bool ServiceGathering::Fetch(Kind kind, int from, int share) {
  stage_ = kind == Kind::kGrey ? Stage::kPicture : Stage::kLabels;
  pictures_.ImageMode = kind;
  const bool whole = FetchPicture<Line>(program_, link_, pictures_, [&](int line) {
    Show(from + share * line / PixelPlane::kHeight);
    return GoesOn();
  });
  if (kind == Kind::kGrey) grey_ = pictures_.CardImage;
  return whole;
}

bool ServiceGathering::Labels() { return Fetch<wire::PictureLineCommand>(Kind::kLabels, 59, 40); }

void ServiceGathering::Show(int progress) {
  progress_ = progress;
  view_->ShowGathering();
}

/// Whoever leaves cancels.
bool ServiceGathering::GoesOn() {
  if (leaving_()) Cancel();
  return !run_.ServiceCancelled && !link_.LinkFailed();
}

}  // namespace morvane::maintenance
