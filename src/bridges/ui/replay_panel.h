#pragma once

#include <QWidget>
#include <memory>

#include "bridges/trace/playback.h"
#include "platform/event_loop.h"

class QPlainTextEdit;
class QProgressBar;

namespace morvane {
class ShownValue;
}

namespace morvane::simulator {
class FrameBox;
}

namespace morvane::bridges {

/// What is seen of a trace that stands in for the machine: which one it is, how far it has been
/// played, and why it goes no further. A window of its own that no other blocks; it stays as long
/// as the program does.
class ReplayPanel final : public QWidget {
 public:
  ReplayPanel(EventLoop& loop, const Playback& playback);
  ~ReplayPanel() override;
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  [[nodiscard]] QWidget* MakeTrace();
  [[nodiscard]] QWidget* MakeFrames();
  [[nodiscard]] QWidget* MakeTrouble();
  ShownValue* AddLine(const char* name, const char* spokenName);
  void ShowTrace();
  void ShowPlayback();
  void ShowTrouble();

  const Playback& playback_;
  ShownValue* file_ = nullptr;
  ShownValue* recorded_ = nullptr;
  ShownValue* machine_ = nullptr;
  ShownValue* state_ = nullptr;
  QProgressBar* played_ = nullptr;
  QPlainTextEdit* trouble_ = nullptr;
  simulator::FrameBox* frames_ = nullptr;
  std::unique_ptr<Timer> refresh_;
};

}  // namespace morvane::bridges
