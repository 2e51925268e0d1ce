#include "support/recording_canvas.h"

#include <algorithm>
#include <iterator>

namespace morvane::test {
namespace {

double WidthOfAll(std::string_view text, double size, double part) {
  const auto characters = std::count_if(text.begin(), text.end(),
                                        [](char c) { return (c & 0xC0) != 0x80; });  // of UTF-8
  return static_cast<double>(characters) * size * part;
}

}  // namespace

std::vector<DrawnText> DrawnPage::Find(std::string_view text) const {
  std::vector<DrawnText> found;
  std::copy_if(Texts.begin(), Texts.end(), std::back_inserter(found),
               [text](const DrawnText& drawn) { return drawn.Text == text; });
  return found;
}

double RecordingCanvas::WidthOf(std::string_view text, const Font& font) const {
  return WidthOfAll(text, font.Size, font.Face == Typeface::kSymbol ? 0.75 : 0.5);
}

void RecordingCanvas::Text(double x, double y, std::string_view text, const Font& font,
                           Colour colour) {
  Pages.back().Texts.push_back({std::string(text), x, y, WidthOf(text, font), font, colour});
}

void RecordingCanvas::Rule(double fromX, double fromY, double toX, double toY, Colour /*colour*/) {
  Pages.back().Rules.push_back({fromX, fromY, toX, toY});
}

void RecordingCanvas::Fill(const Area& area, Colour colour) {
  Pages.back().Fills.push_back({area, colour});
}

bool RecordingCanvas::NewPage() {
  if (Pages.size() == MostPages) return false;
  Pages.emplace_back();
  return true;
}

}  // namespace morvane::test
