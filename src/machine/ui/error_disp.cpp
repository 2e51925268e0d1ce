#include "machine/ui/error_disp.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "platform/qt/qt_ui.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/window_place.h"

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

/// Continue and Cancel begin with the same letter.
QString WithLetter(const std::string& caption) {
  return ToQt(caption == "Cancel" ? "C&ancel" : "&" + caption);
}

}  // namespace

ErrorDisp::ErrorDisp(ErrorDialog& dialog, QWidget* parent) : QDialog(parent), dialog_(dialog) {
  setObjectName("Error_disp");
  setWindowTitle("Dealing Error");

  auto* text = Label("Error_label", dialog.ErrorText(), this);
  QFont large = text->font();
  large.setPointSizeF(large.pointSizeF() * 1.25);
  large.setBold(true);
  text->setFont(large);
  auto* code = Label("Error_code", dialog.Error_code, this);
  auto* board = Label("Error_board", dialog.Error_board, this);

  auto* words = new QVBoxLayout;
  words->addWidget(text);
  words->addWidget(code);
  words->addWidget(board);
  words->addStretch();
  auto* body = new QWidget(this);
  auto* top = new QHBoxLayout(body);
  top->setContentsMargins(kMargin, kMargin, kMargin, 0);
  top->setSpacing(kMargin);
  top->addWidget(Icon(this));
  top->addLayout(words, 1);

  auto* buttons = new QWidget(this);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->addStretch();
  bool first = true;
  const auto addButton = [&](const char* name, const ErrorDialog::Button& button, auto press) {
    auto* control = new QPushButton(WithLetter(button.Caption), this);
    control->setObjectName(name);
    control->setVisible(button.Visible);
    connect(control, &QPushButton::clicked, this, press);
    row->addWidget(control);
    if (!button.Visible || !first) return;
    control->setDefault(true);
    control->setFocus();
    first = false;
  };
  addButton("Continue_button", dialog.Continue_button, [this] { dialog_.PressContinue(); });
  addButton("Cancel_button", dialog.Cancel_button, [this] { dialog_.PressCancel(); });
  addButton("Cancel2", dialog.Cancel2, [this] { dialog_.PressCancel2(); });

  setAccessibleDescription(text->text() + ". " + board->text() + ". " + code->text());
  Fill(*this, body, buttons);
  FitToScreen(*this);
}

void ErrorDisp::reject() {
  if (!dialog_.Closed()) dialog_.PressCancel();
}

void ShowErrorDisp(Program& program, ErrorDialog& dialog, QWidget* over) {
  ErrorDisp window(dialog, over);
  window.open();
  dialog.Open([&window] { window.hide(); });
  program.Loop.RunUntil([&dialog] { return dialog.Closed(); });
}

}  // namespace morvane::machine
