#include "machine/ui/run_widgets.h"

#include <QPushButton>
#include <utility>

#include "platform/qt/number_edit.h"

namespace morvane::machine {

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
