#include <gmock/gmock.h>

#include <filesystem>

#include "platform/files.h"
#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using ::testing::IsEmpty;

/// A program that keeps what is unsaved, with a board that is.
struct SessionDesk : ShellDesk {
  SessionDesk() {
    Main.KeepUnsavedSet();
    Start();
    test::FillSet(Prog.Set, 1, 1);
    Prog.Set.BoardSetChanged = "1";
  }
  [[nodiscard]] bool HasCopy() const { return std::filesystem::exists(Copy()); }
  [[nodiscard]] bool HasMark() const { return std::filesystem::exists(Copy() + ".running"); }

 private:
  [[nodiscard]] std::string Copy() const { return JoinPath(Prog.Paths.Data, "Unsaved_1.txt"); }
};

TEST(EndOfSession, LeavesNothingToBeDoneBehindIt) {
  SessionDesk desk;
  desk.Main.EndOfSession();
  EXPECT_TRUE(desk.Loop.Quitting());
  EXPECT_TRUE(desk.HasCopy());
  EXPECT_FALSE(desk.HasMark());
  EXPECT_EQ(desk.LastLine(), " Exit: 3:04:05 PM");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(EndOfSession, IsFollowedByNoSecondEnd) {
  SessionDesk desk;
  desk.Main.EndOfSession();
  const std::size_t lines = desk.LogLines().size();
  desk.Main.End();
  EXPECT_EQ(desk.LogLines().size(), lines);
}

TEST(EndOfSession, WithinAFlowMakesTheCopyAtOnceAndTheEndBehindIt) {
  SessionDesk desk;
  bool asked = false;
  desk.Ui.Answers = {kCancel};
  desk.Ui.OnBox = [&] {
    asked = true;
    EXPECT_FALSE(desk.HasCopy());
    desk.Main.EndOfSession();
    EXPECT_TRUE(desk.HasCopy());
    EXPECT_TRUE(desk.HasMark()) << "the flow is not through";
  };
  desk.Main.Exit();
  EXPECT_TRUE(asked);
  EXPECT_TRUE(desk.Loop.Quitting());
  desk.Main.End();
  EXPECT_TRUE(desk.HasCopy());
  EXPECT_FALSE(desk.HasMark());
}

}  // namespace
}  // namespace morvane::shell
