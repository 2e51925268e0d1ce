#include <filesystem>

#include "files/unsaved_set.h"
#include "program/setting_keys.h"
#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using machine::BoardRun;
using machine::SortingRun;
using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kAfterContact = BoardRun::kFirstContactMs + 100;

/// A running program with the empty boards 1 and 2, and the machine on paper.
struct ReadDesk : ShellDesk {
  explicit ReadDesk(bool keeps = false) {
    if (keeps) Main.KeepUnsavedSet();
    Start();
    Prog.Set.FirstBoard = 1;
    Prog.Set.LastBoard = 2;
    for (int n = 1; n <= 2; ++n) Prog.Set.At(n) = NumberedBoard(n);
    for (std::size_t place = 0; place < 52; ++place) {
      Paper.Read[place] = static_cast<std::uint8_t>(place % 4 + 1);
    }
  }
  void InTheWindow(std::function<void(BoardRun&)> action) {
    Desktop.OnRun = [this, action = std::move(action)](BoardRun& run) {
      Loop.After(kAfterContact, [&run, action] { action(run); });
    };
  }
};

TEST(MenuRead, WithoutASetIsRefused) {
  ShellDesk desk;
  desk.Start();
  desk.Main.MenuRead();
  const std::string text = "      Board Set does not exist. Request ignored!      ";
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Reading", text, "Ready"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{text, 16, "Reading Error"}));
  EXPECT_THAT(desk.Bridge.Calls, IsEmpty());
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
}

TEST(MenuRead, IsRefusedWhileAnAnalysisRuns) {
  ReadDesk desk;
  desk.Prog.AnalysisRunning = true;
  desk.Main.MenuRead();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{desk.Prog.Texts.Msg103, 16, "Read Error"}));
  EXPECT_THAT(desk.Bridge.Calls, IsEmpty());
  EXPECT_EQ(desk.Desktop.Run.Opened, 0);
}

TEST(MenuRead, ReadsABoardAndCountsItInTheStatistics) {
  ReadDesk desk;
  desk.InTheWindow([](BoardRun& run) {
    run.cmdDeal();
    run.Exit();
  });
  desk.Main.MenuRead();
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Reading", "Ready"));
  EXPECT_EQ(desk.Prog.Set.At(1).Status, Board::kComplete);
  EXPECT_EQ(desk.Prog.Set.CompletedBoards, 1);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  const auto lines = desk.LogLines();
  EXPECT_EQ(lines.at(4), " Read: 3:04:05 PM");
  EXPECT_EQ(lines.at(5), "  S/N:4711 Dealt:258 Firmware:2.90");
  EXPECT_TRUE(lines.at(6).starts_with("  001 : 1,0 0,0,0,0 OK  ")) << lines.at(6);
  EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
}

TEST(MenuRead, ARunThatReadNothingLeavesTheSetChangedTooAsRequired) {
  ReadDesk desk;
  desk.InTheWindow([](BoardRun& run) { run.Exit(); });
  desk.Main.MenuRead();
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
}

TEST(MenuRead, YesBehindTheLastBoardIsTheSaveCommand) {
  ReadDesk desk;
  desk.Prog.Set.LastBoard = 1;
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {desk.Prog.Paths.Data + "/evening.pbn"};
  desk.InTheWindow([&desk](BoardRun& run) {
    run.cmdDeal();
    EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
    run.Exit();
  });
  desk.Main.MenuRead();
  EXPECT_FALSE(test::Content(desk.Prog.Paths.Data + "/evening.pbn").empty());
}

TEST(MenuRead, ABoardIsInTheCopyOfUnsavedWorkAsSoonAsItHasRun) {
  ReadDesk desk(true);
  desk.InTheWindow([&desk](BoardRun& run) {
    run.cmdDeal();
    const auto copy =
        files::ReadUnsavedText(test::Content(desk.Prog.Paths.Data + "/Unsaved_1.txt"));
    EXPECT_TRUE(copy && copy->Set.At(1).Cards == desk.Prog.Set.At(1).Cards);
    run.Exit();
  });
  desk.Main.MenuRead();
  EXPECT_EQ(desk.Prog.Set.At(1).Status, Board::kComplete);
}

TEST(MenuRead, WorkThatCannotBeKeptIsToldBehindItsFirstBoard) {
  ReadDesk desk(true);
  std::filesystem::create_directories(desk.Prog.Paths.Data + "/Unsaved_1.txt.new");
  desk.Ui.OnBox = [&desk] { desk.Paper.Events = 8; };
  desk.InTheWindow([&desk](BoardRun& run) {
    run.cmdDeal();
    ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
    EXPECT_EQ(desk.Ui.Boxes[0].Title, "Unsaved Board Set");
    desk.Loop.WaitMs(300);
    EXPECT_EQ(desk.Prog.Set.At(2), NumberedBoard(2)) << "the pedal behind the box";
    desk.Ui.Answers = {kNo};
    run.Deal_next();
    EXPECT_EQ(desk.Ui.Boxes.back().Title, "Reading");
    EXPECT_EQ(desk.Ui.Boxes.size(), 2U);
    run.Exit();
  });
  desk.Main.MenuRead();
  EXPECT_EQ(desk.Prog.Set.At(2).Status, Board::kComplete);
}

TEST(MenuSort, NeedsNoSet) {
  ShellDesk desk;
  desk.Start();
  desk.Desktop.OnSort = [&desk](SortingRun& run) {
    desk.Loop.After(kAfterContact, [&run] {
      run.cmdSort();
      run.Exit();
    });
  };
  desk.Main.MenuSort();
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Sorting", "Ready"));
  EXPECT_EQ(desk.Desktop.Run.Gone, 1);
  EXPECT_EQ(desk.LastLine(), "  Sort: 0,0,0,0 OK");
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
  EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
}

TEST(MenuSort, AProgramWithoutTheWindowSaysSo) {
  ShellDesk desk;
  desk.Start();
  desk.Desktop.HasWindows = false;
  desk.Main.MenuSort();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      This program has no window for a run.      ", 16,
                                      "Sort Error"}));
  EXPECT_EQ(desk.Bridge.Calls.back(), "Close");
}

}  // namespace
}  // namespace morvane::shell
