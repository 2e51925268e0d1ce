#include "bridges/ui/replay_panel.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QVBoxLayout>
#include <algorithm>
#include <climits>

#include "platform/files.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_value.h"
#include "simulator/ui/frame_box.h"

namespace morvane::bridges {
namespace {

constexpr int kRefreshMs = 100;
constexpr int kMargin = 10;
constexpr int kWidth = 44;   ///< in digits
constexpr int kHeight = 28;  ///< in lines, where the screen has room
constexpr int kTroubleLines = 6;

constexpr const char* kElseText = "Stopped: the program does something else";

int Limited(std::uint64_t count) {
  return static_cast<int>(std::min<std::uint64_t>(count, INT_MAX));
}

std::string StateText(const Playback& playback) {
  const bool goesOn = playback.Trace().Next() != nullptr;
  if (!playback.Trouble().empty()) return goesOn ? kElseText : "Stopped: the trace is at its end";
  if (!goesOn) return "Played to its end";
  const std::string waiting = playback.Waiting();
  return waiting.empty() ? "Being played" : waiting;
}

}  // namespace

ReplayPanel::ReplayPanel(EventLoop& loop, const Playback& playback)
    : QWidget(nullptr, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      playback_(playback) {
  setObjectName("ReplayPanel");
  setWindowTitle("Morvane - Replayed Machine");
  auto* content = new QWidget(this);
  auto* all = new QVBoxLayout(content);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->addWidget(MakeTrace());
  all->addWidget(MakeTrouble(), 1);
  all->addWidget(MakeFrames(), 1);
  content->setMinimumWidth(kWidth * fontMetrics().horizontalAdvance('0'));
  Fill(*this, content);
  ShowTrace();
  ShowPlayback();
  refresh_ = loop.StartTimer(kRefreshMs, [this] { ShowPlayback(); });
}

ReplayPanel::~ReplayPanel() = default;

QSize ReplayPanel::sizeHint() const {
  return QWidget::sizeHint().expandedTo({0, kHeight * fontMetrics().lineSpacing()});
}

void ReplayPanel::closeEvent(QCloseEvent* event) { event->ignore(); }

/// A path is one long word, and the panel must not grow with it.
ShownValue* ReplayPanel::AddLine(const char* name, const char* spokenName) {
  auto* value = new ShownValue(name, spokenName, this);
  value->setTextFormat(Qt::PlainText);
  value->setTextInteractionFlags(Qt::TextSelectableByMouse);
  value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  return value;
}

/// It can be copied, to be sent to who knows what it means.
QWidget* ReplayPanel::MakeTrouble() {
  trouble_ = new QPlainTextEdit(this);
  trouble_->setObjectName("txtTrouble");
  trouble_->setAccessibleName("Why the trace is not played on");
  trouble_->setReadOnly(true);
  trouble_->setTabChangesFocus(true);
  trouble_->setMinimumHeight(kTroubleLines * trouble_->fontMetrics().lineSpacing());
  trouble_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  return trouble_;
}

QWidget* ReplayPanel::MakeTrace() {
  file_ = AddLine("lblFile", "Trace that stands in for the machine");
  recorded_ = AddLine("lblRecorded", "When it was recorded");
  machine_ = AddLine("lblMachine", "Machine that it was recorded from");
  state_ = new ShownValue("lblState", "State of the trace", this);
  QFont font = state_->font();
  font.setBold(true);
  state_->setFont(font);
  // As wide as its longest text, so that the panel does not grow off the screen's edge.
  state_->setText(kElseText);
  state_->setMinimumWidth(state_->sizeHint().width());
  played_ = new QProgressBar(this);
  played_->setObjectName("barPlayed");
  played_->setAccessibleName("Operations played");
  played_->setFormat("%v of %m");
  auto* group = new QGroupBox("Trace", this);
  auto* grid = new QGridLayout(group);
  grid->setColumnStretch(1, 1);
  const std::pair<const char*, QWidget*> rows[] = {{"File:", file_},
                                                   {"Recorded:", recorded_},
                                                   {"Machine:", machine_},
                                                   {"State:", state_},
                                                   {"Played:", played_}};
  for (const auto& [caption, value] : rows) {
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(caption, group), row, 0, Qt::AlignTop);
    grid->addWidget(value, row, 1);
  }
  return group;
}

QWidget* ReplayPanel::MakeFrames() {
  auto* group = new QGroupBox("Frames", this);
  frames_ = new simulator::FrameBox(playback_.Frames(), group);
  (new QVBoxLayout(group))->addWidget(frames_);
  return group;
}

void ReplayPanel::ShowTrace() {
  const TraceReader& trace = playback_.Trace();
  const TraceHead& head = trace.Head();
  file_->Show(ToQt(FileTitle(trace.Path())));
  file_->setToolTip(ToQt(trace.Path()));
  recorded_->Show(ToQt(head.Began + (head.HandsLeftOut ? ", without the hands" : "")));
  machine_->Show(ToQt(head.Machine));
  machine_->setToolTip(ToQt(head.Machine));
  played_->setRange(0, std::max(1, Limited(trace.Lines())));
}

void ReplayPanel::ShowPlayback() {
  state_->Show(ToQt(StateText(playback_)));
  played_->setValue(Limited(playback_.Trace().Played()));
  ShowTrouble();
  frames_->ShowFrames();
}

/// Once: what is selected in it stays so.
void ReplayPanel::ShowTrouble() {
  const QString text = ToQt(playback_.Trouble());
  if (trouble_->toPlainText() != text) trouble_->setPlainText(text);
  trouble_->setVisible(!text.isEmpty());
}

}  // namespace morvane::bridges
