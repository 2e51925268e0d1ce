#include "maintenance/ui/file_picture_panel.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "maintenance/read_service.h"
#include "maintenance/ui/pixel_read_out.h"
#include "maintenance/ui/pixel_view.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/shown_value.h"

namespace morvane::maintenance {
namespace {

constexpr int kUsualZoom = 2;
constexpr const char* kGreyKind = "Capture: the picture";
constexpr const char* kLabelKind = "Recognize: as divided";

}  // namespace

FilePicturePanel::FilePicturePanel(ReadService& viewer, QWidget* parent)
    : QWidget(parent), viewer_(viewer) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kGroupMargin, kGroupMargin, kGroupMargin, kGroupMargin);
  column->setSpacing(kServiceSpacing);
  column->addWidget(MakeButtons());
  column->addWidget(MakeViews(), 1);
  column->addWidget(readOut_ = new PixelReadOut(this));
}

QWidget* FilePicturePanel::MakeButtons() {
  auto* buttons = new QWidget(this);
  QGridLayout* const grid = NewGrid(buttons);
  grid->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](const char* name, const char* caption, const char* tip,
                       void (ReadService::*press)(), int row, int column) {
    auto* button = NewServiceButton(
        name, caption, [this, press] { (viewer_.*press)(); }, buttons);
    button->setToolTip(tip);
    grid->addWidget(button, row, column);
  };
  add("Capture", "Show &Capture", "The picture of the card, on the left", &ReadService::Capture, 0,
      0);
  add("Reco", "Show &Recognize", "What the recogniser made of it, on the left", &ReadService::Reco,
      0, 1);
  add("Frame_draw", "Draw &frames", "Around the symbol and the suit as measured",
      &ReadService::Frame_draw, 1, 0);
  add("Start_draw", "Dra&w start point",
      "Where the search of the symbol begins, by the parameters that are shown",
      &ReadService::Start_draw, 1, 1);
  return buttons;
}

QWidget* FilePicturePanel::MakeViews() {
  auto* views = new QWidget(this);
  QGridLayout* const grid = NewGrid(views);
  grid->setContentsMargins(0, 0, 0, 0);
  MakeSide(0, "Picture1", "Picture on the left");
  MakeSide(1, "Picture_beside", "Picture on the right");
  for (int side = 0; side < 2; ++side) {
    const Side& made = sides_[static_cast<std::size_t>(side)];
    grid->addWidget(made.Kind, 0, side);
    grid->addWidget(made.View, 1, side);
  }
  grid->setRowStretch(1, 1);
  return views;
}

void FilePicturePanel::MakeSide(std::size_t side, const char* name, const char* spoken) {
  auto* view =
      new PixelView(name, spoken, {PixelPlane::kWidth, PixelPlane::kHeight}, kUsualZoom, this);
  view->setToolTip("The wheel zooms; Ctrl with plus, minus and 0 does, too. Ctrl+C copies");
  view->OnPoint = [this, side](std::optional<QPoint> pixel) { PointAt(side, pixel); };
  view->OnZoom = [this, side] {
    pointed_ = side;
    ShowPoint();
  };
  view->OnCopy = [view] { QApplication::clipboard()->setImage(view->Image()); };
  auto* kind = new ShownValue(QString(name) + "_kind", QString(spoken) + " shows", this);
  sides_[side] = {view, kind, std::nullopt};
}

const PaintedPicture& FilePicturePanel::PictureOf(std::size_t side) const {
  return side == 0 ? viewer_.Pictures().Picture1 : viewer_.Beside();
}

void FilePicturePanel::Show() {
  const bool grey = viewer_.Painted() == PictureStore::Kind::kGrey;
  for (std::size_t side = 0; side < sides_.size(); ++side) {
    const PaintedPicture& painted = PictureOf(side);
    sides_[side].View->Show([&painted](int x, int y) { return painted.At(x, y); });
    ShowChanged(*sides_[side].Kind, grey == (side == 0) ? kGreyKind : kLabelKind);
  }
  ShowPoint();
}

void FilePicturePanel::PointAt(std::size_t side, std::optional<QPoint> pixel) {
  sides_[side].Point = pixel;
  // Where the mouse leaves one picture, the cross in the other one counts again.
  const std::size_t other = 1 - side;
  pointed_ = !pixel && sides_[other].Point ? other : side;
  ShowPoint();
}

void FilePicturePanel::ShowPoint() {
  const Side& side = sides_[pointed_];
  readOut_->Show(PictureOf(pointed_), side.Point, *side.View);
}

}  // namespace morvane::maintenance
