#include "history/history_ring.h"

#include <array>
#include <map>

#include "history/ring_records.h"

namespace morvane::history {
namespace {

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

}  // namespace
}  // namespace morvane::history
