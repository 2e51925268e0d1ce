#include "maintenance/ui/picture_panel.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "maintenance/maintenance.h"
#include "maintenance/picture_file.h"
#include "maintenance/ui/measure_panel.h"
#include "maintenance/ui/pixel_read_out.h"
#include "maintenance/ui/pixel_view.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {
namespace {

constexpr int kUsualZoom = 2;

}  // namespace

PicturePanel::PicturePanel(Program& program, Maintenance& maintenance, QWidget* parent)
    : QWidget(parent), program_(program), maintenance_(maintenance) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kGroupMargin, kGroupMargin, kGroupMargin, kGroupMargin);
  column->setSpacing(kServiceSpacing);
  column->addWidget(MakeButtons());
  column->addWidget(MakeView(), 1);
  column->addWidget(MakeReadOuts());
  column->addWidget(measured_ = new MeasurePanel(maintenance_.Bench(), this));
  PointAt(std::nullopt);
}

QPushButton* PicturePanel::Add(const char* name, const char* caption, const char* tip,
                               std::function<void()> press) {
  auto* button = NewServiceButton(name, caption, std::move(press), this);
  button->setToolTip(tip);
  return button;
}

QWidget* PicturePanel::MakeButtons() {
  auto* buttons = new QWidget(this);
  QGridLayout* const grid = NewGrid(buttons);
  grid->setContentsMargins(0, 0, 0, 0);
  const auto bench = [this](QPushButton* PicturePanel::*pressed, void (RecognitionBench::*work)(),
                            QPushButton* PicturePanel::*then) {
    return [=, this] { Press(this->*pressed, work, this->*then); };
  };
  Capture_ = Add("Capture", "Ta&ke picture", "Has the machine take a picture of the card",
                 bench(&PicturePanel::Capture_, &RecognitionBench::Capture, &PicturePanel::Showb_));
  Reco_ = Add("Reco", "Rec&ognise", "Has the machine recognise the card of the last picture",
              bench(&PicturePanel::Reco_, &RecognitionBench::Reco, &PicturePanel::Reco_));
  Showb_ = Add("Showb", "Show pi&xels",
               "Fetches the picture, or behind Recognise what the machine has made of it",
               bench(&PicturePanel::Showb_, &RecognitionBench::Showb, &PicturePanel::Showb_));
  auto* frames = Add("Frame_draw", "Draw frames", "Around the symbol and the suit as measured",
                     [this] { maintenance_.Bench().Frame_draw(); });
  Start_draw_ = Add("Start_draw", "Draw start point", "Where the search of the symbol begins",
                    [this] { maintenance_.Bench().Start_draw(); });
  AutoSetup_command_ =
      Add("AutoSetup_command", "Auto Setup", "Finds the camera's position with a ten of spades",
          [this] { maintenance_.AutoSetup_command(); });
  int place = 0;
  for (QPushButton* button : {Capture_, Reco_, Showb_, frames, Start_draw_, AutoSetup_command_}) {
    grid->addWidget(button, place / 3, place % 3);
    ++place;
  }
  return buttons;
}

QWidget* PicturePanel::MakeView() {
  Picture1_ = new PixelView("Picture1", "Picture of the camera",
                            {PaintedPicture::kColumns, PaintedPicture::kRows}, kUsualZoom, this);
  Picture1_->setToolTip("The wheel zooms; Ctrl with plus, minus and 0 does, too");
  Picture1_->OnPoint = [this](std::optional<QPoint> pixel) { PointAt(pixel); };
  Picture1_->OnClick = [this] { maintenance_.Magnify(); };
  Picture1_->OnCopy = [this] { Copy(); };
  Picture1_->OnZoom = [this] { ShowPoint(); };
  StayFree(*Picture1_);
  return Picture1_;
}

QWidget* PicturePanel::MakeReadOuts() {
  auto* part = new QWidget(this);
  QGridLayout* const grid = NewGrid(part);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(readOut_ = new PixelReadOut(part), 0, 0);
  fetched_ = new QProgressBar(part);
  fetched_->setObjectName("Fetched");
  fetched_->setAccessibleName("Lines of the picture fetched");
  fetched_->setRange(0, PixelPlane::kHeight);
  fetched_->setFormat("Line %v of %m");
  QSizePolicy keepsItsPlace = fetched_->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  fetched_->setSizePolicy(keepsItsPlace);
  auto* row = new QHBoxLayout;
  row->addWidget(Save_picture_ = Add("Save_picture", "Save as PNG...", "", [this] { Save(); }));
  row->addWidget(
      Add("Copy_picture", "Copy", "To the clipboard (Ctrl+C on the picture)", [this] { Copy(); }));
  row->addWidget(fetched_, 1);
  grid->addLayout(row, 1, 0);
  return part;
}

/// While the machine works the three are off, and the picture has the keyboard of the pressed one.
void PicturePanel::Press(QPushButton* pressed, void (RecognitionBench::*work)(),
                         QPushButton* then) {
  done_ = false;
  (maintenance_.Bench().*work)();
  if (!done_ || maintenance_.Closed()) return;
  if (pressed != then || Picture1_->hasFocus()) (then->isEnabled() ? then : Capture_)->setFocus();
}

void PicturePanel::Show() {
  const bool known = maintenance_.Controls().MachineKnown;
  const RecognitionBench& bench = maintenance_.Bench();
  const bool busy = !bench.ButtonsOn();
  done_ = done_ || busy;
  for (QPushButton* button : {Capture_, Reco_, Showb_, AutoSetup_command_, Save_picture_}) {
    if (busy && button->hasFocus()) Picture1_->setFocus();
  }
  Capture_->setEnabled(known && !busy);
  Reco_->setEnabled(known && !busy && bench.RecoOn());
  Showb_->setEnabled(known && !busy);
  AutoSetup_command_->setEnabled(known && !busy);
  Start_draw_->setEnabled(known);
  Save_picture_->setEnabled(!busy);  // a fetch would stand still behind its dialog
  ShowPicture();
  ShowReadings();
}

void PicturePanel::ShowPicture() {
  const PaintedPicture& painted = maintenance_.Bench().Pictures().Picture1;
  const auto colour = [&painted](int x, int y) { return painted.At(x, y); };
  const int lines = maintenance_.Bench().LinesFetched().value_or(0);
  const int before = std::exchange(linesShown_, lines);
  if (lines > 0 && lines == before + 1) {
    Picture1_->ShowLines(colour, before, lines + 1);  // the line and the mark below it
  } else {
    Picture1_->Show(colour);
  }
  ShowPoint();
  ShowProgress();
}

void PicturePanel::ShowReadings() {
  const RecognitionBench& bench = maintenance_.Bench();
  Reco_->setEnabled(Capture_->isEnabled() && bench.RecoOn());
  measured_->Show();
}

void PicturePanel::PointAt(std::optional<QPoint> pixel) {
  point_ = pixel;
  ShowPoint();
}

void PicturePanel::ShowPoint() {
  readOut_->Show(maintenance_.Bench().Pictures().Picture1, point_, *Picture1_);
}

void PicturePanel::ShowProgress() {
  const auto lines = maintenance_.Bench().LinesFetched();
  fetched_->setVisible(lines.has_value());
  if (lines) fetched_->setValue(*lines);
}

void PicturePanel::Save() {
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  Picture().save(&buffer, "PNG");
  SavePicture(program_, {png.constData(), static_cast<std::size_t>(png.size())});
}

void PicturePanel::Copy() { QApplication::clipboard()->setImage(Picture()); }

/// With what is drawn on it, and without the mark of the transfer below it.
QImage PicturePanel::Picture() const {
  return Picture1_->Image().copy(0, 0, PixelPlane::kWidth, PixelPlane::kHeight);
}

}  // namespace morvane::maintenance
