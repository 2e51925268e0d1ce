#include "print/print_checks.h"

#include "support/fakes.h"

namespace morvane::print {
namespace {

/// Boards 5 to 20, each with a result.
struct CheckDesk {
  CheckDesk() {
    test::FillSet(Set, 5, 20);
    for (int n = 5; n <= 20; ++n) Set.At(n).Tricks[0] = 1;
  }
  RangeFault Check(int from, int to) {
    PrintOptions options;
    options.From = from;
    options.To = to;
    return CheckRange(Set, options);
  }
  bool Lacks(int from, int to, bool analysis = true) {
    PrintOptions options;
    options.From = from;
    options.To = to;
    options.Analysis = analysis;
    return LacksAnalysis(Set, options);
  }
  BoardSet Set;
};

TEST(PrintChecks, TheBoardsOfTheSetArePrinted) {
  CheckDesk desk;
  EXPECT_EQ(desk.Check(5, 20), RangeFault::kNone);
  EXPECT_EQ(desk.Check(20, 20), RangeFault::kNone);
  EXPECT_EQ(desk.Check(5, 5), RangeFault::kNone);
}

TEST(PrintChecks, TheFirstOneIsLookedAtFirst) {
  CheckDesk desk;
  EXPECT_EQ(desk.Check(4, 20), RangeFault::kFrom);
  EXPECT_EQ(desk.Check(21, 4), RangeFault::kFrom);
  EXPECT_EQ(desk.Check(0, 0), RangeFault::kFrom);
}

TEST(PrintChecks, TheLastOneMustBeInTheSetToo) {
  CheckDesk desk;
  EXPECT_EQ(desk.Check(5, 21), RangeFault::kTo);
  EXPECT_EQ(desk.Check(6, 4), RangeFault::kTo);
}

TEST(PrintChecks, TheOrderIsLookedAtLast) {
  CheckDesk desk;
  EXPECT_EQ(desk.Check(8, 7), RangeFault::kOrder);
}

TEST(PrintChecks, EachFaultHasItsWords) {
  const Messages texts = InitMessages();
  EXPECT_EQ(TextOf(RangeFault::kNone, texts), "");
  EXPECT_EQ(TextOf(RangeFault::kFrom, texts), texts.Msg074);
  EXPECT_EQ(TextOf(RangeFault::kTo, texts), texts.Msg075);
  EXPECT_EQ(TextOf(RangeFault::kOrder, texts), texts.Msg076);
}

TEST(PrintChecks, ABoardOfTheRangeWithoutAnyResultLacksItsTable) {
  CheckDesk desk;
  EXPECT_FALSE(desk.Lacks(5, 20));
  desk.Set.At(9).Tricks = {};
  EXPECT_TRUE(desk.Lacks(9, 9));
  EXPECT_TRUE(desk.Lacks(5, 9));
  EXPECT_TRUE(desk.Lacks(9, 20));
  EXPECT_FALSE(desk.Lacks(5, 8));
  EXPECT_FALSE(desk.Lacks(10, 20));
}

TEST(PrintChecks, WithoutTablesNoneIsLacking) {
  CheckDesk desk;
  desk.Set.At(9).Tricks = {};
  EXPECT_FALSE(desk.Lacks(5, 20, false));
}

}  // namespace
}  // namespace morvane::print
