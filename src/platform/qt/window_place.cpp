#include "platform/qt/window_place.h"

#include <QApplication>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <algorithm>
#include <tuple>

#include "platform/qt/long_box_text.h"

namespace morvane {
namespace {

constexpr QMargins kUsualFrame{1, 30, 1, 1};
constexpr const char* kStaysFree = "staysFree";

qint64 Area(const QRect& rect) { return qint64{rect.width()} * rect.height(); }

qint64 Covered(const QRect& place, const QList<QRect>& keepFree) {
  qint64 area = 0;
  for (const QRect& rect : keepFree) {
    if (place.intersects(rect)) area += Area(place & rect);
  }
  return area;
}

/// One coordinate of a place: the wanted one, the screen's edges, and close beside each obstacle.
struct Span {
  int From;
  int Length;
};
QList<int> Starts(const Span& wanted, const Span& screen, const QList<Span>& obstacles) {
  QList<int> starts{wanted.From, screen.From, screen.From + screen.Length - wanted.Length};
  for (const Span& obstacle : obstacles) {
    starts << obstacle.From - wanted.Length << obstacle.From + obstacle.Length;
  }
  for (int& start : starts) {
    start = std::clamp(start, screen.From, screen.From + screen.Length - wanted.Length);
  }
  return starts;
}

Span Across(const QRect& rect) { return {rect.x(), rect.width()}; }
Span Down(const QRect& rect) { return {rect.y(), rect.height()}; }

QList<Span> SpansOf(const QList<QRect>& rects, Span (*span)(const QRect&)) {
  QList<Span> spans;
  for (const QRect& rect : rects) spans << span(rect);
  return spans;
}

QMargins FrameOf(const QWidget& window) {
  const QRect outer = window.frameGeometry();
  const QRect inner = window.geometry();
  if (outer != inner) {
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
  }
  const QWidget* parent = window.parentWidget();
  return parent == nullptr ? kUsualFrame : FrameOf(*parent->window());
}

/// A window that was not shown or sized yet takes what it needs.
QSize SizeOf(const QWidget& window) {
  window.ensurePolished();
  const bool sized = window.isVisible() || window.testAttribute(Qt::WA_Resized);
  return sized ? window.size() : window.sizeHint();
}

/// A bar beside what scrolls one way must not make it scroll the other way too.
QSize WithBars(const QSize& size, const QWidget& window, const QSize& room) {
  const QSize hint = window.sizeHint();
  const int bar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &window);
  const int width = hint.height() > room.height() ? hint.width() + bar : 0;
  const int height = hint.width() > room.width() ? hint.height() + bar : 0;
  return size.expandedTo({width, height});
}

bool IsAbove(const QWidget& other, const QWidget& window) {
  for (const QWidget* one = &window; one != nullptr; one = one->parentWidget()) {
    if (one->window() == &other) return true;
  }
  return false;
}

/// What a dialog that opens `window` lies over already. The main window itself may lie below.
QRegion CoveredBelow(const QWidget& window) {
  const QWidget* dialog = window.parentWidget();
  if (dialog == nullptr || dialog->window()->parentWidget() == nullptr) return {};
  return FramedPlace(*dialog->window());
}

/// What can be seen of the windows that stand beside `window` and can be used while it is open.
QList<QRect> WindowsBeside(const QWidget& window) {
  const QRegion covered = CoveredBelow(window);
  QList<QRect> places;
  for (const QWidget* other : QApplication::topLevelWidgets()) {
    const auto type = other->windowType();
    const bool passing = type == Qt::Popup || type == Qt::ToolTip || other->isMinimized();
    if (!other->isVisible() || passing || IsAbove(*other, window)) continue;
    for (const QRect& rect : QRegion(FramedPlace(*other)) - covered) places << rect;
  }
  return places;
}

/// Adds what can be seen of a part of a window.
void AddSeen(QList<QRect>& places, const QWidget& part) {
  const QRect seen = part.visibleRegion().boundingRect();
  if (!seen.isEmpty()) places << seen.translated(part.mapToGlobal(QPoint()));
}

QList<QRect> FreePartsOf(const QWidget& window) {
  QList<QRect> places;
  for (const auto* part : window.findChildren<QWidget*>()) {
    if (part->window() == &window && part->property(kStaysFree).toBool()) AddSeen(places, *part);
  }
  return places;
}

QSize WithFrame(const QSize& size, const QMargins& frame) {
  return QRect(QPoint(), size).marginsAdded(frame).size();
}

/// What the content lacks of its width scrolls, but the row of menus stays whole.
int LeastWidth(const QWidget& window) {
  const auto* menus = window.findChild<QMenuBar*>();
  const int row = menus == nullptr ? 0 : menus->sizeHint().width();
  return std::max(row, window.minimumSizeHint().width());
}

/// Both get narrower where that makes room for one beside the other: first the window, then the
/// panel.
void ShareWidth(QWidget& panel, QWidget& window, const QRect& available) {
  const QMargins frame = FrameOf(window);
  const QSize room = available.marginsRemoved(frame).size();
  const int both = room.width() - frame.left() - frame.right();
  const int least = LeastWidth(window);
  const int high = panel.height() + frame.top() + frame.bottom();
  const bool below = window.height() + high <= room.height();
  if (both - panel.width() < least && below) return;
  const int width = std::min(window.width(), std::max(both - panel.width(), least));
  const QSize rest(std::min(panel.width(), both - width), panel.height());
  if (4 * rest.width() < 3 * panel.width()) return;  // too little of it would be seen
  window.resize(width, window.height());
  panel.resize(WithBars(rest, panel, {rest.width(), room.height()}).boundedTo(room));
}

QRect WantedPlace(const QWidget& window, const QSize& size) {
  QRect place(window.pos(), size);
  if (const QWidget* parent = window.parentWidget()) {
    place.moveCenter(parent->window()->frameGeometry().center());
  }
  return place;
}

}  // namespace

QRect PlaceOnScreen(const QRect& wanted, const QRect& screen, const QList<QRect>& keepFree,
                    const QList<QRect>& thenFree) {
  QRect best(QPoint(), wanted.size().boundedTo(screen.size()));
  best.moveTopLeft(wanted.topLeft());
  const QList<int> xs = Starts(Across(best), Across(screen), SpansOf(keepFree + thenFree, Across));
  const QList<int> ys = Starts(Down(best), Down(screen), SpansOf(keepFree + thenFree, Down));
  const auto badness = [&](const QRect& place) {
    return std::tuple(Covered(place, keepFree), Covered(place, thenFree),
                      (place.topLeft() - wanted.topLeft()).manhattanLength());
  };
  best.moveTo(xs.front(), ys.front());
  for (const int x : xs) {
    for (const int y : ys) {
      const QRect place(QPoint(x, y), best.size());
      if (badness(place) < badness(best)) best = place;
    }
  }
  return best;
}

Docked DockBeside(const QRect& window, const QList<QRect>& buttons, QSize panel,
                  const QRect& screen) {
  const QRect right(QPoint(window.right() + 1, window.top()), panel);
  const QRect left = right.translated(-window.width() - panel.width(), 0);
  const bool both = window.width() + panel.width() <= screen.width();
  if (both && right.right() > screen.right() && left.left() < screen.left()) {
    const int given = right.right() - screen.right();
    return DockBeside(window.translated(-given, 0), buttons, panel, screen);
  }
  const QRect least = PlaceOnScreen(right, screen, {window});
  return {window, PlaceOnScreen(least, screen, buttons)};
}

QRect FramedPlace(const QWidget& window) { return window.geometry() + FrameOf(window); }

QList<QRect> ButtonsOf(const QWidget& window) {
  QList<QRect> places;
  for (const auto* button : window.findChildren<QPushButton*>()) {
    if (button->window() == &window && button->isEnabled()) AddSeen(places, *button);
  }
  return places;
}

void StayFree(QWidget& part) { part.setProperty(kStaysFree, true); }

void FitToScreen(QWidget& window, const QRect& available) {
  const QMargins frame = FrameOf(window);
  const QSize room = available.marginsRemoved(frame).size();
  FitBoxText(window, room);
  const QSize size = WithBars(SizeOf(window), window, room).boundedTo(room);
  window.resize(size);
  const QWidget* parent = window.parentWidget();
  // A first window stands where the desktop puts it.
  if (parent == nullptr && !window.testAttribute(Qt::WA_Moved)) return;
  QList<QRect> keepFree = WindowsBeside(window);
  QList<QRect> thenFree;
  if (parent != nullptr) {
    keepFree += ButtonsOf(*parent->window());
    thenFree = FreePartsOf(*parent->window());
  }
  const QRect wanted = WantedPlace(window, WithFrame(size, frame));
  window.move(PlaceOnScreen(wanted, available, keepFree, thenFree).topLeft());
}

void FitToScreen(QWidget& window) {
  const QWidget* parent = window.parentWidget();
  const QScreen* screen = parent == nullptr ? window.screen() : parent->window()->screen();
  FitToScreen(window, screen->availableGeometry());
}

void Dock(QWidget& panel, QWidget& window, const QRect& available) {
  const QMargins frame = FrameOf(window);
  panel.resize(panel.sizeHint().boundedTo(available.marginsRemoved(frame).size()));
  ShareWidth(panel, window, available);
  const QSize size = WithFrame(panel.size(), frame);
  const Docked places = DockBeside(FramedPlace(window), ButtonsOf(window), size, available);
  if (places.Window != FramedPlace(window)) window.move(places.Window.topLeft());
  panel.move(places.Panel.topLeft());
}

void Dock(QWidget& panel, QWidget& window) {
  Dock(panel, window, window.screen()->availableGeometry());
}

}  // namespace morvane
