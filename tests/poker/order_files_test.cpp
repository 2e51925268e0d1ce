#include "poker/order_files.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "poker/pkr_file.h"
#include "poker/random_deals.h"
#include "support/fakes.h"
#include "support/file_size_limit.h"

namespace morvane::poker {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Box = test::FakeUi::Box;

class OrderFiles : public ::testing::Test {
 protected:
  bool Load(const std::string& path) {
    desk.Ui.Files = {path};
    return LoadPokerOrder(desk.Prog, order);
  }
  bool Save(const std::string& path) {
    desk.Ui.Files = {path};
    return SavePokerOrder(desk.Prog, order);
  }
  /// An order of `deals` deals, written to a file.
  std::string File(const std::string& name, int deals) {
    PokerOrder other = EmptyOrder(deals);
    FillAtRandom(other, desk.Random);
    other.Poker_Event = "Friday";
    test::WriteContent(desk.Folder / name, PokerFileBytes(other));
    return desk.Folder / name;
  }
  test::TestDesk desk;
  PokerOrder order;
};

TEST_F(OrderFiles, LoadAsksForAFileWhereTheLastOneWas) {
  desk.Store.Set(kInitDirectory, "/somewhere");
  EXPECT_FALSE(LoadPokerOrder(desk.Prog, order));
  ASSERT_EQ(desk.Ui.FileRequests.size(), 1U);
  const FileRequest& request = desk.Ui.FileRequests.front();
  EXPECT_EQ(request.Title, "Open Board Set file");
  EXPECT_EQ(request.Filter, "pkr (*.pkr)|*.pkr|All files (*.*)|*.*");
  EXPECT_EQ(request.Directory, "/somewhere");
  EXPECT_FALSE(request.Saving);
  EXPECT_FALSE(order.PokerOrderExists);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(OrderFiles, ALoadedOrderShowsItsFirstDealAndItsName) {
  order = EmptyOrder(9);
  order.CurrentDeal = 7;
  ASSERT_TRUE(Load(File("evening.pkr", 3)));
  EXPECT_EQ(order.PokerDealCount, 3);
  EXPECT_EQ(order.CurrentDeal, 1);
  EXPECT_TRUE(order.PokerOrderExists);
  EXPECT_EQ(order.Poker_File, "evening.pkr");
  EXPECT_EQ(order.Poker_Event, "Friday");
  EXPECT_EQ(desk.Store.Get(kInitDirectory), desk.Folder / "");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_FALSE(desk.Ui.HourglassNow);
}

TEST_F(OrderFiles, AFirstOrderExistsOnceItIsLoaded) {
  ASSERT_TRUE(Load(File("evening.pkr", 1)));
  EXPECT_TRUE(order.PokerOrderExists);
}

TEST_F(OrderFiles, AFormatErrorIsToldAndWhatStoodBeforeItStays) {
  order = EmptyOrder(9);
  order.CurrentDeal = 7;
  order.Poker_File = "mine.pkr";
  const std::string path = File("evening.pkr", 2);
  test::WriteContent(path, test::Content(path) + "\r\n");
  desk.Store.Set(kInitDirectory, "/somewhere");
  EXPECT_FALSE(Load(path));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Box{"File Format Error", kOkCritical, "Load Error"}));
  EXPECT_EQ(order.PokerDealCount, 9);
  EXPECT_EQ(order.CurrentDeal, 7);
  EXPECT_EQ(order.Poker_File, "mine.pkr");
  EXPECT_NE(order.PokerDeals[2], PokerDeal{});
  EXPECT_EQ(desk.Store.Get(kInitDirectory), "/somewhere");
}

TEST_F(OrderFiles, AFormatErrorMakesNoOrderOfNothing) {
  test::WriteContent(desk.Folder / "empty.pkr", "");
  EXPECT_FALSE(Load(desk.Folder / "empty.pkr"));
  EXPECT_FALSE(order.PokerOrderExists);
}

TEST_F(OrderFiles, AFileThatCannotBeReadIsToldInTheSystemsWords) {
  EXPECT_FALSE(Load(desk.Folder / "nowhere.pkr"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Box{"      No such file or directory      \r\n"
                                             "      Load operation aborted      ",
                                             kOkCritical, "Load Error"}));
  EXPECT_FALSE(order.PokerOrderExists);
}

TEST_F(OrderFiles, WithoutAnOrderNothingIsSaved) {
  EXPECT_FALSE(SavePokerOrder(desk.Prog, order));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Box{"     Order not exist. Request Ignored      ",
                                             kOkCritical, "Save Error"}));
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
}

TEST_F(OrderFiles, SaveAsksForAFileWhereTheLastOneWas) {
  order = EmptyOrder(1);
  desk.Store.Set(kInitDirectory, "/somewhere");
  EXPECT_FALSE(SavePokerOrder(desk.Prog, order));
  ASSERT_EQ(desk.Ui.FileRequests.size(), 1U);
  const FileRequest& request = desk.Ui.FileRequests.front();
  EXPECT_EQ(request.Title, "Save Poker Order");
  EXPECT_EQ(request.Filter, "pkr (*.pkr)|*.pkr");
  EXPECT_EQ(request.Directory, "/somewhere");
  EXPECT_TRUE(request.Saving);
}

TEST_F(OrderFiles, WhatIsSavedIsLoadedAgain) {
  order = EmptyOrder(100);
  FillAtRandom(order, desk.Random);
  order.Poker_Site = "Club";
  order.Poker_Date = "1 May";
  ASSERT_TRUE(Save(desk.Folder / "evening.pkr"));
  EXPECT_EQ(order.Poker_File, "evening.pkr");
  EXPECT_EQ(desk.Store.Get(kInitDirectory), desk.Folder / "");
  const PokerOrder saved = order;
  order = {};
  ASSERT_TRUE(Load(desk.Folder / "evening.pkr"));
  EXPECT_EQ(order.PokerDeals, saved.PokerDeals);
  EXPECT_EQ(order.Poker_Site + order.Poker_Date, "Club1 May");
}

TEST_F(OrderFiles, ANameWithoutAnExtensionGetsOne) {
  order = EmptyOrder(1);
  ASSERT_TRUE(Save(desk.Folder / "evening"));
  EXPECT_TRUE(std::filesystem::exists(desk.Folder / "evening.PKR"));
  EXPECT_EQ(order.Poker_File, "evening.PKR");
  ASSERT_TRUE(Save(desk.Folder / "other.txt"));
  EXPECT_TRUE(std::filesystem::exists(desk.Folder / "other.txt"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(OrderFiles, AFileUnderTheNameWithItsExtensionIsReplacedOnAYesOnly) {
  order = EmptyOrder(1);
  test::WriteContent(desk.Folder / "evening.PKR", "mine");
  desk.Ui.Answers = {kNo};
  EXPECT_FALSE(Save(desk.Folder / "evening"));
  EXPECT_EQ(test::Content(desk.Folder / "evening.PKR"), "mine");
  EXPECT_EQ(order.Poker_File, "");
  const std::string name = desk.Folder / "evening.PKR";
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(Box{"      " + name +
                                  "      \r\n      already exists. Do you want to replace it?"
                                  "      ",
                              kYesNoExclamation, "Save Poker Order"}));
  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(Save(desk.Folder / "evening"));
  EXPECT_EQ(test::Content(desk.Folder / "evening.PKR"), PokerFileBytes(order));
}

#ifndef _WIN32  // no limit for files, no device that is full
TEST_F(OrderFiles, AFullDiskIsToldAndTheOldFileStays) {
  order = EmptyOrder(100);
  test::WriteContent(desk.Folder / "evening.pkr", "mine");
  desk.Store.Set(kInitDirectory, "/somewhere");
  {
    const test::FileSizeLimit limit(1000);
    EXPECT_FALSE(Save(desk.Folder / "evening.pkr"));
  }
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Box{"      File too large      \r\n"
                                             "      Save operation aborted      ",
                                             kOkCritical, "Save Error"}));
  EXPECT_EQ(test::Content(desk.Folder / "evening.pkr"), "mine");
  EXPECT_EQ(desk.Store.Get(kInitDirectory), "/somewhere");
  EXPECT_EQ(order.Poker_File, "");
}
#endif

}  // namespace
}  // namespace morvane::poker
