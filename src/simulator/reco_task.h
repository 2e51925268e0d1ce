#pragma once

#include <cstdint>

#include "simulator/stored_parameters.h"

namespace morvane::simulator {

/// What the recogniser is told of the cards that it is to expect.
struct RecoTask {
  int National = 0;                  ///< 0..6
  std::uint8_t SymbolThreshold = 0;  ///< in percent of white
  std::uint8_t SuitThreshold = 0;
  int StartX = 0;  ///< the column round which it searches
  wire::SizeLimits Symbol;
  wire::SizeLimits Suit;
};

/// How the print is, by its number in a command.
enum class CardFont : std::uint8_t { Normal, Fine, Bold };

/// The threshold of normal print, which nobody can change.
inline constexpr std::uint8_t kNormalThreshold = 46;

/// By the record of `index` and the thresholds of `font`, for cards lettered as in country 0.
[[nodiscard]] RecoTask TaskOf(const StoredParameters& parameters, wire::CardIndex index,
                              CardFont font);

}  // namespace morvane::simulator
