#include "machine/display_hand.h"

#include <numeric>

#include "machine/ui/board_picture.h"
#include "machine/ui/run_colours.h"
#include "machine/ui/run_window.h"
#include "model/national_letters.h"

namespace morvane::machine {
namespace {

using ::testing::ElementsAre;

TEST(NationalLetters, AreThoseOfEachCountry) {
  const auto letters = [](int national) {
    std::string text;
    for (int card = 1; card <= 5; ++card) text += NationalLetter(national, card);
    return text;
  };
  EXPECT_EQ(letters(0), "AKQJT");
  EXPECT_EQ(letters(1), "ARDVX");
  EXPECT_EQ(letters(2), "1RDVX");
  EXPECT_EQ(letters(3), "AKDBZ");
  EXPECT_EQ(letters(4), "AHVBT");
  EXPECT_EQ(letters(5), "EKDBT");
  EXPECT_EQ(letters(6), "EKDKnT") << "the Swedish Jack has two letters";
}

TEST(NationalLetters, RanksBelowTenAreTheSameEverywhere) {
  for (int national = 0; national < 7; ++national) {
    EXPECT_EQ(NationalLetter(national, 6), "9");
    EXPECT_EQ(NationalLetter(national, 52), "2");
  }
}

class DisplayHandTest : public RunWindow {
 protected:
  using RunWindow::RunWindow;
  void SetUp() override {
    RunWindow::SetUp();
    desk.Prog.Set.At(1) = test::SuitBoard(1);
    desk.Store.Set(kDealShow, "1");
  }
  [[nodiscard]] BoardDisplay Display() const {
    return DisplayHand(run, desk.Prog.Set.CurrentBoard);
  }
  /// The letters of a suit, the pale ones in brackets.
  static std::string Letters(const BoardDisplay::Suit& suit) {
    std::string text;
    for (const auto& card : suit) {
      text += card.Dealt ? std::string(card.Letter) : "(" + std::string(card.Letter) + ")";
    }
    return text;
  }
  /// How many pixels of the picture have exactly this colour.
  [[nodiscard]] int Pixels(const QColor& colour) const {
    BoardPicture picture(nullptr);
    picture.resize(2000, 1250);
    picture.Show(Display());
    const QImage image = picture.grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
  }
};

const QColor kPaleRed{255, 128, 128};
const QColor kPaleBlack{128, 128, 128};

TEST_F(DisplayHandTest, TellsTheBoardItsDealerAndItsVulnerability) {
  Contact();
  Click("cmdNext");
  const BoardDisplay display = Display();
  EXPECT_EQ(display.Board, " Board: 2");
  EXPECT_EQ(display.Dealer, "Dealer: East");
  EXPECT_EQ(display.Vul, "Vul: NS");
  EXPECT_EQ(display.Copy, "") << "copies are switched off";
}

TEST_F(DisplayHandTest, DealerAndVulnerabilityOfTheBoardComeBeforeThoseOfItsNumber) {
  desk.Prog.Set.At(1).Dealer = kWest;
  desk.Prog.Set.At(1).Vul = 4;
  Contact();
  EXPECT_EQ(Display().Dealer, "Dealer: West");
  EXPECT_EQ(Display().Vul, "Vul: All");
}

TEST_F(DisplayHandTest, TellsTheCopyWhereCopiesAreShown) {
  desk.Store.Set(kDealCopy, "1");
  memory.NumberOfCopies = 3;
  Contact();
  Click("NextCopy");
  EXPECT_EQ(Display().Copy, " Copy: 2/3");
}

TEST_F(DisplayHandTest, EveryHandHasItsCardsInFullColourBeforeTheDeal) {
  Contact();
  const BoardDisplay display = Display();
  EXPECT_EQ(Letters(display.Hands[kNorth][1]), "AKQJT98765432");
  EXPECT_EQ(Letters(display.Hands[kWest][4]), "AKQJT98765432");
  EXPECT_EQ(Letters(display.Hands[kNorth][2]), "");
  EXPECT_THAT(display.lblHCP, ElementsAre("", "10", "10", "10", "10"));
  EXPECT_GT(Pixels(kRedSuit), 0);
  EXPECT_EQ(Pixels(kPaleRed) + Pixels(kPaleBlack), 0);
}

TEST_F(DisplayHandTest, TheLettersAreThoseOfTheCardsThatAreSet) {
  Contact();
  Click("National_5");
  EXPECT_EQ(Letters(Display().Hands[kNorth][1]), "AHVBT98765432");
}

TEST_F(DisplayHandTest, HiddenBoardsShowOnlyTheFrame) {
  Contact();
  Click("Disp_boards");
  const BoardDisplay display = Display();
  EXPECT_EQ(display.Board, " Board: 1");
  EXPECT_FALSE(display.HandsShown);
  EXPECT_EQ(Letters(display.Hands[kNorth][1]), "");
  EXPECT_EQ(Text("lblHCP_1") + Text("lblHCP_2") + Text("lblHCP_3") + Text("lblHCP_4"), "");
  EXPECT_EQ(Pixels(kRedSuit), 0);
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1)) << "the run is not affected";
}

TEST_F(DisplayHandTest, ABoardWithoutAnyTrickCountsAsNotAnalysed) {
  Contact();
  EXPECT_FALSE(Display().Analyzed);
  desk.Prog.Set.At(1).Tricks[19] = 1;
  EXPECT_TRUE(Display().Analyzed);
}

/// The machine stops before the ninth card of the first board falls.
class NinthCard : public DisplayHandTest {
 protected:
  NinthCard() : DisplayHandTest(WithFault()) {}
  static simulator::Options WithFault() {
    simulator::Options options = Options();
    options.Faults.push_back({1, 9, 25});
    return options;
  }
};

TEST_F(NinthCard, AndTheCardsBehindItArePale) {
  Contact();
  std::array<int, kCards> inOrder{};
  std::iota(inOrder.begin(), inOrder.end(), 1);
  ASSERT_TRUE(simulated.LoadPack(inOrder));
  desk.When("Error_disp", [this](QWidget& error) {
    EXPECT_EQ(Counts(), "8 0 0 0");
    const BoardDisplay display = Display();
    EXPECT_EQ(Letters(display.Hands[kNorth][1]), "AKQJT987(6)(5)(4)(3)(2)");
    EXPECT_EQ(Letters(display.Hands[kEast][2]), "(A)(K)(Q)(J)(T)(9)(8)(7)(6)(5)(4)(3)(2)");
    EXPECT_GT(Pixels(kPaleRed), 0) << "pink, not grey";
    EXPECT_GT(Pixels(kPaleBlack), 0);
    test::Click(error, "Cancel_button");
  });
  Click("cmdDeal");
}

}  // namespace
}  // namespace morvane::machine
