#include "machine/ui/run_widgets.h"

#include <QDialog>
#include <QPushButton>
#include <utility>

#include "machine/machine_run.h"
#include "platform/qt/number_edit.h"
#include "platform/qt/qt_text.h"

namespace morvane::machine {

void PrepareRunWindow(QDialog& window, const MachineRun& run) {
  window.setObjectName("DealinProg");
  window.setWindowTitle(
      ToQt("Morvane - " + std::string(run.Words().Title) + run.TheMachine().TitleMark()));
  window.setWindowModality(Qt::WindowModal);
  window.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  window.setWindowFlag(Qt::WindowMaximizeButtonHint);
}

QFont Enlarged(QFont font, qreal by) {
  font.setPointSizeF(font.pointSizeF() * by);
  font.setBold(true);
  return font;
}

QPushButton* NewButton(const char* name, const char* caption, std::function<void()> press,
                       QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setMinimumHeight(kBigButton);
  QObject::connect(button, &QPushButton::clicked, button, std::move(press));
  return button;
}

QPushButton* NewBreakButton(const char* name, std::function<void()> press, QWidget* parent) {
  auto* button = NewButton(name, "&Break", std::move(press), parent);
  button->setFocusPolicy(Qt::ClickFocus);
  button->setAutoDefault(false);
  button->setMinimumWidth(kCommandWidth);
  return button;
}

QPushButton* NewSmallButton(const char* name, const char* caption, const char* tip,
                            std::function<void()> press, QWidget* parent) {
  auto* button = NewButton(name, caption, std::move(press), parent);
  button->setMinimumHeight(0);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  return button;
}

NumberEdit* NewNumberBox(const char* name, const char* tip, int limit, QWidget* parent) {
  auto* box = new NumberEdit(limit, parent);
  box->setObjectName(name);
  box->setToolTip(tip);
  box->setFixedWidth(box->fontMetrics().horizontalAdvance("0000000"));
  return box;
}

void ShowNumberIn(NumberEdit& box, int number) {
  if (box.Number() != number) box.ShowNumber(number);
}

}  // namespace morvane::machine
