#include "machine/ui/pocket_gauge.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "machine/ui/run_colours.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"

namespace morvane::machine {
namespace {

// The digits of the count; in pixels.
constexpr int kLeastDigits = 36;
constexpr int kMostDigits = 100;
constexpr int kLeastCount = 44;  // the height of their box
constexpr int kBarHeight = 8;
constexpr int kHeadSpacing = 3;
constexpr int kMargin = 10;    // both sides and the frame
constexpr int kLeastCell = 4;  // narrower cells are no longer told apart

QString WordOf(PocketState state) { return ToQt(PocketWord(state)); }

QColor BarColour(PocketState state) {
  switch (state) {
    case PocketState::kFilling:
    case PocketState::kNotFull:
      return kBlueGround;
    case PocketState::kFull:
      return kGreenGround;
    default:
      return kRedGround;
  }
}

}  // namespace

/// A cell a card, where there is room for cells.
class PocketGauge::Bar final : public QWidget, public Spoken {
 public:
  Bar(int target, const QString& hand, QWidget* parent)
      : QWidget(parent), Spoken(QAccessible::Indicator), target_(target) {
    setAccessibleName(hand + " pocket");
    setFixedHeight(kBarHeight);
  }
  /// Whether that changed anything.
  bool Show(int count, PocketState state) {
    if (count == count_ && state == state_) return false;
    count_ = count;
    state_ = state;
    repaint();
    Announce(*this);
    return true;
  }
  [[nodiscard]] QString SpokenText() const override {
    return QString("%1 of %2, ").arg(count_).arg(target_) + WordOf(state_);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const int shown = std::min(count_, target_);
    const qreal cell = static_cast<qreal>(width()) / target_;
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    painter.fillRect(QRectF(0, 0, cell * shown, height()), BarColour(state_));
    if (cell < kLeastCell) return;
    for (int i = 1; i < target_; ++i) {
      painter.fillRect(QRectF(i * cell - 1, 0, 1, height()), palette().color(QPalette::Window));
    }
  }

 private:
  const int target_;
  int count_ = 0;
  PocketState state_ = PocketState::kWaiting;
};

PocketGauge::PocketGauge(const Kind& kind, QWidget* parent)
    : QFrame(parent),
      target_(kind.Target),
      title_(new QLabel(kind.Hand, this)),
      count_(new ShownValue(kind.Count, kind.Hand + " cards", this)),
      bar_(new Bar(kind.Target, kind.Hand, this)),
      word_(new QLabel(this)) {
  setFrameShape(QFrame::StyledPanel);
  title_->setObjectName(kind.Title);
  count_->setAlignment(Qt::AlignCenter);
  // The digits follow the box and not the other way round.
  count_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  count_->setMinimumHeight(kLeastCount);
  word_->setObjectName(kind.Count + "_word");
  word_->setAlignment(Qt::AlignCenter);
  word_->setText(WordOf(PocketState::kStoppedShort));  // the widest: nothing moves
  word_->setMinimumWidth(word_->sizeHint().width());
  word_->setText(WordOf(PocketState::kWaiting));
  if (!kind.Points.isEmpty()) MakePoints(kind);
  PlaceParts();
  ShowGround(kGreyGround);
}

void PocketGauge::MakePoints(const Kind& kind) {
  points_ = new ShownValue(kind.Points, kind.Hand + " points", this);
  points_->setToolTip("High-card points");
  unit_ = new QLabel(this);
}

void PocketGauge::PlaceParts() {
  auto* head = new QHBoxLayout;
  head->setSpacing(kHeadSpacing);
  head->addWidget(title_);
  head->addStretch();
  if (points_ == nullptr) {
    title_->setAlignment(Qt::AlignCenter);
    head->insertStretch(0);
  } else {
    head->addWidget(points_);
    head->addWidget(unit_);
  }
  // Nothing moves when the points come up.
  int width = title_->sizeHint().width() + kMargin;
  if (points_ != nullptr) width += fontMetrics().horizontalAdvance("37HCP") + 3 * kHeadSpacing;
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(4, 2, 4, 2);
  column->setSpacing(2);
  column->addLayout(head);
  column->addWidget(count_, 1);
  column->addWidget(bar_);
  column->addWidget(word_);
  setMinimumWidth(std::max(width, word_->minimumWidth() + kMargin));
}

/// As large as two digits can be in the box.
int PocketGauge::DigitPixels() const {
  const int wide = (count_->width() - 8) * 2 / 3;
  const int high = count_->height() * 4 / 5;
  return std::clamp(std::min(wide, high), kLeastDigits, kMostDigits);
}

void PocketGauge::ShowGround(const QColor& colour) {
  const int digits = DigitPixels();
  if (ground_ == colour && digits == digits_) return;
  ground_ = colour;
  digits_ = digits;
  count_->setStyleSheet(QString("background:%1; color:white; border-radius:4px; padding:0px;"
                                "font-weight:bold; font-size:%2px;")
                            .arg(colour.name())
                            .arg(digits));
}

void PocketGauge::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  layout()->activate();
  ShowGround(ground_);
}

void PocketGauge::ShowCount(std::optional<int> count, bool running, CardFlow flow) {
  const QString text = count ? QString::number(*count) : QString();
  const bool red = count || running;
  const QColor colour = count == target_ ? kGreenGround : red ? kRedGround : kGreyGround;
  if (text != count_->text() || colour != ground_) {
    ShowGround(colour);
    count_->Show(text);
    count_->repaint();
  }
  const PocketState state = PocketStateOf(count, target_, flow);
  if (!bar_->Show(count.value_or(0), state) || word_->text() == WordOf(state)) return;
  word_->setText(WordOf(state));
  word_->repaint();
}

void PocketGauge::ShowHcp(const std::string& points) {
  points_->Show(ToQt(points));
  unit_->setText(points.empty() ? "" : "HCP");
}

}  // namespace morvane::machine
