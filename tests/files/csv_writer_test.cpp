#include "files/csv_file.h"
#include "files/csv_lines.h"
#include "files/sets.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

TEST(CsvWriter, WritesTheFileByteForByte) {
  BoardSet set = EmptySet(1, 2);
  set.At(1) = test::SuitBoard(1);
  set.At(2) = test::RoundBoard(2);
  EXPECT_EQ(CsvText(set),
            "\"AKQJT98765432\",\"\",\"\",\"\","
            "\"\",\"AKQJT98765432\",\"\",\"\","
            "\"\",\"\",\"AKQJT98765432\",\"\","
            "\"\",\"\",\"\",\"AKQJT98765432\",\"1\",\"N/-\"\r\n"
            "\"AT62\",\"J73\",\"Q84\",\"K95\","
            "\"K95\",\"AT62\",\"J73\",\"Q84\","
            "\"Q84\",\"K95\",\"AT62\",\"J73\","
            "\"J73\",\"Q84\",\"K95\",\"AT62\",\"2\",\"E/NS\"\r\n");
}

TEST(CsvWriter, KeepsTheNumbersOfTheSet) {
  BoardSet set = EmptySet(639, 640);
  // 639 and 640 stand at places 15 and 16 of the cycle: South with North and South, West with East
  // and West vulnerable.
  set.At(639) = test::SuitBoard(639);
  set.At(640) = test::SuitBoard(640);
  EXPECT_EQ(CsvText(set),
            std::string(kSuitFields) + "639\",\"S/NS\"\r\n" + kSuitFields + "640\",\"W/EW\"\r\n");
}

/// The line of board 1 behind its number, with this dealer and vulnerability.
std::string EndOfLine(std::uint8_t dealer, std::uint8_t vul) {
  BoardSet set = EmptySet(1, 1);
  set.At(1) = test::SuitBoard(1);
  set.At(1).Dealer = dealer;
  set.At(1).Vul = vul;
  const std::string text = CsvText(set);
  const std::string start = std::string(kSuitFields) + "1\",\"";
  EXPECT_TRUE(text.starts_with(start));
  return text.substr(start.size());
}

TEST(CsvWriter, NamesDealerAndVulnerabilityOfTheBoard) {
  EXPECT_EQ(EndOfLine(kNorth, 1), "N/-\"\r\n");
  EXPECT_EQ(EndOfLine(kEast, 2), "E/NS\"\r\n");
  EXPECT_EQ(EndOfLine(kSouth, 3), "S/EW\"\r\n");
  EXPECT_EQ(EndOfLine(kWest, 4), "W/All\"\r\n");
}

TEST(CsvWriter, WithoutAVulnerabilityTheLineHasNoClosingQuote) {
  EXPECT_EQ(EndOfLine(0, 0), "\r\n");
  EXPECT_EQ(EndOfLine(kEast, 0), "E/\r\n");
  EXPECT_EQ(EndOfLine(0, 4), "All\"\r\n");
}

TEST(CsvRoundTrip, LinesWithoutTheirClosingQuoteComeBack) {
  BoardSet set = EmptySet(1, 2);
  for (int n = 1; n <= 2; ++n) {
    set.At(n) = test::SuitBoard(n);
    set.At(n).Vul = 0;
    set.At(n).Dealer = 0;
  }
  BoardSet back = EmptySet(1, 0);
  ASSERT_FALSE(ParseCsv(CsvText(set), back, InitMessages()));
  EXPECT_EQ(back.At(2), test::SuitBoard(2));
}

TEST(CsvRoundTrip, ASetOfOneBoardIsWrittenAndNotReadAgain) {
  BoardSet set = EmptySet(1, 1);
  set.At(1) = test::SuitBoard(1);
  BoardSet back = EmptySet(1, 0);
  EXPECT_TRUE(ParseCsv(CsvText(set), back, InitMessages()));
}

}  // namespace
}  // namespace morvane::files
