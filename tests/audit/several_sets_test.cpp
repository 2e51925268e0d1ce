#include "audit/audit_desk.h"

// Logs of many runs, and of programs that run beside each other.

namespace morvane::audit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kOtherSeedr = "F" + kSeedr.substr(1);

/// The lines of a set's seeds, and those of the set.
struct Blocks {
  std::string Seeds;
  std::string Set;
};

Blocks BlocksOf(int first, int last, const std::string& seedr) {
  AuditDesk desk;
  EXPECT_EQ(desk.Make(first, last, {}, seedr), generate::GenerateEnd::kDone);
  const std::string log = desk.Log();
  const std::size_t at = log.find("  Generate: ");
  return {log.substr(0, at), log.substr(at)};
}

const std::string kLoad =
    " File-Load: 3:04:05 PM\r\n  Load: a.pbn\r\n"
    "   001 : AT62.J73.Q84.K95 K95.AT62.J73.Q84 Q84.K95.AT62.J73 J73.Q84.K95.AT62 \r\n";

TEST(SeveralSets, OneBehindTheOtherAreAllFound) {
  AuditDesk desk;
  desk.Prog.Log.WriteLine("---");
  desk.Make(1, 8);
  desk.Prog.Log.WriteTime(" Deal: ");
  desk.Prog.Log.WriteLine("  001 :  OK  AT62.J73.Q84.K95 K95.AT62.J73.Q84");
  desk.Shuffle(9, 12);
  desk.LeaveEmpty(1, 4);
  desk.Make(13, 20, {true, true, true}, kOtherSeedr);
  const Audited audited = Audit(kLoad + desk.Log() + kLoad);
  ASSERT_EQ(audited.Sets.size(), 4U);
  EXPECT_TRUE(audited.Sets[0].IsSame());
  EXPECT_EQ(audited.Sets[1].Is, SetAudit::kShuffling);
  EXPECT_EQ(audited.Sets[2].Is, SetAudit::kEmpty);
  EXPECT_TRUE(audited.Sets[3].IsSame());
  EXPECT_EQ(audited.Checked, 2);
  EXPECT_EQ(audited.Same, 2);
}

TEST(SeveralSets, ADamagedOneDoesNotSpoilTheOthers) {
  const Blocks a = BlocksOf(1, 8, kSeedr);
  const Blocks b = BlocksOf(1, 8, kOtherSeedr);
  LogText damaged(a.Set);
  damaged.Remove(4);
  damaged[5][12] = 'x';
  const Audited audited = Audit(a.Seeds + damaged.Text() + b.Seeds + b.Set);
  ASSERT_EQ(audited.Sets.size(), 2U);
  EXPECT_FALSE(audited.Sets[0].IsSame());
  EXPECT_TRUE(audited.Sets[1].IsSame());
}

TEST(SeveralSets, ASetOfAnotherProcessMayStandBetweenSeedsAndSet) {
  const Blocks a = BlocksOf(1, 8, kSeedr);
  const Blocks b = BlocksOf(1, 8, kOtherSeedr);
  for (const std::string& text :
       {a.Seeds + b.Seeds + a.Set + b.Set, a.Seeds + b.Seeds + b.Set + a.Set,
        a.Seeds + kLoad + b.Seeds + b.Set + kLoad + a.Set}) {
    const Audited audited = Audit(text);
    EXPECT_EQ(audited.Checked, 2);
    EXPECT_EQ(audited.Same, 2);
    EXPECT_THAT(audited.UnusedSeeds, IsEmpty());
  }
}

TEST(SeveralSets, TheSeedsOfASetAreToldByMostOfItsBoards) {
  const Blocks a = BlocksOf(1, 8, kSeedr);
  const Blocks b = BlocksOf(1, 8, kOtherSeedr);
  LogText set(a.Set);
  LogText other(b.Set);
  set[1] = other[1];
  const Audited audited = Audit(a.Seeds + b.Seeds + set.Text() + b.Set);
  ASSERT_EQ(audited.Sets.size(), 2U);
  EXPECT_EQ(audited.Sets[0].Seeds->Seedr, kSeedr);
  // The counter of a first deal is likely the same under any seeds.
  EXPECT_EQ(audited.Sets[0].Findings.size(), 1U);
  EXPECT_TRUE(audited.Sets[0].Findings[0].Hands);
  EXPECT_TRUE(audited.Sets[0].Findings[0].DealNumber);
  EXPECT_EQ(audited.Sets[0].SameBoards, 7);
  EXPECT_TRUE(audited.Sets[1].IsSame());
}

TEST(SeveralSets, BoardsFromAnotherSetAreFound) {
  const Blocks a = BlocksOf(1, 8, kSeedr);
  const Blocks b = BlocksOf(1, 8, kOtherSeedr);
  LogText set(b.Set);
  LogText other(a.Set);
  set[5] = other[5];
  set[6] = other[6];
  const Audited audited = Audit(a.Seeds + a.Set + b.Seeds + set.Text());
  ASSERT_EQ(audited.Sets.size(), 2U);
  EXPECT_TRUE(audited.Sets[0].IsSame());
  ASSERT_EQ(audited.Sets[1].Findings.size(), 2U);
  EXPECT_EQ(audited.Sets[1].Findings[0].Number, 5);
  EXPECT_EQ(audited.Sets[1].Findings[1].Number, 6);
  EXPECT_TRUE(audited.Sets[1].Findings[0].Hands);
}

TEST(SeveralSets, AWholeSetInPlaceOfAnotherIsFoundBecauseSeedsMakeOneSet) {
  const Blocks a = BlocksOf(1, 8, kSeedr);
  const Blocks b = BlocksOf(1, 8, kOtherSeedr);
  const Audited audited = Audit(a.Seeds + a.Set + b.Seeds + a.Set);
  ASSERT_EQ(audited.Sets.size(), 2U);
  EXPECT_TRUE(audited.Sets[0].IsSame());
  EXPECT_FALSE(audited.Sets[1].IsSame());
  EXPECT_FALSE(audited.Sets[1].SeedsFit);
  EXPECT_EQ(audited.Sets[1].SameBoards, 0);
  EXPECT_THAT(audited.UnusedSeeds, ElementsAre(12U + 1U));
}

TEST(SeveralSets, ASetMadeAgainFromItsSeedsHasThemInTheLogAgain) {
  const Blocks a = BlocksOf(1, 8, kSeedr);
  EXPECT_EQ(Audit(a.Seeds + a.Set + a.Seeds + a.Set).Same, 2);
}

TEST(SeveralSets, OfTheSameSeedsTwiceTheLaterAreThoseOfTheSet) {
  const Blocks a = BlocksOf(1, 8, kSeedr);
  LogText set(a.Set);
  set[3][12] = 'x';
  for (const std::string& text : {a.Set, set.Text()}) {
    const Audited audited = Audit(a.Seeds + a.Seeds + text);
    EXPECT_EQ(audited.Sets[0].Seeds->Line, 4U);
    EXPECT_THAT(audited.UnusedSeeds, ElementsAre(2U));
  }
}

TEST(SeveralSets, ASetBeforeItsSeedsHasNone) {
  const Blocks a = BlocksOf(1, 8, kSeedr);
  const Audited audited = Audit(a.Set + a.Seeds);
  EXPECT_EQ(audited.Same, 0);
  EXPECT_THAT(audited.UnusedSeeds, ElementsAre(11U));
}

TEST(SeveralSets, ASetWhoseGenerateLineIsGoneIsNotTakenForPartOfTheOneBefore) {
  const Blocks a = BlocksOf(1, 8, kSeedr);
  const Blocks b = BlocksOf(1, 8, kOtherSeedr);
  LogText headless(b.Set);
  headless.Remove(0);
  for (const std::string& text :
       {a.Seeds + a.Set + b.Seeds + headless.Text(), b.Seeds + a.Seeds + a.Set + headless.Text()}) {
    const Audited audited = Audit(text);
    ASSERT_EQ(audited.Sets.size(), 2U);
    EXPECT_TRUE(audited.Sets[0].IsSame());
    EXPECT_EQ(audited.Sets[1].Is, SetAudit::kNoGenerateLine);
    EXPECT_EQ(audited.Sets[1].Records, 8);
    EXPECT_EQ(audited.Same, 1);
    EXPECT_EQ(audited.Checked, 2);
  }
}

TEST(SeveralSets, AShufflingSetOfAnotherProcessIsToldByItsSeed) {
  AuditDesk desk;
  desk.Shuffle(1, 4);
  const std::string log = desk.Log();
  const std::size_t at = log.find("  Generate: ");
  const Blocks a = BlocksOf(1, 8, kSeedr);
  const Audited audited = Audit(log.substr(0, at) + a.Seeds + log.substr(at) + a.Set);
  ASSERT_EQ(audited.Sets.size(), 2U);
  EXPECT_EQ(audited.Sets[0].Is, SetAudit::kShuffling);
  EXPECT_TRUE(audited.Sets[1].IsSame());
}

TEST(SeveralSets, ASeedOfTheShufflingGeneratorExcusesOneSetOnly) {
  AuditDesk desk;
  desk.Shuffle(1, 4);
  LogText log(desk.Log());
  const std::string set = log.Text().substr(log[0].size() + 2);
  const Audited audited = Audit(log.Text() + set);
  ASSERT_EQ(audited.Sets.size(), 2U);
  EXPECT_EQ(audited.Sets[0].Is, SetAudit::kShuffling);
  EXPECT_EQ(audited.Sets[1].Is, SetAudit::kNumber);
  EXPECT_EQ(audited.Same, 0);
  EXPECT_EQ(audited.Checked, 1);
}

TEST(SeveralSets, TheSeedThatIsDrawnForAnEmptySetExcusesNoOther) {
  AuditDesk desk;
  desk.Shuffle(1, 4);
  LogText log(desk.Log());
  const std::string seed = log[0] + "\r\n";
  const std::string set = log.Text().substr(seed.size());
  const Audited audited = Audit(seed + "  Generate: 1,4\r\n" + set);
  ASSERT_EQ(audited.Sets.size(), 2U);
  EXPECT_EQ(audited.Sets[0].Is, SetAudit::kEmpty);
  EXPECT_EQ(audited.Sets[1].Is, SetAudit::kNumber);
}

TEST(SeveralSets, AShufflingSetWithoutRecordsIsNoneOfTheNumberGenerator) {
  AuditDesk desk;
  desk.Shuffle(1, 4);
  const LogText log(desk.Log());
  const std::string text = desk.Log();
  EXPECT_EQ(OnlySet(text.substr(0, text.find("   001"))).Is, SetAudit::kShuffling);
}

TEST(SeveralSets, SeedsThatHaveWaitedForTooManyOthersAreGivenUp) {
  const Blocks a = BlocksOf(1, 2, kSeedr);
  const Blocks b = BlocksOf(1, 2, kOtherSeedr);
  std::string others;
  for (int i = 0; i < 31; ++i) others += b.Seeds;
  EXPECT_EQ(Audit(a.Seeds + others + a.Set).Same, 1);
  const Audited audited = Audit(a.Seeds + others + b.Seeds + a.Set);
  EXPECT_EQ(audited.Same, 0);
  EXPECT_EQ(audited.UnusedSeeds.size(), 33U);
  EXPECT_EQ(audited.UnusedSeeds.front(), 2U);
}

}  // namespace
}  // namespace morvane::audit
