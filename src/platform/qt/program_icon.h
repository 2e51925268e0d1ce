#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPainterPath>
#include <array>

namespace morvane {

/// A part of the program's icon, in a square of side 1.
struct IconPart {
  QPainterPath Outline;
  QColor Fill;
  QColor Edge;  ///< of one pixel, at any size; not valid where there is none
};

/// The ace of spades, from back to front; also what the icon files are made of.
[[nodiscard]] std::array<IconPart, 2> ProgramIconParts();

[[nodiscard]] QImage ProgramPicture(int size);

/// The icon of every window, painted at the usual sizes.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace morvane
