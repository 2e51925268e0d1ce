#include "solver/adapter.h"

#include <gtest/gtest.h>

#include <future>
#include <random>

#include "analysis/deal_tokens.h"
#include "program/setting_keys.h"
#include "support/fakes.h"

namespace morvane::solver {
namespace {

const std::vector<std::string> kTokens = analysis::DealTokens(test::RoundBoard(1));

Table Fixed(const Board& /*board*/) {
  return {{4, 3, 2, 1, 0, 4, 3, 2, 1, 0, 4, 3, 2, 1, 0, 4, 3, 2, 1, 0}, ""};
}

/// A store that notes in which order it was written.
class NotedStore final : public Settings {
 public:
  [[nodiscard]] std::string Get(const SettingKey& key) const override { return store_.Get(key); }
  [[nodiscard]] bool Set(const SettingKey& key, std::string_view value) override {
    Written.emplace_back(key.Name);
    return static_cast<int>(Written.size()) != FailsAt && store_.Set(key, value);
  }
  std::vector<std::string> Written;
  int FailsAt = 0;

 private:
  test::MemorySettings store_;
};

TEST(AdapterTest, TheResultIsWrittenBeforeDone) {
  NotedStore store;
  EXPECT_EQ(Answer(store, kTokens, "DDS 1", Fixed), 0);
  EXPECT_EQ(store.Written, (std::vector<std::string>{"df1_version", "Result", "Done"}));
  EXPECT_EQ(store.Get(kSolverResult), "43210432104321043210");
  EXPECT_EQ(store.Get(kSolverDone), "99");
  EXPECT_EQ(store.Get(kSolverVersion), "DDS 1");
}

TEST(AdapterTest, AStoreThatCannotBeWrittenIsAnExitStatus) {
  for (const int write : {1, 2, 3}) {
    NotedStore store;
    store.FailsAt = write;
    EXPECT_EQ(Answer(store, kTokens, "DDS 1", Fixed), 1) << write;
    EXPECT_NE(store.Get(kSolverDone), "99");
  }
}

TEST(AdapterTest, WrongCardsAre91) {
  NotedStore store;
  EXPECT_EQ(Answer(store, {"NSA"}, "DDS 1", Fixed), 0);
  EXPECT_EQ(store.Get(kSolverDone), "91");
}

TEST(AdapterTest, ABreakThatIsThereAlreadyIs90) {
  NotedStore store;
  EXPECT_TRUE(store.Set(kSolverBreak, "98"));
  EXPECT_EQ(Answer(store, kTokens, "DDS 1", Fixed), 0);
  EXPECT_EQ(store.Get(kSolverDone), "90");
}

TEST(AdapterTest, ABreakIsAnsweredWhileTheLibraryWorks) {
  NotedStore store;
  std::promise<void> go;
  std::promise<void> over;
  std::shared_future<void> wait = go.get_future().share();
  const auto calc = [&](const Board& board) {
    EXPECT_TRUE(store.Set(kSolverBreak, "98"));
    wait.wait();
    over.set_value_at_thread_exit();
    return Fixed(board);
  };
  EXPECT_EQ(Answer(store, kTokens, "DDS 1", calc), 0);
  EXPECT_EQ(store.Get(kSolverDone), "90");
  go.set_value();
  over.get_future().wait();
}

TEST(AdapterTest, WhatTheLibraryRefusesIs96WithItsWords) {
  NotedStore store;
  EXPECT_EQ(Answer(store, kTokens, "DDS 1",
                   [](const Board&) {
                     return Table{{}, "No memory"};
                   }),
            0);
  EXPECT_EQ(store.Get(kSolverDone), "96");
  EXPECT_EQ(store.Get(kSolverError), "No memory");
}

TEST(LevelOfTricksTest, TheBookMakesNothing) {
  const std::array<int, 14> levels{0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7};
  for (int tricks = 0; tricks <= 13; ++tricks) {
    EXPECT_EQ(LevelOfTricks(tricks), levels[static_cast<std::size_t>(tricks)]);
  }
}

// Boards that can be worked out by hand.

TEST(CalcTableTest, WhoHoldsASuitMakesAllTricksInIt) {
  const Table table = CalcTable(test::SuitBoard(1));
  EXPECT_EQ(table.Error, "");
  // North has the spades, East the hearts, South the diamonds, West the clubs; a side makes all
  // tricks with a suit of its own as trumps, and at no-trump the other side leads one of its own.
  EXPECT_EQ(analysis::ResultOf(table.Levels), "07070007070707000707");
}

/// North and South hold the upper half of each suit.
TEST(CalcTableTest, EverythingIsColdForOneSide) {
  Board board = NumberedBoard(1);
  for (int card = 1; card <= kCards; ++card) {
    const int rank = RankPosition(card);
    const int suit = CardSuit(card);
    // Ranks 1..6 are North's and South's; the seventh of spades and diamonds too.
    const bool upper = rank <= 6 || (rank == 7 && suit % 2 == 1);
    const bool first = (rank % 2 == 1) == (suit <= 2);
    board.Cards[static_cast<std::size_t>(card)] =
        static_cast<std::uint8_t>(upper ? (first ? kNorth : kSouth) : (first ? kEast : kWest));
  }
  AnalyzeBoard(board);
  ASSERT_EQ(board.Status, Board::kComplete);
  const std::string result = analysis::ResultOf(CalcTable(board).Levels);
  EXPECT_EQ(result.substr(5, 5), "00000");
  EXPECT_EQ(result.substr(15, 5), "00000");
  for (const std::size_t i : {0U, 1U, 2U, 3U, 4U, 10U, 11U, 12U, 13U, 14U}) {
    EXPECT_GE(result[i], '6') << i;
  }
}

TEST(CalcTableTest, TheVersionNamesTheLibrary) {
  EXPECT_TRUE(LibraryVersion().starts_with("DDS "));
  EXPECT_GT(LibraryVersion().size(), 6U);
}

}  // namespace
}  // namespace morvane::solver
