#include "generate/history_ring.h"

#include <filesystem>

#include "support/fakes.h"

namespace morvane::generate {
namespace {

using test::TestDesk;

TEST(HistoryRing, AnEmptyRingResemblesNothing) {
  TestDesk desk;
  HistoryRing ring;
  EXPECT_TRUE(ring.LoadHistory(desk.Prog));
  const HistoricSimilarity similarity = ring.HistorySimilarity(test::RoundBoard(1));
  EXPECT_EQ(similarity.Cards, 0);
  EXPECT_EQ(similarity.Number, 0);
  EXPECT_EQ(similarity.File, "<none>");
  EXPECT_EQ(ring.HistoryUsed, 0);
  EXPECT_TRUE(desk.Ui.Boxes.empty());
}

TEST(HistoryRing, MakesAMissingDataFolder) {
  TestDesk desk;
  std::filesystem::remove_all(desk.Prog.Paths.Data);
  HistoryRing ring;
  EXPECT_TRUE(ring.LoadHistory(desk.Prog));
  EXPECT_TRUE(ring.HistoryEnabled);
  EXPECT_TRUE(std::filesystem::is_directory(desk.Prog.Paths.Data));
  EXPECT_TRUE(desk.Ui.Boxes.empty());
}

/// A program whose log is not open yet, as when the history is loaded at start-up.
struct StartingDesk : TestDesk {
  explicit StartingDesk(const std::string& data)
      : Starting({Ui, Loop, Clock, Store, Random, Speaker}, {"/opt/morvane", data}) {}
  Program Starting;
};

TEST(HistoryRing, WithoutAFolderTellsTheOperatorAndStaysOff) {
  test::TempFolder folder;
  test::WriteContent(folder / "Morvane_Data", "a file in its place");
  StartingDesk desk(folder / "Morvane_Data");
  HistoryRing ring;
  EXPECT_FALSE(ring.LoadHistory(desk.Starting));
  EXPECT_FALSE(ring.HistoryEnabled);
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "      Cannot access or create Morvane_Data directory     \r\n"
            "      Application Path: /opt/morvane     \r\n"
            "      Not a directory\r\n"
            "      Application will continue but logging and history functions will be "
            "disabled     ");
  EXPECT_EQ(desk.Ui.Boxes[0].Flags, kOkCritical);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "History Error");
  EXPECT_EQ(ring.HistorySimilarity(test::RoundBoard(1)).Cards, 0);
}

TEST(HistoryRing, AFolderThatCannotBeMadeIsReportedWithTheSystemsWords) {
  StartingDesk desk("/proc/self/Morvane_Data");
  HistoryRing ring;
  EXPECT_FALSE(ring.LoadHistory(desk.Starting));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_NE(desk.Ui.Boxes[0].Text.find("      No such file or directory\r\n"), std::string::npos);
}

}  // namespace
}  // namespace morvane::generate
