#include "machine/ui/pocket_gauge.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "machine/ui/run_colours.h"
#include "model/tables.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"

namespace morvane::machine {
namespace {

constexpr int kFull = kCards / kHands;
constexpr int kCountPixels = 34;

QString NameOf(int hand) { return ToQt(HandName[static_cast<std::size_t>(hand)]); }
QString Numbered(const char* name, int hand) { return name + ("_" + QString::number(hand)); }

}  // namespace

/// Thirteen cells, one a card.
class PocketGauge::Bar final : public QWidget, public Spoken {
 public:
  Bar(const QString& spokenName, QWidget* parent)
      : QWidget(parent), Spoken(QAccessible::Indicator) {
    setAccessibleName(spokenName);
    setFixedHeight(8);
    setMinimumWidth(kFull * 5);
  }
  void Show(int count, const QColor& colour) {
    count_ = count;
    colour_ = colour;
    repaint();
    Announce(*this);
  }
  [[nodiscard]] QString SpokenText() const override {
    return QString("%1 of %2").arg(count_).arg(kFull);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const qreal cell = static_cast<qreal>(width()) / kFull;
    for (int i = 0; i < kFull; ++i) {
      painter.fillRect(QRectF(i * cell, 0, cell - 1, height()),
                       i < count_ ? colour_ : palette().color(QPalette::Mid));
    }
  }

 private:
  int count_ = 0;
  QColor colour_;
};

PocketGauge::PocketGauge(int hand, QWidget* parent)
    : QFrame(parent),
      lblCnt_(new ShownValue(Numbered("lblCnt", hand), NameOf(hand) + " cards", this)),
      lblHCP_(new ShownValue(Numbered("lblHCP", hand), NameOf(hand) + " points", this)),
      unit_(new QLabel(this)),
      bar_(new Bar(NameOf(hand) + " pocket", this)) {
  setFrameShape(QFrame::StyledPanel);
  auto* title = new QLabel(NameOf(hand), this);
  title->setAlignment(Qt::AlignCenter);
  lblCnt_->setAlignment(Qt::AlignCenter);
  lblCnt_->setMinimumWidth(2 * kCountPixels);
  lblHCP_->setToolTip("High-card points");
  lblHCP_->setAlignment(Qt::AlignCenter);
  auto* points = new QHBoxLayout;
  points->addStretch();
  points->addWidget(lblHCP_);
  points->addWidget(unit_);
  points->addStretch();

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->setSpacing(4);
  column->addWidget(title);
  column->addWidget(lblCnt_);
  column->addWidget(bar_);
  column->addLayout(points);
  ShowCount(std::nullopt, Mood::kWaiting);
}

void PocketGauge::ShowCount(std::optional<int> count, Mood mood) {
  const QString text = count ? QString::number(*count) : QString();
  const bool red = count || mood == Mood::kDealing;
  const QColor colour = count == kFull ? kGreenGround : red ? kRedGround : kGreyGround;
  const QString look = text + colour.name();
  if (look == look_) return;
  look_ = look;
  lblCnt_->setStyleSheet(QString("background:%1; color:white; border-radius:4px; padding:2px;"
                                 "font-weight:bold; font-size:%2px;")
                             .arg(colour.name())
                             .arg(kCountPixels));
  lblCnt_->Show(text);
  lblCnt_->repaint();
  bar_->Show(count.value_or(0), colour);
}

void PocketGauge::ShowHcp(const std::string& points) {
  lblHCP_->Show(ToQt(points));
  unit_->setText(points.empty() ? "" : "HCP");
}

}  // namespace morvane::machine
