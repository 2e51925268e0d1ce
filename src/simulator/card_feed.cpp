#include "simulator/card_feed.h"

#include <utility>

#include "simulator/sensors.h"

namespace morvane::simulator {

void CardFeed::SetOut(int machineCard, Time now) {
  Advance(now);
  card_ = machineCard;
  since_ = now;
}

bool CardFeed::UnderWay(Time now) {
  Advance(now);
  return card_.has_value();
}

bool CardFeed::IsAt(int photo, Time now) const {
  if (!card_) return false;
  return way_.count() == 0 || Sensors::kPhotos * (now - since_) / way_ == photo - 1;
}

std::optional<int> CardFeed::TakePassed(Time now) {
  Advance(now);
  return std::exchange(passed_, std::nullopt);
}

void CardFeed::Advance(Time now) {
  if (card_ && now - since_ >= way_) passed_ = std::exchange(card_, std::nullopt);
}

}  // namespace morvane::simulator
