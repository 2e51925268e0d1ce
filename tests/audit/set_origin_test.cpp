#include "audit/set_origin.h"

#include "audit/audit_desk.h"

namespace morvane::audit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kStart = "Start 2026-03-03 9:00:00 AM";
const std::string kNew = " File-New: 3:04:05 PM";
const std::string kSave = " File-Save: 3:04:06: PM";

/// The log of one set, its records among lines that stand before and behind it.
std::string LogWith(const std::vector<std::string>& before,
                    const std::vector<std::string>& behind) {
  AuditDesk desk;
  EXPECT_EQ(desk.Make(1, 3), generate::GenerateEnd::kDone);
  std::string text;
  for (const std::string& line : before) text += line + "\r\n";
  text += desk.Log();
  for (const std::string& line : behind) text += line + "\r\n";
  return text;
}

SetOrigin OriginWith(const std::vector<std::string>& before,
                     const std::vector<std::string>& behind = {}) {
  const SetAudit set = OnlySet(LogWith(before, behind));
  EXPECT_TRUE(set.IsSame());
  return set.Origin;
}

/// The files of the set, with a "!" before those that failed.
std::vector<std::string> SavesWith(const std::vector<std::string>& behind) {
  std::vector<std::string> saves;
  for (const LoggedSave& save : OriginWith({kStart, kNew}, behind).Saves) {
    saves.push_back((save.Failed ? "!" : "") + save.Path);
  }
  return saves;
}

TEST(SetOrigin, IsTheLastStartAndTheLastNewBehindIt) {
  const SetOrigin origin =
      OriginWith({"Start 2026-03-01 9:00:00 AM", " File-New: 9:30:00 AM", " File-New: 10:00:00 AM",
                  kStart, " File-New: 1:02:03 PM", "   Start up parameters: 1,2", kNew});
  EXPECT_EQ(origin.Started, "2026-03-03 9:00:00 AM");
  EXPECT_EQ(origin.New, "3:04:05 PM");
  EXPECT_EQ(OriginWith({kNew, "Start 2026-12-31 12:00:00 PM"}).New, "");
  EXPECT_EQ(OriginWith({kNew, "Start 2026-12-31 12:00:00 PM"}).Started, "2026-12-31 12:00:00 PM");
}

TEST(SetOrigin, WithoutTheLinesItIsUnknown) {
  const SetOrigin origin = OriginWith({});
  EXPECT_EQ(origin.Started + origin.New, "");
  EXPECT_THAT(origin.Saves, IsEmpty());
}

TEST(SetOrigin, ADamagedTimeIsNone) {
  for (const char* time : {"", "3:04:05 XM", "3:04:05 PM ", "3:4:05 PM", "123:04:05 PM", "3:04:05",
                           "\x1B[2J 3:04:05 PM"}) {
    EXPECT_EQ(OriginWith({std::string(" File-New: ") + time}).New, "") << time;
    EXPECT_EQ(OriginWith({std::string("Start 2026-03-03 ") + time}).Started, "") << time;
  }
  EXPECT_EQ(OriginWith({"Start 2026-3-3 3:04:05 PM"}).Started, "");
  EXPECT_EQ(OriginWith({kStart, "Start damaged"}).Started, "") << "not the one before";
}

TEST(SetOrigin, HasTheFilesOfItsSaves) {
  EXPECT_THAT(SavesWith({}), IsEmpty());
  EXPECT_THAT(SavesWith({kSave, "  Save: /sets/evening of May.pbn"}),
              ElementsAre("/sets/evening of May.pbn"));
  EXPECT_THAT(SavesWith({kSave, "  Save: /a.pbn", " Deal: 3:05:00 PM", " File-Save: 3:06:06: PM",
                         "  Save: /b.bri"}),
              ElementsAre("/a.pbn", "/b.bri"));
}

TEST(SetOrigin, AnErrorBehindASaveIsThatOnes) {
  EXPECT_THAT(SavesWith({kSave, "  Save: /a.pbn", "    Save Error: full", kSave, "  Save: /b.pbn"}),
              ElementsAre("!/a.pbn", "/b.pbn"));
  EXPECT_THAT(SavesWith({kSave, "    Save Error: Board Set does not exist"}), IsEmpty());
}

TEST(SetOrigin, OfTheSavesInAMadLogTheFirstFewAreKept) {
  EXPECT_EQ(SavesWith(std::vector<std::string>(1000, kSave)).size(), 0U);
  std::vector<std::string> lines(1000, "  Save: /a.pbn");
  lines.front() = kSave;
  EXPECT_EQ(SavesWith(lines).size(), 100U);
}

TEST(SetOrigin, BehindAnotherSetOrProgramNoSaveIsItsOwn) {
  for (const std::string& line :
       {kStart, kNew, std::string(" Exit: 3:04:06 PM"), std::string(" File-Load: 3:04:06 PM"),
        std::string(" File-Import: 3:04:06 PM"), std::string("  Generate: 1,2")}) {
    const auto sets = Audit(LogWith({kStart, kNew}, {line, kSave, "  Save: /other.pbn"})).Sets;
    ASSERT_FALSE(sets.empty());
    EXPECT_THAT(sets.front().Origin.Saves, IsEmpty()) << line;
  }
}

TEST(SetOrigin, OfSeveralSetsEachHasItsOwn) {
  const std::string twice = LogWith({kStart, kNew}, {kSave, "  Save: /a.pbn"}) +
                            LogWith({" File-New: 3:10:00 PM"}, {kSave, "  Save: /b.pbn"});
  const auto sets = Audit(twice).Sets;
  ASSERT_EQ(sets.size(), 2U);
  EXPECT_EQ(sets[0].Origin.New, "3:04:05 PM");
  EXPECT_EQ(sets[0].Origin.Saves.at(0).Path, "/a.pbn");
  EXPECT_EQ(sets[1].Origin.New, "3:10:00 PM");
  EXPECT_EQ(sets[1].Origin.Saves.at(0).Path, "/b.pbn");
  EXPECT_EQ(sets[0].Origin.Saves.size() + sets[1].Origin.Saves.size(), 2U);
}

}  // namespace
}  // namespace morvane::audit
