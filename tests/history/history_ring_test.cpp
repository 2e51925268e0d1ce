#include "history/history_ring.h"

#include <gtest/gtest.h>

#include <array>
#include <map>

#include "support/fakes.h"

namespace morvane::history {
namespace {

/// A record by its type and, from byte 1 on, its bytes; blanks behind them.
std::string Record(int type, const std::string& content) {
  std::string record(1, static_cast<char>(type));
  record += content;
  record.resize(16, ' ');
  return record;
}

const std::string kEnd = Record(255, "===============");

std::string Header(const std::string& name, int boards = 1) {
  return Record(254, std::string{static_cast<char>(boards), '\0'} + name);
}

/// The three records of a name of up to 13 characters.
std::string ShortName(const std::string& name, int boards = 1) {
  return Header(name, boards) + Record(253, "") + Record(252, "");
}

/// Board `number` in which the cards go round from North: cards 1, 2, 3, 4 to N, E, S, W, ...
std::string RoundRecord(int number) {
  return Record(0, std::string{static_cast<char>(number), '\0'} + std::string(13, '\x1B'));
}

/// Board `number` with all cards in North's hand.
std::string AllNorthRecord(int number) {
  return Record(0, std::string{static_cast<char>(number), '\0'} + std::string(13, '\0'));
}

HistoryRing Loaded(const std::string& bytes) {
  HistoryRing ring;
  ring.Load(bytes);
  return ring;
}

BoardSet SetOf(int first, int last) {
  BoardSet set;
  test::FillSet(set, first, last);
  return set;
}

/// A ring into which entries "E1", "E2" ... of `boards` boards were appended, `entries` of them.
HistoryRing Filled(int entries, int boards) {
  HistoryRing ring;
  const BoardSet set = SetOf(1, boards);
  for (int n = 1; n <= entries; ++n) ring.Append(set, "E" + std::to_string(n));
  return ring;
}

std::string Slice(const HistoryRing& ring, std::size_t position, std::size_t records) {
  return ring.Bytes().substr((position - 1) * 16, records * 16);
}

TEST(HistoryRing, AnEmptyFileIsAnEmptyRing) {
  const HistoryRing ring = Loaded("");
  EXPECT_EQ(ring.HistoryUsed(), 0);
  EXPECT_EQ(ring.HistoryWritePos(), 1);
  EXPECT_EQ(ring.HistoryCount(), 0);
  const HistoricSimilarity similarity = ring.HistorySimilarity(test::RoundBoard(1));
  EXPECT_EQ(similarity.Cards, 0);
  EXPECT_EQ(similarity.Number, 0);
  EXPECT_EQ(similarity.File, "<none>");
}

TEST(HistoryRing, AnEntryIsItsThreeNameRecordsItsBoardsAndTheEnd) {
  HistoryRing ring;
  ring.Append(SetOf(4, 4), "Evening");
  EXPECT_EQ(ring.Bytes(), ShortName("Evening") + RoundRecord(4) + kEnd);
  EXPECT_EQ(ring.HistoryWritePos(), 5);
  EXPECT_EQ(ring.HistoryUsed(), 4);
}

TEST(HistoryRing, TheNextEntryOverwritesTheEnd) {
  HistoryRing ring;
  ring.Append(SetOf(4, 4), "One");
  ring.Append(SetOf(4, 4), "Two");
  EXPECT_EQ(ring.Bytes(),
            ShortName("One") + RoundRecord(4) + ShortName("Two") + RoundRecord(4) + kEnd);
  EXPECT_EQ(ring.HistoryCount(), 2);
  EXPECT_EQ(ring.HistoryName(1), "One");
  EXPECT_EQ(ring.HistoryName(2), "Two");
}

TEST(HistoryRing, ASetWithoutACompleteBoardLeavesItsNameAlone) {
  BoardSet set = SetOf(1, 2);
  for (int n = 1; n <= 2; ++n) {
    set.At(n).Cards[1] = 0;
    AnalyzeBoard(set.At(n));
  }
  HistoryRing ring;
  ring.Append(set, "Half");
  EXPECT_EQ(ring.Bytes(), ShortName("Half", 2) + kEnd);
  EXPECT_EQ(ring.HistoryWritePos(), 4);
  EXPECT_EQ(ring.HistoryUsed(), 1) << "the name's other records and the end do not count";
}

TEST(HistoryRing, OnlyCompleteBoardsAreStoredInRisingNumber) {
  BoardSet set = SetOf(4, 6);
  set.At(5).Cards[52] = 0;
  AnalyzeBoard(set.At(5));
  HistoryRing ring;
  ring.Append(set, "x");
  ASSERT_EQ(ring.Bytes().size(), 6U * 16U);
  EXPECT_EQ(ring.Bytes()[1], 3) << "the boards of the set, incomplete ones too";
  EXPECT_EQ(NumberOfRecord(RecordAt(ring.Bytes(), 4)), 4);
  EXPECT_EQ(NumberOfRecord(RecordAt(ring.Bytes(), 5)), 6);
}

TEST(HistoryRing, ASetOf640BoardsIsCountedAs40And6) {
  HistoryRing ring;
  ring.Append(SetOf(1, 640), "All");
  EXPECT_EQ(ring.Bytes()[1], 40);
  EXPECT_EQ(ring.Bytes()[2], 6);
  EXPECT_EQ(ring.HistoryUsed(), 643);
  EXPECT_EQ(ring.HistoryWritePos(), 644);
}

TEST(HistoryRing, LoadingCountsTheEndAmongThePositionsInUse) {
  const HistoryRing ring = Loaded(ShortName("Evening") + RoundRecord(4) + kEnd);
  EXPECT_EQ(ring.HistoryUsed(), 5);
  EXPECT_EQ(ring.HistoryWritePos(), 5);
  EXPECT_EQ(ring.HistoryCount(), 1);
  EXPECT_EQ(ring.HistoryName(1), "Evening");
  EXPECT_EQ(ring.NameAtPosition(1), 1);
  EXPECT_EQ(ring.NameAtPosition(2), 0);
}

TEST(HistoryRing, ANameOf43CharactersComesBackFromItsThreeRecords) {
  const std::string name = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQ";
  HistoryRing ring;
  ring.Append(SetOf(1, 1), name);
  EXPECT_EQ(Loaded(ring.Bytes()).HistoryName(1), name);
  EXPECT_EQ(Loaded(ring.Bytes()).IsInHistory(name), 1);
}

TEST(HistoryRing, ANameOf50CharactersIsItsFirst43) {
  HistoryRing ring;
  ring.Append(SetOf(1, 1), std::string(43, 'n') + "1234567");
  EXPECT_EQ(ring.HistoryName(1), std::string(43, 'n'));
  EXPECT_EQ(Loaded(ring.Bytes()).HistoryName(1), std::string(43, 'n'));
  EXPECT_EQ(ring.IsInHistory(std::string(43, 'n')), 1);
  EXPECT_EQ(ring.IsInHistory(std::string(43, 'n') + "1234567"), 0);
}

TEST(HistoryRing, NamesAreFoundFromTheLastOnWithoutCaseAndBlanks) {
  HistoryRing ring;
  ring.Append(SetOf(1, 1), "Evening");
  ring.Append(SetOf(1, 1), "Côte d'Azur");
  ring.Append(SetOf(1, 1), "evening");
  EXPECT_EQ(ring.IsInHistory("  EVENING "), 3);
  EXPECT_EQ(ring.IsInHistory("CÔTE D'AZUR"), 2);
  EXPECT_EQ(ring.IsInHistory("Evenin"), 0);
  EXPECT_EQ(Loaded(ring.Bytes()).IsInHistory("côte d'azur"), 2);
}

TEST(HistoryRing, ANameWithoutPlaceInTheFileIsStillFound) {
  HistoryRing ring;
  ring.Append(SetOf(1, 1), "Łódź");
  EXPECT_EQ(ring.HistoryName(1), "?ód?");
  EXPECT_EQ(ring.IsInHistory("Łódź"), 1);
}

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

TEST(HistoryRing, NamePartsBeforeAnyHeaderArePassedOver) {
  const HistoryRing ring =
      Loaded(Record(253, "lost") + Record(252, "lost") + kEnd + ShortName("Kept"));
  EXPECT_EQ(ring.HistoryCount(), 1);
  EXPECT_EQ(ring.HistoryName(1), "Kept");
  EXPECT_EQ(ring.HistoryUsed(), 6);
}

TEST(HistoryRing, WithoutAnEndTheNextWriteGoesToTheFirstPosition) {
  HistoryRing ring = Loaded(ShortName("Old") + RoundRecord(1));
  EXPECT_EQ(ring.HistoryWritePos(), 1);
  // Its header counts as the end, so its board has no name.
  EXPECT_EQ(ring.HistorySimilarity(test::RoundBoard(1)).File, "<none>");
  ring.Append(SetOf(4, 4), "New");
  EXPECT_EQ(ring.Bytes(), ShortName("New") + RoundRecord(4) + kEnd);
}

TEST(HistoryRing, ARecordCutShortAtTheEndIsNone) {
  const HistoryRing ring = Loaded(ShortName("One") + RoundRecord(1) + kEnd + "\xFE...");
  EXPECT_EQ(ring.HistoryUsed(), 5);
  EXPECT_EQ(ring.HistoryCount(), 1);
}

TEST(HistoryRing, AFileLongerThanTheRingGoesRound) {
  std::string bytes;
  for (int n = 0; n < 20000; ++n) bytes += RoundRecord(1);
  bytes += Header("Last") + kEnd;
  const HistoryRing ring = Loaded(bytes);
  // Record 20001 stands at position 1, 20002 at 2, and the positions in use start again.
  EXPECT_EQ(ring.HistoryUsed(), 2);
  EXPECT_EQ(ring.HistoryWritePos(), 2);
  EXPECT_EQ(ring.NameAtPosition(1), 1);
}

// 20,000 positions take 5000 entries of one board: four records each.

TEST(HistoryRing, The20000thWriteLeavesTheEndAtPosition1) {
  const HistoryRing ring = Filled(5000, 1);
  EXPECT_EQ(ring.HistoryUsed(), 20000);
  EXPECT_EQ(ring.HistoryWritePos(), 1);
  EXPECT_EQ(ring.Bytes().size(), 320000U);
  EXPECT_EQ(Slice(ring, 1, 2), kEnd + Record(253, ""));
}

TEST(HistoryRing, The20001stWriteGoesToPosition1AndTheFileStopsGrowing) {
  HistoryRing ring = Filled(5000, 1);
  ring.Append(SetOf(1, 2), "Round");
  EXPECT_EQ(ring.HistoryUsed(), 20000);
  EXPECT_EQ(ring.HistoryWritePos(), 6);
  EXPECT_EQ(ring.Bytes().size(), 320000U);
  EXPECT_EQ(Slice(ring, 1, 1), Header("Round", 2));
  EXPECT_EQ(Slice(ring, 6, 1), kEnd);
  EXPECT_EQ(Slice(ring, 9, 1), Header("E3")) << "the end fell among the records of E2";
}

TEST(HistoryRing, AfterAWrapTheOldestEntryHasLostItsHeaderAndItsBoards) {
  // Entries of six records. The last end stands at 20000 + 4 = 4: on the first board of E1.
  HistoryRing ring;
  BoardSet set = SetOf(1, 3);
  set.At(3) = test::SuitBoard(3);
  AnalyzeBoard(set.At(3));
  ring.Append(set, "E1");
  const BoardSet plain = SetOf(1, 3);
  for (int n = 2; n <= 3333; ++n) ring.Append(plain, "E" + std::to_string(n));
  EXPECT_EQ(ring.HistoryWritePos(), 19999);
  ring.Append(SetOf(1, 2), "Last");  // 19999, 20000, 1, 2, 3, and the end at 4
  EXPECT_EQ(ring.HistoryWritePos(), 4);
  // The suits of E1 stand at 6 still, without a name; after a restart too.
  EXPECT_EQ(ring.HistorySimilarity(test::SuitBoard(1)).Cards, 4);
  EXPECT_EQ(Loaded(ring.Bytes()).HistorySimilarity(test::SuitBoard(1)).Cards, 4);
}

/// A ring full of boards with its end at `position`.
HistoryRing FullRing(int position) {
  std::string bytes;
  for (int n = 1; n <= 20000; ++n) bytes += n == position ? kEnd : RoundRecord(1);
  return Loaded(bytes);
}

TEST(HistoryRing, AnEntryAcrossTheRingsEndLosesTheNamePartsThatStandBeforeAnyHeader) {
  const std::string name = "abcdefghijklmNOPQRSTUVWXYZ12345";
  struct Case {
    int End;
    std::size_t Kept;
  };
  for (const Case& c : {Case{19998, 31}, Case{19999, 28}, Case{20000, 13}}) {
    HistoryRing ring = FullRing(c.End);
    ring.Append(SetOf(4, 4), name);
    EXPECT_EQ(ring.HistoryName(ring.NameAtPosition(c.End)), name) << c.End;
    const HistoryRing next = Loaded(ring.Bytes());
    EXPECT_EQ(next.HistoryCount(), 1) << c.End;
    EXPECT_EQ(next.HistoryName(next.NameAtPosition(c.End)), name.substr(0, c.Kept)) << c.End;
    EXPECT_EQ(next.HistoryWritePos(), ring.HistoryWritePos()) << c.End;
    EXPECT_EQ(next.HistoryUsed(), 20000) << c.End;
  }
}

TEST(HistoryRing, TheBoardsOfAnEntryAcrossTheRingsEndKeepItsName) {
  HistoryRing ring = FullRing(19998);
  BoardSet set = SetOf(1, 2);
  set.At(2) = test::SuitBoard(2);
  ring.Append(set, "Across");  // 19998, 19999, 20000, boards at 1 and 2, the end at 3
  EXPECT_EQ(ring.HistoryWritePos(), 3);
  for (const HistoryRing& each : {ring, Loaded(ring.Bytes())}) {
    const HistoricSimilarity similarity = each.HistorySimilarity(test::SuitBoard(9));
    EXPECT_EQ(similarity.Cards, 13);
    EXPECT_EQ(similarity.Number, 2);
    EXPECT_EQ(similarity.File, "Across");
  }
}

/// The boards that stand at positions 2 and 3, where the name records of the next entry go.
HistoryRing WithStaleBoardsAt2And3() {
  HistoryRing ring = Loaded(kEnd + AllNorthRecord(2) + AllNorthRecord(3));
  ring.Append(SetOf(4, 4), "New");
  return ring;
}

TEST(HistoryRing, StaleTypesAtTheNameRecordsAreComparedUntilTheNextStart) {
  const HistoryRing ring = WithStaleBoardsAt2And3();
  // In the file there is no such board any more.
  EXPECT_EQ(ring.Bytes(), ShortName("New") + RoundRecord(4) + kEnd);
  const HistoricSimilarity stale = ring.HistorySimilarity(test::SuitBoard(1));
  EXPECT_EQ(stale.Cards, 13);
  EXPECT_EQ(stale.Number, 2);
  EXPECT_EQ(stale.File, "New");
  EXPECT_EQ(Loaded(ring.Bytes()).HistorySimilarity(test::SuitBoard(1)).Cards, 4);
}

TEST(HistoryRing, AStaleHeaderAtANameRecordLendsItsNameUntilTheNextStart) {
  HistoryRing ring = Loaded(kEnd + ShortName("Old") + AllNorthRecord(1));
  ring.Append(SetOf(4, 4), "New");  // its second record stands where "Old" began
  EXPECT_EQ(ring.HistorySimilarity(test::RoundBoard(1)).File, "Old");
  EXPECT_EQ(Loaded(ring.Bytes()).HistorySimilarity(test::RoundBoard(1)).File, "New");
}

TEST(HistoryRing, EntriesAreListedFromTheOldestToTheNewestWithTheirBoards) {
  const HistoryRing ring = Loaded(ShortName("Newer") + RoundRecord(1) + RoundRecord(2) + kEnd +
                                  RoundRecord(9) + ShortName("Older") + RoundRecord(1));
  const auto entries = ring.Entries();
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].Name, "Older");
  EXPECT_EQ(entries[0].Position, 8);
  EXPECT_EQ(entries[0].Boards, 1);
  EXPECT_EQ(entries[1].Name, "Newer");
  EXPECT_EQ(entries[1].Position, 1);
  EXPECT_EQ(entries[1].Boards, 2);
}

TEST(HistoryRing, AnEntryJustAddedIsListedWithItsBoardsAlone) {
  HistoryRing ring;
  ring.Append(SetOf(1, 2), "Now");
  ASSERT_EQ(ring.Entries().size(), 1U);
  EXPECT_EQ(ring.Entries()[0].Boards, 2);
}

/// The file as it is written record by record, by the rule alone.
class RecordByRecord {
 public:
  void Append(int boards, const std::string& name) {
    std::string padded = name;
    padded.resize(43, ' ');
    Put(Record(254, std::string{static_cast<char>(boards % 100), static_cast<char>(boards / 100)} +
                        padded.substr(0, 13)));
    Put(Record(253, padded.substr(13, 15)));
    Put(Record(252, padded.substr(28, 15)));
    for (int n = 1; n <= boards; ++n) {
      std::string record{'\0', static_cast<char>(n % 100), static_cast<char>(n / 100)};
      // The first card of board n goes to hand n % 4 + 1.
      constexpr std::array<char, 4> kBytes{'\x1B', '\x6C', '\xB1', '\xC6'};
      Put(record + std::string(13, kBytes[static_cast<std::size_t>(n % 4)]));
    }
    records_[position_] = kEnd;
  }
  [[nodiscard]] std::string Bytes() const {
    std::string bytes;
    for (const auto& [position, record] : records_) bytes += record;
    return bytes;
  }

 private:
  void Put(const std::string& record) {
    records_[position_] = record;
    position_ = position_ == 20000 ? 1 : position_ + 1;
  }
  std::map<int, std::string> records_;
  int position_ = 1;
};

TEST(HistoryRing, LeavesTheBytesOfWritingRecordByRecordAlsoRoundTheEnd) {
  HistoryRing ring;
  RecordByRecord file;
  for (int n = 1; n <= 700; ++n) {
    const int boards = n % 67 + 1;
    const std::string name = "Entry " + std::string(static_cast<std::size_t>(n % 38), 'x');
    BoardSet set;
    test::FillSet(set, 1, boards);
    ring.Append(set, name);
    file.Append(boards, name.substr(0, 43));
    if (n % 50 == 0) {
      ASSERT_EQ(ring.Bytes(), file.Bytes()) << n;
      HistoryRing again;  // the next start goes on from the same place
      again.Load(ring.Bytes());
      ASSERT_EQ(again.HistoryWritePos(), ring.HistoryWritePos());
      ring = again;
    }
  }
  EXPECT_EQ(ring.Bytes().size(), 320000U);
}

// The older file had one record for a name.

TEST(ConvertedHistory, EachHeaderGetsTwoBlankNameRecords) {
  EXPECT_EQ(ConvertedHistory(Header("One") + RoundRecord(1) + Header("Two") + kEnd),
            ShortName("One") + RoundRecord(1) + ShortName("Two") + kEnd);
}

TEST(ConvertedHistory, BeginsWithTheFirstHeaderBehindTheEnd) {
  EXPECT_EQ(ConvertedHistory(RoundRecord(8) + Header("New") + RoundRecord(1) + kEnd +
                             RoundRecord(9) + Header("Old") + RoundRecord(2)),
            ShortName("Old") + RoundRecord(2) + RoundRecord(8) + ShortName("New") + RoundRecord(1) +
                kEnd);
}

TEST(ConvertedHistory, WithoutAnEndBeginsWithTheFirstRecord) {
  EXPECT_EQ(ConvertedHistory(Header("One") + RoundRecord(1)),
            ShortName("One") + RoundRecord(1) + kEnd);
}

TEST(ConvertedHistory, WithoutAHeaderIsAnEmptyRing) {
  EXPECT_EQ(ConvertedHistory(RoundRecord(1) + kEnd + RoundRecord(2)), kEnd);
  EXPECT_EQ(ConvertedHistory("short"), kEnd);
}

TEST(ConvertedHistory, WhatHasNoPlaceInTheRingIsTheOldest) {
  std::string old;
  for (int n = 0; n < 9999; ++n) old += Header("E" + std::to_string(n)) + RoundRecord(1);
  old += Header("Last") + kEnd;
  // 9999 x 4 + 3 records and the end: 40,000 positions, two rounds.
  const std::string bytes = ConvertedHistory(old);
  EXPECT_EQ(bytes.size(), 320000U);
  const HistoryRing ring = Loaded(bytes);
  EXPECT_EQ(ring.HistoryUsed(), 20000);
  EXPECT_EQ(ring.HistoryWritePos(), 20000);
  EXPECT_EQ(ring.Entries().back().Name, "Last");
  EXPECT_EQ(ring.Entries().front().Name, "E5000");
}

}  // namespace
}  // namespace morvane::history
