#include "analysis/ui/deep_f.h"

#include <QCloseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::analysis {
namespace {

constexpr const char* kLongestLabel = "Analyzing board: 640  out from: 640 to: 640 ";
constexpr int kMargin = 18;

QProgressBar* NewBar(const char* name, const char* spokenName, QWidget* parent) {
  auto* bar = new QProgressBar(parent);
  bar->setObjectName(name);
  bar->setAccessibleName(spokenName);
  return bar;
}

}  // namespace

DeepFWindow::DeepFWindow(DeepF& run, QWidget* mainWindow)
    : QDialog(run.IsModal() ? mainWindow : nullptr),
      run_(run),
      label_(new ShownValue("DF_Label", "Analysis", this)),
      lblBoards_(new ShownValue("lblBoards", "Boards done", this)),
      board_(NewBar("DF_Progress", "Progress of this board", this)),
      boards_(NewBar("DF_Boards", "Boards done", this)),
      DF_Cancel_(new QPushButton("&Cancel", this)) {
  setObjectName("DeepF");
  setWindowTitle(ToQt(run.Title()));
  MakeParts();
  if (run.IsModal()) {
    FitToScreen(*this);
    open();
    return;
  }
  if (mainWindow != nullptr) StandBeside(*mainWindow);
  show();
}

void DeepFWindow::StandBeside(const QWidget& mainWindow) {
  move(mainWindow.frameGeometry().topRight());
  FitToScreen(*this, mainWindow.screen()->availableGeometry());
}

void DeepFWindow::MakeParts() {
  label_->setMinimumWidth(fontMetrics().horizontalAdvance(kLongestLabel));
  DF_Cancel_->setObjectName("DF_Cancel");
  // The Enter that has answered the question must not cancel what it has started.
  DF_Cancel_->setAutoDefault(false);
  connect(DF_Cancel_, &QPushButton::clicked, this, [this] { run_.DF_Cancel(); });
  auto* body = new QWidget(this);
  auto* column = new QVBoxLayout(body);
  column->setContentsMargins(kMargin, kMargin, kMargin, 0);
  column->addWidget(label_);
  column->addWidget(board_);
  column->addWidget(lblBoards_);
  column->addWidget(boards_);
  column->addStretch();
  auto* buttons = new QWidget(this);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(kMargin, kMargin / 2, kMargin, kMargin);
  row->addStretch();
  row->addWidget(DF_Cancel_);
  lblBoards_->setVisible(run_.BoardsAsked() > 1);
  boards_->setVisible(run_.BoardsAsked() > 1);
  Fill(*this, body, buttons);
  DF_Cancel_->setFocus();
  Show();
}

void DeepFWindow::Show() {
  label_->Show(ToQt(run_.Label()));
  board_->setValue(static_cast<int>(run_.Progress()));
  lblBoards_->Show(QString("Boards done: %1 of %2").arg(run_.BoardsDone()).arg(run_.BoardsAsked()));
  boards_->setMaximum(run_.BoardsAsked());
  boards_->setValue(run_.BoardsDone());
}

void DeepFWindow::Close() { hide(); }

void DeepFWindow::reject() { run_.DF_Cancel(); }

void DeepFWindow::closeEvent(QCloseEvent* event) {
  run_.DF_Cancel();
  event->setAccepted(run_.Closed());
}

}  // namespace morvane::analysis
