#include "history/ring_records.h"

namespace morvane::history {
namespace {

TEST(HistorySimilarity, NamesTheMostAlikeBoardOfTheRing) {
  const HistoryRing ring =
      Loaded(ShortName("One") + AllNorthRecord(7) + ShortName("Two") + RoundRecord(9) + kEnd);
  Board candidate = test::RoundBoard(1);
  std::swap(candidate.Cards[1], candidate.Cards[2]);  // North and East exchange a card
  const HistoricSimilarity similarity = ring.HistorySimilarity(candidate);
  // With board 7 each hand shares all thirteen cards: North holds them all there.
  EXPECT_EQ(similarity.Cards, 13);
  EXPECT_EQ(similarity.Number, 7);
  EXPECT_EQ(similarity.File, "One");
  EXPECT_EQ(similarity.HandC, 'N');
  EXPECT_EQ(similarity.HandH, 'N');
}

TEST(HistorySimilarity, ATwelveAgainstTheSecondEntryBeatsFourAgainstTheFirst) {
  HistoryRing ring;
  BoardSet set = SetOf(3, 3);
  set.At(3) = test::SuitBoard(3);
  AnalyzeBoard(set.At(3));
  ring.Append(set, "Suits");
  set.At(3) = test::RoundBoard(3);
  AnalyzeBoard(set.At(3));
  ring.Append(set, "Round");
  Board candidate = test::RoundBoard(1);
  std::swap(candidate.Cards[1], candidate.Cards[2]);
  std::swap(candidate.Cards[3], candidate.Cards[4]);
  const HistoricSimilarity similarity = ring.HistorySimilarity(candidate);
  EXPECT_EQ(similarity.Cards, 12);
  EXPECT_EQ(similarity.Number, 3);
  EXPECT_EQ(similarity.File, "Round");
  EXPECT_EQ(similarity.HandC, 'N');
  EXPECT_EQ(similarity.HandH, 'N');
}

TEST(HistorySimilarity, OfEquallyAlikeBoardsTheOldestCounts) {
  // The oldest record stands behind the ring's end.
  const std::string newer = ShortName("Newer") + RoundRecord(2);
  const std::string older = ShortName("Older") + RoundRecord(1);
  const HistoryRing ring = Loaded(newer + kEnd + older);
  const HistoricSimilarity similarity = ring.HistorySimilarity(test::RoundBoard(1));
  EXPECT_EQ(similarity.Cards, 13);
  EXPECT_EQ(similarity.File, "Older");
  EXPECT_EQ(similarity.Number, 1);
}

TEST(HistorySimilarity, BoardsBehindALostHeaderAreNotCompared) {
  // The end has overwritten the oldest entry's header; its board stands alone behind it.
  const HistoryRing ring = Loaded(ShortName("New") + AllNorthRecord(1) + kEnd + RoundRecord(9));
  Board candidate = test::SuitBoard(1);
  const HistoricSimilarity similarity = ring.HistorySimilarity(candidate);
  EXPECT_EQ(similarity.File, "New");
  EXPECT_EQ(similarity.Number, 1);
  const HistoryRing lone = Loaded(kEnd + RoundRecord(9));
  EXPECT_EQ(lone.HistorySimilarity(test::RoundBoard(1)).Cards, 0);
  EXPECT_EQ(lone.HistorySimilarity(test::RoundBoard(1)).File, "<none>");
}

TEST(HistorySimilarity, RecordsOfAnUnknownTypeAreNotCompared) {
  const std::string odd = Record(17, std::string{'\x09', '\0'} + std::string(13, '\x1B'));
  const HistoryRing ring = Loaded(ShortName("One") + odd + kEnd);
  EXPECT_EQ(ring.HistorySimilarity(test::RoundBoard(1)).Cards, 0);
}

}  // namespace
}  // namespace morvane::history
