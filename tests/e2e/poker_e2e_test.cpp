#include <csignal>

#include "e2e/e2e_fixture.h"

// The poker commands as processes. Each run on the machine costs two seconds before the first
// contact.

namespace morvane::e2e {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class PokerEndToEnd : public EndToEnd {
 protected:
  Outcome OnMachine(const std::string& machine, std::vector<std::string> words) {
    words.insert(words.begin(), {"--machine", machine});
    return Run(words);
  }
};

TEST_F(PokerEndToEnd, AnOrderIsMadeAndStackedInFourRunsADeal) {
  const Outcome made = Run({"poker", "new", "evening.pkr", "--deals", "3"});
  EXPECT_EQ(made.Status, 0);
  EXPECT_EQ(made.Out, "Deals: 3\n");
  const Outcome dealt = OnMachine("simulated,speed=0", {"poker", "deal", "evening.pkr", "--auto"});
  EXPECT_EQ(dealt.Status, 0);
  EXPECT_EQ(dealt.Err, "Poker Dealing: All Deals was successfully dealt\n");
  EXPECT_THAT(dealt.Out, StartsWith("Machine: simulated\nDeal 1, run 1  "));
  EXPECT_THAT(dealt.Out, EndsWith("   stacked right\n3 of 3 deals stacked.\n"));
  EXPECT_EQ(CountLines("  Poker: Deal ", " OK"), 12);
}

TEST_F(PokerEndToEnd, PilesThatAreCarriedWrongAreFoundByTheMachine) {
  ASSERT_EQ(Run({"poker", "new", "evening.pkr", "--deals", "1"}).Status, 0);
  const Outcome dealt = OnMachine("simulated,speed=0,carry=swapped",
                                  {"--yes", "poker", "deal", "evening.pkr", "--auto"});
  EXPECT_EQ(dealt.Status, 1);
  EXPECT_THAT(dealt.Err, HasSubstr("Incorrect Card Order"));
  EXPECT_THAT(dealt.Out, EndsWith("0 of 1 deals stacked.\n"));
  EXPECT_EQ(CountLines("  Poker: Deal 1, run 2 62"), 1);
}

TEST_F(PokerEndToEnd, PacksAreReadIntoAnOrderOfTheirOwn) {
  const Outcome read =
      OnMachine("simulated,speed=0", {"poker", "read", "read.pkr", "--deals", "2", "--auto"});
  EXPECT_EQ(read.Status, 0);
  EXPECT_THAT(read.Out, HasSubstr("2 of 2 deals read, saved in "));
  const Outcome shown = Run({"poker", "show", "read.pkr", "--deal", "2"});
  EXPECT_EQ(shown.Status, 0);
  EXPECT_THAT(shown.Out, HasSubstr("      Deal  :2 "));
}

TEST_F(PokerEndToEnd, AnInterruptBreaksTheRunAndEndsSoonAlsoUnderYes) {
  ASSERT_EQ(Run({"poker", "new", "evening.pkr"}).Status, 0);
  Process process(
      Whole({"--machine", "simulated,speed=1", "--yes", "poker", "deal", "evening.pkr", "--auto"}),
      Around());
  ASSERT_TRUE(process.Until([&] { return CountLines("  S/N:") == 1; }));
  process.Signal(SIGINT);
  const Outcome outcome = process.Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
}

}  // namespace
}  // namespace morvane::e2e
