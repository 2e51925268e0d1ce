#include "maintenance/ui/service_widgets.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <utility>

#include "platform/qt/shown_value.h"

namespace morvane::maintenance {

QGridLayout* NewGrid(QWidget* group) {
  auto* grid = new QGridLayout(group);
  grid->setContentsMargins(kGroupMargin, kGroupMargin, kGroupMargin, kGroupMargin);
  grid->setSpacing(kGroupMargin);
  return grid;
}

QPushButton* NewServiceButton(const char* name, const char* caption, std::function<void()> press,
                              QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  QObject::connect(button, &QPushButton::clicked, button, std::move(press));
  return button;
}

void MakeReadOnly(QAbstractButton& box) {
  box.setAttribute(Qt::WA_TransparentForMouseEvents);
  // The space bar and the tools of assistance press it all the same.
  QObject::connect(&box, &QAbstractButton::clicked, &box, [&box](bool on) { box.setChecked(!on); });
}

QLabel* NewLabelOf(QWidget* control, const char* caption, QWidget* parent) {
  auto* label = new QLabel(caption, parent);
  label->setBuddy(control);
  return label;
}

void ShowChanged(ShownValue& value, const QString& text) {
  if (value.text() != text) value.Show(text);
}

void KeepSizeFor(QLabel& label, const QStringList& texts) {
  QSize size(0, 0);
  for (const QString& text : texts) {
    label.setText(text);
    size = size.expandedTo(label.sizeHint());
  }
  label.setText("");
  label.setFixedSize(size);
}

void MarkEdited(QWidget& control, bool edited) {
  if (control.font().bold() == edited) return;
  QFont font = control.font();
  font.setBold(edited);
  control.setFont(font);
  control.setAccessibleDescription(edited ? "Changed, not written to the machine" : "");
}

void KeepWidthOfMark(QWidget& control) {
  MarkEdited(control, true);
  control.setMinimumWidth(control.sizeHint().width());
  MarkEdited(control, false);
}

}  // namespace morvane::maintenance
