#pragma once

#include <QColor>
#include <QString>
#include <cstddef>

class QPalette;

namespace morvane {

/// The sign of suit 1 Spades .. 4 Clubs, as plain text.
[[nodiscard]] QString SuitSign(std::size_t suit);
/// Hearts and diamonds are red; spades and clubs have the colour of `palette`'s text. Both can be
/// read on its windows.
[[nodiscard]] QColor SuitColour(std::size_t suit, const QPalette& palette);
/// Plain text as rich text in which the signs of hearts and diamonds are red.
[[nodiscard]] QString ColouredSuits(const QString& text, const QPalette& palette);

}  // namespace morvane
