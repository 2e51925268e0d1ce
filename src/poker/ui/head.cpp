#include "poker/ui/head.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QVBoxLayout>

#include "machine/run_status.h"
#include "machine/ui/run_widgets.h"
#include "machine/ui/state_box.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"
#include "poker/poker.h"
#include "poker/stage_words.h"
#include "poker/ui/fitted_line.h"
#include "poker/ui/steps_picture.h"

namespace morvane::poker {
namespace {

QString Trimmed(const std::string& text) { return ToQt(text).trimmed(); }

}  // namespace

Head::Head(const Poker& poker, QWidget* parent)
    : QWidget(parent),
      poker_(poker),
      txtStatus_(new machine::StateBox(this)),
      Label1_(new FittedLine("Label1", "What is to be done", this)),
      Label3_(new FittedLine("Label3", "How", this)),
      lblProgress_(new ShownValue("lblProgress", "Progress of the run", this)),
      bar_(new QProgressBar(this)),
      steps_(new StepsPicture(this)) {
  bar_->setObjectName("RunProgress");
  bar_->setAccessibleName("Cards of this run");
  QSizePolicy policy = bar_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);  // nothing moves when it comes up
  bar_->setSizePolicy(policy);
  StayFree(*txtStatus_);
  auto* line = new QHBoxLayout;
  line->setSpacing(machine::kRunSpacing);
  line->addWidget(txtStatus_, 1);
  line->addLayout(PlaceLines(), 3);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(machine::kRunSpacing);
  column->addLayout(line);
  column->addWidget(steps_, 1);
}

QLayout* Head::PlaceLines() {
  auto* run = new QHBoxLayout;
  run->setSpacing(machine::kRunSpacing);
  run->addWidget(lblProgress_);
  run->addWidget(bar_, 1);
  auto* lines = new QVBoxLayout;
  lines->setSpacing(2);
  lines->addWidget(Label1_);
  lines->addWidget(Label3_);
  lines->addLayout(run);
  return lines;
}

void Head::Show() {
  txtStatus_->ShowState(poker_.TheMachine().MachineState);
  Label1_->ShowLine(Trimmed(poker_.Label1()));
  Label3_->ShowLine(Trimmed(poker_.Label3()));
  ShowProgress(ToQt(machine::StatusLine(machine::StatusOf(poker_))));
  const PokerStage stage = poker_.Stage();
  steps_->Show(stage);
  ShowRun(stage);
}

void Head::ShowProgress(const QString& line) {
  if (lblProgress_->text() == line) return;
  lblProgress_->Show(line);
  lblProgress_->repaint();
}

void Head::ShowRun(const PokerStage& stage) {
  bar_->setVisible(stage.Running);
  if (!stage.Running) return;
  const QString text = ToQt(ProgressText(stage));
  if (bar_->maximum() == stage.Count && bar_->value() == stage.Fallen && bar_->format() == text) {
    return;
  }
  bar_->setFormat(text);
  bar_->setRange(0, stage.Count);
  bar_->setValue(stage.Fallen);
  bar_->repaint();
}

}  // namespace morvane::poker
