#include "edit/edit_desk.h"

namespace morvane::edit {
namespace {

using Command = Editor::Command;

struct EditorUndo : ::testing::Test, EditDesk {
  void Undo() { Do(Command::kUndo); }
  void Redo() { Do(Command::kRedo); }
};

TEST_F(EditorUndo, WhatIsTypedInOneGoIsOneStep) {
  Open();
  Type(0, "J7");
  Type(0, "J");
  Type(0, "");
  Type(1, "");
  ASSERT_EQ(Text(1), "");
  Undo();
  EXPECT_EQ(Text(1), "Q84");
  EXPECT_EQ(Text(0), "");
  Undo();
  EXPECT_EQ(Text(0), "J73");
  EXPECT_FALSE(Can(Command::kUndo));
  EXPECT_TRUE(Edit.Accepted());
}

TEST_F(EditorUndo, LeavingTheBoxEndsTheStep) {
  Open();
  Type(0, "J7");
  Edit.EnterSuit(1);
  Edit.EnterSuit(0);
  Type(0, "J");
  Undo();
  EXPECT_EQ(Text(0), "J7");
}

TEST_F(EditorUndo, RedoGoesOnAgain) {
  Open();
  Edit.cmdSwap(0);
  Do(Command::kClear);
  Undo();
  Undo();
  EXPECT_EQ(Edit.EditBoard(), FilledBoard(1));
  Redo();
  EXPECT_EQ(Text(0), "Q84") << "West's spades";
  Redo();
  EXPECT_EQ(Edit.EditBoard().Status, Board::kEmpty);
  EXPECT_FALSE(Can(Command::kRedo));
}

TEST_F(EditorUndo, ANewChangeForgetsWhatCouldBeRedone) {
  Open();
  Do(Command::kClear);
  Undo();
  Edit.cmdSwap(0);
  EXPECT_FALSE(Can(Command::kRedo));
}

TEST_F(EditorUndo, WhatChangesNothingIsNoStep) {
  Open();
  Type(0, "J731");
  Type(0, "j73");
  Do(Command::kRandom);
  EXPECT_FALSE(Can(Command::kUndo));
  Edit.EnterSuit(0);
  Edit.cmdCard(3);
  EXPECT_FALSE(Can(Command::kUndo)) << "the jack is there";
}

TEST_F(EditorUndo, ReachesBehindAccept) {
  Open();
  Do(Command::kClear);
  Do(Command::kAccept);
  Undo();
  EXPECT_EQ(Text(0), "J73");
  EXPECT_FALSE(Edit.Accepted());
  EXPECT_EQ(Prog.Set.At(1).Status, Board::kEmpty) << "the set changes by Accept alone";
}

TEST_F(EditorUndo, BringsNoResultsOfOtherCardsBack) {
  Open();
  Prog.Set.At(1).Tricks[3] = 4;
  Edit.DisplayBoard();
  Type(0, "AKQ");
  Edit.cmdSwap(0);
  Edit.cmdSwap(0);
  Do(Command::kAccept);
  Undo();
  Undo();
  EXPECT_TRUE(Edit.Accepted()) << "the cards that were accepted";
  EXPECT_FALSE(Edit.Analyzed()) << "the results were those of the board before";
  Prog.Set.At(1).Dealer = kWest;
  Do(Command::kAccept);
  EXPECT_EQ(Prog.Set.At(1).Tricks, Board{}.Tricks);
}

TEST_F(EditorUndo, ReachesBehindRestore) {
  Open();
  Type(0, "AKQ");
  Do(Command::kRestore);
  Undo();
  EXPECT_EQ(Text(0), "AKQ");
}

TEST_F(EditorUndo, BringsBackWhatWasLeftUnaccepted) {
  Open();
  Type(0, "AKQ");
  Do(Command::kLast);
  Undo();
  EXPECT_EQ(Numbers(), "1,3,1");
  EXPECT_EQ(Text(0), "AKQ");
  Redo();
  EXPECT_EQ(Numbers(), "1,3,3");
  EXPECT_TRUE(Edit.Accepted());
}

TEST_F(EditorUndo, FollowsABoardThatMovesUp) {
  Open(1, 3, 2);
  Type(0, "AKQ");
  Do(Command::kInsert);
  Undo();
  EXPECT_EQ(Numbers(), "1,4,3") << "board 2 is board 3 now";
  EXPECT_EQ(Text(0), "AKQ");
  EXPECT_EQ(Edit.EditBoard().Number, 3);
  EXPECT_EQ(Edit.EditBoard().Dealer, kSouth);
}

TEST_F(EditorUndo, FollowsABoardThatMovesDown) {
  Open(2, 4, 3);
  Type(0, "AKQ");
  Do(Command::kShiftLeft);
  Undo();
  EXPECT_EQ(Numbers(), "1,3,2");
  EXPECT_EQ(Text(0), "AKQ");
  Do(Command::kPrev);
  Do(Command::kDelete);
  EXPECT_EQ(Numbers(), "1,2,1");
  Undo();
  EXPECT_EQ(Text(0), "AKQ");
  EXPECT_EQ(Numbers(), "1,2,1") << "it has moved down once more";
}

TEST_F(EditorUndo, ForgetsABoardThatIsDeleted) {
  Open(1, 3, 2);
  Type(0, "AKQ");
  Do(Command::kDelete);
  EXPECT_FALSE(Can(Command::kUndo));
  EXPECT_EQ(Edit.EditBoard().Cards, FilledBoard(3).Cards);
}

TEST_F(EditorUndo, OfAddedBoardsKeepsTheirNumbering) {
  Open(1, 3, 1);
  Prog.Set.At(1).Dealer = kWest;
  Edit.DisplayBoard();
  Type(0, "AKQ");
  Do(Command::kAdd);
  Undo();
  EXPECT_TRUE(Edit.Accepted()) << "the dealer of board 1 is North, before and after";
}

TEST_F(EditorUndo, ForgetsTheOldestSteps) {
  Open();
  for (std::size_t i = 0; i <= EditHistory::kMost; ++i) Edit.cmdSwap(0);
  std::size_t steps = 0;
  for (; Can(Command::kUndo); ++steps) Undo();
  EXPECT_EQ(steps, EditHistory::kMost);
  EXPECT_EQ(Text(0), "Q84") << "swapped once";
}

}  // namespace
}  // namespace morvane::edit
