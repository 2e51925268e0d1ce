#include "files/unsaved_set.h"

#include "support/fakes.h"

namespace morvane::files {
namespace {

/// Board 7 with one card: the king of spades (card 2) with South, dealer East, all vulnerable.
BoardSet OneCard() {
  BoardSet set;
  set.FirstBoard = set.LastBoard = set.CurrentBoard = 7;
  set.BoardSetChanged = "1";
  set.EventName = "Club \"Spades\" [final]\nB";
  set.BoardSetFile = "/sets/a b.pbn";
  Board& board = set.At(7);
  board.Number = 7;
  board.Dealer = 2;
  board.Vul = 4;
  board.Cards[2] = kSouth;
  board.Tricks[0] = 7;
  board.DealNumber[11] = 0xAB;
  board.DealCounter[0] = 1;
  AnalyzeBoard(board);
  return set;
}

std::string OneCardText() {
  std::string cards;
  for (int card = 1; card <= 52; ++card) cards += card == 2 ? "03" : "00";
  return "Morvane unsaved Board Set 1\n"
         "When: 21 2026-11-22 3:04:05 PM\n"
         "File: 13 /sets/a b.pbn\n"
         "Name: 23 Club \"Spades\" [final]\nB\n"
         "Site: 0 \n"
         "Date: 0 \n"
         "Boards: 7 7 7\n"
         "7 2 4 " +
         cards +
         " 070000000000000000000000000000000000000000"
         " 0000000000000000000000AB 01000000\n"
         "End\n";
}

void ExpectSame(const BoardSet& got, const BoardSet& wanted) {
  EXPECT_EQ(got.FirstBoard, wanted.FirstBoard);
  EXPECT_EQ(got.LastBoard, wanted.LastBoard);
  EXPECT_EQ(got.CurrentBoard, wanted.CurrentBoard);
  EXPECT_EQ(got.BoardSetFile, wanted.BoardSetFile);
  EXPECT_EQ(got.EventName, wanted.EventName);
  EXPECT_EQ(got.EventSite, wanted.EventSite);
  EXPECT_EQ(got.EventDate, wanted.EventDate);
  for (int n = wanted.FirstBoard; n <= wanted.LastBoard; ++n) {
    EXPECT_EQ(got.At(n), wanted.At(n)) << n;
  }
}

TEST(UnsavedSet, IsWrittenByteForByteAsTold) {
  EXPECT_EQ(UnsavedText(OneCard(), "2026-11-22 3:04:05 PM"), OneCardText());
}

TEST(UnsavedSet, IsReadBackAndCountsAsChanged) {
  const auto read = ReadUnsavedText(OneCardText());
  ASSERT_TRUE(read);
  EXPECT_EQ(read->When, "2026-11-22 3:04:05 PM");
  EXPECT_EQ(read->Set.BoardSetChanged, "1");
  ExpectSame(read->Set, OneCard());
}

TEST(UnsavedSet, KeepsAsManyBoardsAsThereCanBe) {
  BoardSet set;
  test::FillSet(set, 1, kMaxBoards);
  set.CurrentBoard = 600;
  const auto read = ReadUnsavedText(UnsavedText(set, ""));
  ASSERT_TRUE(read);
  ExpectSame(read->Set, set);
}

TEST(UnsavedSet, KeepsAGapBetweenTwoBoards) {
  BoardSet set;
  test::FillSet(set, 1, 3);
  set.At(2) = Board{};
  const auto read = ReadUnsavedText(UnsavedText(set, ""));
  ASSERT_TRUE(read);
  ExpectSame(read->Set, set);
}

TEST(UnsavedSet, CutShortAnywhereItIsNone) {
  const std::string whole = OneCardText();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_FALSE(ReadUnsavedText(whole.substr(0, length))) << length;
  }
  EXPECT_FALSE(ReadUnsavedText(whole + "\n"));
}

/// The text with `what` in it replaced.
std::string With(const std::string& what, const std::string& by) {
  std::string text = OneCardText();
  return text.replace(text.find(what), what.size(), by);
}

TEST(UnsavedSet, WithAValueThatNoSetHasItIsNone) {
  for (const auto& [what, by] : std::vector<std::pair<std::string, std::string>>{
           {"Set 1", "Set 2"},
           {"Boards: 7 7 7", "Boards: 0 7 7"},
           {"Boards: 7 7 7", "Boards: 8 7 7"},
           {"Boards: 7 7 7", "Boards: 7 641 7"},
           {"Boards: 7 7 7", "Boards: 7 7 0"},
           {"Boards: 7 7 7", "Boards: 7 8 7"},
           {"\n7 2 4 ", "\n641 2 4 "},
           {"\n7 2 4 ", "\n7 5 4 "},
           {"\n7 2 4 ", "\n7 2 5 "},
           {"0003", "0005"},
           {"0003", "0x03"},
           {" 07000", " 08000"},
           {"Site: 0", "Site: -1"},
           {"Site: 0", "Site: 99999999999"},
           {"Name: 23", "Name: 24"},
       }) {
    EXPECT_FALSE(ReadUnsavedText(With(what, by))) << by;
  }
  EXPECT_TRUE(ReadUnsavedText(With("0003", "0004")));
}

}  // namespace
}  // namespace morvane::files
