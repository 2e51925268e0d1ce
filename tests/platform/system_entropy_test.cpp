#include "platform/system_entropy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace morvane {
namespace {

TEST(SystemEntropy, TheSystemsBytesDifferEachTime) {
  SystemEntropy entropy;
  std::array<std::uint8_t, 21> one{};
  std::array<std::uint8_t, 21> two{};
  EXPECT_TRUE(entropy.SystemRandom(one).Ok);
  EXPECT_TRUE(entropy.SystemRandom(two).Ok);
  EXPECT_NE(one, two);  // equal once in 2^168
}

TEST(SystemEntropy, OnlyTheGivenBytesAreFilled) {
  SystemEntropy entropy;
  std::array<std::uint8_t, 40> bytes{};
  EXPECT_TRUE(entropy.SystemRandom(std::span(bytes).subspan(10, 20)).Ok);
  EXPECT_TRUE(std::all_of(bytes.begin(), bytes.begin() + 10, [](auto byte) { return byte == 0; }));
  EXPECT_TRUE(std::all_of(bytes.end() - 10, bytes.end(), [](auto byte) { return byte == 0; }));
}

TEST(SystemEntropy, ALongRowIsFilledToItsEnd) {
  SystemEntropy entropy;
  std::array<std::uint8_t, 1000> bytes{};
  EXPECT_TRUE(entropy.SystemRandom(bytes).Ok);
  for (std::size_t start = 0; start + 40 <= bytes.size(); start += 40) {
    const auto part = std::span(bytes).subspan(start, 40);
    EXPECT_TRUE(std::any_of(part.begin(), part.end(), [](auto byte) { return byte != 0; }))
        << start;
  }
}

TEST(SystemEntropy, NoBytesAreNoFailure) {
  SystemEntropy entropy;
  const auto answer = entropy.SystemRandom({});
  EXPECT_TRUE(answer.Ok);
  EXPECT_FALSE(answer.Error);
}

TEST(SystemEntropy, ASeedGivesItsRowAgain) {
  SystemEntropy one;
  SystemEntropy two;
  one.Seed(7);
  two.Seed(7);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(one.Random(), two.Random());
  two.Seed(8);
  EXPECT_NE(one.Random(), two.Random());
}

TEST(SystemEntropy, TheRowIsTheMersenneTwisters) {
  // The C++ standard names the 10000th number of seed 5489: 9981545732273789042.
  SystemEntropy entropy;
  entropy.Seed(5489);
  for (int i = 1; i < 10000; ++i) {
    const double number = entropy.Random();
    ASSERT_GE(number, 0.0);
    ASSERT_LT(number, 1.0);
  }
  EXPECT_NEAR(entropy.Random(), 9981545732273789042.0 / 18446744073709551616.0, 1e-15);
}

}  // namespace
}  // namespace morvane
