#include "shell/refresh_statistics.h"

#include <filesystem>

#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// A view that keeps the pages it was shown, and events that come while the windows live.
struct Desk : test::TestDesk, StatisticsView {
  void ShowStatistics(const StatisticsPage& page) override {
    Steps.push_back("page " + std::to_string(Pages.size()));
    if (!Ui.HourglassNow) Steps.emplace_back("without the hourglass");
    Pages.push_back(page);
    Loop.After(0, [this] { Steps.emplace_back("events"); });
  }
  void Refresh() {
    RefreshStatistics(Prog, *this);
    if (Ui.HourglassNow) Steps.emplace_back("the hourglass stays");
  }
  std::vector<StatisticsPage> Pages;
  std::vector<std::string> Steps;
};

/// Boards 1..8 of suits, and all the aces swapped in none: board 5 incomplete, board 6 empty.
void FillDesk(Desk& desk) {
  BoardSet& set = desk.Prog.Set;
  set.FirstBoard = 3;
  set.LastBoard = 6;
  for (int n = 3; n <= 6; ++n) set.At(n) = test::SuitBoard(n);
  set.At(5).Cards[1] = 0;
  AnalyzeBoard(set.At(5));
  set.At(6) = NumberedBoard(6);
}

TEST(RefreshStatistics, ClearsPumpsCountsPumpsAndShowsUnderTheHourglass) {
  Desk desk;
  desk.Prog.ShowStatistics = true;
  FillDesk(desk);
  desk.Refresh();
  EXPECT_THAT(desk.Steps, ElementsAre("page 0", "events", "page 1", "events", "page 2"));
  EXPECT_EQ(desk.Pages[0].FirstBoard + desk.Pages[0].Count, "");
  EXPECT_THAT(desk.Pages[1].Hands, SizeIs(5));
  EXPECT_EQ(desk.Pages[1].InDeals + desk.Pages[1].MaxFreq, "");
}

TEST(RefreshStatistics, ShowsNumbersListsAndExtremes) {
  Desk desk;
  desk.Prog.ShowStatistics = true;
  FillDesk(desk);
  desk.Refresh();
  const StatisticsPage& page = desk.Pages.back();
  EXPECT_EQ(page.FirstBoard, "3");
  EXPECT_EQ(page.LastBoard, "6");
  EXPECT_EQ(page.Count, "4");
  EXPECT_EQ(page.Completed, "2");
  // Of 8 hands: 1.72, 1.24, 1.03, 0.85, 0.84, and 0.45 of "6322".
  EXPECT_THAT(
      page.Shapes,
      ElementsAre(ShapeRow{"4432", "   0", "   2", " -2"}, ShapeRow{"5332", "   0", "   1", " -1"},
                  ShapeRow{"5431", "   0", "   1", " -1"}, ShapeRow{"5422", "   0", "   1", " -1"},
                  ShapeRow{"4333", "   0", "   1", " -1"}));
  EXPECT_EQ(page.Hands.at(0),
            (HandRow{"Average HCP:", {"10.00", "10.00", "10.00", "10.00", "20.00", "20.00"}}));
  EXPECT_EQ(page.Hands.at(2),
            (HandRow{"Voids:", {"   6", "   6", "   6", "   6", "  12", "  12"}}));
  EXPECT_EQ(page.MaxFreq, "100% A♠ N");
  EXPECT_EQ(page.MinFreq, "0% A♥ N");
  EXPECT_EQ(page.InDeals, "13, 4N:3N");
}

TEST(RefreshStatistics, LeavesTheCountsInTheSet) {
  Desk desk;
  FillDesk(desk);
  desk.Prog.Set.ShapeCount.fill(7);
  desk.Refresh();
  EXPECT_EQ(desk.Prog.Set.CompletedBoards, 2);
  auto counts = BoardSet().ShapeCount;
  counts[39] = 8;  // "D000"
  EXPECT_EQ(desk.Prog.Set.ShapeCount, counts);
}

TEST(RefreshStatistics, WithoutASetLeavesEverythingEmpty) {
  Desk desk;
  desk.Prog.ShowStatistics = true;
  desk.Prog.Set.CompletedBoards = 5;
  desk.Prog.Set.ShapeCount.fill(7);
  desk.Refresh();
  EXPECT_THAT(desk.Steps, ElementsAre("page 0", "events"));
  EXPECT_EQ(desk.Pages[0].FirstBoard + desk.Pages[0].Completed, "");
  EXPECT_THAT(desk.Pages[0].Hands, IsEmpty());
  EXPECT_EQ(desk.Prog.Set.CompletedBoards, 0);
  EXPECT_EQ(desk.Prog.Set.ShapeCount, BoardSet().ShapeCount);
}

TEST(RefreshStatistics, OfEmptyBoardsShowsCountsAndRowsWithoutFigures) {
  Desk desk;
  desk.Prog.ShowStatistics = true;
  desk.Prog.Set.FirstBoard = 1;
  desk.Prog.Set.LastBoard = 9;
  desk.Refresh();
  const StatisticsPage& page = desk.Pages.back();
  EXPECT_EQ(page.Count, "9");
  EXPECT_EQ(page.Completed, "0");
  EXPECT_THAT(page.Shapes, IsEmpty());
  ASSERT_THAT(page.Hands, SizeIs(5));
  EXPECT_EQ(page.Hands[0].Cells[0] + page.Hands[4].Cells[5], "");
  EXPECT_EQ(page.MaxFreq + page.MinFreq + page.InDeals, "");
}

TEST(RefreshStatistics, OfASetOfOneBoardListsThreeShapes) {
  Desk desk;
  desk.Prog.ShowStatistics = true;
  test::FillSet(desk.Prog.Set, 17, 17);
  desk.Refresh();
  EXPECT_THAT(desk.Pages.back().Shapes, SizeIs(3));
  EXPECT_EQ(desk.Pages.back().InDeals, "");
}

TEST(RefreshStatistics, HiddenCountAllTheSameAndShowTheNumbersAlone) {
  Desk desk;
  FillDesk(desk);
  desk.Refresh();
  EXPECT_THAT(desk.Steps, ElementsAre("page 0", "events", "page 1", "events", "page 2"));
  const StatisticsPage& page = desk.Pages.back();
  EXPECT_EQ(page.Completed, "2");
  EXPECT_THAT(page.Shapes, IsEmpty());
  EXPECT_THAT(page.Hands, IsEmpty());
  EXPECT_EQ(page.MaxFreq + page.MinFreq + page.InDeals, "");
  EXPECT_EQ(desk.Prog.Set.ShapeCount[39], 8);
}

TEST(Flows, ThatMayHaveChangedTheSetEndWithItsStatistics) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 2);
  for (void (Shell::*const flow)() : {&Shell::MenuLoad, &Shell::MenuImport, &Shell::ShowStat}) {
    desk.Desktop.Pages.clear();
    (desk.Main.*flow)();
    ASSERT_THAT(desk.Desktop.Pages, SizeIs(3));
    EXPECT_EQ(desk.Desktop.Pages.back().Completed, "2");
  }
}

TEST(Flows, AFileOfTheCommandLineIsCountedAtTheStart) {
  ShellDesk desk;
  const std::string path = desk.Folder / "two.pbn";
  test::WriteContent(path, "[Board \"7\"]\r\n[Board \"8\"]\r\n");
  desk.Start('"' + path + '"');
  ASSERT_FALSE(desk.Desktop.Pages.empty());
  EXPECT_EQ(desk.Desktop.Pages.back().Count, "2");
  EXPECT_EQ(desk.Desktop.Pages.back().Completed, "0");
}

TEST(Flows, AnUnsavedSetThatIsTakenIsCountedAtTheStart) {
  ShellDesk before;
  before.Main.KeepUnsavedSet();
  before.Start();
  test::FillSet(before.Prog.Set, 1, 3);
  before.Prog.Set.BoardSetChanged = "1";
  before.Loop.WaitMs(2 * Shell::kKeepMs);
  const std::string copy = test::Content(before.Prog.Paths.Data + "/Unsaved_1.txt");
  ShellDesk desk;
  std::filesystem::create_directories(desk.Prog.Paths.Data);
  test::WriteContent(desk.Prog.Paths.Data + "/Unsaved_1.txt", copy);
  desk.Ui.Answers = {kYes};
  desk.Main.KeepUnsavedSet();
  desk.Start();
  ASSERT_FALSE(desk.Desktop.Pages.empty());
  EXPECT_EQ(desk.Desktop.Pages.back().Completed, "3");
}

TEST(ShowStat, IsAFlowOfItsOwn) {
  ShellDesk desk;
  desk.Start();
  desk.Desktop.OnStatistics = [&] {
    EXPECT_TRUE(desk.Main.FlowActive());
    desk.Main.ShowStat();
  };
  desk.Main.ShowStat();
  EXPECT_TRUE(desk.Prog.ShowStatistics) << "the second press, inside the first, did nothing";
  EXPECT_FALSE(desk.Main.FlowActive());
}

}  // namespace
}  // namespace morvane::shell
