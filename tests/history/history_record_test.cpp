#include "history/history_record.h"

#include <gtest/gtest.h>

#include "support/fakes.h"

namespace morvane::history {
namespace {

std::string Text(const HistoryRecord& record, std::size_t from) {
  return {record.begin() + static_cast<std::ptrdiff_t>(from), record.end()};
}

TEST(HistoryRecord, AnEntryBeginsWithItsBoardCountAndItsNameInThreeRecords) {
  const auto records = EntryRecords(640, EntryName("Pairs of the 3rd of March"));
  EXPECT_EQ(records[0][0], 254);
  EXPECT_EQ(records[0][1], 40);
  EXPECT_EQ(records[0][2], 6);
  EXPECT_EQ(Text(records[0], 3), "Pairs of the ");
  EXPECT_EQ(records[1][0], 253);
  EXPECT_EQ(Text(records[1], 1), "3rd of March   ");
  EXPECT_EQ(records[2][0], 252);
  EXPECT_EQ(Text(records[2], 1), std::string(15, ' '));
}

TEST(HistoryRecord, ACountBelow100StandsInTheFirstByte) {
  const auto records = EntryRecords(99, EntryName("x"));
  EXPECT_EQ(records[0][1], 99);
  EXPECT_EQ(records[0][2], 0);
  EXPECT_EQ(EntryRecords(100, EntryName("x"))[0][1], 0);
  EXPECT_EQ(EntryRecords(100, EntryName("x"))[0][2], 1);
}

TEST(HistoryRecord, ANameOf43CharactersIsKeptWhole) {
  const std::string name = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQ";
  ASSERT_EQ(name.size(), 43U);
  EXPECT_EQ(EntryName(name), name);
  const auto records = EntryRecords(1, EntryName(name));
  EXPECT_EQ(Text(records[0], 3), "abcdefghijklm");
  EXPECT_EQ(Text(records[1], 1), "nopqrstuvwxyzAB");
  EXPECT_EQ(Text(records[2], 1), "CDEFGHIJKLMNOPQ");
}

TEST(HistoryRecord, ANameOf50CharactersKeepsItsFirst43) {
  EXPECT_EQ(EntryName(std::string(43, 'a') + "bcdefgh"), std::string(43, 'a'));
}

TEST(HistoryRecord, BlanksAroundANameAreTakenOffBeforeItIsCut) {
  EXPECT_EQ(EntryName("   " + std::string(43, 'a')), std::string(43, 'a'));
}

TEST(HistoryRecord, ANameHasOneByteACharacter) {
  EXPECT_EQ(EntryName("Köln €").substr(0, 7), "K\xF6ln \x80 ");
  EXPECT_EQ(EntryName("Łódź").substr(0, 5),
            "?\xF3"
            "d? ");
  EXPECT_EQ(EntryName("Łódź").size(), 43U);
}

TEST(HistoryRecord, ABoardHasItsNumberAndTwoBitsACard) {
  Board board = test::RoundBoard(345);
  // Cards 1, 2, 3, 4 to North, East, South, West, and so on: 00 01 10 11 in each byte.
  const HistoryRecord record = BoardRecord(board);
  const HistoryRecord expected{0,    45,   3,    0x1B, 0x1B, 0x1B, 0x1B, 0x1B,
                               0x1B, 0x1B, 0x1B, 0x1B, 0x1B, 0x1B, 0x1B, 0x1B};
  EXPECT_EQ(record, expected);
}

TEST(HistoryRecord, TheFirstCardStandsInTheTopBitsAndTheLastInTheLowest) {
  Board board = test::SuitBoard(7);
  const HistoryRecord record = BoardRecord(board);
  // Spades 1..13 North 00, hearts 14..26 East 01, diamonds 27..39 South 10, clubs 40..52 West 11.
  // Byte 3 + 3 holds cards 13..16: 00 01 01 01; byte 9 cards 25..28: 01 01 10 10; byte 12 cards
  // 37..40: 10 10 10 11.
  const HistoryRecord expected{0,    7,    0,    0x00, 0x00, 0x00, 0x15, 0x55,
                               0x55, 0x5A, 0xAA, 0xAA, 0xAB, 0xFF, 0xFF, 0xFF};
  EXPECT_EQ(record, expected);
}

TEST(HistoryRecord, ABoardComesBackFromItsRecord) {
  const Board board = test::SuitBoard(640);
  EXPECT_EQ(NumberOfRecord(BoardRecord(board)), 640);
  EXPECT_EQ(HandsOfRecord(BoardRecord(board)), MasksOf(board));
  EXPECT_EQ(HandsOfRecord(BoardRecord(test::RoundBoard(3))), MasksOf(test::RoundBoard(3)));
}

TEST(HistoryRecord, TheRingsEndIsFilledWithEqualSigns) {
  EXPECT_EQ(EndRecord()[0], 255);
  EXPECT_EQ(Text(EndRecord(), 1), "===============");
}

TEST(HistoryRecord, ARecordBehindTheEndLeavesZerosBeforeIt) {
  std::string bytes = "ab";
  PutRecord(bytes, 2, EndRecord());
  EXPECT_EQ(bytes, "ab" + std::string(14, '\0') + "\xFF===============");
  EXPECT_EQ(RecordAt(bytes, 2), EndRecord());
}

}  // namespace
}  // namespace morvane::history
