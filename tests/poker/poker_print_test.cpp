#include "poker/poker_print.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "poker/random_deals.h"
#include "support/fakes.h"

namespace morvane::poker {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Box = test::FakeUi::Box;
using Job = test::FakePrinter::Job;

class PokerPrint : public ::testing::Test {
 protected:
  /// The log's line of the run, if there is one.
  [[nodiscard]] std::vector<std::string> Logged() const {
    std::vector<std::string> lines;
    for (const std::string& line : desk.LogLines()) {
      if (line.starts_with("   Print")) lines.push_back(line);
    }
    return lines;
  }
  bool Pdf(const std::function<bool()>& dealDone = [] { return true; }) {
    return WritePokerPdf(desk.Prog, order, pdf, Paper::kLetter, dealDone);
  }
  test::TestDesk desk;
  PokerOrder order = EmptyOrder(40);
  const std::string pdf = desk.Folder / "list.pdf";
};

TEST_F(PokerPrint, WithoutAnOrderThereIsNothingToPrint) {
  order = {};
  EXPECT_FALSE(PrintPokerOrder(desk.Prog, order));
  EXPECT_FALSE(Pdf());
  const Box box{"    Nothing to print!    ", kOkExclamation, "Poker Dealing"};
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(box, box));
  EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
  EXPECT_THAT(desk.ThePrinter.Pdfs, IsEmpty());
}

TEST_F(PokerPrint, TheWholeListGoesToThePrinter) {
  order.Poker_Event = "Friday\nevening";
  EXPECT_TRUE(PrintPokerOrder(desk.Prog, order, 3));
  EXPECT_THAT(desk.ThePrinter.Jobs, ElementsAre(Job{"Friday evening", 3}));
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages, SizeIs(3));
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages.back().Find("40"), SizeIs(1));
  EXPECT_THAT(Logged(), ElementsAre("   Print poker order to: Office"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(PokerPrint, WithoutAnEventTheJobHasANameStill) {
  EXPECT_TRUE(PrintPokerOrder(desk.Prog, order));
  EXPECT_THAT(desk.ThePrinter.Jobs, ElementsAre(Job{"Poker order", 1}));
}

TEST_F(PokerPrint, AFailureIsTold) {
  desk.ThePrinter.Failure = RuntimeError{482, "Printer error"};
  EXPECT_FALSE(PrintPokerOrder(desk.Prog, order));
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes.front().Title, "Printing Error");
  EXPECT_THAT(desk.Ui.Boxes.front().Text,
              ::testing::HasSubstr("Error: 482 during printing - Printer error"));
}

TEST_F(PokerPrint, TheEndOfTheProgramBreaksItOffWithoutABox) {
  order = EmptyOrder(100);
  desk.ThePrinter.Failure = RuntimeError{482, "Printer error"};
  int deals = 0;
  desk.Loop.OnPump = [&] {
    if (++deals == 5) desk.Loop.Quit();
  };
  EXPECT_FALSE(PrintPokerOrder(desk.Prog, order));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  ASSERT_THAT(desk.ThePrinter.Drawn.Pages, SizeIs(1));
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages.front().Find("      Deal  :"), SizeIs(5));
}

TEST_F(PokerPrint, TheCopiesOfTheDialogAreKept) {
  desk.ThePrinter.Confirmed = 5;
  EXPECT_EQ(SetUpPrinter(desk.Prog, 2), 5);
  desk.ThePrinter.Confirmed = std::nullopt;
  EXPECT_EQ(SetUpPrinter(desk.Prog, 2), 2) << "cancelled";
  EXPECT_THAT(desk.ThePrinter.SetupsFrom, ElementsAre(2, 2));
}

TEST_F(PokerPrint, ADialogThatCannotComeUpIsToldAndKeepsTheCopies) {
  desk.ThePrinter.NoSetup = RuntimeError{ENODEV, "There is no printer"};
  EXPECT_EQ(SetUpPrinter(desk.Prog, 2), 2);
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes.front().Text, "      There is no printer      ");
}

TEST_F(PokerPrint, APdfIsMadeForThePaperAskedFor) {
  EXPECT_TRUE(Pdf());
  EXPECT_THAT(desk.ThePrinter.Pdfs, ElementsAre(Job{"Poker order", 1, Paper::kLetter}));
  EXPECT_EQ(test::Content(pdf), "PDF of Poker order, pages: 3");
  EXPECT_THAT(Logged(), ElementsAre("   Print poker order to: " + pdf));
}

TEST_F(PokerPrint, APdfThatIsBrokenOffIsNotWritten) {
  int deals = 0;
  EXPECT_FALSE(Pdf([&deals] { return ++deals < 5; }));
  EXPECT_EQ(deals, 5);
  EXPECT_FALSE(std::filesystem::exists(pdf));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(PokerPrint, WithoutFontsThereIsNoPdfAndThatIsTold) {
  desk.ThePrinter.HasFonts = false;
  EXPECT_FALSE(Pdf());
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_THAT(desk.Ui.Boxes.front().Text, ::testing::HasSubstr("There are no fonts"));
  EXPECT_FALSE(std::filesystem::exists(pdf));
}

}  // namespace
}  // namespace morvane::poker
