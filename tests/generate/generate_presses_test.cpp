// The buttons of the window `Generate`, and what is pressed while a run goes on.

#include <filesystem>
#include <utility>

#include "generate/form_desk.h"

namespace morvane::generate {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

TEST(GeneratePresses, BothButtonsFeedThePoolWithTheirMomentAndSaveIt) {
  for (const auto press : {&GenerateForm::bigdeal, &GenerateForm::cmdDeal}) {
    FormDesk desk;
    desk.Open();
    desk.Range("1", "1");
    (*desk.Form.*press)();
    EXPECT_EQ(desk.LogLines()[1], "  New random bits collected: 32");
    EXPECT_EQ(desk.Store.Get(kSeedmCounter), "32");
    EXPECT_EQ(desk.Store.Get(kSeedm), desk.Gen.Pool.HexText());
  }
}

int CardsInCommon(const Board& one, int hand, const Board& other, int otherHand) {
  int count = 0;
  for (std::size_t card = 1; card <= kCards; ++card) {
    count += one.Cards[card] == hand && other.Cards[card] == otherHand ? 1 : 0;
  }
  return count;
}

/// The first of the pairs of hands with most cards in common, newer board first.
std::string MostAlike(const BoardSet& set) {
  int best = 0;
  std::string pair;
  for (int k = set.FirstBoard; k <= set.LastBoard; ++k) {
    for (int j = set.FirstBoard; j < k; ++j) {
      for (int hands = 0; hands < 16; ++hands) {
        const int older = hands / 4;
        const int newer = hands % 4;
        const int cards = CardsInCommon(set.At(j), older + 1, set.At(k), newer + 1);
        if (cards <= best) continue;
        best = cards;
        pair = std::to_string(cards) + ", " + std::to_string(k) + "NESW"[newer] + ":" +
               std::to_string(j) + "NESW"[older];
      }
    }
  }
  return pair;
}

TEST(GeneratePresses, ACleanRunShowsItsResultsAndLeavesWithEnter) {
  FormDesk desk;
  desk.Store.Set(kNewShapes, "1");
  desk.Gen.Limits = {.InnerLimit = 14, .HistoryLimit = 14};
  desk.Open();
  desk.Range("5", "8");
  desk.Form->bigdeal();
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 5);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 8);
  const GenerateFormState& now = desk.Now();
  for (const auto& counter : {now.txtInnRejects, now.txtHisRejects}) {
    ASSERT_TRUE(counter);
    EXPECT_EQ(counter->Count, 0);
    EXPECT_EQ(counter->Colour, CounterColour::kGreen);
  }
  EXPECT_TRUE(now.txtShpRejects);
  EXPECT_EQ(now.txtInnSim, MostAlike(desk.Prog.Set));
  EXPECT_THAT(desk.Window->Progress, ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(now.BoardsToMake, 4);
  EXPECT_FALSE(now.Running);
  EXPECT_EQ(now.Default, FormControl::kExit);
  EXPECT_EQ(desk.Focus(), FormControl::kExit);
  EXPECT_EQ(desk.Generated, 1);
}

TEST(GeneratePresses, ARunThatRejectedInvitesAnotherByTheSameButton) {
  using Press = std::pair<void (GenerateForm::*)(), FormControl>;
  for (const auto& [press, button] : {Press{&GenerateForm::bigdeal, FormControl::kBigDeal},
                                      Press{&GenerateForm::cmdDeal, FormControl::kCmdDeal}}) {
    FormDesk desk;
    // Eight cards in common are rare enough to be found, and common enough to be rejected.
    desk.Gen.Limits.InnerLimit = 8;
    desk.Open();
    desk.Range("1", "32");
    (*desk.Form.*press)();
    ASSERT_TRUE(desk.Prog.Set.Exists());
    ASSERT_GT(desk.Now().txtInnRejects->Count, 0);
    EXPECT_EQ(desk.Now().txtInnRejects->Colour, CounterColour::kRed);
    EXPECT_EQ(desk.Now().Default, button);
    EXPECT_EQ(desk.Focus(), button);
  }
}

TEST(GeneratePresses, WhatIsTypedAfterACleanRunIsNotClosedOverByEnter) {
  FormDesk desk;
  desk.Open();
  desk.Range("1", "2");
  desk.Form->cmdDeal();
  ASSERT_EQ(desk.Now().Default, FormControl::kExit);
  desk.Form->ChangeLastBoard({"4", 1});
  EXPECT_EQ(desk.Now().Default, FormControl::kCmdDeal);
}

TEST(GeneratePresses, EmptyBoardsAreMadeWithoutTestsOrResults) {
  FormDesk desk;
  desk.Open();
  desk.Form->ChooseRandom(false);
  desk.Range("3", "7");
  desk.Form->cmdDeal();
  EXPECT_EQ(desk.Prog.Set.Count(), 5);
  EXPECT_EQ(desk.Prog.Set.At(3).Status, Board::kEmpty);
  EXPECT_EQ(desk.Prog.Set.At(3).Dealer, DealerOfNumber(3));
  EXPECT_EQ(desk.Prog.Set.At(7).Vul, VulOfNumber(7));
  EXPECT_THAT(desk.Window->Progress, ElementsAre(5));
  EXPECT_FALSE(desk.Now().txtInnRejects);
  EXPECT_FALSE(desk.Now().Running);
  EXPECT_EQ(desk.Now().Result, "Boards 3 to 7 left empty: 5\n");
  EXPECT_EQ(desk.LogLines().back(), "  Generate: 3,7");
}

TEST(GeneratePresses, BehindAnEmptySetEnterDealsByTheGeneratorOfBefore) {
  FormDesk desk;
  desk.Open();
  desk.Form->ChooseRandom(false);
  desk.Form->cmdDeal();
  desk.Form->ChooseRandom(true);
  EXPECT_EQ(desk.Now().Default, FormControl::kBigDeal);
  desk.Form->cmdDeal();
  desk.Form->ChooseRandom(false);
  desk.Form->cmdDeal();
  desk.Form->ChooseRandom(true);
  EXPECT_EQ(desk.Now().Default, FormControl::kCmdDeal);
}

TEST(GeneratePresses, Board640AloneIsGenerated) {
  FormDesk desk;
  desk.Open();
  desk.Range("640", "640");
  desk.Form->bigdeal();
  EXPECT_EQ(desk.Prog.Set.Count(), 1);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 640);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Now().Result, StartsWith("Boards 640 to 640 generated: 1\n"));
}

TEST(GeneratePresses, ARangeThatCannotBeIsRefusedAtTheBoxNamed) {
  struct Case {
    const char* First;
    const char* Last;
    std::string Text;
    FormControl Focus;
  };
  const Messages texts = InitMessages();
  for (const Case& wrong : {Case{"641", "641", texts.Msg064, FormControl::kFirstBoard},
                            Case{"1", "641", texts.Msg065, FormControl::kLastBoard},
                            Case{"33", "32", texts.Msg063, FormControl::kFirstBoard},
                            Case{"", "32", texts.Msg106, FormControl::kFirstBoard}}) {
    FormDesk desk;
    test::FillSet(desk.Prog.Set, 1, 8);
    desk.Open();
    desk.Range(wrong.First, wrong.Last);
    desk.Form->bigdeal();
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(test::FakeUi::Box{wrong.Text, kOkExclamation,
                                                             "Generate New Board Set"}));
    EXPECT_EQ(desk.Focus(), wrong.Focus) << wrong.First << " " << wrong.Last;
    EXPECT_EQ(desk.Prog.Set.LastBoard, 8);
    EXPECT_FALSE(desk.Now().Running);
    EXPECT_EQ(desk.Now().Result, "Nothing was generated: the Board Set is as it was.\n");
  }
}

TEST(GeneratePresses, ARefusalClearsTheResultsOfTheRunBeforeExceptTheInnerOnes) {
  FormDesk desk;
  desk.Open();
  desk.Form->ChooseTests(kAllTests);
  desk.Range("1", "4");
  desk.Form->bigdeal();
  const std::string pair = desk.Now().txtInnSim;
  desk.Range("4", "1");
  desk.Form->bigdeal();
  EXPECT_FALSE(desk.Now().txtShpRejects);
  EXPECT_FALSE(desk.Now().txtHisRejects);
  EXPECT_EQ(desk.Now().txtOuDeals, "");
  EXPECT_TRUE(desk.Now().txtInnRejects);
  EXPECT_EQ(desk.Now().txtInnSim, pair);
}

TEST(GeneratePresses, WhenTheAttemptsRunOutThereIsNoSetAndTheWindowSaysSo) {
  FormDesk desk;
  test::FillSet(desk.Prog.Set, 1, 8);
  desk.Gen.Limits.InnerLimit = 0;
  desk.Open();
  desk.Range("1", "4");
  desk.Form->bigdeal();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(test::FakeUi::Box{"    Cannot generate!      ", 16,
                                                           "Generate New Board Set"}));
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_EQ(desk.Now().BoardsToMake, 0) << "no progress that looks like a set";
  EXPECT_EQ(desk.Now().Result, "There is no Board Set: the attempts for one board ran out.\n");
  EXPECT_EQ(desk.Focus(), FormControl::kBigDeal);
  EXPECT_FALSE(desk.Now().Running);
}

TEST(GeneratePresses, TheFailedSystemSourceChangesNothingAndIsToldAs999) {
  FormDesk desk;
  test::FillSet(desk.Prog.Set, 1, 8);
  desk.Random.AllZero = true;
  desk.Open();
  desk.Form->bigdeal();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{
                  "      Error: 999 in RtlGenRandom procedure      \r\n           \r\n"
                  "      Board Set cannot be generated      ",
                  16, "Generate New Board Set"}));
  EXPECT_EQ(desk.Prog.Set.LastBoard, 8);
  EXPECT_FALSE(desk.Now().Running);
  EXPECT_EQ(desk.Now().Result, "Nothing was generated: the Board Set is as it was.\n");
}

TEST(GeneratePresses, WhatIsPressedDuringARunDoesNothing) {
  FormDesk desk;
  desk.Open();
  desk.Range("1", "3");
  int pumps = 0;
  desk.Loop.OnPump = [&] {
    if (!desk.Now().Running) return;
    ++pumps;
    desk.PressEverything();
  };
  desk.Form->bigdeal();
  EXPECT_EQ(pumps, 4) << "one a board, and one before the controls come on";
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 3);
  EXPECT_TRUE(desk.Now().generate_yes);
  EXPECT_TRUE(desk.Now().Reject.Inner);
  EXPECT_EQ(desk.Now().txtFirstBoard, "1");
  EXPECT_FALSE(desk.Form->Closed());
  EXPECT_EQ(desk.Generated, 1);
  EXPECT_THAT(desk.Window->Progress, ElementsAre(1, 2, 3));
}

TEST(GeneratePresses, WhatIsPressedWhileABoxIsOpenDoesNothing) {
  FormDesk desk;
  desk.Open();
  desk.Range("2", "1");
  desk.Ui.OnBox = [&] { desk.PressEverything(); };
  desk.Form->bigdeal();
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_FALSE(desk.Form->Closed());
}

TEST(GeneratePresses, WhatIsPressedWhileTheLogsBoxIsOpenAtTheStartDoesNothing) {
  FormDesk desk;
  std::filesystem::create_directory(desk.Prog.Log.Path());
  desk.Form.emplace(desk.Prog, desk.Gen, desk.History, [] {});
  desk.Window.emplace(*desk.Form);
  desk.Ui.OnBox = [&] { desk.PressEverything(); };
  desk.Form->Open(*desk.Window);
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Log Write Error");
  EXPECT_FALSE(desk.Form->Closed());
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_EQ(desk.Now().txtFirstBoard, "1");
  EXPECT_TRUE(desk.Now().generate_yes);
  EXPECT_FALSE(desk.Now().Running);
}

TEST(GeneratePresses, AllIsOffBeforeTheFirstBoardAndOnWithTheResults) {
  FormDesk desk;
  desk.Open();
  desk.Range("1", "1");
  desk.Window->Showed.clear();
  desk.Form->bigdeal();
  const auto& showed = desk.Window->Showed;
  ASSERT_GE(showed.size(), 2U);
  EXPECT_TRUE(showed.front().Running);
  EXPECT_FALSE(showed.back().Running);
  EXPECT_NE(showed.back().Result, "");
  for (std::size_t i = 0; i + 1 < showed.size(); ++i) {
    EXPECT_TRUE(showed[i].Running);
    EXPECT_EQ(showed[i].Result, "") << "no result while it goes on";
  }
}

TEST(GeneratePresses, AProgramThatQuitsInARunLeavesNoSetAndNoResult) {
  FormDesk desk;
  desk.Open();
  desk.Range("1", "30");
  desk.Loop.OnPump = [&] {
    if (desk.Now().BoardsGen == 5) desk.Loop.Quit();
  };
  desk.Form->cmdDeal();
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_EQ(desk.Now().Result, "");
  EXPECT_EQ(desk.Now().BoardsToMake, 0);
  EXPECT_EQ(desk.Window->Progress.back(), 5);
}

TEST(GeneratePresses, ExitClosesOnce) {
  FormDesk desk;
  desk.Open();
  desk.Form->cmdExit();
  desk.Form->cmdExit();
  desk.Form->bigdeal();
  EXPECT_EQ(desk.Window->Closes, 1);
  EXPECT_FALSE(desk.Prog.Set.Exists());
}

}  // namespace
}  // namespace morvane::generate
