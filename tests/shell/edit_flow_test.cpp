#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using edit::Editor;
using Command = edit::Editor::Command;
using test::FakeUi;
using ::testing::ElementsAre;

TEST(MenuEdit, ShowsTheEditorAndRefreshes) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 3);
  desk.Desktop.Pages.clear();
  desk.Desktop.OnEdit = [&](Editor& editor) {
    EXPECT_TRUE(desk.Main.FlowActive());
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Edit Board"));
    desk.Main.MenuEdit();
    desk.Main.MenuSave();
    EXPECT_FALSE(desk.Main.Exit());
    editor.Do(Command::kDelete);
    editor.cmdExit();
  };
  desk.Main.MenuEdit();
  EXPECT_EQ(desk.Desktop.Edits, 1) << "once, though it was asked for twice";
  EXPECT_EQ(desk.Prog.Set.LastBoard, 2);
  ASSERT_FALSE(desk.Desktop.Pages.empty());
  EXPECT_EQ(desk.Desktop.Pages.back().Count, "2") << "the statistics of what is there now";
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Edit Board", "Ready"));
  EXPECT_FALSE(desk.Main.FlowActive());
}

TEST(MenuEdit, NeedsNoSet) {
  ShellDesk desk;
  desk.Start();
  desk.Main.MenuEdit();
  EXPECT_EQ(desk.Prog.Set.Count(), 1);
  EXPECT_FALSE(desk.Prog.Set.Changed()) << "leaving again asks for no save";
}

TEST(MenuEdit, TheClipboardOutlivesTheWindow) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 3);
  desk.Desktop.OnEdit = [](Editor& editor) { editor.Do(Command::kCopy); };
  desk.Main.MenuEdit();
  const auto held = desk.Prog.Set.At(1).Cards;
  test::FillSet(desk.Prog.Set, 7, 9);
  desk.Desktop.OnEdit = [](Editor& editor) { editor.Do(Command::kPaste); };
  desk.Main.MenuEdit();
  EXPECT_EQ(desk.Prog.Set.LastBoard, 10);
  EXPECT_EQ(desk.Prog.Set.At(7).Cards, held);
}

TEST(MenuEdit, ShufflesTheGeneratorsDeckWithThePoolsStates) {
  ShellDesk desk;
  desk.Start();
  auto& deals = desk.Main.Deals();
  deals.Pool.StartParamMouse = 77;
  deals.Pool.StartParamDays = 6800;
  auto deck = deals.Shuffling.Deck;
  std::uint32_t x = 77;
  std::int32_t y = 6800;
  test::FakeEntropy random;
  random.Seed(5);
  desk.Random.Seed(5);
  edit::EditChance chance{random, x, y, deck};
  ShuffleForEdit(chance);
  desk.Desktop.OnEdit = [](Editor& editor) { editor.Do(Command::kRandom); };
  desk.Main.MenuEdit();
  EXPECT_EQ(deals.Shuffling.Deck, deck);
  EXPECT_EQ(deals.Pool.StartParamMouse, x);
  EXPECT_EQ(deals.Pool.StartParamDays, y);
}

TEST(MenuEdit, AFileToLoadWaitsUntilItIsClosed) {
  ShellDesk desk;
  desk.Start();
  desk.Desktop.OnEdit = [&](Editor&) {
    desk.Main.LinkExecute("1/nowhere.pbn");
    desk.Loop.WaitMs(1000);
    EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kLoad);
  };
  desk.Main.MenuEdit();
  EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kLoad);
  desk.Loop.WaitMs(2 * Shell::kTimer2Ms);
  EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kNone);
}

TEST(MenuEdit, AProgramWithoutTheWindowSaysSo) {
  ShellDesk desk;
  desk.Start();
  desk.Desktop.HasWindows = false;
  desk.Main.MenuEdit();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      This program has no window for the editor.      ", 16,
                                      "Edit Error"}));
  EXPECT_FALSE(desk.Main.FlowActive());
}

}  // namespace
}  // namespace morvane::shell
