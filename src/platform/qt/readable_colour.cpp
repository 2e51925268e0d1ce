#include "platform/qt/readable_colour.h"

#include <algorithm>
#include <cmath>

namespace morvane {
namespace {

constexpr int kSteps = 20;

double Linear(double part) {
  return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
         0.0722 * Linear(colour.blueF());
}

QColor Mixed(const QColor& one, const QColor& other, int step) {
  const auto part = [step](int from, int to) { return from + (to - from) * step / kSteps; };
  return {part(one.red(), other.red()), part(one.green(), other.green()),
          part(one.blue(), other.blue())};
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

QColor ReadableOn(const QColor& ground, const QColor& colour) {
  const bool dark = Contrast(ground, Qt::white) > Contrast(ground, Qt::black);
  int step = 0;
  while (step < kSteps &&
         Contrast(ground, Mixed(colour, dark ? Qt::white : Qt::black, step)) < kReadable) {
    ++step;
  }
  return Mixed(colour, dark ? Qt::white : Qt::black, step);
}

}  // namespace morvane
