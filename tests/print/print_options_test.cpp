#include "print/print_options.h"

#include <gtest/gtest.h>

#include "support/fakes.h"

namespace morvane::print {
namespace {

TEST(PrintOptions, AnEmptyStoreYieldsTheDefaults) {
  const PrintOptions options = LoadPrintOptions(test::MemorySettings());
  EXPECT_EQ(options.Mode, PrintMode::kHandRecords);
  EXPECT_EQ(options.PerPage, 0);
  EXPECT_TRUE(options.Colour);
  EXPECT_TRUE(options.Analysis);
  EXPECT_TRUE(options.Hcp);
  EXPECT_EQ(options.Statistics, PrintOptions::kNoStatistics);
  EXPECT_FALSE(options.TenAsNumber);
  EXPECT_EQ(options.National, 0);
  EXPECT_TRUE(options.PrintBoards);
  EXPECT_FALSE(options.PrintNS);
}

TEST(PrintOptions, WhatTheStoreHoldsIsTaken) {
  test::MemorySettings store;
  store.Set(kPrintMode, "2");
  store.Set(kPrintPerPage, "4");
  store.Set(kPrintColor, "0");
  store.Set(kPrintAnalyze, "0");
  store.Set(kPrintHcp, "0");
  store.Set(kPrintStat, "3");
  store.Set(kPrintTen, "2");
  store.Set(kNational, "6");
  const PrintOptions options = LoadPrintOptions(store);
  EXPECT_EQ(options.Mode, PrintMode::kText);
  EXPECT_EQ(options.PerPage, 4);
  EXPECT_FALSE(options.Colour);
  EXPECT_FALSE(options.Analysis);
  EXPECT_FALSE(options.Hcp);
  EXPECT_EQ(options.Statistics, PrintOptions::kStatisticsLast);
  EXPECT_TRUE(options.TenAsNumber);
  EXPECT_EQ(options.National, 6);
}

TEST(PrintOptions, TheScoreCardModeHoldsBothSwitches) {
  struct Row {
    const char* Text;
    bool HasNS;
    bool HasBoards;
  };
  for (const auto& [text, hasNs, hasBoards] :
       {Row{"0", false, false}, {"1", true, false}, {"2", false, true}, {"3", true, true}}) {
    test::MemorySettings store;
    store.Set(kPrintScoreCardMode, text);
    const PrintOptions options = LoadPrintOptions(store);
    EXPECT_EQ(options.PrintNS, hasNs) << text;
    EXPECT_EQ(options.PrintBoards, hasBoards) << text;
    EXPECT_EQ(std::to_string(ScoreCardMode(options)), text);
  }
}

TEST(PrintOptions, ValuesThatCannotBeYieldTheDefaults) {
  for (const char* const wrong : {"", "7", "9", "-1", "11", "x", " 1", "1 ", "/", ":"}) {
    test::MemorySettings store;
    for (const SettingKey& key : {kPrintMode, kPrintPerPage, kPrintColor, kPrintAnalyze, kPrintHcp,
                                  kPrintStat, kPrintTen, kNational, kPrintScoreCardMode}) {
      store.Set(key, wrong);
    }
    const PrintOptions options = LoadPrintOptions(store);
    EXPECT_EQ(options.Mode, PrintMode::kHandRecords) << wrong;
    EXPECT_EQ(PrintParameters(options), "11111,  0,2,0,1,1,1") << wrong;
    EXPECT_EQ(options.PerPage, 0) << wrong;
  }
}

TEST(PrintOptions, ValuesJustOutsideYieldTheDefaults) {
  test::MemorySettings store;
  store.Set(kPrintMode, "3");
  store.Set(kPrintPerPage, "5");
  store.Set(kPrintColor, "2");
  store.Set(kPrintStat, "0");
  store.Set(kPrintTen, "3");
  store.Set(kNational, "7");
  store.Set(kPrintScoreCardMode, "4");
  const PrintOptions options = LoadPrintOptions(store);
  EXPECT_EQ(options.Mode, PrintMode::kHandRecords);
  EXPECT_EQ(options.PerPage, 0);
  EXPECT_TRUE(options.Colour);
  EXPECT_EQ(options.Statistics, PrintOptions::kNoStatistics);
  EXPECT_FALSE(options.TenAsNumber);
  EXPECT_EQ(options.National, 0);
  EXPECT_EQ(ScoreCardMode(options), 2);
}

TEST(PrintParametersLine, HoldsAllOfThem) {
  PrintOptions options;
  options.TenAsNumber = true;
  options.Statistics = 3;
  options.Colour = false;
  options.Analysis = true;
  options.Hcp = false;
  options.PerPage = 4;
  options.PrintNS = true;
  options.PrintBoards = true;
  options.National = 5;
  options.From = 17;
  options.To = 32;
  options.Copies = 12;
  // Ten 2, statistics 3, colour 0, analysis 1, HCP 0; the fourth layout; both switches.
  EXPECT_EQ(PrintParameters(options), "23010,  3,3,5,17,32,12");
}

TEST(PrintParametersLine, TheFirstLayoutAndNoneHaveTheIndexNought) {
  PrintOptions options;
  options.PerPage = 1;
  EXPECT_EQ(PrintParameters(options), "11111,  0,2,0,1,1,1");
  options.PerPage = 0;
  EXPECT_EQ(PrintParameters(options), "11111,  0,2,0,1,1,1");
}

}  // namespace
}  // namespace morvane::print
