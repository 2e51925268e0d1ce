#include "edit/set_edits.h"

#include "support/fakes.h"

namespace morvane::edit {
namespace {

struct SetEdits : ::testing::Test {
  BoardSet set;

  /// Boards `first`..`last`, each with cards of its own and with a dealer and vulnerability that
  /// are not those of its number.
  void Make(int first, int last, int current) {
    test::FillSet(set, first, last);
    for (int n = first; n <= last; ++n) {
      set.At(n).Cards = Deal(n);
      set.At(n).Dealer = kWest;
      set.At(n).Vul = 4;
    }
    set.CurrentBoard = static_cast<std::int16_t>(current);
  }
  /// Who holds the first ten cards tells the number, one bit a card.
  static std::array<std::uint8_t, 53> Deal(int n) {
    std::array<std::uint8_t, 53> cards{};
    for (std::size_t bit = 0; bit < 10; ++bit)
      cards[bit + 1] = (n >> bit & 1) != 0 ? kNorth : kEast;
    return cards;
  }
  static int DealIn(const Board& board) {
    if (board.Cards[1] == 0) return 0;
    int n = 0;
    for (std::size_t bit = 0; bit < 10; ++bit) n += board.Cards[bit + 1] == kNorth ? 1 << bit : 0;
    return n;
  }
  /// The deals of the set in order, 0 for an empty board.
  [[nodiscard]] std::vector<int> Deals() const {
    std::vector<int> deals;
    for (int n = set.FirstBoard; n <= set.LastBoard; ++n) deals.push_back(DealIn(set.At(n)));
    return deals;
  }
  [[nodiscard]] std::vector<int> Numbers() const {
    return {set.FirstBoard, set.LastBoard, set.CurrentBoard};
  }
  void ExpectNumbered() const {
    for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
      EXPECT_EQ(set.At(n).Number, n);
      EXPECT_EQ(set.At(n).Dealer, DealerOfNumber(n));
      EXPECT_EQ(set.At(n).Vul, VulOfNumber(n));
    }
    EXPECT_EQ(set.At(set.LastBoard % kMaxBoards + 1).Cards, Board{}.Cards) << "nothing behind it";
  }
};

using Numbers3 = std::vector<int>;

TEST_F(SetEdits, WithoutASetBoard1IsMade) {
  set.CurrentBoard = 7;
  MakeUsable(set);
  EXPECT_EQ(Numbers(), (Numbers3{1, 1, 1}));
  EXPECT_EQ(set.At(1), NumberedBoard(1));
  EXPECT_FALSE(set.Changed()) << "an untouched empty board is no work to be lost";
}

TEST_F(SetEdits, TheCurrentBoardComesIntoTheRange) {
  for (const auto& [current, comes] : {std::pair(1, 5), std::pair(6, 6), std::pair(9, 8)}) {
    Make(5, 8, current);
    MakeUsable(set);
    EXPECT_EQ(set.CurrentBoard, comes);
  }
}

TEST_F(SetEdits, AddPutsAnEmptyBoardBehindTheLast) {
  Make(2, 4, 3);
  AddBoard(set);
  EXPECT_EQ(Numbers(), (Numbers3{2, 5, 3}));
  EXPECT_EQ(Deals(), (std::vector{2, 3, 4, 0}));
  ExpectNumbered();
}

TEST_F(SetEdits, InsertMovesTheCurrentBoardUp) {
  Make(2, 4, 3);
  InsertBoard(set, Board{});
  EXPECT_EQ(Numbers(), (Numbers3{2, 5, 3}));
  EXPECT_EQ(Deals(), (std::vector{2, 0, 3, 4}));
  ExpectNumbered();
}

TEST_F(SetEdits, InsertAtTheLastBoard) {
  Make(1, 2, 2);
  Board held;
  held.Cards = Deal(77);
  InsertBoard(set, held);
  EXPECT_EQ(Deals(), (std::vector{1, 77, 2}));
  ExpectNumbered();
}

TEST_F(SetEdits, DeleteClosesTheGap) {
  Make(2, 5, 3);
  DeleteBoard(set);
  EXPECT_EQ(Numbers(), (Numbers3{2, 4, 3}));
  EXPECT_EQ(Deals(), (std::vector{2, 4, 5}));
  ExpectNumbered();
}

TEST_F(SetEdits, DeleteOnTheLastBoardLeavesTheNewLastOne) {
  Make(2, 5, 5);
  DeleteBoard(set);
  EXPECT_EQ(Numbers(), (Numbers3{2, 4, 4}));
  EXPECT_EQ(Deals(), (std::vector{2, 3, 4}));
  ExpectNumbered();
}

TEST_F(SetEdits, DeletingTheOnlyBoardLeavesAnEmptyOneOfItsNumber) {
  Make(7, 7, 7);
  DeleteBoard(set);
  EXPECT_EQ(Numbers(), (Numbers3{7, 7, 7}));
  EXPECT_EQ(set.At(7), NumberedBoard(7));
  ExpectNumbered();
}

TEST_F(SetEdits, ShiftLeftOfASetFromBoard2RenumbersItFrom1) {
  Make(2, 4, 3);
  for (int n = 2; n <= 4; ++n) Renumber(set.At(n), n);
  ShiftLeft(set);
  EXPECT_EQ(Numbers(), (Numbers3{1, 3, 2}));
  EXPECT_EQ(Deals(), (std::vector{2, 3, 4}));
  // Board 2: East deals, North-South vulnerable. As board 1: North, nobody.
  EXPECT_EQ(set.At(1).Dealer, kNorth);
  EXPECT_EQ(set.At(1).Vul, 1);
  // Board 4: West, all. As board 3: South, East-West.
  EXPECT_EQ(set.At(3).Dealer, kSouth);
  EXPECT_EQ(set.At(3).Vul, 3);
  ExpectNumbered();
}

TEST_F(SetEdits, ShiftRightStartsFromTheTop) {
  Make(637, 639, 638);
  ShiftRight(set);
  EXPECT_EQ(Numbers(), (Numbers3{638, 640, 639}));
  EXPECT_EQ(Deals(), (std::vector{637, 638, 639}));
  EXPECT_EQ(set.At(637).Cards, Board{}.Cards) << "no longer in the set";
  ExpectNumbered();
}

TEST_F(SetEdits, NothingLeaves1To640) {
  Make(1, 640, 640);
  AddBoard(set);
  InsertBoard(set, Board{});
  ShiftLeft(set);
  ShiftRight(set);
  EXPECT_EQ(Numbers(), (Numbers3{1, 640, 640}));
  EXPECT_EQ(DealIn(set.At(1)), 1);
  EXPECT_EQ(DealIn(set.At(640)), 640);
}

}  // namespace
}  // namespace morvane::edit
