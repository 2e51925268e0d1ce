#include "maintenance/ui/firmware_window.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <chrono>
#include <cmath>

#include "machine/run_history.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/files.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {
namespace {

using Step = FirmwareProgress::Step;

constexpr const char* kWidestFault = "Error 255 before the first block";
constexpr int kMostCounted = 65535;

QString Frames(int count) { return "Frames: " + QString::number(count); }
QString Sum(int count) { return "Sum: " + QString::number(count); }
QString Comm(int count) { return "Comm: " + QString::number(count); }
QString Prog(int count) { return "Prog: " + QString::number(count); }

QString BlocksOf(int sent, int all) { return QString("Blocks: %1 of %2").arg(sent).arg(all); }

QString StepText(FirmwareDownload::Phase step, Step at) {
  return QString(NameOf(step)) + ": " + WordOf(at);
}

void SetBold(ShownValue& label, bool bold) {
  if (label.font().bold() == bold) return;
  QFont font = label.font();
  font.setBold(bold);
  label.setFont(font);
}

ShownValue* NewFact(const char* name, const char* spoken, const QString& text, QWidget* parent) {
  auto* fact = new ShownValue(name, spoken, parent);
  fact->setTextFormat(Qt::PlainText);
  fact->Show(text);
  return fact;
}

/// A long name does not make the window wide.
QString Shortened(const QString& name, const QWidget& shown) {
  constexpr int kLetters = 48;
  const QFontMetrics metrics = shown.fontMetrics();
  return metrics.elidedText(name, Qt::ElideMiddle, kLetters * metrics.averageCharWidth());
}

/// What belongs together stands close.
void NoMargins(QLayout& layout) {
  layout.setContentsMargins(0, 0, 0, 0);
  layout.setSpacing(kServiceSpacing / 2);
}

}  // namespace

FirmwareWindow::FirmwareWindow(const Clock& clock, FirmwareDownload& download, QWidget* parent)
    : WorkDialog("Firmware", "Morvane - Download New Firmware", parent),
      clock_(clock),
      download_(download),
      progress_(download) {
  Place(MakeBody(), "Command1");
  ShowAll();
  Open();
}

QWidget* FirmwareWindow::MakeBody() {
  auto* body = new QWidget(this);
  auto* column = new QVBoxLayout(body);
  column->setContentsMargins(kServiceMargin, kServiceMargin, kServiceMargin, kServiceMargin);
  column->setSpacing(2 * kServiceSpacing);
  column->addWidget(MakeFacts());
  doing_ = new ShownValue("Doing", "What happens", body);
  QStringList doings;
  for (const char* text : FirmwareProgress::kDoings) doings << text;
  KeepSizeFor(*doing_, doings);
  column->addWidget(doing_);
  column->addWidget(MakeSteps());
  column->addWidget(MakeProgress());
  column->addWidget(MakeCounters());
  fault_ = new ShownValue("Fault", "Fault", body);
  SetBold(*fault_, true);
  KeepSizeFor(*fault_, {kWidestFault});
  column->addWidget(fault_);
  // What is known is to be read beside a box that tells of a fault.
  StayFree(*doing_);
  StayFree(*fault_);
  column->addStretch();
  return body;
}

QWidget* FirmwareWindow::MakeFacts() {
  auto* facts = new QWidget(this);
  auto* column = new QVBoxLayout(facts);
  NoMargins(*column);
  const FirmwareFile& file = download_.File();
  auto* title =
      NewFact("FileName", "File", "File: " + Shortened(ToQt(FileTitle(file.Path)), *facts), facts);
  title->setToolTip(ToQt(file.Path));
  column->addWidget(title);
  column->addWidget(
      NewFact("FileVersion", "Version", "Version: " + ToQt(TextOf(file.Version())), facts));
  column->addWidget(
      NewFact("MachineVersion", "In the machine",
              "In the machine: " + ToQt(InMachine(download_.TheMachine(), file.Version())), facts));
  return facts;
}

/// Each with its word; the one under way is bold, too.
QWidget* FirmwareWindow::MakeSteps() {
  auto* steps = new QWidget(this);
  auto* column = new QVBoxLayout(steps);
  NoMargins(*column);
  for (std::size_t i = 0; i < steps_.size(); ++i) {
    const auto step = FirmwareProgress::kSteps[i];
    steps_[i] = new ShownValue(QString("Step_%1").arg(i + 1), NameOf(step), steps);
    SetBold(*steps_[i], true);
    QStringList texts;
    for (const Step at :
         {Step::kAhead, Step::kUnderWay, Step::kDone, Step::kBrokenOff, Step::kNotKnown}) {
      texts << StepText(step, at);
    }
    KeepSizeFor(*steps_[i], texts);
    column->addWidget(steps_[i]);
  }
  return steps;
}

QWidget* FirmwareWindow::MakeProgress() {
  auto* progress = new QWidget(this);
  Download_bar_ = NewBar("Download_bar", progress);
  blocks_ = new ShownValue("Blocks", "Blocks sent", progress);
  KeepSizeFor(*blocks_, {BlocksOf(download_.Blocks(), download_.Blocks())});
  left_ = new ShownValue("TimeLeft", "Time left", progress);
  auto* row = new QHBoxLayout;
  row->addWidget(blocks_);
  row->addSpacing(kServiceMargin);
  row->addWidget(left_, 1);
  auto* column = new QVBoxLayout(progress);
  NoMargins(*column);
  column->addWidget(Download_bar_);
  column->addLayout(row);
  return progress;
}

QWidget* FirmwareWindow::MakeCounters() {
  auto* counters = new QWidget(this);
  auto* row = new QHBoxLayout(counters);
  NoMargins(*row);
  const auto add = [&](const char* name, const char* spoken, const QString& widest) {
    auto* label = new ShownValue(name, spoken, counters);
    label->setToolTip(spoken);
    KeepSizeFor(*label, {widest});
    row->addWidget(label);
    return label;
  };
  lblFrames_ = add("lblFrames", "Blocks that the machine has answered", Frames(kMostCounted));
  lblSum_ = add("lblSum", "Answers whose check byte was wrong", Sum(kMostCounted));
  lblComm_ = add("lblComm", "Answers that were damaged or missing", Comm(kMostCounted));
  lblProg_ =
      add("lblProg", "Blocks that the machine could not write and passed over", Prog(kMostCounted));
  row->addStretch();
  return counters;
}

void FirmwareWindow::ShowDownload() {
  const double now = std::chrono::duration<double>(clock_.Elapsed()).count();
  if (progress_.Take(now)) ShowAll();
}

void FirmwareWindow::ShowAll() {
  ShowChanged(*doing_, ToQt(progress_.Doing()));
  ShowSteps();
  ShowCounters();
  ShowChanged(*left_, TimeLeft());
  ShowChanged(*fault_, ToQt(download_.Fault()));
  CancelButton().setEnabled(progress_.MayCancel());
}

void FirmwareWindow::ShowSteps() {
  for (std::size_t i = 0; i < steps_.size(); ++i) {
    const auto step = FirmwareProgress::kSteps[i];
    const Step at = progress_.At(step);
    SetBold(*steps_[i], at == Step::kUnderWay);
    ShowChanged(*steps_[i], StepText(step, at));
  }
}

void FirmwareWindow::ShowCounters() {
  Download_bar_->setValue(download_.Download_bar());
  ShowChanged(*blocks_, BlocksOf(download_.BlocksSent(), download_.Blocks()));
  ShowChanged(*lblFrames_, Frames(download_.FramesCount()));
  ShowChanged(*lblSum_, Sum(download_.SumErrors()));
  ShowChanged(*lblComm_, Comm(download_.CommErrors()));
  ShowChanged(*lblProg_, Prog(download_.ProgErrors()));
}

QString FirmwareWindow::TimeLeft() const {
  if (progress_.Ended()) return "";
  const auto seconds = progress_.SecondsLeft();
  if (!seconds) return "Time left: ...";
  constexpr double kMinute = 60;
  return "Time left: " + (*seconds < kMinute ? QString("%1 s").arg(std::ceil(*seconds))
                                             : ToQt(machine::About(*seconds)));
}

/// A box that comes up over it tells of a fault: then what is known is to be seen behind it.
bool FirmwareWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) ShowAll();
  return WorkDialog::event(event);
}

/// It goes when the block under way is over.
void FirmwareWindow::reject() {
  if (!progress_.MayCancel()) return;
  download_.Cancel();
  ShowDownload();
}

}  // namespace morvane::maintenance
