#pragma once

#include "simulator/options.h"

namespace morvane::simulator {

/// How the corners of the pack are printed, and where the camera has to look for them.
struct CardPrint {
  CameraPlace Ideal;
  PrintSize Symbol;
  PrintSize Suit;
  int Letters = 0;  ///< of the honours, 0..6

  /// What the options leave open fits the record of a new machine.
  explicit CardPrint(const Options& options);
};

}  // namespace morvane::simulator
