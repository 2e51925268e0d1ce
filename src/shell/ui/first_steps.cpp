#include "shell/ui/first_steps.h"

#include <QGridLayout>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <utility>

namespace morvane::shell {
namespace {

constexpr int kColumnGap = 12;
constexpr int kRowGap = 6;

}  // namespace

FirstSteps::FirstSteps(Shell& shell, QWidget* parent)
    : QWidget(parent), grid_(new QGridLayout(this)) {
  setObjectName("FirstSteps");
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setHorizontalSpacing(kColumnGap);
  grid_->setVerticalSpacing(kRowGap);
  grid_->setColumnStretch(2, 1);
  AddStep("StepNew", "New set", QKeySequence::New, "Generates the boards of a new set.",
          [&shell] { shell.MenuNew(); });
  AddStep("StepLoad", "Load", QKeySequence::Open,
          "Takes the boards from a file. A file can be dropped on this window, too.",
          [&shell] { shell.MenuLoad(); });
  AddStep("StepDeal", "Deal", Qt::CTRL | Qt::Key_D,
          "Has the machine deal the boards, as soon as there is a set.",
          [&shell] { shell.MenuDeal(); })
      ->setEnabled(false);
}

QPushButton* FirstSteps::AddStep(const char* name, const char* caption, const QKeySequence& keys,
                                 const char* what, std::function<void()> press) {
  const int row = grid_->rowCount();
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setAccessibleDescription(what);
  button->setFocusPolicy(Qt::NoFocus);
  connect(button, &QPushButton::clicked, this, std::move(press));
  auto* line = new QLabel(what, this);
  line->setWordWrap(true);
  grid_->addWidget(button, row, 0);
  grid_->addWidget(new QLabel(keys.toString(QKeySequence::NativeText), this), row, 1);
  grid_->addWidget(line, row, 2);
  return button;
}

}  // namespace morvane::shell
