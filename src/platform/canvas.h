#pragma once

#include <cstdint>
#include <string_view>

namespace morvane {

// Lengths on paper are in points, 72 to an inch, from the upper left corner of what the printer can
// reach; x grows to the right, y downwards.

/// The families by their names; a system without one has a stand-in of the same widths.
enum class Typeface : std::uint8_t {
  kTimes,   ///< "Times New Roman"
  kArial,   ///< "Arial"
  kSymbol,  ///< "Symbol"; has the suit signs
};

struct Font {
  Typeface Face = Typeface::kArial;
  double Size = 10;
  bool Bold = false;
  bool operator==(const Font&) const = default;
};

/// From the top of a line of text to the next one's, and to its baseline. The same in all families,
/// so that texts of several of them on one y stand on one line.
[[nodiscard]] constexpr double LineHeight(const Font& font) { return 1.15 * font.Size; }
[[nodiscard]] constexpr double Ascent(const Font& font) { return 0.9 * font.Size; }

struct Colour {
  std::uint8_t Red = 0;
  std::uint8_t Green = 0;
  std::uint8_t Blue = 0;
  bool operator==(const Colour&) const = default;
};

/// A rectangle by its upper left corner and its size.
struct Area {
  double X = 0;
  double Y = 0;
  double Width = 0;
  double Height = 0;
  bool operator==(const Area&) const = default;
};

/// Pages that are drawn one after the other. Texts are UTF-8; the suit signs are U+2660 and its
/// like.
class Canvas {
 public:
  virtual ~Canvas() = default;
  /// Of the page that is being drawn.
  [[nodiscard]] virtual double Width() const = 0;
  [[nodiscard]] virtual double Height() const = 0;
  [[nodiscard]] virtual double WidthOf(std::string_view text, const Font& font) const = 0;
  /// One line, its left end at `x`, its top at `y`.
  virtual void Text(double x, double y, std::string_view text, const Font& font, Colour colour) = 0;
  /// A thin line, level or upright.
  virtual void Rule(double fromX, double fromY, double toX, double toY, Colour colour) = 0;
  /// A filled area without a frame.
  virtual void Fill(const Area& area, Colour colour) = 0;
  /// The page is done, and there is another. False: the printer takes no more.
  [[nodiscard]] virtual bool NewPage() = 0;
};

}  // namespace morvane
