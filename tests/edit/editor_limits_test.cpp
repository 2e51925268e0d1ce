#include "edit/edit_desk.h"

namespace morvane::edit {
namespace {

using Command = Editor::Command;
using test::FakeUi;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr std::array kAlteringCommands{Command::kAccept,    Command::kAdd,       Command::kInsert,
                                       Command::kDelete,    Command::kCut,       Command::kPaste,
                                       Command::kShiftLeft, Command::kShiftRight};

constexpr std::array<std::pair<Command, const char*>, 18> kCommands{
    {{Command::kAccept, "Accept"},
     {Command::kRestore, "Restore"},
     {Command::kRandom, "Random"},
     {Command::kClear, "Clear"},
     {Command::kUndo, "Undo"},
     {Command::kRedo, "Redo"},
     {Command::kAdd, "Add"},
     {Command::kInsert, "Insert"},
     {Command::kDelete, "Delete"},
     {Command::kCut, "Cut"},
     {Command::kCopy, "Copy"},
     {Command::kPaste, "Paste"},
     {Command::kShiftLeft, "ShiftLeft"},
     {Command::kShiftRight, "ShiftRight"},
     {Command::kFirst, "First"},
     {Command::kPrev, "Prev"},
     {Command::kNext, "Next"},
     {Command::kLast, "Last"}}};

struct EditorLimits : ::testing::Test, EditDesk {
  /// What cannot be done now.
  [[nodiscard]] std::vector<std::string> Impossible() const {
    std::vector<std::string> names;
    for (const auto& [command, name] : kCommands) {
      if (!Can(command)) names.emplace_back(name);
    }
    return names;
  }
};

TEST_F(EditorLimits, AtTheFirstBoardOfASetFrom1) {
  Open(1, 3, 1);
  EXPECT_THAT(Impossible(), UnorderedElementsAre("Accept", "Restore", "Undo", "Redo", "Paste",
                                                 "ShiftLeft", "First", "Prev"));
}

TEST_F(EditorLimits, InTheMiddleOfASetFrom2) {
  Open(2, 4, 3);
  EXPECT_THAT(Impossible(), UnorderedElementsAre("Accept", "Restore", "Undo", "Redo", "Paste"));
}

TEST_F(EditorLimits, AtTheLastBoard) {
  Open(2, 4, 4);
  EXPECT_THAT(Impossible(),
              UnorderedElementsAre("Accept", "Restore", "Undo", "Redo", "Paste", "Next", "Last"));
}

TEST_F(EditorLimits, AtBoard640) {
  Clip.ClipFilled = true;
  Open(638, 640, 639);
  EXPECT_THAT(Impossible(), UnorderedElementsAre("Accept", "Restore", "Undo", "Redo", "Add",
                                                 "Insert", "Paste", "ShiftRight"));
  Do(Command::kDelete);
  EXPECT_THAT(Impossible(),
              UnorderedElementsAre("Accept", "Restore", "Undo", "Redo", "Next", "Last"));
}

TEST_F(EditorLimits, WithOneBoard) {
  Open(1, 1, 1);
  EXPECT_THAT(Impossible(), UnorderedElementsAre("Accept", "Restore", "Undo", "Redo", "Paste",
                                                 "ShiftLeft", "First", "Prev", "Next", "Last"));
}

TEST_F(EditorLimits, PasteAsSoonAsSomethingIsHeld) {
  Open();
  EXPECT_FALSE(Can(Command::kPaste));
  Do(Command::kCopy);
  EXPECT_TRUE(Can(Command::kPaste));
}

TEST_F(EditorLimits, AcceptAndRestoreWhereTheWorkingCopyDiffers) {
  Open();
  Type(0, "");
  EXPECT_TRUE(Can(Command::kAccept) && Can(Command::kRestore));
  Type(0, "J73");
  EXPECT_FALSE(Can(Command::kAccept) || Can(Command::kRestore)) << "typed as it was";
}

TEST_F(EditorLimits, AClearedEmptyBoardCanBeAccepted) {
  Prog.Set = BoardSet{};
  Edit.Open();
  EXPECT_FALSE(Can(Command::kAccept));
  Do(Command::kClear);
  EXPECT_TRUE(Can(Command::kAccept)) << "dealer and vulnerability are by the number now";
  Edit.cmdExit();
  EXPECT_TRUE(Edit.Closed()) << "but no card differs";
  EXPECT_THAT(Ui.Boxes, IsEmpty());
}

TEST_F(EditorLimits, WhatCannotBeDoneDoesNothing) {
  Open(640, 640, 640);
  for (const auto command : {Command::kAccept, Command::kUndo, Command::kRedo, Command::kAdd,
                             Command::kInsert, Command::kPaste, Command::kShiftRight,
                             Command::kFirst, Command::kPrev, Command::kNext, Command::kLast}) {
    Do(command);
  }
  EXPECT_EQ(Numbers(), "640,640,640");
  EXPECT_EQ(Prog.Set.At(640), FilledBoard(640));
  EXPECT_THAT(NewLines(), IsEmpty());
}

TEST_F(EditorLimits, WhileAnAnalysisRunsTheBoardsStay) {
  Clip = {test::SuitBoard(9), true};
  Open(2, 4, 3);
  Do(Command::kClear);
  Prog.AnalysisRunning = true;
  const BoardSet before = Prog.Set;
  for (const auto command : kAlteringCommands) Do(command);
  EXPECT_EQ(Numbers(), "2,4,3");
  EXPECT_EQ(Prog.Set.Boards, before.Boards);
  EXPECT_EQ(Clip.ClipBoard, test::SuitBoard(9)) << "a cut that is refused holds nothing";
  const FakeUi::Box refusal{
      "      This function cannot be used while analysis is running      \r\n"
      "      Please wait for analysis to finish or cancel it and try again      ",
      16, "Edit Error"};
  EXPECT_EQ(Ui.Boxes.size(), kAlteringCommands.size());
  EXPECT_THAT(Ui.Boxes, Each(refusal));
}

TEST_F(EditorLimits, WhileAnAnalysisRunsTheWorkingCopyLives) {
  Open(1, 3, 2);
  Prog.AnalysisRunning = true;
  Do(Command::kClear);
  Type(0, "A");
  Edit.cmdSwap(0);
  Edit.cmdCard(1);
  Do(Command::kRandom);
  Do(Command::kUndo);
  Do(Command::kRestore);
  Do(Command::kCopy);
  Do(Command::kNext);
  EXPECT_EQ(Prog.Set.CurrentBoard, 3);
  EXPECT_TRUE(Clip.ClipFilled);
  EXPECT_THAT(Ui.Boxes, IsEmpty());
}

constexpr const char* kDiscard =
    "      Changes were not accepted      \r\n"
    " \r\n"
    "      Discard changes and exit?      ";

TEST_F(EditorLimits, ClosingAsksWhereACardDiffers) {
  Open();
  Type(0, "J7");
  Ui.Answers = {kNo, kYes};
  Edit.cmdExit();
  EXPECT_FALSE(Edit.Closed());
  EXPECT_EQ(Text(0), "J7") << "nothing is lost";
  Edit.cmdExit();
  EXPECT_TRUE(Edit.Closed());
  EXPECT_THAT(Ui.Boxes,
              ElementsAre(FakeUi::Box{kDiscard, 52, "Edit"}, FakeUi::Box{kDiscard, 52, "Edit"}));
  EXPECT_EQ(Prog.Set.At(1), FilledBoard(1));
}

TEST_F(EditorLimits, ClosingAsksNothingWhereAllIsAccepted) {
  Open();
  Type(0, "J7");
  Do(Command::kAccept);
  Edit.cmdExit();
  EXPECT_TRUE(Edit.Closed());
  EXPECT_THAT(Ui.Boxes, IsEmpty());
}

TEST_F(EditorLimits, NothingHappensAfterClosing) {
  Open();
  Edit.EnterKey();
  Edit.cmdExit();
  Prog.Link = {LinkRequest::kDownload, "a.adc"};
  Do(Command::kDelete);
  Edit.EnterKey();
  Loop.WaitMs(1000);
  EXPECT_EQ(View.Focused, 0);
  EXPECT_EQ(Prog.Set.LastBoard, 3);
  EXPECT_EQ(Prog.Link.Pending, LinkRequest::kDownload) << "left to the main window";
}

struct FirmwareRequest : EditorLimits {
  const FakeUi::Box question{
      "      Attempting to download new firmware to the Morvane.      \r\n"
      "      Firmware file: /tmp/new.adc      \r\n"
      " \r\n"
      "      Do you want to interrupt current activity and proceed with update?      ",
      308, "Download New Firmware"};
  void Ask(int answer) {
    Open();
    Ui.Answers = {answer};
    Prog.Link = {LinkRequest::kDownload, "/tmp/new.adc"};
    Loop.WaitMs(Editor::kTimer1Ms);
    EXPECT_THAT(Ui.Boxes, ElementsAre(question));
    EXPECT_EQ(Prog.Link.Pending, LinkRequest::kNone);
    EXPECT_EQ(Prog.Link.File, "");
    Loop.WaitMs(1000);
    EXPECT_EQ(Ui.Boxes.size(), 1U) << "asked once";
    EXPECT_FALSE(Edit.Closed());
  }
};

TEST_F(FirmwareRequest, YesHandsTheFileOn) {
  Ask(kYes);
  EXPECT_THAT(Downloads, ElementsAre("/tmp/new.adc"));
}

TEST_F(FirmwareRequest, NoDropsIt) {
  Ask(kNo);
  EXPECT_THAT(Downloads, IsEmpty());
}

TEST_F(FirmwareRequest, ARequestToLoadWaitsForTheMainWindow) {
  Open();
  Prog.Link = {LinkRequest::kLoad, "/tmp/a.pbn"};
  Loop.WaitMs(1000);
  EXPECT_EQ(Prog.Link.Pending, LinkRequest::kLoad);
  EXPECT_THAT(Ui.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::edit
