#include "print/page_checks.h"

#include <algorithm>

namespace morvane::test {
namespace {

constexpr double kNothing = 1e-6;  // points; below it two edges are one

double RightOf(const Area& area) { return area.X + area.Width; }
double BottomOf(const Area& area) { return area.Y + area.Height; }

bool Meet(const Area& a, const Area& b) {
  return std::min(RightOf(a), RightOf(b)) - std::max(a.X, b.X) > kNothing &&
         std::min(BottomOf(a), BottomOf(b)) - std::max(a.Y, b.Y) > kNothing;
}

/// Whether a rule runs through the inside of the area; one along its edge does not.
bool Crosses(const DrawnRule& rule, const Area& area) {
  return std::max(rule.FromX, rule.ToX) > area.X + kNothing &&
         std::min(rule.FromX, rule.ToX) < RightOf(area) - kNothing &&
         std::max(rule.FromY, rule.ToY) > area.Y + kNothing &&
         std::min(rule.FromY, rule.ToY) < BottomOf(area) - kNothing;
}

bool Holds(const Area& outer, const Area& inner) {
  return inner.X > outer.X - kNothing && RightOf(inner) < RightOf(outer) + kNothing &&
         inner.Y > outer.Y - kNothing && BottomOf(inner) < BottomOf(outer) + kNothing;
}

Area AreaOf(const DrawnRule& rule) {
  return {std::min(rule.FromX, rule.ToX), std::min(rule.FromY, rule.ToY),
          std::abs(rule.ToX - rule.FromX), std::abs(rule.ToY - rule.FromY)};
}

std::string PlaceOf(const Area& area) {
  return " at " + std::to_string(area.X) + ", " + std::to_string(area.Y);
}

std::string NameOf(const DrawnText& drawn) {
  return "\"" + drawn.Text + "\"" + PlaceOf(InkOf(drawn));
}

}  // namespace

Area InkOf(const DrawnText& drawn) {
  constexpr double kCapitals = 0.72;  // above the baseline, of the size
  constexpr double kTails = 0.21;     // below it
  const double size = drawn.Font.Size;
  const bool hasTail = drawn.Text.find_first_of("gjpqyQ,;()[]{}|_@$") != std::string::npos;
  return {drawn.X, drawn.Y + Ascent(drawn.Font) - kCapitals * size, drawn.Width,
          (kCapitals + (hasTail ? kTails : 0)) * size};
}

std::vector<std::string> PageFaults(const DrawnPage& page, const Area& within,
                                    const std::function<Area(const DrawnText&)>& ink) {
  std::vector<std::string> faults;
  std::vector<Area> inks;
  for (const DrawnText& text : page.Texts) inks.push_back(ink(text));
  for (std::size_t i = 0; i < page.Texts.size(); ++i) {
    if (!Holds(within, inks[i])) faults.push_back(NameOf(page.Texts[i]) + " leaves the page");
    for (std::size_t k = i + 1; k < page.Texts.size(); ++k) {
      if (!Meet(inks[i], inks[k])) continue;
      faults.push_back(NameOf(page.Texts[i]) + " overlaps " + NameOf(page.Texts[k]));
    }
    for (const DrawnRule& rule : page.Rules) {
      if (Crosses(rule, inks[i])) faults.push_back("a rule runs through " + NameOf(page.Texts[i]));
    }
  }
  for (const DrawnRule& rule : page.Rules) {
    if (Holds(within, AreaOf(rule))) continue;
    faults.push_back("a rule" + PlaceOf(AreaOf(rule)) + " leaves the page");
  }
  for (const DrawnFill& fill : page.Fills) {
    if (Holds(within, fill.Area)) continue;
    faults.push_back("an area" + PlaceOf(fill.Area) + " leaves the page");
  }
  return faults;
}

std::vector<std::string> PageFaults(const RecordingCanvas& canvas, const DrawnPage& page) {
  return PageFaults(page, {0, 0, canvas.Width(), canvas.Height()});
}

}  // namespace morvane::test
