#pragma once

#include <QPoint>
#include <optional>

#include "maintenance/test_deal_view.h"
#include "maintenance/ui/work_dialog.h"
#include "program/program.h"

class QLabel;
class QProgressBar;

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class TestDeal;
class TestDeckView;

/// `TestDealForm`: a test deal as it goes. Escape and the close box cancel it.
class TestDealWindow final : public WorkDialog, public TestDealView {
 public:
  /// `place` is where the last one stood, and gets where this one does: deals follow each other.
  TestDealWindow(Program& program, TestDeal& deal, std::optional<QPoint>& place, QWidget* parent);
  TestDealWindow(const TestDealWindow&) = delete;
  TestDealWindow& operator=(const TestDealWindow&) = delete;
  ~TestDealWindow() override;

  void ShowState() override;
  void ShowError(machine::ErrorDialog& dialog) override;

  void reject() override;

 private:
  QWidget* MakeBody();
  QWidget* MakeTotals();
  void ShowAll();

  Program& program_;
  TestDeal& deal_;
  std::optional<QPoint>& place_;
  ShownValue* doing_ = nullptr;
  QProgressBar* TestDealProgress_ = nullptr;
  TestDeckView* deck_ = nullptr;
  ShownValue* number_ = nullptr;
  ShownValue* finished_ = nullptr;
  QLabel* cards_ = nullptr;
  QLabel* seconds_ = nullptr;
};

}  // namespace morvane::maintenance
