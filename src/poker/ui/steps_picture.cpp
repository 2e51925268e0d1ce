#include "poker/ui/steps_picture.h"

#include <QPainter>
#include <algorithm>

#include "machine/ui/run_colours.h"
#include "platform/qt/qt_text.h"

namespace morvane::poker {
namespace {

// The sheet, in units of a pixel at scale 1.
constexpr QSizeF kSheet{720, 208};
constexpr qreal kLeastScale = 0.55;
constexpr QSizeF kStep{170, 60};
constexpr qreal kStepAcross = (kSheet.width() - kRuns * kStep.width()) / (kRuns - 1);
constexpr qreal kDot = 38;  // of a step's number
constexpr QRectF kTask{0, 66, 720, 34};
constexpr QRectF kFeeder{8, 102, 400, 104};
constexpr QRectF kNorth{456, 102, 256, 104};
constexpr QRectF kBelow{0, 66, 720, 142};
constexpr qreal kPile = 33;  // its height
constexpr qreal kBigLetters = 24;
constexpr qreal kSmallLetters = 16;
constexpr qreal kProgressLetters = 64;

QFont SheetFont(QFont font, qreal size, bool bold = true) {
  font.setPixelSize(static_cast<int>(size));
  font.setBold(bold);
  return font;
}

bool IsOn(StepState state) { return state == StepState::kNext || state == StepState::kRunning; }

void DrawCheck(QPainter& painter, const QRectF& dot) {
  painter.setPen(QPen(Qt::white, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF middle = dot.center();
  painter.drawPolyline(
      QPolygonF({middle + QPointF(-9, 1), middle + QPointF(-2, 8), middle + QPointF(10, -8)}));
}

/// Open above, as the feeder and a pocket are.
void DrawTrough(QPainter& painter, const QRectF& place) {
  painter.drawPolyline(
      QPolygonF({place.topLeft(), place.bottomLeft(), place.bottomRight(), place.topRight()}));
}

}  // namespace

StepsPicture::StepsPicture(QWidget* parent) : QWidget(parent), Spoken(QAccessible::Graphic) {
  setObjectName("picSteps");
  setAccessibleName("Runs of the deal");
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize((kSheet * kLeastScale).toSize());
}

void StepsPicture::Show(const PokerStage& stage) {
  if (stage == stage_) return;
  const bool further = StageInWords(stage) == StageInWords(stage_);
  const bool same = further && ProgressText(stage) == ProgressText(stage_);
  stage_ = stage;
  if (same) return;
  repaint(further ? ToPixels().mapRect(kBelow).toAlignedRect() : rect());
  Announce(*this);
}

QString StepsPicture::SpokenText() const { return ToQt(StageInWords(stage_)); }

QSize StepsPicture::sizeHint() const { return minimumSize(); }

QTransform StepsPicture::ToPixels() const {
  const qreal scale = std::min(width() / kSheet.width(), height() / kSheet.height());
  return QTransform::fromTranslate((width() - kSheet.width() * scale) / 2,
                                   (height() - kSheet.height() * scale) / 2)
      .scale(scale, scale);
}

QColor StepsPicture::Ink() const { return palette().color(QPalette::WindowText); }

void StepsPicture::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter.setTransform(ToPixels(), true);
  QRectF box(QPointF(), kStep);
  for (const Step& step : Steps()) {
    DrawStep(painter, box.adjusted(3, 3, -3, -3), step);
    box.translate(kStep.width() + kStepAcross, 0);
  }
  if (stage_.Running) {
    DrawProgress(painter);
  } else {
    DrawTask(painter);
  }
}

/// Four runs, or one reading.
std::vector<StepsPicture::Step> StepsPicture::Steps() const {
  if (stage_.What == PokerStage::Task::kRead) {
    return {{"R", "Reading", stage_.Running ? StepState::kRunning : StepState::kNext}};
  }
  std::vector<Step> steps;
  for (int run = 1; run <= kRuns; ++run) {
    steps.push_back({QString::number(run), ToQt(NameOfRun(run)), StateOfRun(stage_, run)});
  }
  return steps;
}

/// The one that is on is filled and has a heavy frame; what is to come is a broken outline.
void StepsPicture::DrawStep(QPainter& painter, const QRectF& box, const Step& step) const {
  const bool on = IsOn(step.State);
  const bool toCome = step.State == StepState::kToCome;
  painter.setPen(QPen(Ink(), on ? 4 : 1, toCome ? Qt::DashLine : Qt::SolidLine));
  painter.setBrush(on ? QBrush(machine::kBlueGround) : Qt::NoBrush);
  painter.drawRoundedRect(box, 8, 8);
  const QRectF dot(box.left() + 5, box.center().y() - kDot / 2, kDot, kDot);
  DrawDot(painter, dot, step);
  painter.setPen(on ? QColor(Qt::white) : Ink());
  const QRectF words(dot.right() + 6, box.top() + 3, box.right() - dot.right() - 7,
                     box.height() - 6);
  painter.setFont(SheetFont(font(), kSmallLetters));
  painter.drawText(words, Qt::AlignLeft | Qt::AlignTop, step.Name);
  painter.setFont(SheetFont(font(), kSmallLetters, on));
  painter.drawText(words, Qt::AlignLeft | Qt::AlignBottom, ToQt(WordOf(step.State)));
}

/// Of what is done it has a check, else its number.
void StepsPicture::DrawDot(QPainter& painter, const QRectF& dot, const Step& step) const {
  painter.setPen(QPen(IsOn(step.State) ? QColor(Qt::white) : Ink(), 2));
  const bool done = step.State == StepState::kDone;
  painter.setBrush(done ? QBrush(machine::kGreenGround) : Qt::NoBrush);
  painter.drawEllipse(dot);
  if (done) {
    DrawCheck(painter, dot);
    return;
  }
  painter.setFont(SheetFont(font(), kBigLetters));
  painter.drawText(dot, Qt::AlignCenter, step.Mark);
}

void StepsPicture::DrawTask(QPainter& painter) const {
  const PilePicture picture = PicturePiles(stage_);
  painter.setPen(Ink());
  painter.setFont(SheetFont(font(), kBigLetters));
  painter.drawText(kTask, Qt::AlignLeft | Qt::AlignVCenter, ToQt(picture.Task));
  DrawPiles(painter, kFeeder, picture.Feeder);
  DrawPiles(painter, kNorth, picture.North);
}

void StepsPicture::DrawPiles(QPainter& painter, const QRectF& place,
                             const std::vector<Pile>& piles) const {
  if (piles.empty()) return;
  painter.setPen(QPen(Ink(), 4));
  painter.setBrush(Qt::NoBrush);
  DrawTrough(painter, place);
  const QRectF inside = place.adjusted(5, 0, -5, -4);
  qreal top = inside.bottom() - kPile * static_cast<qreal>(piles.size());
  for (const Pile& pile : piles) {
    DrawPile(painter, {inside.left(), top, inside.width(), kPile - 2}, pile);
    top += kPile;
  }
}

void StepsPicture::DrawPile(QPainter& painter, const QRectF& place, const Pile& pile) const {
  painter.setPen(QPen(palette().color(QPalette::Text), 1));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRect(place);
  const QRectF words = place.adjusted(10, 0, -10, 0);
  QString name = ToQt(pile.Name);
  if (pile.Cards > 0) name += QString("  %1").arg(pile.Cards);
  painter.setFont(SheetFont(font(), kBigLetters));
  painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter, name);
  painter.setFont(SheetFont(font(), kSmallLetters));
  painter.drawText(words, Qt::AlignRight | Qt::AlignVCenter, ToQt(pile.Where));
}

void StepsPicture::DrawProgress(QPainter& painter) const {
  painter.setPen(Ink());
  painter.setFont(SheetFont(font(), kProgressLetters));
  painter.drawText(kBelow, Qt::AlignCenter, ToQt(ProgressText(stage_)));
}

}  // namespace morvane::poker
