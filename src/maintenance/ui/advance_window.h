#pragma once

#include <vector>

#include "maintenance/advance_form.h"
#include "maintenance/ui/service_dialog.h"
#include "program/program.h"

class QCheckBox;
class QGroupBox;
class QPlainTextEdit;
class QPushButton;

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class ValueEdit;

/// `Advance_form`: the manufacturing record and the counters of a machine, and the tools of those
/// who build its firmware. Escape and the close box close the form.
class AdvanceWindow final : public ServiceDialog, public AdvanceView {
 public:
  /// `form` outlives it. Below service level 2 nothing can be set.
  AdvanceWindow(Program& program, AdvanceForm& form, QWidget* parent);

  void ShowAll() override;
  void reject() override { form_.Close(); }

 private:
  QWidget* MakeBody(int serviceLevel);
  QWidget* MakeSetUp();
  QWidget* MakeNumbers();
  QWidget* MakeHardware();
  QWidget* MakeSetters();
  QWidget* MakeErrors();
  QWidget* MakeTools();
  QWidget* MakeButtons();
  ValueEdit* Add(ValueBox& box, const char* name, const char* spoken, QWidget* parent);
  void ShowHardware();
  void ShowErrors();
  void Use(bool (*tool)(Program&), const char* made);

  Program& program_;
  AdvanceForm& form_;
  std::vector<ValueEdit*> boxes_;
  std::vector<QCheckBox*> bits_;  ///< by `kHardwareBoxes`
  ShownValue* Curr_HID_ = nullptr;
  std::vector<QPushButton*> setters_;
  QPlainTextEdit* Error_view_ = nullptr;
  ShownValue* lblTool_ = nullptr;
};

}  // namespace morvane::maintenance
