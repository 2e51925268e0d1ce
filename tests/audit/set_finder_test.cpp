#include "audit/set_finder.h"

#include "audit/audit_desk.h"

namespace morvane::audit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Notes what is found, a word or two each: "seeds 2", "shuffling", "dealt 3: 4 5" with the line
/// and the lines of the records.
class Notes final : public SetListener {
 public:
  void OnNumberSeeds(LoggedSeeds seeds) override {
    All.push_back("seeds " + std::to_string(seeds.Line));
    Seeds.push_back(std::move(seeds));
  }
  void OnShufflingSeed() override { All.emplace_back("shuffling"); }
  void OnSet(const LoggedSet& set) override {
    static const std::array<const char*, 4> kinds{"dealt", "empty", "damaged", "none"};
    std::string note = std::string(kinds[set.Is]) + " " + std::to_string(set.Line) + ":";
    for (const LoggedRecord& record : set.Records) note += " " + std::to_string(record.Line);
    if (set.OtherRecords > 0) note += " and " + std::to_string(set.OtherRecords);
    All.push_back(note);
    Sets.push_back(set);
  }
  std::vector<std::string> All;
  std::vector<LoggedSeeds> Seeds;
  std::vector<LoggedSet> Sets;
};

Notes ReadText(std::string_view text) {
  Notes notes;
  SetFinder finder(notes);
  finder.Add(text);
  finder.End();
  return notes;
}

Notes Read(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return ReadText(text);
}

const std::string kHands = "AT62.J73.Q84.K95 K95.AT62.J73.Q84 Q84.K95.AT62.J73 J73.Q84.K95.AT62 ";

/// The record of a board whose deal has the number and counter `mark`, a digit.
std::string Record(const std::string& number, char mark = '1') {
  return "   " + number + " : " + kHands + " " + std::string(24, mark) + "  " +
         std::string(8, mark);
}

const std::string kTwo = "  Generate: 1,2 : 0,0,0 : 0,0,0";
const std::string kFortyA(40, 'A');
const std::string kForty7(40, '7');

TEST(ParseRecord, TakesNumberHandsAndIdentity) {
  const auto record = ParseRecord(Record("045", '7'));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->Number, 45);
  EXPECT_EQ(record->Hands(), kHands);
  EXPECT_EQ(record->DealNumber(), std::string(24, '7'));
  EXPECT_EQ(record->DealCounter(), std::string(8, '7'));
}

TEST(ParseRecord, TakesWhateverStandsInPlaceOfCardsAndDigits) {
  std::string line = Record("001");
  line[9] = '\0';
  line[80] = 'x';
  line[111] = '\xFF';
  EXPECT_TRUE(ParseRecord(line));
}

TEST(ParseRecord, EachColumnOfItsFormMustBeRight) {
  // Blanks and the colon around number, hands and identity; columns from 0.
  for (const std::size_t column : {0U, 1U, 2U, 6U, 7U, 8U, 25U, 42U, 59U, 76U, 77U, 102U, 103U}) {
    std::string line = Record("001");
    line[column] = '.';
    EXPECT_FALSE(ParseRecord(line)) << column;
  }
  for (const std::size_t column : {3U, 4U, 5U}) {
    for (const char c : {' ', ':', '/'}) {
      std::string line = Record("001");
      line[column] = c;
      EXPECT_FALSE(ParseRecord(line)) << column;
    }
  }
}

TEST(ParseRecord, AnyOtherLengthIsNone) {
  const std::string line = Record("001");
  EXPECT_FALSE(ParseRecord(line.substr(0, 111)));
  EXPECT_FALSE(ParseRecord(line + " "));
  EXPECT_FALSE(ParseRecord(line.substr(0, 77)));
  EXPECT_FALSE(ParseRecord(""));
}

TEST(SetFinder, FindsSeedsAndTheSetBehindThem) {
  const Notes notes =
      Read({"  New random bits collected: 56", "  Seedm: 00", "  Seedr: " + kFortyA,
            "  Seedo: " + kForty7, kTwo, Record("001"), Record("002"), " File-Save: 3:04:05: PM"});
  EXPECT_THAT(notes.All, ElementsAre("seeds 4", "dealt 5: 6 7"));
  EXPECT_EQ(notes.Seeds[0].Seedr, kFortyA);
  EXPECT_EQ(notes.Seeds[0].Seedo, kForty7);
  EXPECT_EQ(notes.Sets[0].What.Last, 2);
  EXPECT_EQ(notes.Sets[0].Records[1].Number, 2);
}

TEST(SetFinder, FindsNothingInNothing) { EXPECT_THAT(ReadText("").All, IsEmpty()); }

TEST(SetFinder, LinesMayEndWithLfAlone) {
  EXPECT_THAT(ReadText(kTwo + "\n" + Record("001") + "\n").All, ElementsAre("dealt 1: 2"));
}

TEST(SetFinder, TheLastLineNeedsNoEnd) {
  EXPECT_THAT(ReadText(kTwo + "\r\n" + Record("001")).All, ElementsAre("dealt 1: 2"));
}

TEST(SetFinder, TheSizeOfTheBlocksDoesNotMatter) {
  AuditDesk desk;
  desk.Make(1, 3);
  desk.Shuffle(4, 5);
  desk.LeaveEmpty(6, 7);
  const std::string text = "\n\r\n" + desk.Log() + std::string(5000, 'x') + "\r\n" + kTwo;
  const Notes whole = ReadText(text);
  ASSERT_EQ(whole.Sets.size(), 4U);
  for (std::size_t size = 1; size < 300; ++size) {
    Notes notes;
    SetFinder finder(notes);
    for (std::size_t at = 0; at < text.size(); at += size) {
      finder.Add(std::string_view(text).substr(at, size));
    }
    finder.End();
    ASSERT_EQ(notes.All, whole.All) << size;
    ASSERT_EQ(notes.Sets[0].Records[2].Text, whole.Sets[0].Records[2].Text) << size;
  }
}

TEST(SetFinder, ALineWithoutEndIsOneLineWhateverItsLength) {
  Notes notes;
  SetFinder finder(notes);
  for (int i = 0; i < 100; ++i) finder.Add(std::string(1000, ' '));
  finder.Add(kTwo + "\r\n" + kTwo + "\r\n");
  finder.End();
  EXPECT_THAT(notes.All, ElementsAre("dealt 2:"));
}

TEST(SetFinder, ASeedWithoutItsOtherHalfIsNone) {
  const std::string r = "  Seedr: " + kFortyA;
  const std::string o = "  Seedo: " + kForty7;
  EXPECT_THAT(Read({r}).All, IsEmpty());
  EXPECT_THAT(Read({o}).All, IsEmpty());
  EXPECT_THAT(Read({o, r}).All, IsEmpty());
  EXPECT_THAT(Read({r, o, o}).All, ElementsAre("seeds 2"));
  // A source that failed leaves its first half behind.
  EXPECT_THAT(
      Read({"  Seedr: " + std::string(40, '0'), "    Generate New Board Set: Error", r, o}).All,
      ElementsAre("seeds 4"));
}

TEST(SetFinder, OtherLinesMayStandBetweenTheHalvesOfASeed) {
  EXPECT_THAT(Read({"  Seedr: " + kFortyA, " Edit: 3:04:05 PM", "  Seedo: " + kForty7}).All,
              ElementsAre("seeds 3"));
}

TEST(SetFinder, ASeedThatIsNotFortyDigitsIsNone) {
  for (const std::string& bad :
       {kFortyA + "A", kFortyA.substr(1), kFortyA.substr(1) + "G", kFortyA + " ", std::string()}) {
    EXPECT_THAT(Read({"  Seedr: " + bad, "  Seedo: " + kForty7}).All, IsEmpty()) << bad;
    EXPECT_THAT(Read({"  Seedr: " + kForty7, "  Seedo: " + bad}).All, IsEmpty()) << bad;
  }
}

TEST(SetFinder, ADamagedSeedrIsNotReplacedByAnOlderOne) {
  EXPECT_THAT(Read({"  Seedr: " + kFortyA, "  Seedr: damaged", "  Seedo: " + kForty7}).All,
              IsEmpty());
}

TEST(SetFinder, AnEmptySetHasTheRangeAlone) {
  const Notes notes = Read({"  Generate: 5,20"});
  EXPECT_THAT(notes.All, ElementsAre("empty 1:"));
  EXPECT_EQ(notes.Sets[0].What.First, 5);
}

TEST(SetFinder, AnEmptySetWithRecordsHasADamagedLine) {
  EXPECT_THAT(Read({"  Generate: 1,2", Record("001"), Record("002")}).All,
              ElementsAre("damaged 1: and 2"));
}

TEST(SetFinder, AGenerateLineThatCannotBeReadKeepsItsRecordsTogether) {
  EXPECT_THAT(Read({"  Generate: 1,x : 0,0,0 : 0,0,0", Record("001"), Record("002")}).All,
              ElementsAre("damaged 1: and 2"));
}

TEST(SetFinder, RecordsWithoutAGenerateLineAreToldTogether) {
  EXPECT_THAT(Read({"  Seedo: " + kForty7, Record("001"), Record("002"), " Exit: 3:04:05 PM"}).All,
              ElementsAre("none 2: and 2"));
}

TEST(SetFinder, TheShortFormIsNoRecordOfASet) {
  const std::string loaded = "   001 : " + kHands;
  EXPECT_THAT(Read({" File-Load: 3:04:05 PM", "  Load: a.pbn", loaded}).All, IsEmpty());
  EXPECT_THAT(Read({kTwo, Record("001"), loaded, Record("002")}).All, ElementsAre("dealt 1: 2 4"));
}

TEST(SetFinder, EachLineThatBeginsSomethingElseEndsTheSet) {
  for (const char* other :
       {"---", "Start 2026-03-03 3:04:05 PM", "History records: 0", " Exit: 3:04:05 PM",
        " File-New: 3:04:05 PM", "  New random bits collected: 16", "  Seedm: 00", "  Seedr: 00",
        "  Seedo: 00"}) {
    EXPECT_THAT(Read({kTwo, Record("001"), other, Record("002")}).All,
                ElementsAre("dealt 1: 2", "none 4: and 1"))
        << other;
  }
  EXPECT_THAT(Read({kTwo, Record("001"), "  Seed: 1 2 3 4", Record("002")}).All,
              ElementsAre("dealt 1: 2", "shuffling", "none 4: and 1"));
  EXPECT_THAT(Read({kTwo, Record("001"), kTwo, Record("002")}).All,
              ElementsAre("dealt 1: 2", "dealt 3: 4"));
}

TEST(SetFinder, ADamagedLineDoesNotEndTheSet) {
  std::string cut = Record("001");
  for (const std::string& damaged :
       {std::string(), "x" + cut.substr(1), cut.substr(0, 60),
        std::string("    Load Error: damaged"), std::string(112, 'x'), "  001 : OK  " + kHands,
        "   " + std::string(3, '\0') + " : "}) {
    EXPECT_THAT(Read({kTwo, damaged, Record("002")}).All, ElementsAre("dealt 1: 3"));
  }
}

TEST(SetFinder, BehindAWholeSetOtherRecordsAreOfAnotherSet) {
  EXPECT_THAT(
      Read({kTwo, Record("001"), Record("002"), Record("001", '2'), Record("002", '2')}).All,
      ElementsAre("dealt 1: 2 3", "none 4: and 2"));
}

TEST(SetFinder, BehindAWholeSetARepeatedBoardAndOneBeyondTheRangeAreItsOwn) {
  EXPECT_THAT(Read({kTwo, Record("001"), Record("002"), Record("001"), Record("003")}).All,
              ElementsAre("dealt 1: 2 3 4 5"));
}

TEST(SetFinder, RecordsWithoutEndAreNotKept) {
  std::string text = kTwo + "\n";
  for (int i = 0; i < 5000; ++i) text += Record("001") + "\n";
  const Notes notes = ReadText(text);
  ASSERT_EQ(notes.Sets.size(), 2U);
  EXPECT_EQ(notes.Sets[0].Records.size(), 1280U);
  EXPECT_EQ(notes.Sets[1].OtherRecords, 5000 - 1280);
}

}  // namespace
}  // namespace morvane::audit
