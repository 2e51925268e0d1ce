#pragma once

#include <QList>
#include <QRect>

class QWidget;

namespace morvane {

// Where windows stand; all in the pixels of the desktop, rects with the window's frame.

/// `wanted` moved as little as it takes to stand whole on the screen, with as little as can be of
/// `keepFree` under it, and then of `thenFree`; smaller where the screen is.
[[nodiscard]] QRect PlaceOnScreen(const QRect& wanted, const QRect& screen,
                                  const QList<QRect>& keepFree, const QList<QRect>& thenFree = {});

struct Docked {
  QRect Window;
  QRect Panel;
};
/// A panel beside a window: right of it, or else left of it. Where the window leaves no room on
/// either side, but the screen has room for both, the window gives way to the left. On a smaller
/// screen the panel covers as little as can be of the window, and least of all its `buttons`.
[[nodiscard]] Docked DockBeside(const QRect& window, const QList<QRect>& buttons, QSize panel,
                                const QRect& screen);

/// The window's place with its frame; one that was not shown yet has the frame of the windows of
/// this desktop.
[[nodiscard]] QRect FramedPlace(const QWidget& window);
/// The push buttons of the window that can be seen and pressed.
[[nodiscard]] QList<QRect> ButtonsOf(const QWidget& window);
/// What opens over the window leaves this part of it free where the buttons allow it.
void StayFree(QWidget& part);

/// Makes a window no larger than what is `available` of the screen, and moves it there. Its
/// parent's buttons and what is seen of the windows beside that are not its parents stay free where
/// there is room.
/// What does not fit scrolls, a message box's text too.
void FitToScreen(QWidget& window, const QRect& available);
/// The same on the screen that the window is to stand on.
void FitToScreen(QWidget& window);
/// Puts the panel, not shown yet, beside the window. Where that makes room, the window gets as
/// narrow as its row of menus, and then the panel up to a quarter narrower.
void Dock(QWidget& panel, QWidget& window, const QRect& available);
/// The same on the screen that the window stands on.
void Dock(QWidget& panel, QWidget& window);

}  // namespace morvane
