#pragma once

#include <QDialog>

#include "generate/generate_form.h"

class QLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace morvane {
class ShownValue;
}

namespace morvane::generate {

class RunResult;
class TestFrames;

/// The window `Generate`, over its form. It hides when the form is closed.
class GenerateWindow final : public QDialog, public GenerateFormView {
 public:
  GenerateWindow(GenerateForm& form, QWidget* parent);

  [[nodiscard]] Point Mouse() const override;
  void Show() override;
  void ShowProgress() override;
  void ShowBits() override;
  void Focus(FormControl control) override;
  void SelectNumbers() override;
  void Close() override { hide(); }

  void reject() override { form_.cmdExit(); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* button, QEvent* event) override;

 private:
  QWidget* MakeBody();
  QLayout* MakeChoice();
  QRadioButton* AddOption(const char* name, const char* caption);
  QLineEdit* AddNumber(const char* name, FilteredBox (GenerateForm::*change)(FilteredBox));
  QWidget* MakeButtons();
  ShownValue* AddWords(const char* name, const char* spokenName);
  QPushButton* AddButton(const char* name, const char* caption, void (GenerateForm::*press)());
  [[nodiscard]] QWidget* ControlOf(FormControl control) const;
  void ShowButtons();

  GenerateForm& form_;
  QWidget* inputs_ = nullptr;  ///< what is off while a run goes on, but for the buttons
  QRadioButton* generate_yes_ = nullptr;
  QRadioButton* generate_no_ = nullptr;
  QLineEdit* txtFirstBoard_ = nullptr;
  QLineEdit* txtLastBoard_ = nullptr;
  ShownValue* lblReplaces_ = nullptr;
  TestFrames* tests_ = nullptr;
  RunResult* result_ = nullptr;
  QPushButton* bigdeal_ = nullptr;
  ShownValue* lblBigDeal_ = nullptr;
  QPushButton* cmdDeal_ = nullptr;
  ShownValue* lblMorvane_ = nullptr;
  QPushButton* cmdExit_ = nullptr;
};

}  // namespace morvane::generate
