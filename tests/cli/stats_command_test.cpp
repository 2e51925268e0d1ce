#include "cli/stats_command.h"

#include "cli/cli_desk.h"

namespace morvane::cli {
namespace {

using ::testing::HasSubstr;

TEST(StatsCommand, PrintsTheStatisticsOfTheMainWindow) {
  CliDesk desk;
  test::WriteContent(desk.In, SuitDeals(3, 5));
  EXPECT_EQ(desk.Run(StatsOptions{.In = desk.In}), kDone);
  EXPECT_EQ(desk.Screen.Errors, "");
  // Every hand holds one suit, which has 10 points. North has the diamonds of board 3, the hearts
  // of board 4 and the spades of board 5, and so never a club.
  EXPECT_EQ(desk.Screen.Output,
            "First Board:      3\n"
            "Last Board:       5\n"
            "Boards in Set:    3\n"
            "Completed Boards: 3\n"
            "\n"
            "Hand:                   N      S      E      W     NS     EW\n"
            "Average HCP:        10.00  10.00  10.00  10.00  20.00  20.00\n"
            "Balanced Hands:         0      0      0      0      0      0\n"
            "Voids:                  9      9      9      9     18     18\n"
            "Singletons:             0      0      0      0      0      0\n"
            "Long suits (7+):        3      3      3      3      6      6\n"
            "\n"
            "Shape      Actual   Expected  Diffrence\n"
            "4432            0          3         -3\n"
            "5332            0          2         -2\n"
            "5431            0          2         -2\n"
            "5422            0          1         -1\n"
            "4333            0          1         -1\n"
            "6322            0          1         -1\n"
            "6421            0          1         -1\n"
            "\n"
            "HCP        Actual   Expected\n"
            "0-1             0        0.1\n"
            "2-3             0        0.5\n"
            "4-5             0        1.1\n"
            "6-7             0        1.7\n"
            "8-9             0        2.2\n"
            "10-11          12        2.2\n"
            "12-13           0        1.8\n"
            "14-15           0        1.2\n"
            "16-17           0        0.7\n"
            "18-19           0        0.3\n"
            "20-21           0        0.1\n"
            "22+             0        0.1\n"
            "\n"
            "Max frequency:    33% A♠ N\n"
            "Min frequency:    0% A♣ N\n"
            "Inner Similarity: 13, 4N:3W\n");
}

TEST(StatsCommand, WithoutACompleteBoardPrintsNamesAndCounts) {
  CliDesk desk;
  test::WriteContent(desk.In, "[Board \"7\"]\r\n");
  EXPECT_EQ(desk.Run(StatsOptions{.In = desk.In}), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Boards in Set:    1\nCompleted Boards: 0\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nVoids:\nSingletons:\nLong suits (7+):\n\nShape "));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Diffrence\n\nHCP        Actual   Expected\n\n"));
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("\nMax frequency:\nMin frequency:\nInner Similarity:\n"));
}

TEST(StatsCommand, AFileThatCannotBeReadIsToldAndNothingPrinted) {
  CliDesk desk;
  EXPECT_EQ(desk.Run(StatsOptions{.In = desk.Folder / "none.pbn"}), kFailed);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("none.pbn"));
}

}  // namespace
}  // namespace morvane::cli
