#include "files/fixed_records.h"

#include "files/record_desk.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A format with two good records of it.
struct Sample {
  const char* File;
  const char* Name;
  std::string First;
  std::string Second;
};

std::vector<Sample> Samples() {
  return {{"set.bri", "BRI", BriRecord(kSuitsBri), BriRecord(kRoundBri)},
          {"set.dge", "DGE", DgeRecord(kSuitsDge), DgeRecord(kRoundDge)},
          {"set.dup", "DUP", DupRecord(kSuitsBri, kSuitsDge, "   ", "   "),
           DupRecord(kRoundBri, kRoundDge, "   ", "   ")},
          {"set.all", "DEAL305", kSuitsDeal305, kRoundDeal305}};
}

std::string Repeated(const std::string& record, int times) {
  std::string bytes;
  for (int i = 0; i < times; ++i) bytes += record;
  return bytes;
}

TEST(FixedRecords, AreTheBoardsFrom1OnInFileOrder) {
  for (const Sample& sample : Samples()) {
    RecordDesk desk;
    EXPECT_TRUE(desk.Load(sample.File, sample.First + sample.Second + sample.First));
    const BoardSet& set = desk.Prog.Set;
    EXPECT_EQ(set.FirstBoard, 1);
    EXPECT_EQ(set.LastBoard, 3);
    EXPECT_EQ(set.At(1), test::SuitBoard(1)) << sample.Name;
    EXPECT_EQ(set.At(2), test::RoundBoard(2)) << sample.Name;
    EXPECT_EQ(set.At(3), test::SuitBoard(3)) << sample.Name;
    EXPECT_EQ(set.At(4), Board{});
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    EXPECT_EQ(desk.Ui.Statuses.back(), "Boards loaded: 3");
  }
}

TEST(FixedRecords, HaveDealerAndVulnerabilityByTheirPosition) {
  RecordDesk desk;
  EXPECT_TRUE(desk.Load("set.all", Repeated(kRoundDeal305, 18)));
  const BoardSet& set = desk.Prog.Set;
  const std::vector<int> vuls{1, 2, 3, 4, 2, 3, 4, 1, 3, 4, 1, 2, 4, 1, 2, 3, 1, 2};
  for (int n = 1; n <= 18; ++n) {
    EXPECT_EQ(set.At(n).Number, n);
    EXPECT_EQ(set.At(n).Dealer, (n - 1) % 4 + 1);
    EXPECT_EQ(set.At(n).Vul, vuls[static_cast<std::size_t>(n - 1)]) << n;
  }
}

TEST(FixedRecords, AnEditedDealerDoesNotComeBack) {
  for (const Sample& sample : Samples()) {
    RecordDesk desk;
    desk.TwoBoards(1);
    desk.Prog.Set.At(1).Dealer = kWest;
    desk.Prog.Set.At(1).Vul = 4;
    EXPECT_EQ(desk.Saved(sample.File).size(), 2 * sample.First.size());
    EXPECT_TRUE(LoadFile(desk.Prog, desk.History, desk.Folder / sample.File));
    EXPECT_EQ(desk.Prog.Set.At(1), test::SuitBoard(1));
  }
}

TEST(FixedRecords, AFileWithoutBytesIsEmpty) {
  for (const Sample& sample : Samples()) {
    RecordDesk desk;
    EXPECT_FALSE(desk.Load(sample.File, ""));
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadError(kFileIsEmpty)));
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Load operation aborted", "Ready"));
    EXPECT_THAT(desk.LogLines(),
                ElementsAre("  Load: " + (desk.Folder / sample.File),
                            "    Load Error: File format error: File is empty :  : Load operation "
                            "aborted!"));
    ExpectNoSet(desk.Prog.Set);
  }
}

TEST(FixedRecords, AFileShorterThanOneRecordHasItsRealLengthAndRecord1) {
  for (const Sample& sample : Samples()) {
    RecordDesk desk;
    EXPECT_FALSE(desk.Load(sample.File, sample.First.substr(0, 50)));
    EXPECT_THAT(desk.Ui.Boxes,
                ElementsAre(LoadError(Told("Incorrect record length = 50  in record: 1"))));
    ExpectNoSet(desk.Prog.Set);
  }
}

TEST(FixedRecords, OneByteMoreThanTheRecordsIsARecordOfLength1AndFailsTheWholeLoad) {
  for (const Sample& sample : Samples()) {
    RecordDesk desk;
    EXPECT_FALSE(desk.Load(sample.File, sample.First + "0"));
    EXPECT_THAT(desk.Ui.Boxes,
                ElementsAre(LoadError(Told("Incorrect record length = 1  in record: 2"))));
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Load operation aborted", "Ready"));
    ExpectNoSet(desk.Prog.Set);
  }
}

TEST(FixedRecords, TheFirstFaultyOneEndsTheLoad) {
  RecordDesk desk;
  EXPECT_FALSE(desk.Load("set.bri", BriRecord(kSuitsBri) + BriRecord("53" + kRoundBri.substr(2)) +
                                        BriRecord("xx" + kRoundBri.substr(2))));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(LoadError(Told("Incorrect card value: 53  in record: 2"))));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre("  Load: " + (desk.Folder / "set.bri"),
                          "    Load Error: File format error: Incorrect card value: 53  in record: "
                          "2 :  : Load operation aborted!"));
  ExpectNoSet(desk.Prog.Set);
}

TEST(FixedRecords, EveryFormatTellsTheRecordOfItsFault) {
  RecordDesk desk;
  EXPECT_FALSE(
      desk.Load("set.dge", DgeRecord(kSuitsDge) + DgeRecord("\003" + kRoundDge.substr(1))));
  EXPECT_FALSE(desk.Load("set.all", kSuitsDeal305 + "4" + kRoundDeal305.substr(1)));
  EXPECT_FALSE(desk.Load("set.dup", DupRecord("0101" + kSuitsBri.substr(4), kSuitsDge, "", "")));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(LoadError(Told("Unexpected charater at position:  1  in record: 2")),
                          LoadError(Told("Invalid character: 41  in record: 2")),
                          LoadError(Told("Duplicate card value: 01  in record: 1"))));
}

TEST(FixedRecords, SixHundredAndFortyAreASet) {
  for (const Sample& sample : Samples()) {
    RecordDesk desk;
    EXPECT_TRUE(desk.Load(sample.File, Repeated(sample.Second, 640)));
    EXPECT_EQ(desk.Prog.Set.Count(), 640);
    EXPECT_EQ(desk.Prog.Set.At(640), test::RoundBoard(640));
  }
}

TEST(FixedRecords, OneMoreIsTooMany) {
  for (const Sample& sample : Samples()) {
    RecordDesk desk;
    EXPECT_FALSE(desk.Load(sample.File, Repeated(sample.First, 641)));
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadError(kTooMany)));
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Load operation aborted", "Ready"));
    ExpectNoSet(desk.Prog.Set);
  }
}

TEST(FixedRecords, TheFaultOfTheOneTooManyComesFirst) {
  RecordDesk desk;
  EXPECT_FALSE(desk.Load("set.all", Repeated(kRoundDeal305, 640) + "0"));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(LoadError(Told("Incorrect record length = 1  in record: 641"))));
}

TEST(FixedRecords, AMarkAtTheStartOfTheFileIsNoMark) {
  RecordDesk desk;
  EXPECT_FALSE(desk.Load("set.bri", "\xEF\xBB\xBF" + BriRecord(kSuitsBri)));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(LoadError(Told("Invalid character: \xC3\xAF\xC2\xBB  in record: 1"))));
}

}  // namespace
}  // namespace morvane::files
