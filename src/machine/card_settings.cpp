#include "machine/card_settings.h"

#include "program/setting_keys.h"
#include "text/text.h"

namespace morvane::machine {
namespace {

int Choice(const Settings& store, const SettingKey& key, int highest) {
  const int value = Val(store.Get(key));
  return value <= highest ? value : 0;
}

/// The two bits of the font: 1 for Fine, 2 for Bold, otherwise 0.
unsigned FontBits(int threshold) { return static_cast<unsigned>(threshold) & 3U; }

}  // namespace

CardSettings CardSettings::Load(const Settings& store) {
  return {Choice(store, kNational, kSwedish), Choice(store, kCardType, 1),
          Choice(store, kThreshold, kBold), Choice(store, kCardIndex, kSmallIndex)};
}

std::uint8_t CardSettings::CardConfig() const {
  const unsigned font = CardIndex == kSmallIndex ? 3U : FontBits(Threshold);
  return static_cast<std::uint8_t>(static_cast<unsigned>(National) << 4U |
                                   (CardIndex == kLargeIndex ? 8U : 0U) | font << 1U |
                                   static_cast<unsigned>(CardType));
}

std::uint8_t CardSettings::CardConfigExtra() const {
  if (CardIndex != kSmallIndex) return 0;
  return static_cast<std::uint8_t>(4U | FontBits(Threshold));
}

std::string CardSettings::LogText() const {
  return std::to_string(CardConfig() / 16) + "," + std::to_string(CardType) + "," +
         std::to_string(Threshold) + "," + std::to_string(CardIndex);
}

}  // namespace morvane::machine
