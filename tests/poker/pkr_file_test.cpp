#include "poker/pkr_file.h"

#include <gtest/gtest.h>

namespace morvane::poker {
namespace {

const std::string kEnd = "\r\n";
const std::string kTop = "Friday\r\nClub\r\n1 May\r\n  6\r\n";

/// A line of 28 fields that are all `field`.
std::string LineOf(const std::string& field) {
  std::string line;
  for (int slot = 1; slot <= 28; ++slot) line += field;
  return line;
}

/// The cards 1 to 28 in their slots.
const std::string kCounting =
    "  1  2  3  4  5  6  7  8  9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28";

/// Whether a file with one deal whose last field is `field` is right.
bool Takes(const std::string& field) {
  PokerOrder order;
  return ReadPokerFile(kTop + LineOf("  1").substr(3) + field + kEnd, order);
}

TEST(PkrFile, IsWrittenToTheByte) {
  PokerOrder order;
  order.Poker_Event = "Friday";
  order.Poker_Site = "Club";
  order.Poker_Date = "1 May";
  order.PokerDealCount = 2;
  order.PokerDeals[1][1] = 5;
  order.PokerDeals[1][2] = 12;
  order.PokerDeals[1][28] = 55;
  order.PokerDeals[2].fill(52);
  EXPECT_EQ(PokerFileBytes(order),
            "Friday\r\nClub\r\n1 May\r\n  6\r\n"
            "  5 12  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0 55"
            "\r\n"
            " 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52 52"
            "\r\n");
}

TEST(PkrFile, AHundredEmptyDealsAreAHundredLinesOf84Characters) {
  PokerOrder order;
  order.PokerDealCount = 100;
  std::string wanted = "\r\n\r\n\r\n  6\r\n";
  for (int deal = 1; deal <= 100; ++deal) wanted += LineOf("  0") + kEnd;
  EXPECT_EQ(LineOf("  0").size(), 84U);
  EXPECT_EQ(PokerFileBytes(order), wanted);
}

TEST(PkrFile, ALineBreakInATextDoesNotBreakTheFile) {
  PokerOrder order;
  order.Poker_Event = "two\r\nlines";
  order.PokerDealCount = 1;
  PokerOrder again;
  EXPECT_TRUE(ReadPokerFile(PokerFileBytes(order), again));
  EXPECT_EQ(again.Poker_Event, "two  lines");
}

TEST(PkrFile, EachFieldGoesToItsSlot) {
  PokerOrder order;
  ASSERT_TRUE(ReadPokerFile(kTop + kCounting + kEnd + LineOf(" 54") + kEnd, order));
  EXPECT_EQ(order.PokerDealCount, 2);
  for (std::size_t slot = 1; slot <= 28; ++slot) {
    EXPECT_EQ(order.PokerDeals[1][slot], slot);
    EXPECT_EQ(order.PokerDeals[2][slot], 54);
  }
  EXPECT_EQ(order.PokerDeals[1][0], 0);
  EXPECT_EQ(order.Poker_Event, "Friday");
  EXPECT_EQ(order.Poker_Site, "Club");
  EXPECT_EQ(order.Poker_Date, "1 May");
}

TEST(PkrFile, TheFourthLineIsNotLookedAt) {
  PokerOrder order;
  EXPECT_TRUE(ReadPokerFile("a\r\nb\r\nc\r\nnine players\r\n" + kCounting + kEnd, order));
}

TEST(PkrFile, TheLastLineNeedsNoEndAndLinesMayEndWithLfAlone) {
  PokerOrder order;
  EXPECT_TRUE(ReadPokerFile("a\nb\nc\n  6\n" + kCounting, order));
  EXPECT_EQ(order.Poker_Date, "c");
  EXPECT_EQ(order.PokerDealCount, 1);
}

TEST(PkrFile, ALineOf83Or85CharactersIsAFormatError) {
  PokerOrder order;
  EXPECT_TRUE(ReadPokerFile(kTop + kCounting + kEnd, order));
  EXPECT_FALSE(ReadPokerFile(kTop + kCounting.substr(1) + kEnd, order));
  EXPECT_FALSE(ReadPokerFile(kTop + kCounting + " " + kEnd, order));
}

TEST(PkrFile, AnEmptyFileIsAFormatError) {
  PokerOrder order;
  EXPECT_FALSE(ReadPokerFile("", order));
}

TEST(PkrFile, AFileThatEndsWithinItsFirstFourLinesIsAFormatError) {
  PokerOrder order;
  for (const char* text : {"a", "a\r\n", "a\r\nb\r\n", "a\r\nb\r\nc\r\n"}) {
    EXPECT_FALSE(ReadPokerFile(text, order)) << text;
  }
}

TEST(PkrFile, AFileWithoutADealIsAFormatError) {
  PokerOrder order;
  EXPECT_FALSE(ReadPokerFile(kTop, order));
}

TEST(PkrFile, AnEmptyLineAtTheEndIsAFormatError) {
  PokerOrder order;
  EXPECT_FALSE(ReadPokerFile(kTop + kCounting + kEnd + kEnd, order));
}

TEST(PkrFile, DealAHundredIsTheLastThatTheTableHolds) {
  std::string text = kTop;
  for (int deal = 1; deal <= 99; ++deal) text += LineOf("  0") + kEnd;
  text += kCounting + kEnd;
  PokerOrder order;
  ASSERT_TRUE(ReadPokerFile(text, order));
  EXPECT_EQ(order.PokerDealCount, 100);
  EXPECT_EQ(order.PokerDeals[100][28], 28);
  EXPECT_FALSE(ReadPokerFile(text + LineOf("  0") + kEnd, order)) << "a 101st";
}

TEST(PkrFile, AFieldIsACardOrEmpty) {
  for (const char* field : {"  0", " 55", "53 ", " 7 ", "052"}) EXPECT_TRUE(Takes(field)) << field;
  for (const char* field :
       {" 56", "100", "999", "   ", " -1", " -0", " +1", "1 2", " A ", "0x1", "1.0", "\t 1"}) {
    EXPECT_FALSE(Takes(field)) << field;
  }
}

TEST(PkrFile, DealsBeforeAFaultStayInTheTableButTheCountDoesNotChange) {
  PokerOrder order;
  order.PokerDealCount = 7;
  order.PokerDeals[2].fill(9);
  EXPECT_FALSE(ReadPokerFile(kTop + kCounting + kEnd + LineOf(" 56") + kEnd, order));
  EXPECT_EQ(order.PokerDealCount, 7);
  EXPECT_EQ(order.PokerDeals[1][28], 28);
  EXPECT_EQ(order.PokerDeals[2][1], 9) << "of a wrong line nothing";
}

TEST(PkrFile, TextsAreInTheEncodingOfTheOtherFiles) {
  PokerOrder order;
  order.Poker_Event = "Z\u00FCrich";
  order.PokerDealCount = 1;
  EXPECT_TRUE(PokerFileBytes(order).starts_with("Z\xFCrich\r\n"));
  order.Poker_Site = "\u0141\u00F3d\u017A";  // has no place in Windows-1252
  const std::string bytes = PokerFileBytes(order);
  EXPECT_TRUE(bytes.starts_with("Z\u00FCrich\r\n\u0141"));
  for (const std::string& file : {bytes, std::string("Z\xFCrich\r\n\r\n\r\n  6\r\n") + kCounting}) {
    PokerOrder again;
    ASSERT_TRUE(ReadPokerFile(file, again));
    EXPECT_EQ(again.Poker_Event, "Z\u00FCrich");
  }
}

}  // namespace
}  // namespace morvane::poker
