#pragma once

#include <string>

#include "platform/settings.h"
#include "wire/commands.h"

namespace morvane::machine {

/// The cards that the machine is set up for, as the run window's options have them.
struct CardSettings {
  enum NationalCards { kStandard, kFrench, kFrenchOne, kGerman, kDutch, kDanish, kSwedish };
  enum Font { kNormal, kFine, kBold };
  enum Index { kStandardIndex, kLargeIndex, kSmallIndex };

  int National = kStandard;        ///< 0..6 for `National_1` to `National_7`
  int CardType = 0;                ///< 1 = `CardType_2`, cards with outside frame
  int Threshold = kNormal;         ///< 0..2 for `Threshold_1` to `Threshold_3`
  int CardIndex = kStandardIndex;  ///< 0 standard, 1 large, 2 small

  /// From the store; a value out of range counts as 0.
  [[nodiscard]] static CardSettings Load(const Settings& store);

  /// Byte 2 of a start command: bits 7..4 national setting, 3 large index, 2 Bold, 1 Fine, 0
  /// outside frame. Both font bits stand for the small index, whose font moves to
  /// `CardConfigExtra`.
  [[nodiscard]] std::uint8_t CardConfig() const;
  /// Byte 6: 0, or for the small index bit 2, with bit 0 Fine and bit 1 Bold.
  [[nodiscard]] std::uint8_t CardConfigExtra() const;
  /// The settings as the log has them: national number, card type, font and index by commas.
  [[nodiscard]] std::string LogText() const;
};

}  // namespace morvane::machine
