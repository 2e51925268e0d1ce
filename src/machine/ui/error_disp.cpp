#include "machine/ui/error_disp.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "platform/qt/qt_ui.h"

namespace morvane::machine {
namespace {

constexpr int kIconSize = 48;
constexpr int kMargin = 18;

QLabel* Icon(QWidget* parent) {
  auto* icon = new QLabel(parent);
  icon->setPixmap(parent->style()
                      ->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, parent)
                      .pixmap(kIconSize));
  icon->setAlignment(Qt::AlignTop);
  return icon;
}

QLabel* Label(const char* name, const std::string& text, QWidget* parent) {
  auto* label = new QLabel(ToQt(text), parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

ErrorDisp::ErrorDisp(ErrorDialog& dialog, QWidget* parent) : QDialog(parent), dialog_(dialog) {
  setObjectName("Error_disp");
  setWindowTitle("Dealing Error");

  auto* text = Label("Error_label", WithoutPadding(dialog.Error_label), this);
  QFont large = text->font();
  large.setPointSizeF(large.pointSizeF() * 1.25);
  large.setBold(true);
  text->setFont(large);
  auto* code = Label("Error_code", dialog.Error_code, this);

  auto* words = new QVBoxLayout;
  words->addWidget(text);
  words->addWidget(code);
  words->addStretch();
  auto* top = new QHBoxLayout;
  top->setSpacing(kMargin);
  top->addWidget(Icon(this));
  top->addLayout(words, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  bool first = true;
  const auto addButton = [&](const char* name, const ErrorDialog::Button& button, auto press) {
    auto* control = new QPushButton(ToQt(button.Caption), this);
    control->setObjectName(name);
    control->setVisible(button.Visible);
    connect(control, &QPushButton::clicked, this, press);
    buttons->addWidget(control);
    if (!button.Visible || !first) return;
    control->setDefault(true);
    control->setFocus();
    first = false;
  };
  addButton("Continue_button", dialog.Continue_button, [this] { dialog_.PressContinue(); });
  addButton("Cancel_button", dialog.Cancel_button, [this] { dialog_.PressCancel(); });
  addButton("Cancel2", dialog.Cancel2, [this] { dialog_.PressCancel2(); });

  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->setSpacing(kMargin);
  all->addLayout(top);
  all->addLayout(buttons);
  all->setSizeConstraint(QLayout::SetFixedSize);
}

void ErrorDisp::reject() {
  if (!dialog_.Closed()) dialog_.PressCancel();
}

}  // namespace morvane::machine
