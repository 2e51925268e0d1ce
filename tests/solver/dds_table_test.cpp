#include "solver/dds_table.h"

#include <dds/dll.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <memory>
#include <random>
#include <vector>

#include "analysis/asymmetric_board.h"

// Two hundred random boards, held against the library called directly, with cards and results in
// its own words. In groups, each a test that takes a few seconds on a slow machine.

namespace morvane::solver {
namespace {

constexpr int kBoards = 200;
constexpr int kBoardsInGroup = 8;

/// A board dealt from `seed` alone, whatever library it is built with.
Board RandomBoard(std::uint32_t seed) {
  std::mt19937 engine(seed);
  std::array<int, kCards> pack{};
  for (int card = 0; card < kCards; ++card) {
    const auto other = engine() % static_cast<std::uint32_t>(card + 1);
    pack[static_cast<std::size_t>(card)] = pack[other];
    pack[other] = card + 1;
  }
  Board board = NumberedBoard(1);
  for (int place = 0; place < kCards; ++place) {
    const auto card = static_cast<std::size_t>(pack[static_cast<std::size_t>(place)]);
    board.Cards[card] = static_cast<std::uint8_t>(place % kHands + 1);
  }
  AnalyzeBoard(board);
  return board;
}

/// "N:AK.QJ..." with the four hands clockwise.
std::string PbnOf(const Board& board) {
  std::string text = "N:";
  for (int hand = kNorth; hand <= kWest; ++hand) {
    for (int card = 1; card <= kCards; ++card) {
      if (card > 1 && RankPosition(card) == 1) text += '.';
      if (board.Cards[static_cast<std::size_t>(card)] != hand) continue;
      text += "AKQJT98765432"[RankPosition(card) - 1];
    }
    if (hand != kWest) text += ' ';
  }
  return text;
}

/// Spades, hearts, diamonds, clubs and no-trump have the library's numbers 0 to 4; its hands are
/// North 0, clockwise.
int StrainOf(int denomination) { return denomination == 0 ? 4 : denomination - 1; }

/// Linked in, as on Windows, the library is made ready by nobody else before a test's own calls.
const std::string kReadyVersion = LibraryVersion();

/// The tricks that the side on lead takes, and from them those of the declarer on its right.
int TricksBySolving(const Board& board, int declarer, int denomination) {
  dealPBN deal{};
  deal.trump = StrainOf(denomination);
  deal.first = declarer % kHands;  // declarers count from 1
  std::strncpy(deal.remainCards, PbnOf(board).c_str(), sizeof deal.remainCards - 1);
  futureTricks found{};
  EXPECT_EQ(SolveBoardPBN(deal, -1, 1, 0, &found, 0), RETURN_NO_FAULT);
  return 13 - found.score[0];
}

/// North has these suits from the spades on, East the same from the hearts on, and so further; the
/// suits follow one another in a ring.
Board BoardOfSuits(const std::array<std::string, kSuits>& suits) {
  Board board = NumberedBoard(1);
  for (std::size_t hand = 0; hand < kHands; ++hand) {
    for (std::size_t suit = 0; suit < kSuits; ++suit) {
      for (const char rank : suits[suit]) {
        EXPECT_TRUE(GiveCard(board, CardOf(static_cast<int>((suit + hand) % kSuits) + 1, rank),
                             static_cast<int>(hand) + 1));
      }
    }
  }
  AnalyzeBoard(board);
  return board;
}

class RandomBoards : public ::testing::TestWithParam<int> {};

/// As `Result` has them: declarers clockwise from North, each no-trump first.
std::string ResultOf(const ddTableResults& found) {
  std::string result;
  for (int hand = 0; hand < 4; ++hand) {
    for (int denomination = 0; denomination < 5; ++denomination) {
      const int tricks = found.resTable[StrainOf(denomination)][hand];
      result += std::to_string(tricks > 6 ? tricks - 6 : 0);
    }
  }
  return result;
}

/// All the group's boards in one call, which shares them out among the processors.
TEST_P(RandomBoards, HaveTheLevelsOfTheLibrarysTables) {
  std::vector<Board> boards;
  ddTableDealsPBN deals{};
  for (int n = 0; n < kBoardsInGroup; ++n) {
    boards.push_back(RandomBoard(static_cast<std::uint32_t>(GetParam() * kBoardsInGroup + n)));
    ASSERT_EQ(boards.back().Status, Board::kComplete);
    ddTableDealPBN& deal = deals.deals[deals.noOfTables++];
    std::strncpy(deal.cards, PbnOf(boards.back()).c_str(), sizeof deal.cards - 1);
  }
  constexpr int kNoPar = -1;
  std::array<int, 5> allStrains{};
  const auto found = std::make_unique<ddTablesRes>();
  allParResults par{};
  ASSERT_EQ(CalcAllTablesPBN(&deals, kNoPar, allStrains.data(), found.get(), &par),
            RETURN_NO_FAULT);
  for (std::size_t n = 0; n < boards.size(); ++n) {
    EXPECT_EQ(analysis::ResultOf(CalcTable(boards[n]).Levels), ResultOf(found->results[n]))
        << PbnOf(boards[n]);
  }
}

class SomeRandomBoards : public ::testing::TestWithParam<int> {};

TEST_P(SomeRandomBoards, HaveTheLevelsOfEachContractSolvedAlone) {
  const Board board = RandomBoard(static_cast<std::uint32_t>(GetParam() * kBoardsInGroup));
  std::string expected;
  for (int declarer = kNorth; declarer <= kWest; ++declarer) {
    for (int denomination = 0; denomination < 5; ++denomination) {
      const int tricks = TricksBySolving(board, declarer, denomination);
      expected += std::to_string(tricks > 6 ? tricks - 6 : 0);
    }
  }
  EXPECT_EQ(analysis::ResultOf(CalcTable(board).Levels), expected) << PbnOf(board);
}

INSTANTIATE_TEST_SUITE_P(TwoHundred, RandomBoards, ::testing::Range(0, kBoards / kBoardsInGroup));
INSTANTIATE_TEST_SUITE_P(Four, SomeRandomBoards, ::testing::Range(0, 4));

/// Each hand has the suits of the hand before, each moved on by one: what one cannot make, nobody
/// can. That it is nothing, each contract solved alone tells.
TEST(BoardOfNothing, MakesNothing) {
  const Board board = BoardOfSuits({"KQ83", "J65", "A74", "T92"});
  ASSERT_EQ(board.Status, Board::kComplete);
  for (int declarer = kNorth; declarer <= kWest; ++declarer) {
    for (int denomination = 0; denomination < 5; ++denomination) {
      EXPECT_LE(TricksBySolving(board, declarer, denomination), 6);
    }
  }
  EXPECT_EQ(analysis::ResultOf(CalcTable(board).Levels), std::string(20, '0'));
}

TEST(AsymmetricBoard, HasTheTableThatWasWorkedByHand) {
  EXPECT_EQ(analysis::ResultOf(CalcTable(test::AsymmetricBoard(kNorth)).Levels),
            test::kAsymmetricResult);
}

/// Everyone has the cards and the results of the hand before.
TEST(AsymmetricBoard, TurnedByAHandHasItsTableTurned) {
  const std::string result = test::kAsymmetricResult;
  EXPECT_EQ(analysis::ResultOf(CalcTable(test::AsymmetricBoard(kEast)).Levels),
            result.substr(15) + result.substr(0, 15));
}

}  // namespace
}  // namespace morvane::solver
