#include "maintenance/ui/verdict_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "maintenance/maintenance.h"
#include "maintenance/ui/sensor_cell.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_text.h"

namespace morvane::maintenance {
namespace {

struct Row {
  const char* Name;
  const char* Caption;
  const char* Widest;
  std::string Verdict::*Text;
};

constexpr std::array<Row, VerdictPanel::kTexts> kRows{{
    {"Symbol", "Symbol", "10", &Verdict::Symbol},
    {"Suit", "Suit", "D", &Verdict::Suit},
    {"Threshold", "Threshold", "255,255", &Verdict::Threshold},
    {"Reco_time", "Time", "65535", &Verdict::Reco_time},
    {"Reco_error", "Error", "255", &Verdict::Reco_error},
}};

}  // namespace

VerdictPanel::VerdictPanel(const Maintenance& maintenance, int serviceLevel, QWidget* parent)
    : QGroupBox("Last card", parent), maintenance_(maintenance) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kGroupMargin, kGroupMargin, kGroupMargin, kGroupMargin);
  row->setSpacing(kGroupMargin);
  for (std::size_t i = 0; i < kTexts; ++i) {
    const QString spoken = QString(kRows[i].Caption) + " of the last card";
    texts_[i] =
        new SensorCell({kRows[i].Name, kRows[i].Caption, spoken, kRows[i].Widest, {}, {}}, this);
    row->addWidget(texts_[i]);
  }
  if (serviceLevel == 0) return;
  Focus_ = new ShownText("Focus", "Sharpness of the picture", this);
  Focus_->setAccessibleName("Focus");
  Focus_->setFixedWidth(Focus_->fontMetrics().horizontalAdvance("000000"));
  auto* label = NewLabelOf(Focus_, "Focus", this);
  label->setObjectName("Focus_label");
  auto* column = new QVBoxLayout;
  column->setSpacing(1);
  column->addWidget(label, 0, Qt::AlignHCenter);
  column->addWidget(Focus_, 0, Qt::AlignHCenter);
  column->addStretch();
  row->addLayout(column);
}

void VerdictPanel::Show() {
  for (std::size_t i = 0; i < kTexts; ++i) {
    texts_[i]->ShowText(maintenance_.Bench().Shown().Verdict.*kRows[i].Text);
  }
  if (Focus_ == nullptr) return;
  const QString focus = ToQt(maintenance_.Bench().Shown().Focus);
  if (Focus_->text() != focus) Focus_->setText(focus);
}

}  // namespace morvane::maintenance
