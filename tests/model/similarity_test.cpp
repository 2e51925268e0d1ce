#include "model/similarity.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "support/counted_similarity.h"

namespace morvane {
namespace {

Board RandomBoard(std::mt19937& random) {
  std::array<std::uint8_t, 52> order{};
  std::iota(order.begin(), order.end(), std::uint8_t{1});
  std::shuffle(order.begin(), order.end(), random);
  Board board;
  for (std::size_t i = 0; i < order.size(); ++i) {
    board.Cards[order[i]] = static_cast<std::uint8_t>(i % 4 + 1);
  }
  return board;
}

/// Boards of every kind: complete, with a few cards missing, with a wrong byte, some nearly alike.
std::vector<Board> ManyBoards() {
  std::mt19937 random(42);
  std::vector<Board> boards;
  for (int i = 0; i < 400; ++i) {
    Board board = i % 4 == 3 ? boards.back() : RandomBoard(random);
    for (int changes = i % 7; changes > 0; --changes) {
      board.Cards[random() % 52 + 1] = static_cast<std::uint8_t>(random() % 6);
    }
    boards.push_back(board);
  }
  return boards;
}

TEST(HandMasks, HaveABitForEachCardOfEachHand) {
  Board board;
  board.Cards[1] = 1;
  board.Cards[52] = 4;
  board.Cards[13] = 5;  // no hand
  const HandMasks masks = MasksOf(board);
  EXPECT_EQ(masks.Hands[0], 0x2U);
  EXPECT_EQ(masks.Hands[1], 0U);
  EXPECT_EQ(masks.Hands[2], 0U);
  EXPECT_EQ(masks.Hands[3], 0x10000000000000U);
}

TEST(CompareHands, AgreesWithCountingCardByCard) {
  const std::vector<Board> boards = ManyBoards();
  for (std::size_t i = 1; i < boards.size(); ++i) {
    for (std::size_t j = i - 1; j < i; --j) {
      const Similarity counted = test::CountedSimilarity(boards[i], boards[j]);
      const Similarity similarity = CompareHands(boards[i], boards[j]);
      ASSERT_EQ(similarity.Cards, counted.Cards) << i << " " << j;
      ASSERT_EQ(similarity.HandA, counted.HandA) << i << " " << j;
      ASSERT_EQ(similarity.HandB, counted.HandB) << i << " " << j;
    }
  }
}

TEST(FirstMoreAlike, EveryMethodFindsTheSameBoard) {
  const std::vector<Board> boards = ManyBoards();
  std::vector<HandMasks> masks;
  for (const Board& board : boards) masks.push_back(MasksOf(board));
  ASSERT_GE(SimilarityMethods().size(), 1U);
  for (const SimilarityMethod& method : SimilarityMethods()) {
    for (std::size_t candidate = 0; candidate < 40; ++candidate) {
      for (int than = -1; than <= 13; ++than) {
        const auto expected = std::find_if(boards.begin(), boards.end(), [&](const Board& other) {
          return test::CountedSimilarity(boards[candidate], other).Cards > than;
        });
        ASSERT_EQ(method.FirstMoreAlike(masks[candidate], masks, than),
                  static_cast<std::size_t>(expected - boards.begin()))
            << method.Name << " " << candidate << " " << than;
      }
    }
  }
}

TEST(FirstMoreAlike, WithoutBoardsFindsNone) {
  for (const SimilarityMethod& method : SimilarityMethods()) {
    EXPECT_EQ(method.FirstMoreAlike(HandMasks{}, {}, -1), 0U) << method.Name;
  }
}

TEST(FirstMoreAlike, EveryPairOfHandsCounts) {
  // Hand `a` of one board and hand `b` of the other share exactly the thirteen spades.
  for (int a = 1; a <= 4; ++a) {
    for (int b = 1; b <= 4; ++b) {
      HandMasks one;
      HandMasks other;
      for (int card = 1; card <= 13; ++card) {
        one.Add(a, card);
        other.Add(b, card);
      }
      for (const SimilarityMethod& method : SimilarityMethods()) {
        const std::vector<HandMasks> boards{HandMasks{}, other};
        EXPECT_EQ(method.FirstMoreAlike(one, boards, 12), 1U) << method.Name << a << b;
        EXPECT_EQ(method.FirstMoreAlike(one, boards, 13), 2U) << method.Name << a << b;
      }
      EXPECT_EQ(CompareHands(one, other).HandA, "NESW"[a - 1]);
      EXPECT_EQ(CompareHands(one, other).HandB, "NESW"[b - 1]);
    }
  }
}

}  // namespace
}  // namespace morvane
