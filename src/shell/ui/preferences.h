#pragma once

#include <QDialog>
#include <array>
#include <vector>

#include "shell/preferences.h"

class QButtonGroup;
class QCheckBox;
class QLayout;
class QPushButton;

namespace morvane {
class FilteredEdit;
}

namespace morvane::shell {

/// The window of a `Preferences`. It hides when that is closed.
class PreferencesWindow final : public QDialog {
 public:
  PreferencesWindow(Preferences& preferences, QWidget* parent);

  /// Escape and the close box do what `Exit` does.
  void reject() override { Close(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void customEvent(QEvent* event) override;

 private:
  QWidget* MakeFrames();
  QLayout* MakeRange();
  QLayout* MakeSwitches(Preferences::Frame frame);
  QPushButton* MakeHear();
  QLayout* MakeGenerators();
  QLayout* MakeAnalyzers();
  QWidget* MakeButtons();
  FilteredEdit* AddBoardBox(const char* name, bool first);
  void Show();
  void Close();

  Preferences& preferences_;
  FilteredEdit* Setup_New_FirstBoard_ = nullptr;
  FilteredEdit* Setup_New_LastBoard_ = nullptr;
  std::array<QCheckBox*, Preferences::kSwitches.size()> switches_{};
  QButtonGroup* generators_ = nullptr;
  QButtonGroup* analyzers_ = nullptr;
  std::vector<FilteredEdit*> left_;  ///< the boxes that are to be checked
  bool telling_ = false;             ///< a refusal is on the screen
};

}  // namespace morvane::shell
