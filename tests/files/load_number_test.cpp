#include "files/load_number.h"

#include "support/fakes.h"

namespace morvane::files {
namespace {

using test::FakeUi;
using test::TestDesk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The dialog over `count` boards that were read from a file.
struct DialogDesk : TestDesk {
  explicit DialogDesk(int count, const char* extension = "BRI") {
    test::FillSet(Prog.Set, 1, count);
    Dialog.emplace(Prog, *FindFormat(extension));
  }
  /// What the operator's typing leaves in the box.
  std::string Typed(const std::string& text) {
    return Dialog->ChangeFirstBoard({text, static_cast<int>(text.size())}).Text;
  }
  std::optional<LoadNumber> Dialog;
};

FakeUi::Box Incorrect(const std::string& most) {
  return {
      "      Incorrect value for First Board number      \r\n      First Board numbers must be "
      "between 1 and " +
          most + "      \r\n\r\n      Please enter correct value.      ",
      16, "Incorrect value entered"};
}

void ExpectNotMoved(const DialogDesk& desk, int count) {
  EXPECT_FALSE(desk.Dialog->Closed());
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, count);
}

TEST(LoadNumber, SaysWhatWasLoadedAndOffersTheNumbersFrom1) {
  const DialogDesk desk(36, "BRI");
  const LoadNumber& dialog = *desk.Dialog;
  EXPECT_EQ(dialog.lblBoardLoaded, "36 Boards were loaded");
  EXPECT_EQ(dialog.lblFormat,
            "BRI format does not support board numbers. Loaded boards are allocated as follows:");
  EXPECT_EQ(dialog.lblFirstBoard, "First Board:");
  EXPECT_EQ(dialog.lblLastBoard, "Last Board:");
  EXPECT_EQ(dialog.lblChangeBoards,
            "To change board allocation enter a new First Board number in the text box above.");
  EXPECT_EQ(dialog.txtFirstBoard, "1");
  EXPECT_EQ(dialog.txtLastBoard, "36");
  EXPECT_FALSE(dialog.Closed());
}

TEST(LoadNumber, OneBoardIsCountedLikeSeveral) {
  EXPECT_EQ(DialogDesk(1).Dialog->lblBoardLoaded, "1 Boards were loaded");
}

TEST(LoadNumber, NamesTheFormatAsMessagesDo) {
  for (const auto& [extension, name] :
       {std::pair{"BRI", "BRI"}, {"DGE", "DGE"}, {"ALL", "DEAL305"}, {"BRE", "BRE"}}) {
    EXPECT_EQ(DialogDesk(2, extension).Dialog->lblFormat,
              std::string(name) +
                  " format does not support board numbers. Loaded boards are allocated as "
                  "follows:");
  }
}

TEST(LoadNumber, ADupFileCouldHaveNumbersAndHasNone) {
  EXPECT_EQ(DialogDesk(2, "DUP").Dialog->lblFormat,
            "Loaded DUP file does not have board numbers. Loaded boards are allocated as follows:");
}

TEST(LoadNumber, TheLastBoardFollowsTheTyping) {
  DialogDesk desk(36);
  EXPECT_EQ(desk.Typed("1"), "1");
  EXPECT_EQ(desk.Dialog->txtLastBoard, "36");
  EXPECT_EQ(desk.Typed("17"), "17");
  EXPECT_EQ(desk.Dialog->txtLastBoard, "52");
  EXPECT_EQ(desk.Typed("999"), "999");
  EXPECT_EQ(desk.Dialog->txtLastBoard, "1034") << "a number that no board can have";
}

TEST(LoadNumber, AnEmptyBoxCountsAs0) {
  DialogDesk desk(36);
  EXPECT_EQ(desk.Typed(""), "");
  EXPECT_EQ(desk.Dialog->txtLastBoard, "35");
}

TEST(LoadNumber, AWrongFirstKeyBrings1) {
  for (const char* text : {"x", "0", "1000", "-5", " 5", "5.", "1a"}) {
    DialogDesk desk(36);
    EXPECT_EQ(desk.Typed(text), "1") << text;
    EXPECT_EQ(desk.Dialog->txtFirstBoard, "1");
    EXPECT_EQ(desk.Dialog->txtLastBoard, "36");
  }
}

TEST(LoadNumber, AWrongKeyBringsBackWhatStoodBeforeItAndTheCaretGoesOneToTheLeft) {
  DialogDesk desk(36);
  desk.Typed("12");
  const FilteredBox box = desk.Dialog->ChangeFirstBoard({"1x2", 2});
  EXPECT_EQ(box.Text, "12");
  EXPECT_EQ(box.Caret, 1);
  EXPECT_EQ(desk.Dialog->txtLastBoard, "47");
  EXPECT_EQ(desk.Typed(""), "");
  EXPECT_EQ(desk.Typed("x"), "") << "an empty box is remembered too";
}

TEST(LoadNumber, OkMovesTheSetAndCloses) {
  DialogDesk desk(36);
  desk.Typed("37");
  EXPECT_TRUE(desk.Dialog->Command1());
  EXPECT_TRUE(desk.Dialog->Closed());
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 37);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 72);
  EXPECT_EQ(desk.Prog.Set.At(72).Number, 72);
  EXPECT_EQ(desk.Prog.Set.At(37).Cards, test::RoundBoard(1, 2).Cards);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.LogLines(), IsEmpty());
}

TEST(LoadNumber, OkAtOnceTakesTheNumbersOffered) {
  DialogDesk desk(36);
  EXPECT_TRUE(desk.Dialog->Command1());
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 36);
}

TEST(LoadNumber, TheHighestFirstBoardIsTheOneThatEndsAt640) {
  DialogDesk desk(36);
  desk.Typed("606");
  EXPECT_FALSE(desk.Dialog->Command1());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Incorrect("605")));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre("    Incorrect value entered: Incorrect value for First Board number : "
                          "First Board numbers must be between 1 and 605 :  : Please enter correct "
                          "value."));
  ExpectNotMoved(desk, 36);
  EXPECT_EQ(desk.Dialog->txtFirstBoard, "606") << "it stays in the box";

  desk.Typed("605");
  EXPECT_TRUE(desk.Dialog->Command1());
  EXPECT_EQ(desk.Prog.Set.LastBoard, 640);
}

TEST(LoadNumber, NothingAnd0AreRefused) {
  for (const char* text : {"", "0", "000"}) {
    DialogDesk desk(36);
    desk.Dialog->txtFirstBoard = text;
    EXPECT_FALSE(desk.Dialog->Command1());
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Incorrect("605")));
    ExpectNotMoved(desk, 36);
  }
}

TEST(LoadNumber, OneBoardMayStandAnywhere) {
  DialogDesk desk(1);
  desk.Typed("641");
  EXPECT_FALSE(desk.Dialog->Command1());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Incorrect("640")));
  desk.Typed("640");
  EXPECT_TRUE(desk.Dialog->Command1());
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 640);
}

TEST(LoadNumber, A640BoardSetStaysAt1) {
  DialogDesk desk(640);
  desk.Typed("2");
  EXPECT_FALSE(desk.Dialog->Command1());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Incorrect("1")));
  ExpectNotMoved(desk, 640);
  desk.Typed("1");
  EXPECT_TRUE(desk.Dialog->Command1());
  EXPECT_EQ(desk.Prog.Set.LastBoard, 640);
}

}  // namespace
}  // namespace morvane::files
