#include <gmock/gmock.h>

#include <map>

#include "analysis/asymmetric_board.h"
#include "print/print_fixture.h"

namespace morvane::print {
namespace {

using AsymmetricTable = PrintTest;

/// Each row of the printed table by its hand's letter: the levels from no-trump to clubs, "-" for
/// an empty place.
std::map<std::string, std::string> RowsOf(const test::DrawnPage& page) {
  const Area table = page.Fills.at(0).Area;
  const double column = table.Width / 6.5;  // the hands' is one and a half
  std::map<double, std::string> letters;
  std::map<std::string, std::string> rows;
  for (const test::DrawnText& text : page.Texts) {
    if (text.X < table.X || text.Y < table.Y || text.X > table.X + column) continue;
    if (std::string("NESW").find(text.Text) == std::string::npos) continue;
    letters[text.Y] = text.Text;
    rows[text.Text] = "-----";
  }
  for (const test::DrawnText& text : page.Texts) {
    const bool isLevel = text.Text.size() == 1 && text.Text[0] >= '0' && text.Text[0] <= '7';
    if (!isLevel || text.X < table.X || !letters.contains(text.Y)) continue;
    const double middle = text.X + text.Width / 2 - table.X;
    rows[letters[text.Y]].at(static_cast<std::size_t>(middle / column - 1.5)) = text.Text[0];
  }
  return rows;
}

TEST_F(AsymmetricTable, StandsOnPaperAsItWasWorkedByHand) {
  Boards(1, 1);
  options.Hcp = false;
  set.At(1) = test::AsymmetricBoard(kNorth);
  for (std::size_t i = 0; i < kResults; ++i) {
    set.At(1).Tricks[i] = static_cast<std::uint8_t>(test::kAsymmetricResult[i] - '0');
  }
  using ::testing::Pair;
  EXPECT_THAT(RowsOf(DrawFirst()),
              ::testing::UnorderedElementsAre(Pair("N", "7--77"), Pair("S", "---77"),
                                              Pair("E", "-57--"), Pair("W", "-57--")));
}

}  // namespace
}  // namespace morvane::print
