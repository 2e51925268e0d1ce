#pragma once

#include "maintenance/test_deal_view.h"
#include "maintenance/ui/work_dialog.h"
#include "program/program.h"

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
  TestDealWindow(Program& program, TestDeal& deal, QWidget* parent);

  void ShowState() override;
  void ShowError(machine::ErrorDialog& dialog) override;

  void reject() override;

 private:
  QWidget* MakeBody();
  QWidget* MakeTotals();
  void ShowAll();

  Program& program_;
  TestDeal& deal_;
  ShownValue* doing_ = nullptr;
  QProgressBar* TestDealProgress_ = nullptr;
  TestDeckView* deck_ = nullptr;
  ShownValue* number_ = nullptr;
  ShownValue* finished_ = nullptr;
  ShownValue* cards_ = nullptr;
  ShownValue* seconds_ = nullptr;
};

}  // namespace morvane::maintenance
