#include <filesystem>
#include <stdexcept>

#include "files/unsaved_set.h"
#include "platform/file_lock.h"
#include "platform/files.h"
#include "shell/shell_desk.h"

// How a program ended shows in its mark; and the end that a fault of its own code brings.

namespace morvane::shell {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kNothingLost =
    "The program ended unexpectedly last time. No unsaved Board Set was found.";
constexpr const char* kEndInLog = " Unexpected end of the program that began 2026-03-02 7:00:00 PM";

/// A program that keeps what is unsaved; not started yet.
struct MarkingDesk : ShellDesk {
  MarkingDesk() { Main.KeepUnsavedSet(); }

  [[nodiscard]] std::string Copy(int place = 1) const {
    return JoinPath(Prog.Paths.Data, "Unsaved_" + std::to_string(place) + ".txt");
  }
  [[nodiscard]] std::string Mark(int place = 1) const { return Copy(place) + ".running"; }
  [[nodiscard]] bool HasMark(int place = 1) const { return std::filesystem::exists(Mark(place)); }
  void LeaveAMark(int place = 1) const { test::WriteContent(Mark(place), "2026-03-02 7:00:00 PM"); }
  void LeaveACopy(int place = 1) {
    BoardSet set;
    test::FillSet(set, 3, 5);
    test::WriteContent(Copy(place), files::UnsavedText(set, "2026-03-02 8:00:00 PM"));
  }
};

TEST(RunningMark, StandsFromTheStartToTheExit) {
  MarkingDesk desk;
  desk.Main.StartUp("");
  EXPECT_EQ(test::Content(desk.Mark()), "2026-03-03 3:04:05 PM");
  EXPECT_TRUE(desk.Main.Exit());
  EXPECT_FALSE(desk.HasMark());
}

TEST(RunningMark, GoesWithTheEndThatTheSystemAsksFor) {
  MarkingDesk desk;
  desk.Main.StartUp("");
  desk.Loop.Quit();
  desk.Main.End();
  EXPECT_FALSE(desk.HasMark());
}

TEST(RunningMark, StaysWhereTheProgramIsJustGone) {
  MarkingDesk desk;
  {
    Shell gone(desk.Prog, desk.Bridge, desk.Processes, desk.Desktop, desk.Programs);
    gone.KeepUnsavedSet();
    gone.StartUp("");
  }
  EXPECT_TRUE(desk.HasMark());
}

TEST(RunningMark, OfNobodyIsToldInTheStatusAndTheLogOnce) {
  MarkingDesk desk;
  desk.LeaveAMark();
  desk.Main.StartUp("");
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading...", "Ready", kNothingLost));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.LogLines(), Contains(kEndInLog));
  EXPECT_EQ(test::Content(desk.Mark()), "2026-03-03 3:04:05 PM") << "this program's own";
}

TEST(RunningMark, IsToldBehindTheFileOfTheStart) {
  MarkingDesk desk;
  desk.LeaveAMark();
  desk.Main.StartUp(JoinPath(desk.Prog.Paths.Data, "none.pbn"));
  EXPECT_EQ(desk.Ui.Statuses.back(), kNothingLost);
}

TEST(RunningMark, SaysNotThatNothingWasFoundWhereAnotherPlaceHadACopy) {
  MarkingDesk desk;
  desk.LeaveAMark();
  desk.LeaveACopy(2);
  desk.Ui.Answers = {kYes};
  desk.Main.StartUp("");
  EXPECT_EQ(desk.Prog.Set.LastBoard, 5);
  EXPECT_THAT(desk.Ui.Statuses, Not(Contains(kNothingLost)));
}

TEST(RunningMark, OfAProgramThatStillRunsIsItsOwn) {
  MarkingDesk desk;
  desk.LeaveAMark();
  const auto other = FileLock::Try(desk.Copy() + ".lock");
  ASSERT_TRUE(other);
  desk.Main.StartUp("");
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading...", "Ready"));
  EXPECT_EQ(test::Content(desk.Mark()), "2026-03-02 7:00:00 PM");
  EXPECT_TRUE(desk.HasMark(2));
  EXPECT_TRUE(desk.Main.Exit());
  EXPECT_TRUE(desk.HasMark());
  EXPECT_FALSE(desk.HasMark(2));
}

TEST(RunningMark, OfASecondProgramIsFoundInItsPlace) {
  MarkingDesk desk;
  desk.LeaveAMark(4);
  desk.Main.StartUp("");
  EXPECT_EQ(desk.Ui.Statuses.back(), kNothingLost);
  EXPECT_FALSE(desk.HasMark(4));
  EXPECT_TRUE(desk.HasMark());
}

TEST(RunningMark, WithACopyIsInTheOffer) {
  MarkingDesk desk;
  desk.LeaveAMark();
  desk.LeaveACopy();
  desk.Ui.Answers = {kYes};
  desk.Main.StartUp("");
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_THAT(desk.Ui.Boxes[0].Text,
              HasSubstr("      The program ended unexpectedly before this Board Set was saved:"));
  EXPECT_EQ(desk.Prog.Set.LastBoard, 5);
  EXPECT_THAT(desk.Ui.Statuses, Not(Contains(kNothingLost)));
  EXPECT_THAT(desk.LogLines(), Contains(kEndInLog));
  EXPECT_TRUE(desk.HasMark());
}

TEST(RunningMark, OfACopyThatIsLeftIsToldOnce) {
  MarkingDesk desk;
  desk.LeaveAMark();
  desk.LeaveACopy();
  desk.Ui.Answers = {kCancel};
  desk.Main.StartUp("");
  EXPECT_FALSE(desk.HasMark());
  EXPECT_TRUE(desk.HasMark(2));
}

TEST(RunningMark, ThatIsNoneOfOursIsLeftAlone) {
  MarkingDesk desk;
  std::filesystem::create_directory(desk.Mark());
  desk.Main.StartUp("");
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading...", "Ready"));
  EXPECT_TRUE(desk.Main.Exit());
}

TEST(Fault, KeepsTheSetSaysItInTheLogAndEndsTheProgram) {
  MarkingDesk desk;
  desk.Main.StartUp("");
  test::FillSet(desk.Prog.Set, 3, 5);
  desk.Prog.Set.BoardSetChanged = "1";
  EXPECT_EQ(desk.Main.Fail("vector::_M_range_check"), UnsavedCopy::State::kLast);
  EXPECT_TRUE(desk.Loop.Quitting());
  EXPECT_EQ(files::ReadUnsavedText(test::Content(desk.Copy()))->Set.LastBoard, 5);
  EXPECT_EQ(desk.LastLine(), " Unexpected error: vector::_M_range_check");
  desk.Main.End();
  EXPECT_EQ(desk.LastLine(), " Exit: 3:04:05 PM");
  EXPECT_TRUE(std::filesystem::exists(desk.Copy()));
  EXPECT_TRUE(desk.HasMark()) << "the next start says that it was unexpected";
}

TEST(Fault, SaysWhetherASetIsLeftToTheNextStart) {
  MarkingDesk desk;
  desk.Main.StartUp("");
  EXPECT_EQ(desk.Main.Fail("nothing was unsaved"), UnsavedCopy::State::kNone);
  test::FillSet(desk.Prog.Set, 3, 5);
  desk.Prog.Set.BoardSetChanged = "1";
  std::filesystem::create_directory(desk.Copy());
  EXPECT_EQ(desk.Main.Fail("there is no copy"), UnsavedCopy::State::kNone);
}

TEST(Fault, SaysThatOnlyAnOlderCopyIsLeft) {
  MarkingDesk desk;
  desk.Main.StartUp("");
  test::FillSet(desk.Prog.Set, 3, 5);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Loop.WaitMs(Shell::kKeepMs);
  desk.Prog.Set.EventName = "Spring";
  std::filesystem::create_directory(desk.Copy() + ".new");
  EXPECT_EQ(desk.Main.Fail("the copy cannot be written"), UnsavedCopy::State::kOlder);
  EXPECT_EQ(files::ReadUnsavedText(test::Content(desk.Copy()))->Set.EventName, "");
}

TEST(Fault, OfAFlowThatWasAtWorkOnTheSetKeepsTheLastCopy) {
  MarkingDesk desk;
  desk.Main.StartUp("");
  test::FillSet(desk.Prog.Set, 3, 5);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Loop.WaitMs(Shell::kKeepMs);
  desk.Desktop.OnEdit = [&](edit::Editor&) {
    test::FillSet(desk.Prog.Set, 3, 4);
    throw std::runtime_error("half done");
  };
  EXPECT_THROW(desk.Main.MenuEdit(), std::runtime_error);
  EXPECT_EQ(desk.Main.Fail("half done"), UnsavedCopy::State::kLast);
  desk.Main.End();
  EXPECT_EQ(files::ReadUnsavedText(test::Content(desk.Copy()))->Set.LastBoard, 5);
}

TEST(Fault, OfARunWindowThatIsOpeningClosesTheLink) {
  MarkingDesk desk;
  desk.Main.StartUp("");
  test::FillSet(desk.Prog.Set, 3, 5);
  desk.Desktop.Run.OnBoard = [] { throw std::runtime_error("no font"); };
  EXPECT_THROW(desk.Main.MenuDeal(), std::runtime_error);
  EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
  EXPECT_FALSE(desk.Main.FlowActive());
}

TEST(FirstStart, HasNothingToDismiss) {
  MarkingDesk desk;
  std::filesystem::remove_all(desk.Prog.Paths.Data);
  desk.Main.KeepRecentFiles();
  desk.Main.StartUp("");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading...", "Ready"));
}

}  // namespace
}  // namespace morvane::shell
