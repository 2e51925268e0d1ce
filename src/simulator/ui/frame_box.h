#pragma once

#include <QWidget>
#include <cstdint>

#include "simulator/frame_log.h"

class QPlainTextEdit;

namespace morvane::simulator {

/// The frames as they pass, by name, the last one at the bottom.
class FrameBox final : public QWidget {
 public:
  FrameBox(const FrameLog& frames, QWidget* parent);

  /// Where it is seen.
  void ShowFrames();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  const FrameLog& frames_;
  std::uint64_t shown_ = 0;
  QPlainTextEdit* text_;
};

}  // namespace morvane::simulator
