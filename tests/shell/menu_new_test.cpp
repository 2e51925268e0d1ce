// The flow behind `menuNew`: the question about the current set, the window, and what is left.

#include "files/unsaved_set.h"
#include "generate/generate_form.h"
#include "platform/files.h"
#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const FakeUi::Box kUnsavedQuestion{
    "      Current Board Set has not been saved.      \r\n\r\n"
    "      Do you want to save the current Board Set?      ",
    51, "Generate New Board Set"};

/// A window nobody looks at.
class BlindView final : public generate::GenerateFormView {
 public:
  [[nodiscard]] Point Mouse() const override { return {}; }
  void Show() override {}
  void ShowProgress() override {}
  void ShowBits() override {}
  void Focus(generate::FormControl /*control*/) override {}
  void SelectNumbers() override {}
  void Close() override {}
};

struct NewDesk : ShellDesk {
  NewDesk() {
    Desktop.OnGenerate = [this](generate::GenerateForm& form) {
      form.Open(View);
      if (InWindow) InWindow(form);
    };
  }
  void ChangeSet() {
    test::FillSet(Prog.Set, 1, 8);
    Prog.Set.BoardSetChanged = "1";
  }
  BlindView View;
  std::function<void(generate::GenerateForm&)> InWindow;
};

TEST(MenuNew, IsRefusedWhileAnAnalysisRuns) {
  NewDesk desk;
  desk.Start();
  desk.Prog.AnalysisRunning = true;
  desk.ChangeSet();
  desk.Main.MenuNew();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{
                  "      This function cannot be used while analysis is running      \r\n"
                  "      Please wait for analysis to finish or cancel it and try again      ",
                  16, "New Error"}));
  EXPECT_EQ(desk.Desktop.Generates, 0);
  EXPECT_THAT(desk.Ui.Statuses, IsEmpty());
}

TEST(MenuNew, WithNothingUnsavedOpensTheWindowAtOnce) {
  NewDesk desk;
  desk.Start();
  desk.InWindow = [&](generate::GenerateForm& form) {
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Generate"));
    EXPECT_EQ(desk.LastLine(), " File-New: 3:04:05 PM");
    form.cmdExit();
  };
  desk.Main.MenuNew();
  EXPECT_EQ(desk.Desktop.Generates, 1);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Generate", "Ready"));
  EXPECT_EQ(desk.Desktop.Pages.back().LastBoard, "");
  EXPECT_FALSE(desk.Main.FlowActive());
}

TEST(MenuNew, NoGoesOnWithoutASave) {
  NewDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.Ui.Answers = {kNo};
  desk.Main.MenuNew();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(kUnsavedQuestion));
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_EQ(desk.Desktop.Generates, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 8) << "nothing was generated";
  EXPECT_TRUE(desk.Prog.Set.Changed());
}

TEST(MenuNew, CancelEndsIt) {
  NewDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.Ui.Answers = {kCancel};
  desk.Main.MenuNew();
  EXPECT_EQ(desk.Desktop.Generates, 0);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 8);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Generate", "Ready"));
}

TEST(MenuNew, YesSavesAndGoesOn) {
  NewDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {desk.Folder / "evening.pbn"};
  desk.InWindow = [&](generate::GenerateForm&) {
    EXPECT_TRUE(std::filesystem::exists(desk.Folder / "evening.pbn"));
    EXPECT_FALSE(desk.Prog.Set.Changed());
  };
  desk.Main.MenuNew();
  EXPECT_EQ(desk.Desktop.Generates, 1);
  EXPECT_EQ(desk.Ui.Statuses.back(), "Ready");
}

TEST(MenuNew, YesGoesOnThoughTheSaveWasCancelled) {
  NewDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {std::nullopt};
  desk.Main.MenuNew();
  EXPECT_EQ(desk.Ui.FileRequests.size(), 1U);
  EXPECT_TRUE(desk.Prog.Set.Changed());
  EXPECT_EQ(desk.Desktop.Generates, 1);
}

TEST(MenuNew, AProgramThatQuitsInTheSaveOpensNoWindow) {
  NewDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {std::nullopt};
  desk.Ui.OnBox = [&] { desk.Loop.Quit(); };
  desk.Main.MenuNew();
  EXPECT_EQ(desk.Desktop.Generates, 0);
}

TEST(MenuNew, IsOneFlowAmongOthers) {
  NewDesk desk;
  desk.Start();
  desk.ChangeSet();
  desk.Ui.Answers = {kNo};
  desk.InWindow = [&](generate::GenerateForm& form) {
    desk.Main.MenuNew();
    desk.Main.MenuLoad();
    desk.Main.MenuSave();
    desk.Main.MenuDeal();
    EXPECT_FALSE(desk.Main.Exit());
    form.cmdDeal();
  };
  desk.Main.MenuNew();
  EXPECT_EQ(desk.Desktop.Generates, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 32);
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
}

TEST(MenuNew, Timer2mmStandsStillMeanwhileAndALinkCommandWaits) {
  NewDesk desk;
  desk.Start();
  test::WriteContent(desk.Folder / "evening.pbn", "[Board \"9\"]\r\n");
  desk.InWindow = [&](generate::GenerateForm& form) {
    const int bits = desk.Bits();
    desk.MoveMouse();
    EXPECT_EQ(desk.Bits(), bits) << "the other window's mouse is none of its business";
    desk.Main.LinkExecute("1" + (desk.Folder / "evening.pbn"));
    desk.Loop.OnPump = [&] { EXPECT_NE(desk.Prog.Set.FirstBoard, 9); };
    form.bigdeal();
    desk.Loop.OnPump = nullptr;
    desk.Prog.Set.BoardSetChanged = "0";
    form.cmdExit();
  };
  desk.Main.MenuNew();
  EXPECT_EQ(desk.Prog.Set.LastBoard, 32);
  desk.Loop.WaitMs(Shell::kTimer2Ms);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 9);
}

TEST(MenuNew, WhatWasGeneratedIsKeptAtOnce) {
  NewDesk desk;
  desk.Main.KeepUnsavedSet();
  desk.Start();
  const std::string copy = JoinPath(desk.Prog.Paths.Data, "Unsaved_1.txt");
  const auto last = [&] { return files::ReadUnsavedText(test::Content(copy))->Set.LastBoard; };
  desk.InWindow = [&](generate::GenerateForm& form) {
    ASSERT_FALSE(std::filesystem::exists(copy));
    form.cmdDeal();
    ASSERT_TRUE(std::filesystem::exists(copy));
    EXPECT_EQ(last(), 32);
    form.ChangeLastBoard({"5", 1});
    form.bigdeal();
    EXPECT_EQ(last(), 5);
  };
  desk.Main.MenuNew();
}

TEST(MenuNew, WhatWasUnsavedStaysKeptWhenNothingCouldBeGenerated) {
  NewDesk desk;
  desk.Main.KeepUnsavedSet();
  desk.Start();
  desk.ChangeSet();
  desk.Loop.WaitMs(Shell::kKeepMs);
  desk.Main.Deals().Limits.InnerLimit = 0;
  desk.Ui.Answers = {kNo};
  desk.InWindow = [](generate::GenerateForm& form) { form.bigdeal(); };
  desk.Main.MenuNew();
  EXPECT_FALSE(desk.Prog.Set.Exists());
  const std::string copy = JoinPath(desk.Prog.Paths.Data, "Unsaved_1.txt");
  EXPECT_EQ(files::ReadUnsavedText(test::Content(copy))->Set.LastBoard, 8);
}

TEST(MenuNew, TheMainWindowShowsWhatWasGeneratedWhileTheWindowIsStillOpen) {
  NewDesk desk;
  desk.Start();
  desk.InWindow = [&](generate::GenerateForm& form) {
    form.cmdDeal();
    EXPECT_EQ(desk.Desktop.Pages.back().LastBoard, "32");
    EXPECT_EQ(desk.Desktop.Pages.back().Completed, "32");
    desk.Main.Deals().Limits.InnerLimit = 0;
    form.bigdeal();
    EXPECT_EQ(desk.Desktop.Pages.back().LastBoard, "") << "there is no set";
  };
  desk.Main.MenuNew();
}

TEST(MenuNew, AProgramWithoutTheWindowMakesNothing) {
  NewDesk desk;
  desk.Start();
  desk.Desktop.HasWindows = false;
  desk.Main.MenuNew();
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Generate", "Ready"));
}

}  // namespace
}  // namespace morvane::shell
