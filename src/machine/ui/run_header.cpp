#include "machine/ui/run_header.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "machine/run_status.h"
#include "machine/ui/run_colours.h"
#include "machine/ui/run_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::machine {
namespace {

QColor ColourOf(int state) {
  switch (state) {
    case Machine::kIdle:
      return kGreenGround;
    case Machine::kBusy:
      return kBlueGround;
    case Machine::kError:
      return kRedGround;
    default:
      return kGreyGround;
  }
}

/// Events wait while the machine is asked, so a changed text is painted at once.
void ShowNow(ShownValue& label, const QString& text) {
  if (label.text() == text) return;
  label.Show(text);
  label.repaint();
}

}  // namespace

RunHeader::RunHeader(const QString& status, QWidget* parent) : QWidget(parent) {
  MakeStatus();
  lblProgress_ = new ShownValue("lblProgress", "Progress of the run", this);
  StayFree(*txtStatus_);
  StayFree(*lblProgress_);
  MakeDealTime();
  txtFile_ = new ShownText("txtFile", "File name of the current Board Set", this);
  txtFile_->setFocusPolicy(Qt::ClickFocus);
  auto* header = new QVBoxLayout(this);
  header->setContentsMargins(0, 0, 0, 0);
  header->setSpacing(kRunSpacing / 2);
  header->addLayout(PlaceState(status));
  header->addLayout(PlaceFile());
}

void RunHeader::MakeStatus() {
  txtStatus_ = new ShownValue("txtStatus", "State of the machine", this);
  txtStatus_->setAlignment(Qt::AlignCenter);
  txtStatus_->setFont(Enlarged(txtStatus_->font(), 1.2));
  txtStatus_->setMinimumWidth(txtStatus_->fontMetrics().horizontalAdvance("Illegal (0)") + 24);
}

void RunHeader::MakeDealTime() {
  txtDealTime_ = new ShownValue("txtDealTime", "Deal time in seconds", this);
  txtDealTime_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  txtDealTime_->setFont(Enlarged(txtDealTime_->font(), 1.4));
  txtDealTime_->setMinimumWidth(txtDealTime_->fontMetrics().horizontalAdvance("0000.0"));
}

QLayout* RunHeader::PlaceState(const QString& status) {
  auto* lblRun = new QLabel(status, this);
  lblRun->setObjectName("lblRun");
  lblRun->setFont(Enlarged(lblRun->font(), 1.4));
  auto* state = new QHBoxLayout;
  state->setSpacing(kRunSpacing);
  state->addWidget(lblRun);
  state->addWidget(txtStatus_);
  state->addWidget(lblProgress_, 1);
  return state;
}

QLayout* RunHeader::PlaceFile() {
  auto* file = new QHBoxLayout;
  auto* label = new QLabel("File Name:", this);
  label->setBuddy(txtFile_);
  file->addWidget(label);
  file->addWidget(txtFile_, 1);
  file->addSpacing(kRunSpacing);
  file->addWidget(new QLabel("Deal Time (s):", this));
  file->addWidget(txtDealTime_);
  return file;
}

void RunHeader::ShowState(const MachineRun& run) {
  ShowStatus(run.TheMachine().MachineState);
  ShowNow(*txtDealTime_, ToQt(run.Cards().txtDealTime));
  ShowNow(*lblProgress_, ToQt(StatusLine(StatusOf(run))));
}

void RunHeader::ShowStatus(int state) {
  const QString text = ToQt(StatusText(state));
  if (txtStatus_->text() == text) return;
  txtStatus_->setStyleSheet(
      QString("background:%1; color:white; font-weight:bold; border-radius:4px; padding:4px 12px;")
          .arg(ColourOf(state).name()));
  ShowNow(*txtStatus_, text);
}

void RunHeader::ShowFile(const std::string& path) { txtFile_->setText(ToQt(path)); }

}  // namespace morvane::machine
