#pragma once

#include <QSize>

class QWidget;

namespace morvane {

/// Where a message box is larger than the room for it, its text scrolls and the buttons stay in
/// sight. Does nothing to another window.
void FitBoxText(QWidget& window, QSize room);

}  // namespace morvane
