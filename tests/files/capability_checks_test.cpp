#include "files/capability_checks.h"

#include "files/file_boxes.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using test::FakeUi;
using test::TestDesk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

bool Asks(TestDesk& desk, const char* extension, const std::string& incomplete = "") {
  return MaySave(desk.Prog, *FindFormat(extension), incomplete);
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

TEST(IncompleteBoards, AFormatThatCannotHoldThemRefuses) {
  for (const char* extension : {"BRI", "DGE", "DUP", "ALL", "CSV"}) {
    TestDesk desk;
    const std::string name(FindFormat(extension)->Name);
    EXPECT_FALSE(Asks(desk, extension, "640"));
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Refusal("Board number: 640 is", name)));
    EXPECT_THAT(desk.LogLines(),
                ElementsAre("    Save Error: Board number: 640 is incomplete. : This Board Set "
                            "cannot be saved in " +
                            name +
                            " format. : If you need to save this Board Set please use PBN or BRE "
                            "format. : "));
  }
}

TEST(IncompleteBoards, MoreThanThreeCharactersAreSeveralBoards) {
  TestDesk desk;
  EXPECT_FALSE(Asks(desk, "DUP", "1, 2"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Refusal("Boards number: 1, 2 are", "DUP")));
}

TEST(IncompleteBoards, AFormatThatHoldsThemAsks) {
  for (const char* format : {"PBN", "BRE"}) {
    TestDesk desk;
    desk.Prog.Set.FirstBoard = 1;
    desk.Ui.Answers = {kYes, kNo};
    EXPECT_TRUE(Asks(desk, format, "640"));
    EXPECT_FALSE(Asks(desk, format, "1, 2"));
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(IncompleteQuestion("Board number: 640 is", format),
                                           IncompleteQuestion("Boards number: 1, 2 are", format)));
    EXPECT_THAT(desk.LogLines(), IsEmpty());
  }
}

TEST(IncompleteBoards, WithoutTheSettingNoQuestionIsAsked) {
  TestDesk desk;
  desk.Store.Set(kSaveIncomplete, "0");
  EXPECT_TRUE(Asks(desk, "PBN", "1, 2"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  // The setting does not help where the format can't hold them.
  EXPECT_FALSE(Asks(desk, "DGE", "1, 2"));
}

TEST(IncompleteBoards, ASettingIsOnOnlyWhenItsTextIsOne) {
  TestDesk desk;
  desk.Store.Set(kSaveIncomplete, " 1");
  EXPECT_TRUE(Asks(desk, "PBN", "1, 2"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(EventWarning, ComesWithEveryFormatWithoutEventTextsAlsoWhenTheyAreEmpty) {
  for (const char* extension : {"BRI", "DGE", "DUP", "ALL", "CSV"}) {
    TestDesk desk;
    desk.Prog.Set.FirstBoard = 1;
    desk.Ui.Answers = {kYes, kNo};
    const FakeUi::Box box = EventWarning(std::string(FindFormat(extension)->Name));
    EXPECT_TRUE(Asks(desk, extension));
    EXPECT_FALSE(Asks(desk, extension));
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(box, box));
    desk.Store.Set(kSaveEvent, "0");
    EXPECT_TRUE(Asks(desk, extension));
    EXPECT_EQ(desk.Ui.Boxes.size(), 2U);
  }
}

TEST(NumbersWarning, ComesWithFormatsWithoutNumbersWhenTheSetStartsLater) {
  for (const char* extension : {"BRI", "DGE", "ALL"}) {
    TestDesk desk;
    desk.Prog.Set.FirstBoard = 2;
    desk.Ui.Answers = {kYes, kYes, kYes, kNo};
    const std::string name(FindFormat(extension)->Name);
    EXPECT_TRUE(Asks(desk, extension));
    EXPECT_FALSE(Asks(desk, extension));
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(EventWarning(name), NumbersWarning(name),
                                           EventWarning(name), NumbersWarning(name)));
  }
  TestDesk desk;
  desk.Prog.Set.FirstBoard = 2;
  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(Asks(desk, "BRE"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(NumbersWarning("BRE")));
}

TEST(NumbersWarning, ComesNeitherFromBoard1NorWithoutTheSetting) {
  TestDesk desk;
  desk.Prog.Set.FirstBoard = 1;
  EXPECT_TRUE(Asks(desk, "BRE"));
  desk.Prog.Set.FirstBoard = 2;
  desk.Store.Set(kSaveNumbers, "0");
  EXPECT_TRUE(Asks(desk, "BRE"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(NumbersWarning, DupCsvAndPbnCarryNumbers) {
  TestDesk desk;
  desk.Prog.Set.FirstBoard = 2;
  desk.Store.Set(kSaveEvent, "0");
  for (const char* format : {"DUP", "CSV", "PBN"}) EXPECT_TRUE(Asks(desk, format));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(Questions, TheFirstNoEndsThem) {
  TestDesk desk;
  desk.Prog.Set.FirstBoard = 2;
  desk.Ui.Answers = {kNo};
  EXPECT_FALSE(Asks(desk, "BRI"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(EventWarning("BRI")));
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

TEST(PbnCharacters, StopAPbnSaveOnly) {
  TestDesk desk;
  desk.Prog.Set.FirstBoard = 1;
  desk.Prog.Set.EventSite = "[Hall]";
  EXPECT_TRUE(Asks(desk, "BRE"));
  EXPECT_FALSE(Asks(desk, "PBN"));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      In PBN format characters []{};\"% are not allowed in "
                                      "the Event Name, Event Site and Event Date fields      ",
                                      16, "Save Error"}));
}

TEST(PbnCharacters, ComeAfterTheQuestionAboutIncompleteBoards) {
  TestDesk desk;
  desk.Prog.Set.EventDate = "50%";
  desk.Ui.Answers = {kYes};
  EXPECT_FALSE(Asks(desk, "PBN", "7"));
  ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Save Board Set");
  EXPECT_EQ(desk.Ui.Boxes[1].Title, "Save Error");
}

}  // namespace
}  // namespace morvane::files
