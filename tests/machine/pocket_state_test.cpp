#include "machine/pocket_state.h"

#include <gtest/gtest.h>

namespace morvane::machine {
namespace {

constexpr CardFlow kFalling = CardFlow::kFalling;
constexpr CardFlow kStopped = CardFlow::kStopped;

TEST(PocketState, WaitsUntilTheMachineHasReportedACount) {
  EXPECT_EQ(PocketStateOf(std::nullopt, 13, kFalling), PocketState::kWaiting);
  EXPECT_EQ(PocketStateOf(std::nullopt, 13, kStopped), PocketState::kWaiting);
}

TEST(PocketState, FillsWhileCardsFallAndHasStoppedShortWhenTheyDoNot) {
  EXPECT_EQ(PocketStateOf(0, 13, kFalling), PocketState::kFilling);
  EXPECT_EQ(PocketStateOf(12, 13, kFalling), PocketState::kFilling);
  EXPECT_EQ(PocketStateOf(12, 13, kStopped), PocketState::kStoppedShort);
  EXPECT_EQ(PocketStateOf(0, 13, kStopped), PocketState::kStoppedShort);
}

TEST(PocketState, IsFullOnTargetWhetherTheMachineHasStoppedOrNot) {
  EXPECT_EQ(PocketStateOf(13, 13, kFalling), PocketState::kFull);
  EXPECT_EQ(PocketStateOf(13, 13, kStopped), PocketState::kFull);
  EXPECT_EQ(PocketStateOf(13, 52, kFalling), PocketState::kFilling) << "of a sort";
  EXPECT_EQ(PocketStateOf(52, 52, kFalling), PocketState::kFull);
}

TEST(PocketState, IsNoneThatHasStoppedShortWhenASortIsThroughItsPile) {
  EXPECT_EQ(PocketStateOf(13, 52, CardFlow::kOver), PocketState::kNotFull);
  EXPECT_EQ(PocketStateOf(52, 52, CardFlow::kOver), PocketState::kFull);
  EXPECT_EQ(PocketStateOf(13, 52, kStopped), PocketState::kStoppedShort) << "by a fault";
}

TEST(PocketState, HasTooManyBeyondTheTarget) {
  EXPECT_EQ(PocketStateOf(14, 13, kFalling), PocketState::kTooMany);
  EXPECT_EQ(PocketStateOf(63, 52, kStopped), PocketState::kTooMany);
}

TEST(PocketWord, SaysEachStateInWords) {
  EXPECT_EQ(PocketWord(PocketState::kWaiting), "waiting");
  EXPECT_EQ(PocketWord(PocketState::kFilling), "filling");
  EXPECT_EQ(PocketWord(PocketState::kFull), "full");
  EXPECT_EQ(PocketWord(PocketState::kStoppedShort), "stopped short");
  EXPECT_EQ(PocketWord(PocketState::kNotFull), "not full");
  EXPECT_EQ(PocketWord(PocketState::kTooMany), "too many");
}

}  // namespace
}  // namespace morvane::machine
