#include "simulator/error_picture.h"

#include "simulator/card_rank.h"
#include "simulator/recogniser.h"
#include "wire/machine_errors.h"

namespace morvane::simulator {
namespace {

using namespace wire;

bool HaveOneText(std::uint8_t code, std::uint8_t other) {
  return TextOfError(code).Text == TextOfError(other).Text;
}

/// The stop itself says that the card was not recognised.
bool IsRecognitionError(std::uint8_t code) {
  return HaveOneText(code, Recogniser::kUnknownSymbol) || code == Recogniser::kOtherNational;
}

/// The card was recognised, and is the wrong one.
bool IsWrongCard(std::uint8_t code) {
  return code == kDuplicateCard || code == kIncorrectCardOrder;
}

/// `seen` as the run judged it that stopped.
VerdictReply Judged(VerdictReply seen, const RunStop& stop, const Options& cards) {
  if (IsWrongCard(stop.Code)) {
    const CardRank card = RankOfCard(cards.TakenFor(stop.Card));
    seen.Rank = static_cast<std::uint8_t>(card.Rank);
    seen.Suit = static_cast<std::uint8_t>(card.Suit);
  } else if (HaveOneText(stop.Code, kCardFeeding)) {
    seen.Rank = ErrorVerdictReply::kNotTaken;
    seen.Suit = 0;
  } else if (IsRecognitionError(stop.Code)) {
    seen.Rank = seen.Suit = 0;
  } else {
    return seen;
  }
  seen.Error = stop.Code;
  return seen;
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
  verdict_ = {Judged(recogniser.Recognise(grey_, task), stop, cards)};
}

void ErrorPicture::Forget() {
  grey_ = {};
  verdict_ = {};
}

}  // namespace morvane::simulator
