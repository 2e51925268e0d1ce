#include "shell/unsaved_copy.h"

#include <sys/stat.h>

#include <filesystem>

#include "files/unsaved_set.h"
#include "platform/files.h"
#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kOffer =
    "      The program ended before this Board Set was saved:      \r\n"
    "\r\n"
    "      Boards: 3 to 5      \r\n"
    "      Last change: 2026-03-03 3:04:05 PM      \r\n"
    "      Event Name: Friday      \r\n"
    "\r\n"
    "      Do you want to load it?      \r\n"
    "      Yes loads it, No deletes it, Cancel leaves it for the next start.      \r\n";

/// A program that keeps what is unsaved; not started yet.
struct KeepingDesk : ShellDesk {
  KeepingDesk() { Main.KeepUnsavedSet(); }

  [[nodiscard]] std::string Copy(int place = 1) const {
    return JoinPath(Prog.Paths.Data, "Unsaved_" + std::to_string(place) + ".txt");
  }
  [[nodiscard]] bool HasCopy(int place = 1) const { return std::filesystem::exists(Copy(place)); }
  /// Boards 3 to 5, changed by nobody's hand.
  void ChangeSet() {
    test::FillSet(Prog.Set, 3, 5);
    Prog.Set.EventName = "Friday";
    Prog.Set.BoardSetChanged = "1";
  }
  void LeaveACopy(int place = 1) {
    ChangeSet();
    test::WriteContent(Copy(place), files::UnsavedText(Prog.Set, "2026-03-03 3:04:05 PM"));
    Prog.Set = BoardSet{};
  }
  void PassASecond() { Loop.WaitMs(Shell::kKeepMs); }
};

TEST(UnsavedCopy, StandsASecondAfterAChangeAndIsTheUsersAlone) {
  KeepingDesk desk;
  desk.Start();
  desk.PassASecond();
  EXPECT_FALSE(desk.HasCopy());
  desk.ChangeSet();
  desk.PassASecond();
  ASSERT_TRUE(desk.HasCopy());
  const auto copy = files::ReadUnsavedText(test::Content(desk.Copy()));
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->Set.LastBoard, 5);
  EXPECT_EQ(copy->Set.At(4), desk.Prog.Set.At(4));
  EXPECT_EQ(copy->When, "2026-03-03 3:04:07 PM");
#ifndef _WIN32  // rights are access lists
  struct stat status {};
  ASSERT_EQ(stat(desk.Copy().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
#endif
}

TEST(UnsavedCopy, HasWhatTheEditorChangedThoughNobodyIsAskedAboutIt) {
  KeepingDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 3, 5);
  desk.Prog.Set.Edited = true;
  desk.PassASecond();
  EXPECT_TRUE(desk.HasCopy());
  EXPECT_TRUE(desk.Main.Exit());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty()) << "required: an edit alone raises no question";
  EXPECT_TRUE(desk.HasCopy()) << "the next start offers it";
}

TEST(UnsavedCopy, OfEditsGoesWithTheAnswerNo) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.Prog.Set.Edited = true;
  desk.PassASecond();
  desk.Ui.Answers = {kNo};
  EXPECT_TRUE(desk.Main.Exit());
  EXPECT_FALSE(desk.HasCopy());
}

TEST(UnsavedCopy, OfEditsGoesWithTheSave) {
  KeepingDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 3, 5);
  desk.Prog.Set.Edited = true;
  desk.PassASecond();
  desk.Ui.Files = {desk.Folder / "saved.pbn"};
  desk.Main.MenuSave();
  EXPECT_FALSE(desk.Prog.Set.Edited);
  EXPECT_FALSE(desk.HasCopy());
}

TEST(UnsavedCopy, FollowsEveryChange) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.PassASecond();
  desk.Main.ChangeEvent(Shell::EventText::kSite, {"Home", 4});
  desk.PassASecond();
  EXPECT_EQ(files::ReadUnsavedText(test::Content(desk.Copy()))->Set.EventSite, "Home");
}

TEST(UnsavedCopy, IsKeptWhileAFlowIsOpenToo) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  bool copied = false;
  desk.Ui.OnBox = [&] {
    desk.PassASecond();
    copied = desk.HasCopy();
  };
  desk.Ui.Answers = {kCancel};
  desk.Main.MenuLoad();
  EXPECT_TRUE(copied);
}

TEST(UnsavedCopy, IsNotWrittenAgainWithoutAChange) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.PassASecond();
  test::WriteContent(desk.Copy(), "other");
  desk.PassASecond();
  EXPECT_EQ(test::Content(desk.Copy()), "other");
}

TEST(UnsavedCopy, GoesWhenTheSetIsSaved) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.PassASecond();
  desk.Ui.Files = {desk.Folder / "saved.pbn"};
  desk.Main.MenuSave();
  EXPECT_FALSE(desk.HasCopy());
}

TEST(UnsavedCopy, StaysWhenTheSaveFails) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.Ui.Files = {desk.Folder / "no/folder.pbn"};
  desk.Main.MenuSave();
  EXPECT_TRUE(desk.HasCopy());
}

TEST(UnsavedCopy, GoesWithAnExitThatGivesTheSetUp) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.PassASecond();
  desk.Ui.Answers = {kNo};
  ASSERT_TRUE(desk.Main.Exit());
  EXPECT_FALSE(desk.HasCopy());
}

TEST(UnsavedCopy, StaysWithAnExitThatIsCancelled) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.Ui.Answers = {kCancel};
  ASSERT_FALSE(desk.Main.Exit());
  EXPECT_TRUE(desk.HasCopy());
}

TEST(UnsavedCopy, StaysWhileThereIsNoSetBecauseOneIsBeingMade) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.PassASecond();
  desk.Prog.Set.LastBoard = 0;
  desk.PassASecond();
  EXPECT_EQ(files::ReadUnsavedText(test::Content(desk.Copy()))->Set.LastBoard, 5);
}

TEST(UnsavedCopy, IsWrittenOnceMoreByAProgramThatIsToldToEnd) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.Loop.Quit();
  desk.Main.End();
  EXPECT_TRUE(desk.HasCopy());
  EXPECT_EQ(desk.LastLine(), " Exit: 3:04:05 PM");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(UnsavedCopy, OfADeadProgramIsOfferedAndLoadedAsChanged) {
  KeepingDesk desk;
  desk.LeaveACopy();
  desk.Ui.Answers = {kYes};
  desk.Main.StartUp("");
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{kOffer, kYesNoCancelExclamation, "Unsaved Board Set"}));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 3);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 5);
  EXPECT_EQ(desk.Prog.Set.EventName, "Friday");
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  EXPECT_EQ(desk.Ui.Statuses.back(), "Unsaved boards loaded: 3");
  EXPECT_TRUE(desk.HasCopy());
  const auto lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 8U);
  EXPECT_EQ(lines[4], " Unsaved Board Set of 2026-03-03 3:04:05 PM: loaded");
  EXPECT_TRUE(lines[5].starts_with("   003 : "));
  // Saving it makes an end of the copy.
  desk.Ui.Files = {desk.Folder / "saved.pbn"};
  desk.Main.MenuSave();
  EXPECT_FALSE(desk.HasCopy());
}

TEST(UnsavedCopy, IsDeletedByNo) {
  KeepingDesk desk;
  desk.LeaveACopy();
  desk.Ui.Answers = {kNo};
  desk.Main.StartUp("");
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_FALSE(desk.HasCopy());
  EXPECT_EQ(desk.LastLine(), " Unsaved Board Set of 2026-03-03 3:04:05 PM: deleted");
}

TEST(UnsavedCopy, LeftByCancelIsOfferedAgainAndNotWrittenOver) {
  KeepingDesk desk;
  desk.LeaveACopy();
  const std::string left = test::Content(desk.Copy());
  desk.Ui.Answers = {kCancel};
  desk.Main.StartUp("");
  EXPECT_FALSE(desk.Prog.Set.Exists());
  desk.ChangeSet();
  desk.PassASecond();
  EXPECT_EQ(test::Content(desk.Copy()), left);
  EXPECT_TRUE(desk.HasCopy(2));
}

TEST(UnsavedCopy, TheFirstOneTakenEndsTheOffersTheOthersWait) {
  KeepingDesk desk;
  desk.LeaveACopy(1);
  desk.LeaveACopy(2);
  desk.LeaveACopy(4);
  desk.Ui.Answers = {kNo, kYes};
  desk.Main.StartUp("");
  EXPECT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_FALSE(desk.HasCopy(1));
  EXPECT_TRUE(desk.HasCopy(2));
  EXPECT_TRUE(desk.HasCopy(4));
  desk.Ui.Files = {desk.Folder / "saved.pbn"};
  desk.Main.MenuSave();
  EXPECT_FALSE(desk.HasCopy(2));
}

TEST(UnsavedCopy, OfARunningProgramIsItsOwn) {
  KeepingDesk desk;
  desk.LeaveACopy();
  const auto other = FileLock::Try(desk.Copy() + ".lock");
  ASSERT_TRUE(other);
  desk.Main.StartUp("");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  desk.ChangeSet();
  desk.PassASecond();
  EXPECT_TRUE(desk.HasCopy(2));
}

TEST(UnsavedCopy, ThatIsDamagedIsPutAsideAndTold) {
  KeepingDesk desk;
  desk.LeaveACopy();
  const std::string damaged = test::Content(desk.Copy()).substr(0, 100);
  test::WriteContent(desk.Copy(), damaged);
  desk.Main.StartUp("");
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "      The copy of an unsaved Board Set cannot be read.      \r\n      File Name: " +
                desk.Copy() + ".damaged      \r\n");
  EXPECT_EQ(test::Content(desk.Copy() + ".damaged"), damaged);
  EXPECT_FALSE(desk.HasCopy());
}

TEST(UnsavedCopy, ASecondDamagedOneDoesNotTakeTheFirstOnesPlace) {
  KeepingDesk desk;
  std::filesystem::create_directories(desk.Prog.Paths.Data);
  test::WriteContent(desk.Copy() + ".damaged", "first");
  test::WriteContent(desk.Copy(), "second");
  desk.Main.StartUp("");
  EXPECT_EQ(test::Content(desk.Copy() + ".damaged"), "first");
  EXPECT_EQ(test::Content(desk.Copy() + ".damaged2"), "second");
}

TEST(UnsavedCopy, ThatCannotBeReadNowStaysForTheNextStart) {
  KeepingDesk desk;
  std::filesystem::create_directories(desk.Copy());
  desk.Main.StartUp("");
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "      The copy of an unsaved Board Set cannot be read.      \r\n      File Name: " +
                desk.Copy() + "      \r\n      Error: 21, Is a directory      \r\n");
  EXPECT_TRUE(desk.HasCopy());
  desk.ChangeSet();
  desk.PassASecond();
  EXPECT_TRUE(desk.HasCopy(2));
}

TEST(UnsavedCopy, HalfWrittenByAProgramThatWasKilledGoesAtTheNextStart) {
  KeepingDesk desk;
  std::filesystem::create_directories(desk.Prog.Paths.Data);
  test::WriteContent(desk.Copy() + ".new", "Morvane uns");
  desk.Main.StartUp("");
  EXPECT_FALSE(std::filesystem::exists(desk.Copy() + ".new"));
}

TEST(UnsavedCopy, ThatCouldNotBeRemovedIsRemovedLater) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.PassASecond();
  // A folder with something in it cannot be removed.
  std::filesystem::remove(desk.Copy());
  std::filesystem::create_directories(desk.Copy() + "/in");
  desk.Ui.Files = {desk.Folder / "saved.pbn"};
  desk.Main.MenuSave();
  EXPECT_TRUE(desk.HasCopy());
  std::filesystem::remove(desk.Copy() + "/in");
  desk.PassASecond();
  EXPECT_FALSE(desk.HasCopy());
}

TEST(UnsavedCopy, ThatCannotBeWrittenIsToldOnce) {
  KeepingDesk desk;
  desk.Start();
  std::filesystem::create_directories(desk.Copy() + ".new");
  desk.ChangeSet();
  desk.PassASecond();
  desk.PassASecond();
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "      The changes of the Board Set cannot be kept in the data folder.      \r\n"
            "      Please save the Board Set soon.      \r\n"
            "      Error: 21, Is a directory      \r\n");
  // It is tried again all the same.
  std::filesystem::remove(desk.Copy() + ".new");
  desk.PassASecond();
  EXPECT_TRUE(desk.HasCopy());
}

TEST(UnsavedCopy, WithoutADataFolderIsMissedOnlyByAnUnsavedSet) {
  KeepingDesk desk;
  test::WriteContent(desk.Folder / "file", "");
  std::filesystem::remove_all(desk.Prog.Paths.Data);
  test::WriteContent(desk.Prog.Paths.Data, "");
  desk.Start();
  desk.PassASecond();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  desk.ChangeSet();
  desk.PassASecond();
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_THAT(desk.Ui.Boxes[0].Text, HasSubstr("cannot be kept"));
}

TEST(UnsavedCopy, IsNotKeptByAProgramThatWasNotAskedTo) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 2);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Loop.WaitMs(2 * Shell::kKeepMs);
  for (const auto& entry : std::filesystem::directory_iterator(desk.Prog.Paths.Data)) {
    EXPECT_FALSE(entry.path().filename().string().starts_with("Unsaved")) << entry.path();
  }
}

TEST(End, OfAProgramThatIsToldToSavesThePoolAndAsksNothing) {
  ShellDesk desk;
  desk.Start();
  desk.MoveMouse();
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Loop.Quit();
  desk.Main.End();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_EQ(desk.Store.Get(kSeedmCounter), "24");
  EXPECT_EQ(desk.LastLine(), " Exit: 3:04:05 PM");
}

TEST(End, BehindAnExitWritesNothingMore) {
  ShellDesk desk;
  desk.Start();
  ASSERT_TRUE(desk.Main.Exit());
  const auto lines = desk.LogLines();
  desk.Main.End();
  EXPECT_EQ(desk.LogLines(), lines);
}

TEST(End, WhileTheExitQuestionIsOpenLeavesTheSetUnsaved) {
  KeepingDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.Ui.OnBox = [&] { desk.Loop.Quit(); };
  desk.Ui.Answers = {kCancel};
  EXPECT_FALSE(desk.Main.Exit());
  desk.Main.End();
  EXPECT_TRUE(desk.HasCopy());
  EXPECT_EQ(desk.LastLine(), " Exit: 3:04:05 PM");
}

}  // namespace
}  // namespace morvane::shell
