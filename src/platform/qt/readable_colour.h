#pragma once

#include <QColor>

namespace morvane {

inline constexpr double kReadable = 4.5;  ///< the least contrast of text and its ground

/// The contrast of two colours, 1 to 21, as the accessibility guidelines of the web measure it.
[[nodiscard]] double Contrast(const QColor& one, const QColor& other);

/// `colour`, made as much lighter or darker as it takes for text on `ground`.
[[nodiscard]] QColor ReadableOn(const QColor& ground, const QColor& colour);

}  // namespace morvane
