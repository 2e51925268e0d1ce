#include "analysis/mailbox.h"

#include <gtest/gtest.h>

#include "analysis/deal_tokens.h"
#include "analysis/soft_progress.h"
#include "support/fakes.h"

namespace morvane::analysis {
namespace {

TEST(SoftProgressTest, SlowsDownAtItsKnees) {
  EXPECT_DOUBLE_EQ(SoftProgress(0, 100), 0);
  EXPECT_DOUBLE_EQ(SoftProgress(40, 100), 40);
  EXPECT_DOUBLE_EQ(SoftProgress(44, 100), 41);     // 40 + 4/4
  EXPECT_DOUBLE_EQ(SoftProgress(100, 100), 55);    // 40 + 60/4
  EXPECT_DOUBLE_EQ(SoftProgress(200, 100), 80);    // 40 + 160/4
  EXPECT_DOUBLE_EQ(SoftProgress(240, 100), 81);    // 90, and 80 + 10/10
  EXPECT_DOUBLE_EQ(SoftProgress(1000, 100), 100);  // 280, and 80 + 200/10
  EXPECT_DOUBLE_EQ(SoftProgress(5000, 100), 100);
}

TEST(SoftProgressTest, ABoardThatTookNoTickIsNoEstimate) {
  EXPECT_DOUBLE_EQ(SoftProgress(1, 0), 55);
}

TEST(DealTokensTest, ComeSuitBySuitFromTheAce) {
  const auto tokens = DealTokens(test::RoundBoard(1));
  ASSERT_EQ(tokens.size(), 52U);
  const std::vector<std::string> first(tokens.begin(), tokens.begin() + 5);
  EXPECT_EQ(first, (std::vector<std::string>{"NSA", "ESK", "SSQ", "WSJ", "NST"}));
  EXPECT_EQ(tokens[13], "EHA");
  EXPECT_EQ(tokens[51], "WC2");
}

TEST(DealTokensTest, ThereAreNoneOfAHandWithoutThirteenCards) {
  Board board = test::RoundBoard(1);
  board.Cards[1] = 0;
  EXPECT_TRUE(DealTokens(board).empty());
  board.Cards[1] = kEast;  // 14 and 12
  EXPECT_TRUE(DealTokens(board).empty());
}

TEST(DealTokensTest, AreReadInAnyOrder) {
  auto tokens = DealTokens(test::RoundBoard(1));
  std::reverse(tokens.begin(), tokens.end());
  Board board;
  EXPECT_TRUE(ReadTokens(tokens, board));
  EXPECT_EQ(board.Cards, test::RoundBoard(1).Cards);
}

TEST(DealTokensTest, WrongOnesAreNoBoard) {
  const auto good = DealTokens(test::RoundBoard(1));
  Board board;
  EXPECT_FALSE(ReadTokens({}, board));
  EXPECT_FALSE(ReadTokens({good.begin(), good.end() - 1}, board));
  for (const char* wrong : {"XSA", "NXA", "NSX", "NS", "NSAA", "", "ESK"}) {
    auto tokens = good;
    tokens[0] = wrong;
    EXPECT_FALSE(ReadTokens(tokens, board)) << wrong;
  }
}

TEST(MailboxTest, EveryOtherTextIsWork) {
  for (const char* text : {"00", "12", "98", "100", "9", "", "99 "}) {
    EXPECT_EQ(AnswerOf(text), Answer::kAtWork) << text;
  }
  EXPECT_EQ(AnswerOf("99"), Answer::kFinished);
  EXPECT_EQ(AnswerOf("90"), Answer::kStopped);
  EXPECT_EQ(AnswerOf("97"), Answer::kWrongTricks);
}

}  // namespace
}  // namespace morvane::analysis
