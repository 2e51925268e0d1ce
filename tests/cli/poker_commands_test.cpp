#include <gmock/gmock.h>

#include <filesystem>

#include "cli/cli_desk.h"
#include "cli/registry.h"
#include "cli/request.h"
#include "platform/files.h"
#include "poker/pkr_file.h"
#include "poker/random_deals.h"

namespace morvane::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

struct PokerDesk : CliDesk {
  explicit PokerDesk(bool yes = false, bool overwrite = false)
      : CliDesk(yes, AtSpeed(0), overwrite) {
    What.Out = Pkr;
  }
  /// Writes an order of `deals` deals, of which the first holds the cards 1 to 28, to `Pkr`.
  void Write(int deals) {
    poker::PokerOrder order = poker::EmptyOrder(deals);
    for (std::uint8_t slot = 1; slot <= 28; ++slot) order.PokerDeals[1][slot] = slot;
    order.Poker_Event = "Friday";
    test::WriteContent(Pkr, poker::PokerFileBytes(order));
  }
  [[nodiscard]] poker::PokerOrder Read() const {
    poker::PokerOrder order;
    EXPECT_TRUE(poker::ReadPokerFile(test::Content(Pkr), order));
    return order;
  }
  const std::string Pkr = Folder / "evening.pkr";
  const std::string Pdf = Folder / "evening.pdf";
  PokerNewOptions What;
};

std::string ErrorOf(std::vector<std::string> words, std::vector<GivenOption> options = {}) {
  words.insert(words.begin(), "poker");
  return TakeRequest({"", std::move(words), std::move(options)}).Error;
}

TEST(PokerNew, MakesTenRandomDealsWhereNothingElseIsSaid) {
  PokerDesk desk;
  EXPECT_EQ(desk.Run(desk.What), kDone);
  EXPECT_EQ(desk.Screen.Output, "Deals: 10\n");
  EXPECT_EQ(desk.Screen.Errors, "");
  const poker::PokerOrder order = desk.Read();
  EXPECT_EQ(order.PokerDealCount, 10);
  for (std::size_t n = 1; n <= 10; ++n) EXPECT_NE(order.PokerDeals[n][28], 0);
}

TEST(PokerNew, TakesItsNumberOfDealsAndItsTexts) {
  PokerDesk desk;
  desk.What.Deals = 100;
  desk.What.Empty = true;
  desk.What.Event = "Friday";
  desk.What.Site = "Club";
  desk.What.Date = "1 May";
  EXPECT_EQ(desk.Run(desk.What), kDone);
  const std::string bytes = test::Content(desk.Pkr);
  EXPECT_TRUE(bytes.starts_with("Friday\r\nClub\r\n1 May\r\n  6\r\n  0  0  0"));
  const std::size_t head = sizeof("Friday\r\nClub\r\n1 May\r\n  6\r\n") - 1;
  EXPECT_EQ(bytes.size(), head + 100 * (84 + 2));
}

TEST(PokerNew, MoreThanAHundredDealsAreRefusedInTheWindowsWords) {
  PokerDesk desk;
  desk.What.Deals = 101;
  EXPECT_EQ(desk.Run(desk.What), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Poker Dealing: Incorrect number of deals. Allowed values are 1 to 100.\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Pkr));
}

TEST(PokerNew, ANameWithoutAnExtensionGetsOneAndItsFileIsNotReplacedUnasked) {
  PokerDesk desk(true);
  desk.What.Out = desk.Folder / "evening";
  const std::string named = desk.Folder / "evening.PKR";
  test::WriteContent(named, "mine");
  EXPECT_EQ(desk.Run(desk.What), kFailed) << "--yes replaces no file";
  EXPECT_EQ(desk.Screen.Errors, "Save Poker Order: " + named +
                                    " exists already. Replace it?\nThere is nobody to ask; "
                                    "--overwrite would replace it.\nNot replaced.\n");
  EXPECT_EQ(test::Content(named), "mine");
  PokerDesk forced(false, true);
  test::WriteContent(forced.Pkr, "mine");
  EXPECT_EQ(forced.Run(forced.What), kDone);
  EXPECT_EQ(forced.Read().PokerDealCount, 10);
}

TEST(PokerNew, AFolderThatIsNotThereIsTold) {
  PokerDesk desk;
  desk.What.Out = desk.Folder / "nowhere/evening.pkr";
  EXPECT_EQ(desk.Run(desk.What), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Save Error: " + desk.What.Out +
                                    ": No such file or directory\nSave operation aborted\n");
}

TEST(PokerNew, ANameOfABoardSetIsWrongUsage) {
  EXPECT_EQ(ErrorOf({"new", "/a.pbn"}), AbsolutePath("/a.pbn") + " is a board set by its name");
  for (const char* out : {"/a", "/a.pkr", "/a.PKR", "/a.txt"}) EXPECT_EQ(ErrorOf({"new", out}), "");
}

TEST(PokerShow, ShowsTheDealsAsTheListHasThem) {
  PokerDesk desk;
  desk.Write(2);
  EXPECT_EQ(desk.Run(PokerShowOptions{desk.Pkr, {}}), kDone);
  EXPECT_EQ(desk.Screen.Output,
            "Friday\n"
            "      Player:    1   2   3   4   5   6     BC  FLOP        BC  T   BC  R\n"
            "      Deal  :1   ♠2  ♠3  ♠4  ♠5  ♠6  ♠7    ♠A  ♥2  ♥3  ♥4  ♥5  ♥6  ♥7  ♥8\n"
            "                 ♠8  ♠9  ♠T  ♠J  ♠Q  ♠K\n"
            "      21-28 :    ♥9  ♥T  ♥J  ♥Q  ♥K  ♥A  ♦2  ♦3\n"
            "      Deal  :2 (empty)\n");
  EXPECT_EQ(desk.Screen.Errors, "");
}

TEST(PokerShow, ShowsOneDealWithItsJokersAndEmptySlots) {
  PokerDesk desk;
  poker::PokerOrder order = poker::EmptyOrder(12);
  order.PokerDeals[12][2] = 53;
  order.PokerDeals[12][12] = 52;
  order.PokerDeals[12][28] = 55;
  test::WriteContent(desk.Pkr, poker::PokerFileBytes(order));
  EXPECT_EQ(desk.Run(PokerShowOptions{desk.Pkr, 12}), kDone);
  EXPECT_EQ(desk.Screen.Output,
            "      Player:    1   2   3   4   5   6     BC  FLOP        BC  T   BC  R\n"
            "      Deal  :12      JK\n"
            "                                     ♣A\n"
            "      21-28 :                                JK\n");
}

TEST(PokerShow, ADealThatIsNotInTheOrderIsTold) {
  PokerDesk desk;
  desk.Write(2);
  EXPECT_EQ(desk.Run(PokerShowOptions{desk.Pkr, 3}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Deal 3 is not in evening.pkr, which has 1 to 2.\n");
  EXPECT_EQ(desk.Screen.Output, "");
}

TEST(PokerShow, AFileThatIsNoOrderIsTold) {
  PokerDesk desk;
  test::WriteContent(desk.Pkr, "");
  EXPECT_EQ(desk.Run(PokerShowOptions{desk.Pkr, {}}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Load Error: " + desk.Pkr + ": File Format Error\n");
}

TEST(PokerShow, TextsThatCouldCommandATerminalDoNot) {
  PokerDesk desk;
  desk.Write(1);
  test::WriteContent(desk.Pkr, "\x1B[2J" + test::Content(desk.Pkr));
  EXPECT_EQ(desk.Run(PokerShowOptions{desk.Pkr, {}}), kDone);
  EXPECT_TRUE(desk.Screen.Output.starts_with("?[2JFriday\n"));
}

TEST(PokerPrintCommand, MakesAPdfOfTheList) {
  PokerDesk desk;
  desk.Write(40);
  EXPECT_EQ(desk.Run(PokerPrintOptions{desk.Pkr, desk.Pdf, "letter"}), kDone);
  EXPECT_EQ(test::Content(desk.Pdf), "PDF of Friday, pages: 3");
  EXPECT_THAT(desk.ThePrinter.Pdfs,
              ElementsAre(test::FakePrinter::Job{"Friday", 1, Paper::kLetter}));
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages.back().Find("40"), SizeIs(1));
  EXPECT_EQ(desk.Screen.Output + desk.Screen.Errors, "");
}

TEST(PokerPrintCommand, CountsTheDealsAtATerminal) {
  PokerDesk desk;
  desk.Write(2);
  desk.Screen.Progress = true;
  EXPECT_EQ(desk.Run(PokerPrintOptions{desk.Pkr, desk.Pdf, {}}), kDone);
  EXPECT_EQ(desk.Screen.Output, "\rDeals printed: 1\rDeals printed: 2\n");
}

TEST(PokerPrintCommand, AFileThatExistsIsReplacedOnlyWhenThatIsAsked) {
  PokerDesk desk(true);
  desk.Write(1);
  test::WriteContent(desk.Pdf, "mine");
  EXPECT_EQ(desk.Run(PokerPrintOptions{desk.Pkr, desk.Pdf, {}}), kFailed);
  EXPECT_EQ(test::Content(desk.Pdf), "mine");
  PokerDesk forced(false, true);
  forced.Write(1);
  test::WriteContent(forced.Pdf, "mine");
  EXPECT_EQ(forced.Run(PokerPrintOptions{forced.Pkr, forced.Pdf, {}}), kDone);
  EXPECT_EQ(test::Content(forced.Pdf), "PDF of Friday, pages: 1");
}

TEST(PokerPrintCommand, TheOrderItselfIsNeverReplaced) {
  PokerDesk desk(true, true);
  desk.Write(1);
  std::filesystem::create_hard_link(desk.Pkr, desk.Pdf);
  EXPECT_EQ(desk.Run(PokerPrintOptions{desk.Pkr, desk.Pdf, {}}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, desk.Pdf + " is the order itself.\n");
  EXPECT_EQ(desk.Read().PokerDealCount, 1);
}

TEST(PokerPrintCommand, ANameOfAnOrderOrASetIsWrongUsage) {
  EXPECT_EQ(ErrorOf({"print", "/a.pkr", "/b.PKR"}),
            AbsolutePath("/b.PKR") + " is a poker order by its name");
  EXPECT_EQ(ErrorOf({"print", "/a.pkr", "/b.csv"}),
            AbsolutePath("/b.csv") + " is a board set by its name");
  EXPECT_EQ(ErrorOf({"print", "/a.pkr", "/b"}), "");
}

#ifndef _WIN32  // no limit for files, no device that is full
TEST(PokerPrintCommand, AFullDiskIsToldOf) {
  PokerDesk desk;
  desk.Write(1);
  EXPECT_EQ(desk.Run(PokerPrintOptions{desk.Pkr, "/dev/full", {}}), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Printing Error: /dev/full: Error: 28 during printing - No space left on device\n"
            "Print aborted!\n");
}
#endif

TEST(PokerPrintCommand, IsBrokenOffWhenTheProgramQuits) {
  PokerDesk desk;
  desk.Write(40);
  int pumps = 0;
  desk.Loop.OnPump = [&] {
    if (++pumps == 5) desk.Loop.Quit();
  };
  EXPECT_EQ(desk.Run(PokerPrintOptions{desk.Pkr, desk.Pdf, {}}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Broken off before " + desk.Pdf + "\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Pdf));
}

}  // namespace
}  // namespace morvane::cli
