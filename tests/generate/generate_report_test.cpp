#include "generate/generate_report.h"

#include "generate/fingerprint.h"
#include "generate/generate_desk.h"

namespace morvane::generate {
namespace {

TEST(GenerateReport, TellsWhatWasRejectedWhatIsMostAlikeAndTheFingerprint) {
  GenerateDesk desk;
  ASSERT_EQ(desk.RunSeeded(5, 8, kNoTests).End, GenerateEnd::kDone);
  GenerateResult result;
  result.ShpRejects = RejectCounter{2, CounterColour::kGreen};
  result.InnRejects = RejectCounter{1, CounterColour::kRed};
  result.HisRejects = RejectCounter{0, CounterColour::kGreen};
  result.InnSim = "9, 7N:5E";
  result.OuSim = "8, 6S:12W";
  result.OuDeals = "Friday";
  EXPECT_EQ(ReportOf(desk.Prog, Plain("5", "8"), result, true),
            "Boards 5 to 8 generated: 4\n"
            "Shapes rejected: 2\n"
            "Inner similarity rejected: 1, most alike: 9, 7N:5E\n"
            "History rejected: 0, most alike: 8, 6S:12W of Friday\n"
            "SHA-256: " +
                SetFingerprint(desk.Prog.Set) + "\n");
}

TEST(GenerateReport, SaysNothingOfTestsThatWereOffAndOfPairsThatAreNot) {
  GenerateDesk desk;
  GenerateResult result = desk.RunSeeded(1, 1, kUsualTests);
  EXPECT_EQ(ReportOf(desk.Prog, Plain("1", "1"), result, true),
            "Boards 1 to 1 generated: 1\nInner similarity rejected: 0\nHistory rejected: 0\n"
            "SHA-256: " +
                SetFingerprint(desk.Prog.Set) + "\n");
}

TEST(GenerateReport, AHistoryThatIsOffHasRejectedNothingBecauseNothingWasCompared) {
  GenerateDesk desk;
  GenerateResult result = desk.RunSeeded(1, 1, {.History = true});
  const std::string sha = "SHA-256: " + SetFingerprint(desk.Prog.Set) + "\n";
  EXPECT_EQ(
      ReportOf(desk.Prog, Plain("1", "1"), result, false),
      "Boards 1 to 1 generated: 1\nThe history is off: nothing was compared with it.\n" + sha);
  result.HisRejects.reset();
  EXPECT_EQ(ReportOf(desk.Prog, Plain("1", "1"), result, false),
            "Boards 1 to 1 generated: 1\n" + sha)
      << "the test was not asked for";
}

TEST(GenerateReport, KeepsTheFingerprintBackWhereTheLogIsOff) {
  GenerateDesk desk;
  const GenerateResult result = desk.RunSeeded(1, 4, kNoTests);
  RuntimeError noFolder;
  ASSERT_FALSE(desk.Prog.Log.Start("", noFolder));
  EXPECT_EQ(ReportOf(desk.Prog, Plain("1", "4"), result, true),
            "Boards 1 to 4 generated: 4\n"
            "This set is not on record: do not publish its SHA-256.\n");
}

TEST(GenerateReport, TheSignsTellGreenFromRed) {
  EXPECT_EQ(SignOf({0, CounterColour::kGreen}), "\xE2\x9C\x93 good");
  EXPECT_EQ(SignOf({6, CounterColour::kRed}), "\xE2\x96\xB2 too many");
}

}  // namespace
}  // namespace morvane::generate
