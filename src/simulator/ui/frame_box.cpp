#include "simulator/ui/frame_box.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"

namespace morvane::simulator {
namespace {

constexpr int kLines = 4;

}  // namespace

FrameBox::FrameBox(const FrameLog& frames, QWidget* parent)
    : QWidget(parent), frames_(frames), text_(new QPlainTextEdit(this)) {
  text_->setObjectName("txtFrames");
  text_->setAccessibleName("Frames that passed, the last one at the bottom");
  text_->setReadOnly(true);
  text_->setTabChangesFocus(true);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  // No higher than the other pages, or the panel does not fit beside a window on a low screen.
  text_->setMinimumHeight(kLines * text_->fontMetrics().lineSpacing());
  text_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  auto* column = new QVBoxLayout(this);
  column->addWidget(text_);
}

void FrameBox::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  ShowFrames();
}

// Behind another tab it costs nothing. Who has scrolled back reads on where he is.
void FrameBox::ShowFrames() {
  if (!isVisible() || shown_ == frames_.Exchanges()) return;
  shown_ = frames_.Exchanges();
  QScrollBar* const bar = text_->verticalScrollBar();
  const bool atEnd = bar->value() == bar->maximum();
  const int before = bar->value();
  const int across = text_->horizontalScrollBar()->value();
  QString lines;
  for (std::size_t at = 0; at < frames_.Count(); ++at) {
    lines += (at == 0 ? "" : "\n") + ToQt(frames_.Text(at));
  }
  text_->setPlainText(lines);
  bar->setValue(atEnd ? bar->maximum() : before);
  text_->horizontalScrollBar()->setValue(across);
}

}  // namespace morvane::simulator
