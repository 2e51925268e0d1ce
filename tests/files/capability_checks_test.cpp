#include "files/capability_checks.h"

#include "files/file_boxes.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using test::TestDesk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

bool Asks(TestDesk& desk, const char* extension, const std::string& incomplete = "") {
  return MaySave(desk.Prog, desk.Prog.Set, *FindFormat(extension), incomplete);
}

/// Boards 1..`last`, of which those in `incomplete` have lost a card.
void MakeSet(BoardSet& set, int first, int last, const std::vector<int>& incomplete) {
  test::FillSet(set, first, last);
  for (const int n : incomplete) {
    set.At(n).Cards[1] = 0;
    AnalyzeBoard(set.At(n));
  }
}

TEST(IncompleteBoardList, IsEmptyForACompleteSet) {
  BoardSet set;
  MakeSet(set, 1, 8, {});
  EXPECT_EQ(IncompleteBoardList(set), "");
}

TEST(IncompleteBoardList, JoinsTheNumbersOfIncompleteAndEmptyBoards) {
  BoardSet set;
  MakeSet(set, 1, 20, {2, 16});
  set.At(9) = Board{};
  EXPECT_EQ(IncompleteBoardList(set), "2, 9, 16");
}

TEST(IncompleteBoardList, TakesNumbersWhileItIsShorterThan30Characters) {
  BoardSet set;
  // 1..9 joined are 25 characters, with ", 10" 29: still shorter, so 11 comes too and makes 33.
  MakeSet(set, 1, 20, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
  EXPECT_EQ(IncompleteBoardList(set), "1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11");
  MakeSet(set, 1, 20, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13});
  EXPECT_EQ(IncompleteBoardList(set), "1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11.... ");
}

TEST(IncompleteBoardList, StopsAtExactly30Characters) {
  BoardSet set;
  MakeSet(set, 1, 110, {1, 2, 10, 11, 12, 13, 14, 15, 16, 17});
  // 1 + 3 + 6 x 4 = 28, then 16: 32.
  EXPECT_EQ(IncompleteBoardList(set), "1, 2, 10, 11, 12, 13, 14, 15, 16.... ");
  MakeSet(set, 10, 110, {10, 11, 12, 13, 14, 100, 101, 102});
  // 2 + 4 x 4 = 18, 100 makes 23, 101 28, 102 33.
  EXPECT_EQ(IncompleteBoardList(set), "10, 11, 12, 13, 14, 100, 101, 102");
  MakeSet(set, 10, 110, {10, 11, 12, 13, 14, 15, 16, 17, 18});
  // 2 + 7 x 4 = 30 with 17: no longer shorter than 30.
  EXPECT_EQ(IncompleteBoardList(set), "10, 11, 12, 13, 14, 15, 16, 17.... ");
}

TEST(IncompleteBoards, UpToThreeCharactersAreOneBoardAndMoreAreSeveral) {
  TestDesk desk;
  EXPECT_FALSE(Asks(desk, "ALL", "640"));
  EXPECT_FALSE(Asks(desk, "ALL", "1, 2"));
  EXPECT_FALSE(Asks(desk, "PBN", "640"));
  EXPECT_FALSE(Asks(desk, "PBN", "1, 2"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Refusal("Board number: 640 is", "DEAL305"),
                                         Refusal("Boards number: 1, 2 are", "DEAL305"),
                                         IncompleteQuestion("Board number: 640 is", "PBN"),
                                         IncompleteQuestion("Boards number: 1, 2 are", "PBN")));
}

TEST(IncompleteBoards, ARefusalIsLoggedAndAQuestionIsNot) {
  TestDesk desk;
  EXPECT_FALSE(Asks(desk, "DUP", "640"));
  EXPECT_FALSE(Asks(desk, "PBN", "640"));
  EXPECT_THAT(
      desk.LogLines(),
      ElementsAre("    Save Error: Board number: 640 is incomplete. : This Board Set cannot be "
                  "saved in DUP format. : If you need to save this Board Set please use PBN or BRE "
                  "format. : "));
}

TEST(IncompleteBoards, ASettingIsOnOnlyWhenItsTextIsOne) {
  TestDesk desk;
  desk.Store.Set(kSaveIncomplete, " 1");
  EXPECT_TRUE(Asks(desk, "PBN", "1, 2"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(PbnCharacters, EachForbiddenOneIsFoundInEachText) {
  for (const char c : std::string("[]{}%;\"")) {
    for (std::string BoardSet::*text :
         {&BoardSet::EventName, &BoardSet::EventSite, &BoardSet::EventDate}) {
      BoardSet set;
      EXPECT_FALSE(HasPbnForbiddenChars(set));
      set.*text = std::string("Club ") + c + " x";
      EXPECT_TRUE(HasPbnForbiddenChars(set)) << c;
    }
  }
}

TEST(PbnCharacters, ComeAfterTheQuestionAboutIncompleteBoards) {
  TestDesk desk;
  desk.Prog.Set.EventDate = "50%";
  desk.Ui.Answers = {kYes};
  EXPECT_FALSE(Asks(desk, "PBN", "7"));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(IncompleteQuestion("Board number: 7 is", "PBN"), ForbiddenCharacters()));
}

}  // namespace
}  // namespace morvane::files
