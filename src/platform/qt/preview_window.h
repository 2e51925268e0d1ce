#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "platform/printer.h"

class QPrintPreviewWidget;
class QPrinter;
class QPushButton;

namespace morvane {

class ShownValue;

/// The pages of a job as they would be printed. It hides when it is closed.
class PreviewWindow final : public QDialog {
 public:
  using Paint = std::function<void(QPrinter& device)>;

  /// `device` and what `paint` draws outlive it.
  PreviewWindow(QPrinter& device, Paint paint, const std::vector<PreviewAction>& actions,
                QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* button, QEvent* event) override;

 private:
  QWidget* MakePages(QPrinter& device, Paint paint);
  QWidget* MakeButtons(const std::vector<PreviewAction>& actions);
  void MakeKeys();
  QPushButton* Add(const char* name, const char* caption, const char* tip,
                   std::function<void()> act);
  void Turn(int pages);
  void ShowPage(int page);
  void ShowWhere();

  QPrintPreviewWidget* pages_ = nullptr;
  QPushButton* previous_ = nullptr;
  QPushButton* next_ = nullptr;
  ShownValue* where_ = nullptr;
};

}  // namespace morvane
