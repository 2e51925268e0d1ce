#include "poker/slot_names.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace morvane::poker {
namespace {

TEST(PokerSlotNames, EachSlotIsCalledAsOnPaper) {
  const std::vector<std::string> wanted{
      "Player 1", "Player 2", "Player 3", "Player 4", "Player 5", "Player 6",  // their first cards
      "Player 1", "Player 2", "Player 3", "Player 4", "Player 5", "Player 6",  // and the second
      "BC",       "FLOP",     "FLOP",     "FLOP",     "BC",       "T",        "BC", "R",
      "",         "",         "",         "",         "",         "",         "",   ""};
  std::vector<std::string> names;
  for (int slot = 1; slot <= kSlots; ++slot) names.emplace_back(SlotName(slot));
  EXPECT_EQ(names, wanted);
}

TEST(PokerSlotNames, WhatIsNoSlotHasNoName) {
  EXPECT_EQ(SlotName(0), "");
  EXPECT_EQ(SlotName(29), "");
}

}  // namespace
}  // namespace morvane::poker
