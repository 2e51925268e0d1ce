#include <QFont>
#include <QFontMetricsF>

#include "platform/qt/pdf_pages.h"
#include "platform/qt/qt_text.h"
#include "print/document.h"
#include "print/page_checks.h"
#include "print/paper_set.h"

namespace morvane::print {
namespace {

using ::testing::Combine;
using ::testing::ElementsAre;
using ::testing::Range;
using ::testing::Values;

/// Notes what is drawn on another canvas, with that one's widths.
class NotingCanvas final : public Canvas {
 public:
  explicit NotingCanvas(Canvas& paper) : paper_(paper), Pages(1) {}

  [[nodiscard]] double Width() const override { return paper_.Width(); }
  [[nodiscard]] double Height() const override { return paper_.Height(); }
  [[nodiscard]] double WidthOf(std::string_view text, const Font& font) const override {
    return paper_.WidthOf(text, font);
  }
  void Text(double x, double y, std::string_view text, const Font& font, Colour colour) override {
    Pages.back().Texts.push_back({std::string(text), x, y, WidthOf(text, font), font, colour});
  }
  void Rule(double fromX, double fromY, double toX, double toY, Colour /*colour*/) override {
    Pages.back().Rules.push_back({fromX, fromY, toX, toY});
  }
  void Fill(const Area& area, Colour colour) override {
    Pages.back().Fills.push_back({area, colour});
  }
  [[nodiscard]] bool NewPage() override {
    Pages.emplace_back();
    return true;
  }

 private:
  Canvas& paper_;

 public:
  std::vector<test::DrawnPage> Pages;
};

QStringList FamiliesOf(Typeface face) {
  if (face == Typeface::kTimes) return {"Times New Roman", "Liberation Serif"};
  if (face == Typeface::kArial) return {"Arial", "Liberation Sans"};
  return {"DejaVu Sans"};
}

/// What the letters themselves cover, as the fonts say.
Area RealInk(const test::DrawnText& drawn) {
  constexpr int kFine = 1000;
  QFont font(FamiliesOf(drawn.Font.Face));
  font.setPixelSize(kFine);
  font.setBold(drawn.Font.Bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  const QRectF ink = QFontMetricsF(font).tightBoundingRect(ToQt(drawn.Text));
  const double scale = drawn.Font.Size / kFine;
  return {drawn.X + ink.x() * scale, drawn.Y + Ascent(drawn.Font) + ink.y() * scale,
          ink.width() * scale, ink.height() * scale};
}

/// Paper, layout (0: score cards), national letters, the ten as a number.
class RealFonts
    : public ::testing::TestWithParam<std::tuple<QPageSize::PageSizeId, int, int, bool>> {
 protected:
  /// All that is drawn of boards 1..40 with everything that there is, and `PageSize`.
  std::vector<test::DrawnPage> Draw() {
    constexpr int kBoards = 40;
    const auto [paper, perPage, national, tenAsNumber] = GetParam();
    const BoardSet set = test::PaperSet(kBoards);
    PrintOptions options;
    options.Mode = perPage == 0 ? PrintMode::kScoreCards : PrintMode::kHandRecords;
    options.PerPage = perPage;
    options.National = national;
    options.TenAsNumber = tenAsNumber;
    options.Statistics = PrintOptions::kStatisticsFirst;
    options.PrintNS = true;
    options.NsOffset = 99;
    options.Header =
        "A very long header that is longer than the page is wide, set in smaller letters";
    options.To = kBoards;
    std::vector<test::DrawnPage> pages;
    const auto draw = [&](Canvas& paperCanvas) {
      NotingCanvas canvas(paperCanvas);
      EXPECT_TRUE(Document(set, options).Draw(canvas, [] { return true; }));
      pages = canvas.Pages;
      PageSize = {0, 0, canvas.Width(), canvas.Height()};
    };
    EXPECT_FALSE(PdfPages({"Boards", 1}, draw, QPageSize(paper)).empty());
    return pages;
  }
  Area PageSize;
};
INSTANTIATE_TEST_SUITE_P(Layouts, RealFonts,
                         Combine(Values(QPageSize::A4, QPageSize::Letter), Range(0, 5),
                                 Values(0, 6), Values(false, true)));

TEST_P(RealFonts, NoTextMeetsAnotherOrLeavesThePage) {
  for (const test::DrawnPage& page : Draw()) {
    EXPECT_FALSE(page.Texts.empty());
    EXPECT_THAT(test::PageFaults(page, PageSize, RealInk), ElementsAre());
  }
}

/// The letters, signs and digits on `ground`, row by row.
std::vector<Area> TableInk(const test::DrawnPage& page, const Area& ground) {
  std::vector<Area> all;
  for (const test::DrawnText& text : page.Texts) {
    const Area ink = RealInk(text);
    const double middle = ink.X + ink.Width / 2;
    const double middleY = ink.Y + ink.Height / 2;
    if (middle > ground.X && middle < ground.X + ground.Width && middleY > ground.Y &&
        middleY < ground.Y + ground.Height) {
      all.push_back(ink);
    }
  }
  return all;
}

TEST_P(RealFonts, TheTableKeepsItsLettersOnTheGreyAndApart) {
  constexpr double kOnGrey = 0.5;  // points, on each side
  constexpr double kApart = 2;     // a hand's letter from a level
  int tables = 0;
  for (const test::DrawnPage& page : Draw()) {
    for (const auto& fill : page.Fills) {
      ++tables;
      const Area& ground = fill.Area;
      const std::vector<Area> inks = TableInk(page, ground);
      for (std::size_t i = 0; i < inks.size(); ++i) {
        const Area& ink = inks[i];
        EXPECT_GE(ink.X, ground.X + kOnGrey);
        EXPECT_LE(ink.X + ink.Width, ground.X + ground.Width - kOnGrey);
        EXPECT_GE(ink.Y, ground.Y + kOnGrey);
        EXPECT_LE(ink.Y + ink.Height, ground.Y + ground.Height - kOnGrey);
        const bool isHand = ink.X < ground.X + ground.Width / (kDenominations + 1) / 2;
        if (isHand && i + 1 < inks.size() && inks[i + 1].X > ink.X) {
          EXPECT_GE(inks[i + 1].X - ink.X - ink.Width, kApart);
        }
      }
    }
  }
  EXPECT_EQ(tables, 12);  // every second of the 24 complete boards
}

}  // namespace
}  // namespace morvane::print
