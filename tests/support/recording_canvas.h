#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/canvas.h"

namespace morvane::test {

/// One line of text on a page, with the room that it takes.
struct DrawnText {
  std::string Text;
  double X = 0;  ///< of the left end
  double Y = 0;  ///< of the top
  double Width = 0;
  morvane::Font Font;
  morvane::Colour Colour;
};

struct DrawnRule {
  double FromX = 0;
  double FromY = 0;
  double ToX = 0;
  double ToY = 0;
  bool operator==(const DrawnRule&) const = default;
};

struct DrawnFill {
  morvane::Area Area;
  morvane::Colour Colour;
};

struct DrawnPage {
  std::vector<DrawnText> Texts;
  std::vector<DrawnRule> Rules;
  std::vector<DrawnFill> Fills;

  /// All texts that are `text`.
  [[nodiscard]] std::vector<DrawnText> Find(std::string_view text) const;
};

/// Pages of the size of A4 within narrow margins, in a font whose characters are all half as wide
/// as it is high, suit signs three quarters. Everything drawn is kept.
class RecordingCanvas final : public Canvas {
 public:
  RecordingCanvas() { Begin(); }
  /// Forgets all pages, and starts with an empty one.
  void Begin() { Pages.assign(1, {}); }

  [[nodiscard]] double Width() const override { return PageWidth; }
  [[nodiscard]] double Height() const override { return PageHeight; }
  [[nodiscard]] double WidthOf(std::string_view text, const Font& font) const override;
  void Text(double x, double y, std::string_view text, const Font& font, Colour colour) override;
  void Rule(double fromX, double fromY, double toX, double toY, Colour colour) override;
  void Fill(const Area& area, Colour colour) override;
  [[nodiscard]] bool NewPage() override;

  double PageWidth = 571;
  double PageHeight = 818;
  std::size_t MostPages = 1000;  ///< that it takes
  std::vector<DrawnPage> Pages;
};

}  // namespace morvane::test
