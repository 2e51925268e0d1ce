#pragma once

#include "platform/canvas.h"

namespace morvane::print {

/// Draws on paper that is too small for what it is given, all lengths times `factor`.
class ShrunkCanvas final : public Canvas {
 public:
  ShrunkCanvas(Canvas& paper, double factor) : paper_(paper), factor_(factor) {}

  [[nodiscard]] double Width() const override { return paper_.Width() / factor_; }
  [[nodiscard]] double Height() const override { return paper_.Height() / factor_; }
  [[nodiscard]] double WidthOf(std::string_view text, const Font& font) const override {
    return paper_.WidthOf(text, Shrunk(font)) / factor_;
  }
  void Text(double x, double y, std::string_view text, const Font& font, Colour colour) override {
    paper_.Text(x * factor_, y * factor_, text, Shrunk(font), colour);
  }
  void Rule(double fromX, double fromY, double toX, double toY, Colour colour) override {
    paper_.Rule(fromX * factor_, fromY * factor_, toX * factor_, toY * factor_, colour);
  }
  void Fill(const Area& area, Colour colour) override {
    paper_.Fill({area.X * factor_, area.Y * factor_, area.Width * factor_, area.Height * factor_},
                colour);
  }
  [[nodiscard]] bool NewPage() override { return paper_.NewPage(); }

 private:
  [[nodiscard]] Font Shrunk(Font font) const {
    font.Size *= factor_;
    return font;
  }

  Canvas& paper_;
  double factor_;
};

}  // namespace morvane::print
