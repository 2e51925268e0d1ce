#include "audit/audit_desk.h"
#include "text/text.h"

// What was done to a log afterwards.

namespace morvane::audit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kBoards = 12;
constexpr std::size_t kGenerate = 2;  ///< where the Generate line stands, and the first record
constexpr std::size_t kFirstRecord = 3;

/// A log of one set of boards 1 to 12 in which the shape test has rejected some deals.
std::string WholeLog() {
  AuditDesk desk;
  EXPECT_EQ(desk.Make(1, kBoards, {true, true, true}), generate::GenerateEnd::kDone);
  return desk.Log();
}

/// The same of boards 1 to 5, since each of its bytes is tried.
std::string SmallLog() {
  for (int i = 10;; ++i) {
    AuditDesk desk;
    EXPECT_EQ(desk.Make(1, 5, {true, true, true}, std::to_string(i) + kSeedr.substr(2)),
              generate::GenerateEnd::kDone);
    if (OnlySet(desk.Log()).What.Dealt->Rejected.Shape > 0) return desk.Log();
  }
}

std::size_t LineOf(int board) { return kFirstRecord + static_cast<std::size_t>(board - 1); }

std::vector<std::string> EachBoard(const std::string& told) {
  std::vector<std::string> all;
  for (int n = 1; n <= kBoards; ++n) all.push_back(std::to_string(n) + " " + told);
  return all;
}

TEST(DamagedLog, UndamagedItIsTheSame) {
  const SetAudit set = OnlySet(WholeLog());
  EXPECT_TRUE(set.IsSame());
  ASSERT_GT(set.What.Dealt->Rejected.Shape, 0);
}

TEST(DamagedLog, TwoCardsThatChangedHandsAreFound) {
  LogText log(WholeLog());
  std::string& record = log[LineOf(4)];
  std::swap(record[9], record[26]);  // North's and East's first characters
  ASSERT_NE(record[9], record[26]);
  const SetAudit set = OnlySet(log.Text());
  EXPECT_THAT(Told(set), ElementsAre("4 hands"));
  EXPECT_EQ(set.Findings[0].Line, LineOf(4) + 1);
  EXPECT_EQ(set.SameBoards, kBoards - 1);
  EXPECT_TRUE(set.CountsAreSame());
  EXPECT_FALSE(set.IsSame());
}

TEST(DamagedLog, AChangedDealNumberIsFound) {
  LogText log(WholeLog());
  char& digit = log[LineOf(12)][101];
  digit = digit == 'F' ? '0' : 'F';
  EXPECT_THAT(Told(OnlySet(log.Text())), ElementsAre("12 number"));
}

TEST(DamagedLog, AChangedCounterIsFound) {
  LogText log(WholeLog());
  char& digit = log[LineOf(1)][111];
  digit = digit == '9' ? '8' : '9';
  EXPECT_THAT(Told(OnlySet(log.Text())), ElementsAre("1 counter"));
}

TEST(DamagedLog, ACounterThatNoSetReachesIsFoundAtOnce) {
  for (const char* counter : {"80000000", "7FFFFFFF", "FFFFFFFF", "000F4241"}) {
    LogText log(WholeLog());
    log[LineOf(1)].replace(104, 8, counter);
    EXPECT_THAT(Told(OnlySet(log.Text())), ElementsAre("1 counter beyond reach"));
  }
}

TEST(DamagedLog, CountersThatNoSetReachesInEveryRecordAreFoundAtOnce) {
  LogText log(WholeLog());
  for (int n = 1; n <= kBoards; ++n) log[LineOf(n)].replace(104, 8, "80000000");
  const SetAudit set = OnlySet(log.Text());
  EXPECT_EQ(Told(set), EachBoard("counter beyond reach"));
  EXPECT_FALSE(set.SeedsFit);
}

TEST(DamagedLog, ACounterOfNoDigitsIsFound) {
  LogText log(WholeLog());
  log[LineOf(1)].replace(104, 8, "-0000001");
  log[LineOf(2)].replace(104, 8, "00000000");
  log[LineOf(3)].replace(104, 8, "0x000001");
  EXPECT_THAT(Told(OnlySet(log.Text())), ElementsAre("1 counter", "2 counter", "3 counter"));
}

TEST(DamagedLog, AChangedDigitOfEitherSeedIsFound) {
  for (std::size_t line = 0; line < 2; ++line) {
    for (const std::size_t column : {9U, 28U, 48U}) {
      LogText log(WholeLog());
      char& digit = log[line][column];
      digit = digit == '0' ? '1' : '0';
      const SetAudit set = OnlySet(log.Text());
      EXPECT_EQ(set.SameBoards, 0);
      EXPECT_FALSE(set.SeedsFit);
      EXPECT_FALSE(set.IsSame());
      ASSERT_TRUE(set.Seeds);
      EXPECT_EQ(set.Seeds->Line, 2U);
    }
  }
}

TEST(DamagedLog, SeedsThatAreGoneAreTold) {
  LogText log(WholeLog());
  log.Remove(1);
  const SetAudit set = OnlySet(log.Text());
  EXPECT_FALSE(set.Seeds);
  EXPECT_EQ(Told(set), EachBoard("cannot be dealt"));
  EXPECT_FALSE(set.IsSame());
}

TEST(DamagedLog, AMissingBoardIsFound) {
  for (const int board : {1, 7, kBoards}) {
    LogText log(WholeLog());
    log.Remove(LineOf(board));
    const SetAudit set = OnlySet(log.Text());
    EXPECT_THAT(Told(set), ElementsAre(std::to_string(board) + " missing"));
    EXPECT_EQ(set.SameBoards, kBoards - 1);
    EXPECT_TRUE(set.CountsAreSame());
    EXPECT_EQ(set.Fingerprint, "");
    EXPECT_FALSE(set.IsSame());
  }
}

TEST(DamagedLog, AllBoardsMissingAreFound) {
  LogText log(WholeLog());
  for (int n = 1; n <= kBoards; ++n) log.Remove(kFirstRecord);
  const SetAudit set = OnlySet(log.Text());
  EXPECT_EQ(Told(set), EachBoard("missing"));
  EXPECT_FALSE(set.IsSame());
}

TEST(DamagedLog, ADoubledBoardIsFound) {
  for (const int board : {1, 7, kBoards}) {
    for (const std::size_t to : {LineOf(board), LineOf(kBoards) + 1}) {
      LogText log(WholeLog());
      log.Insert(to, log[LineOf(board)]);
      const SetAudit set = OnlySet(log.Text());
      EXPECT_THAT(Told(set), ElementsAre(std::to_string(board) + " twice"));
      EXPECT_EQ(set.SameBoards, kBoards);
      EXPECT_EQ(set.Fingerprint, "");
      EXPECT_FALSE(set.IsSame());
    }
  }
}

TEST(DamagedLog, ASecondRecordOfABoardIsFoundEvenIfItIsTheRightOne) {
  LogText log(WholeLog());
  std::string changed = log[LineOf(5)];
  std::swap(changed[9], changed[26]);
  log.Insert(LineOf(5), changed);
  const SetAudit set = OnlySet(log.Text());
  EXPECT_THAT(Told(set), ElementsAre("5 twice", "5 hands"));
  EXPECT_FALSE(set.IsSame());
}

TEST(DamagedLog, TwoBoardsThatChangedNumbersAreFound) {
  LogText log(WholeLog());
  std::swap(log[LineOf(3)][5], log[LineOf(8)][5]);
  log.Swap(LineOf(3), LineOf(8));
  EXPECT_THAT(Told(OnlySet(log.Text())),
              ElementsAre("3 hands number counter", "8 hands number counter"));
}

TEST(DamagedLog, TwoRecordsThatChangedPlacesAreFound) {
  for (const int other : {8, kBoards}) {
    LogText log(WholeLog());
    log.Swap(LineOf(3), LineOf(other));
    const SetAudit set = OnlySet(log.Text());
    EXPECT_THAT(Told(set), ElementsAre("4 out of order", std::to_string(other) + " out of order"));
    EXPECT_FALSE(set.IsSame());
  }
}

TEST(DamagedLog, ABoardOutsideTheRangeIsFound) {
  LogText log(WholeLog());
  for (const char* number : {"013", "000", "999"}) {
    std::string record = log[LineOf(1)];
    record.replace(3, 3, number);
    log.Insert(LineOf(kBoards) + 1, record);
  }
  const SetAudit set = OnlySet(log.Text());
  EXPECT_THAT(Told(set), ElementsAre("0 not in range", "13 not in range", "999 not in range"));
  EXPECT_EQ(set.SameBoards, kBoards);
  EXPECT_FALSE(set.IsSame());
}

TEST(DamagedLog, ARemovedGenerateLineIsFound) {
  LogText log(WholeLog());
  log.Remove(kGenerate);
  const Audited audited = Audit(log.Text());
  ASSERT_EQ(audited.Sets.size(), 1U);
  EXPECT_EQ(audited.Sets[0].Is, SetAudit::kNoGenerateLine);
  EXPECT_EQ(audited.Sets[0].Records, kBoards);
  EXPECT_EQ(audited.Checked, 1);
  EXPECT_EQ(audited.Same, 0);
  EXPECT_THAT(audited.UnusedSeeds, ElementsAre(2U));
}

TEST(DamagedLog, ADamagedGenerateLineIsFound) {
  LogText log(WholeLog());
  log[kGenerate] = "  Generate: 1,12";
  const Audited audited = Audit(log.Text());
  ASSERT_EQ(audited.Sets.size(), 1U);
  EXPECT_EQ(audited.Sets[0].Is, SetAudit::kDamagedLine);
  EXPECT_EQ(audited.Same, 0);
  EXPECT_EQ(audited.Checked, 1);
}

TEST(DamagedLog, ADoubledGenerateLineIsFound) {
  LogText log(WholeLog());
  log.Insert(kGenerate, log[kGenerate]);
  const Audited audited = Audit(log.Text());
  EXPECT_EQ(audited.Checked, 2);
  EXPECT_EQ(audited.Same, 1);
}

TEST(DamagedLog, ATailCutOffTogetherWithItsRangeIsToldByTheFingerprintAlone) {
  LogText log(WholeLog());
  const std::string whole = OnlySet(log.Text()).Fingerprint;
  log[kGenerate].replace(0, 16, "  Generate: 1,11");
  std::string text = log.Text();
  text.erase(text.find("   012 : "), 114);
  const SetAudit cut = OnlySet(text);
  EXPECT_THAT(Told(cut), IsEmpty());
  EXPECT_NE(cut.Fingerprint, whole);
}

TEST(DamagedLog, ARangeThatTheRecordsDoNotHaveIsFound) {
  LogText log(WholeLog());
  log[kGenerate].replace(0, 16, "  Generate: 1,13");
  EXPECT_THAT(Told(OnlySet(log.Text())), ElementsAre("13 missing"));
  log[kGenerate].replace(0, 16, "  Generate: 1,11");
  EXPECT_THAT(Told(OnlySet(log.Text())), ElementsAre("12 not in range"));
  // The shape test depends on the number of the board, so that what follows may differ.
  log[kGenerate].replace(0, 16, "  Generate: 2,12");
  EXPECT_FALSE(OnlySet(log.Text()).IsSame());
}

TEST(DamagedLog, AnotherCountOfRejectedDealsIsFound) {
  const SetAudit whole = OnlySet(WholeLog());
  for (int which = 0; which < 3; ++which) {
    auto line = whole.What;
    auto& rejected = line.Dealt->Rejected;
    ++(which == 0 ? rejected.Shape : which == 1 ? rejected.Inner : rejected.History);
    LogText log(WholeLog());
    log[kGenerate] = line.Text();
    const SetAudit set = OnlySet(log.Text());
    EXPECT_THAT(Told(set), IsEmpty());
    EXPECT_EQ(set.Rejected, whole.Rejected);
    EXPECT_FALSE(set.CountsAreSame());
    EXPECT_FALSE(set.IsSame());
  }
}

TEST(DamagedLog, AShapeTestThatWasSwitchedOffAfterwardsIsFound) {
  auto line = OnlySet(WholeLog()).What;
  line.Dealt->On.Shape = false;
  LogText log(WholeLog());
  log[kGenerate] = line.Text();
  const SetAudit set = OnlySet(log.Text());
  EXPECT_LT(set.SameBoards, kBoards);
  EXPECT_FALSE(set.IsSame());
}

TEST(DamagedLog, EveryChangedByteIsFound) {
  // Two switches make no difference here: no deal is nearly like another, and nothing is known of
  // the history.
  const std::string whole = SmallLog();
  const std::size_t switches = whole.find(" : 1,1,1") + 3;
  for (std::size_t at = 0; at < whole.size(); ++at) {
    if (at == switches + 2 || at == switches + 4) continue;
    // The last line needs no line end, and LF ends a line by itself.
    if (whole[at] == '\r' || at + 1 == whole.size()) continue;
    for (const int change : {1, -1, 0x80}) {
      std::string text = whole;
      text[at] = static_cast<char>(text[at] + change);
      const Audited audited = Audit(text);
      ASSERT_EQ(audited.Same, 0) << at << ": " << change;
      ASSERT_GT(audited.Checked, 0) << at << ": " << change;
    }
  }
}

TEST(DamagedLog, EveryMissingByteIsFound) {
  const std::string whole = SmallLog();
  for (std::size_t at = 0; at < whole.size(); ++at) {
    if (whole[at] == '\r' || at + 1 == whole.size()) continue;
    std::string text = whole;
    text.erase(at, 1);
    ASSERT_EQ(Audit(text).Same, 0) << at;
  }
}

TEST(DamagedLog, ALogThatBreaksOffIsFound) {
  const std::string whole = SmallLog();
  for (std::size_t size = 0; size + 2 < whole.size(); ++size) {
    ASSERT_EQ(Audit(std::string_view(whole).substr(0, size)).Same, 0) << size;
  }
}

}  // namespace
}  // namespace morvane::audit
