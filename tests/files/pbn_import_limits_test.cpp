#include <gtest/gtest.h>

#include <chrono>

#include "files/pbn_import_desk.h"
#include "files/pbn_import_values.h"

namespace morvane::files {
namespace {

// Texts that are made to keep a reader busy. Reading one twice as long may take twice the time; a
// reader that goes back again and again takes hours over these.

constexpr std::size_t kMegabyte = 1'000'000;

std::string Repeat(const std::string& piece, std::size_t bytes) {
  std::string text;
  text.reserve(bytes + piece.size());
  while (text.size() < bytes) text += piece;
  return text;
}

class HugeTextTest : public ::testing::TestWithParam<const char*> {};

TEST_P(HugeTextTest, IsReadInATimeThatGrowsWithItsLength) {
  const std::string text = Repeat(GetParam(), 300'000);
  const auto start = std::chrono::steady_clock::now();
  const Imported file(text);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  EXPECT_EQ(file.Report.Games,
            file.Report.Taken + file.Report.Repeated + file.Report.PassedOver.Count);
}

INSTANTIATE_TEST_SUITE_P(Each, HugeTextTest,
                         ::testing::Values("[", "[\n", "[ ", "[[a", "[a", "[a\"", "[a\"\n",
                                           "[a\"b\"", "[a\"b\"{}c", "[a\"b\" c", "\"", "\" ", "{",
                                           "{[a", "[{", "[{}", "[{}a", "{\n[a", "}", "\\", "[a\"\\",
                                           "[a\"\\\"", "[a\"\n\n", "[a\"x]\n", "[a\"]{\"a\"", ";",
                                           "%\n", "\r", "\n", " ", "\t\n", "[Board\"\"]",
                                           "[Board\"#\"]", "[Board\"##1\"]", "[Board\"1\"]",
                                           "[Deal\"#\"]", "[Deal\"N:A\"]", "[Event\"##x\"]",
                                           "[Event\"#\"]\n", "[OptimumResultTable\"#\"]N S 1\n",
                                           "[Board 1]", "x[a\"\\\"\n"));

TEST(HugeText, ALongValueThatIsRepeatedIsNotReadAgainAndAgain) {
  const std::string text = "[Event \"" + std::string(kMegabyte, '#') +
                           "x\"][Deal \"N:" + std::string(kMegabyte, ' ') + "A...\"]" +
                           Repeat("[Event \"#\"][Deal \"#\"]", 300'000);
  const Imported file(text);
  EXPECT_EQ(file.Report.Taken, 0);
  EXPECT_EQ(file.Report.PassedOver.Count, file.Report.Games);
}

TEST(HugeText, ShortGamesThatRepeatLongValuesAreReadOnce) {
  const std::string marks(kLongestValue - 1, '#');
  const std::string columns(kLongestValue, ';');
  const std::string voids(kLongestValue - 2, '-');
  std::string ability;
  while (ability.size() < kLongestValue - 12) ability += "NNNNN:66666 ";
  std::string text = "[Deal \"##N:" + voids + "\"][OptimumResultTable \"##" + columns +
                     "\"][Ability \"##" + ability + "\"][DoubleDummyTricks \"##" + voids + "\"]";
  for (const char* tag : {"Event", "Site", "Date", "EventDate", "Dealer", "Vulnerable"}) {
    text += std::string("[") + tag + " \"##" + marks + "x\"]";
  }
  const auto start = std::chrono::steady_clock::now();
  const Imported file(text + Repeat("[Board\"1\"]", kMegabyte));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  EXPECT_EQ(file.Report.Taken, 1);
  EXPECT_EQ(file.Report.Repeated, file.Report.Games - 1);
}

TEST(HugeText, RemarksAreCountedNotKept) {
  const Imported file(Repeat("[Board \"x\"]\n", 300'000));
  EXPECT_EQ(file.Report.PassedOver.First.size(), Remarks::kKept);
  EXPECT_EQ(file.Report.PassedOver.Count, file.Report.Games);
  EXPECT_GT(file.Report.Games, 10'000);
}

}  // namespace
}  // namespace morvane::files
