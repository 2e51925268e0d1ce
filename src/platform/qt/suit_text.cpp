#include "platform/qt/suit_text.h"

#include <QPalette>

#include "platform/qt/qt_text.h"
#include "platform/qt/readable_colour.h"
#include "text/suit_signs.h"

namespace morvane {
namespace {

constexpr QColor kRed{192, 0, 0};
constexpr std::size_t kHearts = 2;
constexpr std::size_t kDiamonds = 3;

}  // namespace

QString SuitSign(std::size_t suit) { return ToQt(SuitSigns[suit]); }

QColor SuitColour(std::size_t suit, const QPalette& palette) {
  const bool red = suit == kHearts || suit == kDiamonds;
  return red ? ReadableOn(palette.color(QPalette::Window), kRed)
             : palette.color(QPalette::WindowText);
}

QString ColouredSuits(const QString& text, const QPalette& palette) {
  QString rich = text.toHtmlEscaped();
  for (const std::size_t suit : {kHearts, kDiamonds}) {
    const QString sign = SuitSign(suit);
    rich.replace(
        sign, "<span style='color:" + SuitColour(suit, palette).name() + "'>" + sign + "</span>");
  }
  return rich;
}

}  // namespace morvane
