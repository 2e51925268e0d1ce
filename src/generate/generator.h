#pragma once

#include "generate/number_dealer.h"
#include "generate/random_pool.h"
#include "generate/rejection.h"
#include "generate/shuffling_dealer.h"

namespace morvane::generate {

/// What lives from one generation to the next, as long as the program does.
struct Generator {
  explicit Generator(Program& program) : Pool(program) {}

  RandomPool Pool;
  NumberDealer Number;
  ShufflingDealer Shuffling;
  RejectionLimits Limits;
};

}  // namespace morvane::generate
