#include "history/ring_records.h"

namespace morvane::history {
namespace {

// The older file had one record for a name.

TEST(ConvertedHistory, EachHeaderGetsTwoBlankNameRecords) {
  EXPECT_EQ(ConvertedHistory(Header("One") + RoundRecord(1) + Header("Two") + kEnd),
            ShortName("One") + RoundRecord(1) + ShortName("Two") + kEnd);
}

TEST(ConvertedHistory, BeginsWithTheFirstHeaderBehindTheEnd) {
  EXPECT_EQ(ConvertedHistory(RoundRecord(8) + Header("New") + RoundRecord(1) + kEnd +
                             RoundRecord(9) + Header("Old") + RoundRecord(2)),
            ShortName("Old") + RoundRecord(2) + RoundRecord(8) + ShortName("New") + RoundRecord(1) +
                kEnd);
}

TEST(ConvertedHistory, WithoutAnEndBeginsWithTheFirstRecord) {
  EXPECT_EQ(ConvertedHistory(Header("One") + RoundRecord(1)),
            ShortName("One") + RoundRecord(1) + kEnd);
}

TEST(ConvertedHistory, WithoutAHeaderIsAnEmptyRing) {
  EXPECT_EQ(ConvertedHistory(RoundRecord(1) + kEnd + RoundRecord(2)), kEnd);
  EXPECT_EQ(ConvertedHistory("short"), kEnd);
}

TEST(ConvertedHistory, WhatHasNoPlaceInTheRingIsTheOldest) {
  std::string old;
  for (int n = 0; n < 9999; ++n) old += Header("E" + std::to_string(n)) + RoundRecord(1);
  old += Header("Last") + kEnd;
  // 9999 x 4 + 3 records and the end: 40,000 positions, two rounds.
  const std::string bytes = ConvertedHistory(old);
  EXPECT_EQ(bytes.size(), 320000U);
  const HistoryRing ring = Loaded(bytes);
  EXPECT_EQ(ring.HistoryUsed(), 20000);
  EXPECT_EQ(ring.HistoryWritePos(), 20000);
  EXPECT_EQ(ring.Entries().back().Name, "Last");
  EXPECT_EQ(ring.Entries().front().Name, "E5000");
}

}  // namespace
}  // namespace morvane::history
