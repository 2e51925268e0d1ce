#include "platform/qt/qt_instance.h"

#include <memory>

#include "platform/qt/instance_fixture.h"

namespace morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using TheLink = test::InstanceFixture;
using ACaller = test::InstanceFixture;

TEST_F(TheLink, ACommandReachesTheRunningOneByteForByte) {
  QtInstance first(real, store);
  Run(first);
  EXPECT_TRUE(HandOver(store, "1/sets/club night.pbn"));
  EXPECT_TRUE(HandOver(store, "2/f/\xC3\xA9t\xC3\xA9.adc"));
  EXPECT_THAT(executed, ElementsAre("1/sets/club night.pbn", "2/f/\xC3\xA9t\xC3\xA9.adc"));
}

TEST_F(TheLink, TheLongestCommandIsTakenWholeAndALongerOneNotSent) {
  QtInstance first(real, store);
  Run(first);
  const std::string longest(64 * 1024, 'x');
  EXPECT_TRUE(HandOver(store, longest));
  EXPECT_FALSE(HandOver(store, longest + "x"));
  EXPECT_FALSE(HandOver(store, ""));
  EXPECT_THAT(executed, ElementsAre(longest));
}

TEST_F(TheLink, OfAnotherStoreIsAnother) {
  QtInstance first(real, store);
  Run(first);
  std::vector<std::string> others;
  QtInstance other(real, folder / "other.ini");
  EXPECT_TRUE(other.Claim());
  other.Listen([&](std::string_view command) { others.emplace_back(command); });
  EXPECT_TRUE(HandOver(folder / "other.ini", "1a"));
  EXPECT_THAT(others, ElementsAre("1a"));
  EXPECT_THAT(executed, IsEmpty());
}

TEST_F(TheLink, OnlyTheRunningOneMayListen) {
  QtInstance first(real, store);
  Run(first);
  std::vector<std::string> strays;
  QtInstance second(real, store);
  EXPECT_FALSE(second.Claim());
  second.Listen([&](std::string_view command) { strays.emplace_back(command); });
  EXPECT_TRUE(HandOver(store, "1a"));
  EXPECT_THAT(executed, ElementsAre("1a"));
  EXPECT_THAT(strays, IsEmpty());
}

TEST_F(ACaller, CallsAgainUntilTheRunningOneListens) {
  QtInstance first(real, store);
  EXPECT_TRUE(first.Claim());
  bool listens = false;
  const auto later = real.StartTimer(1, [&] {
    if (!listens) Listen(first);
    listens = true;
  });
  EXPECT_TRUE(HandOver(store, "1a"));
  EXPECT_THAT(executed, ElementsAre("1a"));
}

TEST_F(ACaller, GivesUpAfterTwoSecondsWhenNobodyListens) { ExpectGivingUpAfterTwoSeconds(); }

}  // namespace
}  // namespace morvane
