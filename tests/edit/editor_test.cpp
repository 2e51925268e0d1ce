#include "edit/editor.h"

#include "edit/edit_desk.h"

namespace morvane::edit {
namespace {

using Command = Editor::Command;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Editor, OpensAtTheCurrentBoardAndLogsTheTime) {
  EditDesk desk;
  desk.Prog.Set.CurrentBoard = 2;
  desk.Edit.Open();
  EXPECT_EQ(desk.Edit.EditBoard(), desk.Prog.Set.At(2));
  EXPECT_EQ(desk.LogLines().back(), " Edit: 3:04:05 PM");
  EXPECT_TRUE(desk.Edit.Accepted());
}

TEST(Editor, WithoutASetOpensBoard1OfANewOne) {
  EditDesk desk;
  desk.Prog.Set = BoardSet{};
  desk.Edit.Open();
  EXPECT_EQ(desk.Numbers(), "1,1,1");
  EXPECT_EQ(desk.Edit.EditBoard(), NumberedBoard(1));
  EXPECT_FALSE(desk.Prog.Set.Changed());
}

TEST(Editor, ForcesTheCurrentBoardIntoTheSet) {
  EditDesk desk;
  desk.Open(5, 7, 1);
  EXPECT_EQ(desk.Numbers(), "5,7,5");
}

TEST(Editor, TypingMovesACardFromTheHandThatHeldIt) {
  EditDesk desk;
  desk.Open();
  // The cards of board 1 go round from East: North has spades J, 7 and 3, East A, T, 6 and 2.
  ASSERT_EQ(desk.Text(0), "J73");
  ASSERT_EQ(desk.Text(4), "AT62");
  const int shown = desk.View.Shown;
  desk.Type(0, "aJ731");
  EXPECT_EQ(desk.Text(0), "AJ73") << "a small letter counts, a 1 does not";
  EXPECT_EQ(desk.Text(4), "T62");
  EXPECT_EQ(desk.View.Shown, shown + 1);
  EXPECT_EQ(desk.Edit.EditBoard().HandCount[kNorth], 14);
  EXPECT_EQ(desk.Edit.EditBoard().HandCount[kEast], 12);
  EXPECT_EQ(desk.Prog.Set.At(1), FilledBoard(1)) << "the set has not changed";
}

TEST(Editor, ACardButtonAddsToTheBoxThatHasTheFocus) {
  EditDesk desk;
  desk.Open();
  desk.Edit.EnterSuit(5);
  // East's hearts are cards 17, 21 and 25: J, 7 and 3.
  ASSERT_EQ(desk.Text(5), "J73");
  desk.Edit.cmdCard(0);
  desk.Edit.cmdCard(12);
  EXPECT_EQ(desk.Text(5), "AJ732");
}

TEST(Editor, AcceptStoresTheBoardUnderItsNumber) {
  EditDesk desk;
  desk.Open(1, 3, 2);
  desk.Do(Command::kClear);
  desk.Type(0, "AK");
  desk.Type(13, "Q2");
  desk.Do(Command::kAccept);
  const Board& stored = desk.Prog.Set.At(2);
  EXPECT_EQ(stored.Number, 2);
  EXPECT_EQ(SuitText(stored, 0), "AK");
  EXPECT_EQ(stored.Status, Board::kIncomplete);
  EXPECT_TRUE(desk.Edit.Accepted());
  EXPECT_THAT(desk.NewLines(), ElementsAre("   Accept: 2  AK... ... ... .Q2.. "));
}

TEST(Editor, AcceptTakesAwayWhatWasSaidOfOtherCards) {
  EditDesk desk;
  desk.Open();
  Board& stored = desk.Prog.Set.At(1);
  stored.Tricks[3] = 4;
  stored.DealNumber[11] = 1;
  stored.DealCounter[3] = 1;
  desk.Edit.DisplayBoard();
  EXPECT_TRUE(desk.Edit.Analyzed());
  desk.Edit.cmdSwap(0);
  EXPECT_FALSE(desk.Edit.Analyzed()) << "not of these cards";
  desk.Do(Command::kAccept);
  EXPECT_EQ(stored.Tricks, Board{}.Tricks);
  EXPECT_EQ(stored.DealNumber, Board{}.DealNumber);
  EXPECT_EQ(stored.DealCounter, Board{}.DealCounter);
}

TEST(Editor, AcceptKeepsWhatWasSaidOfTheSameCards) {
  EditDesk desk;
  desk.Open();
  Board& stored = desk.Prog.Set.At(1);
  stored.Tricks[3] = 4;
  stored.DealNumber[11] = 1;
  stored.Dealer = kWest;
  desk.Edit.DisplayBoard();
  desk.Do(Command::kAdd);  // gives the board the dealer of its number
  stored.Dealer = kWest;
  desk.Do(Command::kAccept);
  EXPECT_EQ(stored.Dealer, kNorth);
  EXPECT_EQ(stored.Tricks[3], 4);
  EXPECT_EQ(stored.DealNumber[11], 1);
}

TEST(Editor, CardsThatAreTypedAgainKeepWhatWasSaidOfThem) {
  EditDesk desk;
  desk.Open();
  Board& stored = desk.Prog.Set.At(1);
  stored.Tricks[3] = 4;
  stored.DealNumber[11] = 1;
  stored.DealCounter[3] = 1;
  desk.Edit.DisplayBoard();
  std::vector<std::string> cards;
  for (int box = 0; box < kSuitBoxes; ++box) cards.push_back(desk.Text(box));
  desk.Do(Command::kClear);
  EXPECT_FALSE(desk.Edit.Analyzed());
  for (int box = 0; box < kSuitBoxes; ++box) desk.Type(box, cards[static_cast<std::size_t>(box)]);
  EXPECT_TRUE(desk.Edit.Analyzed());
  desk.Do(Command::kAccept);
  EXPECT_EQ(stored.Tricks[3], 4);
  EXPECT_EQ(stored.DealNumber[11], 1);
  EXPECT_EQ(stored.DealCounter[3], 1);
}

TEST(Editor, DoesNotTouchTheMarkOfUnsavedChanges) {
  for (const char* mark : {"0", "1"}) {
    EditDesk desk;
    desk.Open();
    desk.Prog.Set.BoardSetChanged = mark;
    for (const auto command : {Command::kClear, Command::kCopy}) desk.Do(command);
    EXPECT_FALSE(desk.Prog.Set.Edited);
    for (const auto command : {Command::kAccept, Command::kAdd, Command::kCut, Command::kPaste}) {
      desk.Do(command);
    }
    EXPECT_TRUE(desk.Prog.Set.Edited);
    EXPECT_EQ(desk.NewLines().size(), 5U);
    EXPECT_EQ(desk.Prog.Set.BoardSetChanged, mark);
  }
}

TEST(Editor, AddKeepsTheWorkingCopy) {
  EditDesk desk;
  desk.Open(1, 3, 2);
  desk.Type(0, "AKQ");
  const auto cards = desk.Edit.EditBoard().Cards;
  desk.Do(Command::kAdd);
  EXPECT_EQ(desk.Numbers(), "1,4,2");
  EXPECT_EQ(desk.Edit.EditBoard().Cards, cards);
  EXPECT_FALSE(desk.Edit.Accepted());
  EXPECT_EQ(desk.Prog.Set.At(4), NumberedBoard(4));
  EXPECT_THAT(desk.NewLines(), ElementsAre("   Add: 1,4,2"));
}

TEST(Editor, AddLeavesNothingToAcceptOnABoardOfItsOwnDealer) {
  EditDesk desk;
  desk.Open();
  desk.Prog.Set.At(1).Dealer = kWest;
  desk.Edit.DisplayBoard();
  desk.Do(Command::kAdd);
  EXPECT_EQ(desk.Prog.Set.At(1).Dealer, kNorth);
  EXPECT_TRUE(desk.Edit.Accepted());
}

TEST(Editor, InsertShowsTheNewBoard) {
  EditDesk desk;
  desk.Open(1, 3, 2);
  desk.Do(Command::kInsert);
  EXPECT_EQ(desk.Numbers(), "1,4,2");
  EXPECT_EQ(desk.Edit.EditBoard(), NumberedBoard(2));
  EXPECT_TRUE(desk.HoldsCardsOf(3, FilledBoard(2)));
  EXPECT_THAT(desk.NewLines(), ElementsAre("   Insert: 1,4,2"));
}

TEST(Editor, DeleteOnTheLastBoardShowsTheNewLastOne) {
  EditDesk desk;
  desk.Open(1, 3, 3);
  desk.Do(Command::kDelete);
  EXPECT_EQ(desk.Numbers(), "1,2,2");
  EXPECT_EQ(desk.Edit.EditBoard().Cards, FilledBoard(2).Cards);
  EXPECT_THAT(desk.NewLines(), ElementsAre("   Delete: 1,2,2"));
}

TEST(Editor, CopyHoldsTheSetsBoard) {
  EditDesk desk;
  desk.Open(1, 3, 2);
  desk.Type(0, "");
  desk.Do(Command::kCopy);
  EXPECT_TRUE(desk.Clip.ClipFilled);
  EXPECT_EQ(desk.Clip.ClipBoard, desk.Prog.Set.At(2)) << "not the working copy";
  EXPECT_EQ(desk.Text(0), "") << "which stays as it is";
  EXPECT_THAT(desk.NewLines(), ElementsAre("   Copy: 1,3,2"));
}

TEST(Editor, CutIsCopyAndDeleteWithOneLine) {
  EditDesk desk;
  desk.Open(1, 3, 2);
  const Board held = desk.Prog.Set.At(2);
  desk.Do(Command::kCut);
  EXPECT_EQ(desk.Clip.ClipBoard, held);
  EXPECT_EQ(desk.Numbers(), "1,2,2");
  EXPECT_TRUE(desk.HoldsCardsOf(2, FilledBoard(3)));
  EXPECT_EQ(desk.Edit.EditBoard().Cards, FilledBoard(3).Cards);
  EXPECT_THAT(desk.NewLines(), ElementsAre("   Cut: 1,2,2"));
}

TEST(Editor, PasteInsertsACopyAndReplacesNothing) {
  EditDesk desk;
  desk.Open(1, 3, 1);
  desk.Do(Command::kCopy);
  desk.Do(Command::kLast);
  desk.Do(Command::kPaste);
  EXPECT_EQ(desk.Numbers(), "1,4,3");
  EXPECT_TRUE(desk.HoldsCardsOf(3, FilledBoard(1)));
  EXPECT_TRUE(desk.HoldsCardsOf(4, FilledBoard(3)));
  EXPECT_EQ(desk.Prog.Set.At(3).Number, 3);
  EXPECT_EQ(desk.Prog.Set.At(3).Dealer, kSouth);
  EXPECT_EQ(desk.Edit.EditBoard(), desk.Prog.Set.At(3));
  EXPECT_TRUE(desk.Can(Command::kPaste)) << "it can be pasted again";
  EXPECT_THAT(desk.NewLines(), ElementsAre("   Copy: 1,3,1", "   Paste: 1,4,3"));
}

TEST(Editor, ShiftsMoveTheWholeSet) {
  EditDesk desk;
  desk.Open(2, 4, 3);
  desk.Do(Command::kShiftLeft);
  EXPECT_EQ(desk.Numbers(), "1,3,2");
  EXPECT_EQ(desk.Edit.EditBoard().Number, 2);
  EXPECT_EQ(desk.Edit.EditBoard().Dealer, kEast) << "was South's as board 3";
  EXPECT_EQ(desk.Edit.EditBoard().Cards, FilledBoard(3).Cards) << "the same deal";
  desk.Do(Command::kShiftRight);
  desk.Do(Command::kShiftRight);
  EXPECT_EQ(desk.Numbers(), "3,5,4");
  EXPECT_THAT(desk.NewLines(), ElementsAre("   Shift_left: 1,3,2", "   Shift_right: 2,4,3",
                                           "   Shift_right: 3,5,4"));
}

TEST(Editor, RestoreTakesTheSetsBoardAgainAndGivesTheFocusBack) {
  EditDesk desk;
  desk.Open();
  desk.Do(Command::kClear);
  EXPECT_EQ(desk.Text(0), "");
  desk.Do(Command::kRestore);
  EXPECT_TRUE(desk.Edit.Accepted());
  EXPECT_EQ(desk.View.Focused, 0);
  desk.Loop.WaitMs(Editor::kTimer3Ms);
  EXPECT_EQ(desk.View.Focused, 1);
  desk.Loop.WaitMs(1000);
  EXPECT_EQ(desk.View.Focused, 1) << "once";
  EXPECT_THAT(desk.NewLines(), IsEmpty());
}

TEST(Editor, EnterGivesTheFocusBackOnce) {
  EditDesk desk;
  desk.Open();
  desk.Edit.EnterKey();
  desk.Edit.EnterKey();
  desk.Loop.WaitMs(1000);
  EXPECT_EQ(desk.View.Focused, 1);
}

TEST(Editor, ClearEmptiesTheWorkingCopyAlone) {
  EditDesk desk;
  desk.Open();
  desk.Do(Command::kClear);
  EXPECT_EQ(desk.Edit.EditBoard(), Board{});
  EXPECT_EQ(desk.Prog.Set.At(1), FilledBoard(1));
  EXPECT_THAT(desk.NewLines(), IsEmpty());
}

TEST(Editor, RandomFillCompletesWhatWasEntered) {
  EditDesk desk;
  desk.Open();
  desk.Do(Command::kClear);
  desk.Type(0, "AKQJT98765432");
  desk.Do(Command::kRandom);
  EXPECT_EQ(desk.Text(0), "AKQJT98765432");
  EXPECT_EQ(desk.Edit.EditBoard().Status, Board::kComplete);
  const auto first = desk.Edit.EditBoard().Cards;
  desk.Do(Command::kUndo);
  desk.Do(Command::kRandom);
  EXPECT_NE(desk.Edit.EditBoard().Cards, first) << "the deck goes on";
}

TEST(Editor, RandomFillOfACompleteBoardChangesNothing) {
  EditDesk desk;
  desk.Open();
  desk.Do(Command::kRandom);
  EXPECT_TRUE(desk.Edit.Accepted());
  EXPECT_FALSE(desk.Can(Command::kUndo));
}

TEST(Editor, WalksFromBoardToBoard) {
  EditDesk desk;
  desk.Open(1, 3, 1);
  const std::vector<std::pair<Command, int>> steps{
      {Command::kNext, 2}, {Command::kLast, 3}, {Command::kPrev, 2}, {Command::kFirst, 1}};
  for (const auto& [command, number] : steps) {
    desk.Do(command);
    EXPECT_EQ(desk.Prog.Set.CurrentBoard, number);
    EXPECT_EQ(desk.Edit.EditBoard(), desk.Prog.Set.At(number));
  }
  EXPECT_THAT(desk.NewLines(), IsEmpty());
}

TEST(Editor, WalkingAwayGivesUpWhatWasNotAccepted) {
  EditDesk desk;
  desk.Open();
  desk.Do(Command::kClear);
  desk.Do(Command::kNext);
  desk.Do(Command::kPrev);
  EXPECT_EQ(desk.Edit.EditBoard(), FilledBoard(1));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::edit
