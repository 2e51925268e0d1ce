#include "simulator/card_print.h"

#include <array>

#include "simulator/stored_parameters.h"

namespace morvane::simulator {
namespace {

struct Sizes {
  PrintSize Symbol;
  PrintSize Suit;
};

/// By index.
constexpr std::array<Sizes, 3> kSizes{{
    {{24, 40}, {22, 28}},
    {{40, 70}, {36, 54}},
    {{16, 24}, {14, 20}},
}};

CameraPlace PlaceInARecord(std::size_t index) {
  const wire::PositionBlock at = StoredParameters{}.Records[index].Positions;
  return {at.PosX, at.PosY};
}

}  // namespace

CardPrint::CardPrint(const Options& options) : Letters(options.Letters) {
  const auto index = static_cast<std::size_t>(options.Index);
  Ideal = options.Ideal.value_or(PlaceInARecord(index));
  Symbol = options.Symbol.value_or(kSizes[index].Symbol);
  Suit = options.Suit.value_or(kSizes[index].Suit);
}

}  // namespace morvane::simulator
