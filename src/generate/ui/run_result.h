#pragma once

#include <QWidget>

#include "generate/generate_form.h"

class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace morvane {
class ShownValue;
}

namespace morvane::generate {

/// How far a run is (`BoardsGen`), the random bits collected for the next one, and what came of the
/// last one, to be copied (`Result`, `Copy`).
class RunResult final : public QWidget {
 public:
  RunResult(const GenerateForm& form, QWidget* parent);

  void Show();
  void ShowProgress();
  void ShowBits();

 private:
  QProgressBar* AddBar(const char* name, const char* spokenName, int most);
  QLayout* PlaceBars();
  QLayout* PlaceResult();

  const GenerateForm& form_;
  ShownValue* BoardsGen_;
  QProgressBar* progress_;
  QProgressBar* bits_;
  QPlainTextEdit* Result_;
  QPushButton* Copy_;
};

}  // namespace morvane::generate
