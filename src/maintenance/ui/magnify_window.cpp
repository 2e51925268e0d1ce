#include "maintenance/ui/magnify_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "maintenance/ui/pixel_view.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {

MagnifyWindow::MagnifyWindow(const PictureStore& pictures, QWidget* parent)
    : ServiceDialog("Magnify1", "Morvane - Magnify", parent), magnified_(pictures) {
  Picture2_ = new PixelView("Picture2", "Picture of the camera, magnified",
                            {MagnifiedPicture::kWidth, MagnifiedPicture::kHeight}, 1, this);
  Picture2_->FixZoom();
  Picture2_->OnPoint = [this](std::optional<QPoint> place) { PointAt(place); };
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kServiceMargin, kServiceMargin, kServiceMargin, kServiceMargin);
  column->setSpacing(kServiceSpacing);
  column->addWidget(Picture2_, 1);
  column->addWidget(MakeButtons());
  WatchButtons();
  ShowPixels();
  FitToScreen(*this);
  Picture2_->setFocus();
}

QWidget* MagnifyWindow::MakeButtons() {
  auto* part = new QWidget(this);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kServiceSpacing);
  const auto value = [&](const char* name, const char* caption, const char* spoken) {
    auto* shown = new ShownValue(name, spoken, part);
    KeepSizeFor(*shown, {"888"});
    row->addWidget(new QLabel(caption, part));
    row->addWidget(shown);
    return shown;
  };
  Cursor_x_ = value("Cursor_x", "x", "Column of the pixel");
  Cursor_y_ = value("Cursor_y", "y", "Row of the pixel");
  Bright_ = value("Bright", "Brightness", "Brightness of the pixel");
  row->addStretch();
  const auto button = [&](const char* name, const char* caption, const char* tip,
                          std::function<void()> press) {
    auto* made = NewServiceButton(name, caption, std::move(press), part);
    made->setToolTip(tip);
    row->addWidget(made);
  };
  button("Refresh", "&Refresh", "Paints the picture anew", [this] {
    magnified_.Refresh();
    ShowPixels();
  });
  button("Raster", "R&aster", "Draws the grid of the pixels", [this] {
    magnified_.Raster();
    ShowPixels();
  });
  button("cmdClose", "&Close", "Back to the console (Escape)", [this] { reject(); });
  return part;
}

void MagnifyWindow::ShowPixels() {
  Picture2_->Show([this](int x, int y) { return magnified_.At(x, y); });
  PointAt(place_);
}

void MagnifyWindow::PointAt(std::optional<QPoint> place) {
  place_ = place;
  QString x;
  QString y;
  QString bright;
  if (place) {
    const MagnifiedPicture::ReadOut read = magnified_.ReadAt(place->x(), place->y());
    x = QString::number(read.Cursor_x);
    y = QString::number(read.Cursor_y);
    bright = QString::number(read.Bright);
  }
  Cursor_x_->Show(x);
  Cursor_y_->Show(y);
  Bright_->Show(bright);
  Picture2_->Say(place ? QString("x %1, y %2, brightness %3").arg(x, y, bright) : "");
}

}  // namespace morvane::maintenance
