#include "machine/hand_list.h"
#include "machine/run_fixture.h"

namespace morvane::machine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class CompleteBoard : public RunFixture {
 protected:
  /// A box has its line in the log too.
  [[nodiscard]] std::string LineBeforeTheBox() const {
    const auto lines = desk.LogLines();
    return lines.at(lines.size() - 2);
  }
};

constexpr const char* kSixteenOfBoard1 =
    "      The machine has stopped without dealing all cards: "
    "16 of 52 cards of board 1 have been dealt.      \r\n\r\n"
    "      Please put the cards together and deal the board again.      ";

TEST_F(CompleteBoard, IdleWithoutAnErrorIsNotOkWhileCardsAreMissingFromTheLog) {
  paper.CardsLogged = 16;  // a machine that has restarted in the middle of the board
  Contact();
  run.cmdDeal();
  EXPECT_EQ(LineBeforeTheBox(), "  001 : 1,0 0,0,0,0");
  ASSERT_EQ(LastBox(), kSixteenOfBoard1);
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Dealing Error");
  EXPECT_EQ(run.LastOutcome(), DealingRun::Outcome::kStopped);
  EXPECT_EQ(SentCodes().back(), 0x1A) << "the probe brings the machine back to idle";
}

TEST_F(CompleteBoard, OneThatIsNotIsDealtAgainAsACancelledOneIs) {
  paper.CardsLogged = 51;
  Contact();
  run.cmdDeal();
  EXPECT_FALSE(run.Window().Controls.Deal_next);
  EXPECT_TRUE(run.Window().Controls.cmdDeal);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 1);
  EXPECT_EQ(view.Focused, 0);
  paper.CardsLogged = 52;
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK");
  EXPECT_TRUE(run.Window().Controls.Deal_next);
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
}

TEST_F(CompleteBoard, TheLastOneOfTheSetIsNotPraisedEither) {
  desk.Store.Set(kDealSub, "1");
  paper.CardsLogged = 0;
  Contact();
  run.LeaveSubto("1");
  run.cmdDeal();
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_NE(LastBox(), desk.Prog.Texts.Msg060);
}

TEST_F(CompleteBoard, AContinuedOneIsHeldAgainstTheLogToo) {
  paper.Codes = {30};
  paper.CardsLogged = 16;
  view.Answers = {Continue};
  Contact();
  run.cmdDeal();
  EXPECT_EQ(LineBeforeTheBox(), "  001 : 1,0 0,0,0,0 30");
  EXPECT_EQ(LastBox(), kSixteenOfBoard1);
}

TEST_F(CompleteBoard, AFaultThatIsCancelledHasBeenToldAlready) {
  paper.Codes = {54};
  paper.CardsLogged = 16;
  view.Answers = {Cancel};
  Contact();
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 54");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(CompleteBoard, ThePedalBehindTheBoxStartsNothing) {
  paper.CardsLogged = 16;
  Contact();
  desk.Ui.OnBox = [this] {
    paper.Events = 8;
    desk.Loop.WaitMs(500);
  };
  run.cmdDeal();
  desk.Ui.OnBox = nullptr;
  desk.Loop.WaitMs(500);
  EXPECT_THAT(SentOf(0x98), SizeIs(1));
}

TEST_F(CompleteBoard, ACardLogThatArrivesSpoiledOnceIsAskedForAgain) {
  Contact();
  int logs = 0;
  paper.Damage = [&](int, const test::Bytes& plain, test::Bytes wire) {
    if (plain[0] == 0x20 && ++logs == 1) wire[30] ^= 1;
    return wire;
  };
  run.cmdDeal();
  EXPECT_EQ(logs, 2);
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(CardsMissing, CountsWhatTheBoardHasAndTheLogHasNot) {
  const Board board = test::SuitBoard(1);
  wire::CardBytes log;
  EXPECT_EQ(CardsMissing(board, log), 52);
  log.Bytes[0] = 1;    // the Two of Spades
  log.Bytes[51] = 52;  // the Ace of Clubs
  EXPECT_EQ(CardsMissing(board, log), 50);
  log.Bytes[52] = 53;  // a joker, of which the board has none
  EXPECT_EQ(CardsMissing(board, log), 50);
  EXPECT_EQ(CardsMissing(Board{}, log), 0);
}

}  // namespace
}  // namespace morvane::machine
