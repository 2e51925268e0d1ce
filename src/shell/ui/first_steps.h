#pragma once

#include <QWidget>
#include <functional>

#include "shell/shell.h"

class QGridLayout;
class QKeySequence;
class QPushButton;

namespace morvane::shell {

/// How an evening begins, in a line each, for a main window that has no set yet. The tab key passes
/// it by: each line names the key that does the same.
class FirstSteps final : public QWidget {
 public:
  FirstSteps(Shell& shell, QWidget* parent);

 private:
  QPushButton* AddStep(const char* name, const char* caption, const QKeySequence& keys,
                       const char* what, std::function<void()> press);

  QGridLayout* grid_;
};

}  // namespace morvane::shell
