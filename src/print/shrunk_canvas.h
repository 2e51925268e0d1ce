#pragma once

#include <algorithm>

#include "platform/canvas.h"

namespace morvane::print {

/// Paper that may be too small for what is drawn, which takes `width` x `height` points: all
/// lengths are shortened in proportion then. A4 and Letter have room.
class ShrunkCanvas final : public Canvas {
 public:
  ShrunkCanvas(Canvas& paper, double width, double height)
      : paper_(paper), factor_(std::min({paper.Width() / width, paper.Height() / height, 1.0})) {}

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
