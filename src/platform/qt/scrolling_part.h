#pragma once

#include <QScrollArea>

namespace morvane {

/// A part of a window that scrolls where it has less room than it needs. What gets the focus in it
/// comes into sight; where nothing in it can, it takes the focus itself, to be scrolled by keys.
class ScrollingPart final : public QScrollArea {
 public:
  ScrollingPart(QWidget* content, QWidget* parent);
  ScrollingPart(const ScrollingPart&) = delete;
  ScrollingPart& operator=(const ScrollingPart&) = delete;
  ~ScrollingPart() override;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] QSize Needed() const;
  void BringIntoSight(QWidget* control);
  void NoteBars();

  bool bars_ = false;
};

/// Fills a window or a part of it: `body`, which scrolls, and below it the buttons that stay in
/// sight, if there are any.
void Fill(QWidget& window, QWidget* body, QWidget* buttons = nullptr);

}  // namespace morvane
