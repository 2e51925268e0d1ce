#pragma once

#include <QIcon>

class QWidget;

namespace morvane::print {

struct Layout;

/// A small sheet with the boards of the layout on it, in the colours and for the screen of
/// `widget`.
[[nodiscard]] QIcon LayoutPicture(const Layout& layout, const QWidget& widget);

/// Its size in pixels.
[[nodiscard]] QSize LayoutPictureSize();

}  // namespace morvane::print
