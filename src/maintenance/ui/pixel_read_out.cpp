#include "maintenance/ui/pixel_read_out.h"

#include <QHBoxLayout>
#include <QLabel>

#include "maintenance/ui/pixel_view.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/shown_value.h"

namespace morvane::maintenance {
namespace {

QString NumberOrNone(bool known, int number) { return known ? QString::number(number) : QString(); }

}  // namespace

PixelReadOut::PixelReadOut(QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kGroupMargin);
  const auto add = [&](const char* name, const char* caption, const char* spoken,
                       const char* widest) {
    auto* value = new ShownValue(name, spoken, this);
    KeepSizeFor(*value, {widest});
    row->addWidget(new QLabel(caption, this));
    row->addWidget(value);
    return value;
  };
  Cur_x_ = add("Cur_x", "x", "Column of the pixel", "888");
  Cur_y_ = add("Cur_y", "y", "Row of the pixel", "888");
  Brightness_ = add("Brightness", "Brightness", "Brightness of the pixel", "888");
  zoom_ = add("Zoom", "Zoom", "Zoom", "8x");
  row->addStretch();
}

void PixelReadOut::Show(const PaintedPicture& painted, std::optional<QPoint> at, PixelView& view) {
  const QPoint pixel = at.value_or(QPoint());
  const bool known = at.has_value();
  const int red = static_cast<int>(painted.At(pixel.x(), pixel.y()) & 0xFFU);
  ShowChanged(*Cur_x_, NumberOrNone(known, pixel.x()));
  ShowChanged(*Cur_y_, NumberOrNone(known, pixel.y()));
  ShowChanged(*Brightness_, NumberOrNone(known, red));
  ShowChanged(*zoom_, QString::number(view.Zoom()) + "x");
  view.Say(known ? QString("x %1, y %2, brightness %3").arg(pixel.x()).arg(pixel.y()).arg(red)
                 : "");
}

}  // namespace morvane::maintenance
