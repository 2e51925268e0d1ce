#include "platform/qt/qt_canvas.h"

#include <QFontInfo>
#include <algorithm>

#include "platform/qt/pdf_pages.h"
#include "support/fakes.h"
#include "support/pdf_reader.h"

namespace morvane {
namespace {

constexpr double kMargin = 12;  // of the pages of a PDF, in points
const std::vector<std::string> kSigns{"♠", "♥", "♦", "♣"};

class QtCanvasTest : public ::testing::Test {
 protected:
  test::TempFolder folder;

  test::PdfReader Pdf(const Printer::Draw& draw) {
    test::WriteContent(folder / "page.pdf", PdfPages({"Page", 1}, draw, QPageSize(QPageSize::A4)));
    return test::PdfReader(folder / "page.pdf");
  }
  /// How many dots of a part of the picture are dark; the part in points of the canvas.
  static int Ink(const QImage& picture, const Area& part) {
    const double scale = picture.width() / 595.0;
    int ink = 0;
    for (int y = 0; y < part.Height * scale; ++y) {
      for (int x = 0; x < part.Width * scale; ++x) {
        const QPoint at(static_cast<int>((part.X + kMargin) * scale) + x,
                        static_cast<int>((part.Y + kMargin) * scale) + y);
        if (picture.rect().contains(at) && qGray(picture.pixel(at)) < 128) ++ink;
      }
    }
    return ink;
  }
};

TEST_F(QtCanvasTest, EverySuitSignHasInkAndComesOutOfTheTextAsItself) {
  for (const double size : {8.0, 10.0, 14.0}) {
    for (const bool bold : {false, true}) {
      const Font font{Typeface::kSymbol, size, bold};
      const auto pdf = Pdf([&font](Canvas& canvas) {
        double x = 100;
        for (const std::string& sign : kSigns) canvas.Text(x += 50, 100, sign, font, {});
      });
      EXPECT_EQ(pdf.Words(1), kSigns) << size;
      const QImage picture = pdf.Picture(1, 144);
      for (int i = 0; i < 4; ++i) {
        const Area place{150.0 + 50 * i, 100, size, LineHeight(font)};
        const double dots = 4 * place.Width * place.Height;
        const int ink = Ink(picture, place);
        EXPECT_GT(ink, 0.12 * dots) << kSigns[static_cast<std::size_t>(i)] << " of " << size;
        EXPECT_LT(ink, 0.6 * dots) << "a sign, not a box";
      }
    }
  }
}

TEST_F(QtCanvasTest, NoTwoSuitSignsLookTheSame) {
  const Font font{Typeface::kSymbol, 40, false};
  const auto pdf = Pdf([&font](Canvas& canvas) {
    double x = 50;
    for (const std::string& sign : kSigns) canvas.Text(x += 50, 100, sign, font, {});
  });
  const QImage picture = pdf.Picture(1, 72);
  std::vector<QImage> signs;
  for (int i = 0; i < 4; ++i) signs.push_back(picture.copy(112 + 50 * i, 112, 40, 46));
  for (std::size_t i = 0; i < 4; ++i) {
    for (std::size_t j = 0; j < i; ++j) EXPECT_NE(signs[i], signs[j]) << i << " and " << j;
  }
}

// A quarter of a point is less than the gap between any two texts.
TEST_F(QtCanvasTest, WidthsAreThoseOnPaper) {
  const std::vector<std::string> texts{"Statistics",
                                       "AKQJT98765432",
                                       "N",
                                       "Vulnerability",
                                       "MMMMMMMMMMMMMMMMMMMMMMMMM",
                                       "iiiiiiiiiiiiiiiiiiiiiiiiiii"};
  for (const Typeface face : {Typeface::kTimes, Typeface::kArial}) {
    for (const bool bold : {false, true}) {
      const Font font{face, 10, bold};
      std::vector<double> told;
      const auto pdf = Pdf([&](Canvas& canvas) {
        double y = 0;
        for (const std::string& text : texts) {
          told.push_back(canvas.WidthOf(text, font));
          canvas.Text(50, y += 30, text, font, {});
        }
      });
      const auto words = pdf.Places(1);
      ASSERT_EQ(words.size(), texts.size());
      for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(words[i].Text, texts[i]);
        EXPECT_NEAR(words[i].Left, 50 + kMargin, 0.1) << texts[i];
        EXPECT_NEAR(words[i].Right - words[i].Left, told[i], 0.25) << texts[i];
      }
    }
  }
}

// The published widths of the named families, in thousandths of the size: required of a stand-in.
TEST_F(QtCanvasTest, StandInsAreAsWideAsTheFamiliesThatAreNamed) {
  struct Width {
    Typeface Face;
    bool Bold;
    const char* Letter;
    double Thousandths;
  };
  const std::vector<Width> widths{
      {Typeface::kTimes, false, "A", 722}, {Typeface::kTimes, false, "M", 889},
      {Typeface::kTimes, false, "i", 278}, {Typeface::kTimes, true, "B", 667},
      {Typeface::kTimes, true, "a", 500},  {Typeface::kArial, false, "A", 667},
      {Typeface::kArial, false, "K", 667}, {Typeface::kArial, false, "Q", 778},
      {Typeface::kArial, false, "J", 500}, {Typeface::kArial, false, "1", 556}};
  static_cast<void>(Pdf([&widths](Canvas& canvas) {
    for (const Width& width : widths) {
      EXPECT_NEAR(canvas.WidthOf(width.Letter, {width.Face, 100, width.Bold}),
                  width.Thousandths / 10, 0.1)
          << width.Letter;
    }
  }));
}

TEST_F(QtCanvasTest, LettersStandOnTheBaselineThatIsPromised) {
  const Font font{Typeface::kArial, 40, false};
  const auto pdf = Pdf([&font](Canvas& canvas) { canvas.Text(100, 200, "H", font, {}); });
  const QImage picture = pdf.Picture(1, 72);
  // "H" goes from the baseline up by 0.716 of the size.
  const double baseline = 200 + Ascent(font);
  EXPECT_GT(Ink(picture, {100, baseline - 5, 30, 4}), 5);
  EXPECT_EQ(Ink(picture, {100, baseline + 1.5, 30, 20}), 0);
  EXPECT_EQ(Ink(picture, {100, 200 - 5, 30, baseline - 0.716 * 40 - 200 + 4}), 0);
}

TEST_F(QtCanvasTest, RulesAndAreasLieWhereTheyAreDrawn) {
  const auto pdf = Pdf([](Canvas& canvas) {
    canvas.Rule(50, 100, 150, 100, {});
    canvas.Fill({200, 100, 30, 20}, {});
  });
  const QImage picture = pdf.Picture(1, 288);
  EXPECT_GT(Ink(picture, {50, 99.5, 100, 1}), 300) << "at four dots a point";
  EXPECT_EQ(Ink(picture, {50, 101, 100, 10}), 0);
  EXPECT_EQ(Ink(picture, {151, 95, 40, 10}), 0);
  EXPECT_NEAR(Ink(picture, {195, 95, 40, 30}), 30 * 20 * 16, 400);
}

TEST_F(QtCanvasTest, ThePageIsThePaperWithinItsMargins) {
  for (const auto& [id, width, height] :
       {std::tuple(QPageSize::A4, 571.0, 818.0), std::tuple(QPageSize::Letter, 588.0, 768.0)}) {
    const std::string pdf = PdfPages(
        {"Page", 1},
        [width = width, height = height](Canvas& canvas) {
          EXPECT_NEAR(canvas.Width(), width, 0.5);
          EXPECT_NEAR(canvas.Height(), height, 0.5);
        },
        QPageSize(id));
    EXPECT_FALSE(pdf.empty());
  }
}

}  // namespace
}  // namespace morvane
