#include "simulator/error_picture.h"

#include "simulator/recogniser.h"
#include "wire/machine_errors.h"

namespace morvane::simulator {
namespace {

using namespace wire;

/// The stop itself says that the card was not recognised.
bool IsRecognitionError(std::uint8_t code) {
  return TextOfError(code).Text == TextOfError(Recogniser::kUnknownSymbol).Text ||
         code == Recogniser::kOtherNational;
}

}  // namespace

void ErrorPicture::Keep(const RunStop& stop, Camera& camera, const StoredParameters& parameters,
                        const Options& cards) {
  if (stop.Times == times_) return;
  times_ = stop.Times;
  const PositionBlock at = parameters.Records[static_cast<std::size_t>(cards.Index)].Positions;
  camera.Take(stop.Card, {at.PosX, at.PosY}, true, grey_);
  RecoTask task = TaskOf(parameters, cards.Index, CardFont::Normal);
  task.National = cards.Letters;
  Recogniser recogniser;
  const VerdictReply seen = recogniser.Recognise(grey_, task);
  verdict_ = {seen};
  if (TextOfError(stop.Code).Text == TextOfError(kCardFeeding).Text) {
    verdict_ = {{seen.Time, ErrorVerdictReply::kNotTaken, 0, seen.Threshold, stop.Code}};
  } else if (IsRecognitionError(stop.Code)) {
    verdict_ = {{seen.Time, 0, 0, seen.Threshold, stop.Code}};
  }
}

void ErrorPicture::Forget() {
  grey_ = {};
  verdict_ = {};
}

}  // namespace morvane::simulator
