#include "files/ui/load_number.h"

#include <QCloseEvent>
#include <QFont>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "platform/qt/filtered_edit.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/window_place.h"

namespace morvane::files {
namespace {

constexpr int kMargin = 18;
constexpr int kSpacing = 12;
constexpr int kNumberWidth = 60;

}  // namespace

// Its lines stay unbroken, so that the layout's own minimum keeps every one of them whole.
LoadNumberWindow::LoadNumberWindow(LoadNumber& dialog, QWidget* parent)
    : QDialog(parent), dialog_(dialog) {
  setObjectName("Load_number");
  setWindowTitle("Boards Numbers");
  setWindowFlag(Qt::WindowCloseButtonHint, false);

  QLabel* loaded = AddLabel("lblBoardLoaded", dialog.lblBoardLoaded);
  QFont bold = loaded->font();
  bold.setBold(true);
  loaded->setFont(bold);

  auto* body = new QWidget(this);
  auto* all = new QVBoxLayout(body);
  all->setContentsMargins(kMargin, kMargin, kMargin, 0);
  all->setSpacing(kSpacing);
  all->addWidget(loaded);
  all->addWidget(AddLabel("lblFormat", dialog.lblFormat));
  all->addLayout(MakeNumbers());
  all->addWidget(AddLabel("lblChangeBoards", dialog.lblChangeBoards));
  all->addStretch();
  Fill(*this, body, MakeButtons());
  EnterFirstBoard();
  FitToScreen(*this);
}

QLabel* LoadNumberWindow::AddLabel(const char* name, const std::string& text) {
  auto* label = new QLabel(ToQt(text), this);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QLayout* LoadNumberWindow::MakeNumbers() {
  txtFirstBoard_ = new FilteredEdit(
      [this](FilteredBox typed) {
        FilteredBox shown = dialog_.ChangeFirstBoard(std::move(typed));
        txtLastBoard_->setText(ToQt(dialog_.txtLastBoard));
        return shown;
      },
      this);
  txtFirstBoard_->setObjectName("txtFirstBoard");
  txtFirstBoard_->ShowText(dialog_.txtFirstBoard);
  txtLastBoard_ = new QLineEdit(ToQt(dialog_.txtLastBoard), this);
  txtLastBoard_->setObjectName("txtLastBoard");
  txtLastBoard_->setReadOnly(true);
  txtLastBoard_->setFocusPolicy(Qt::ClickFocus);

  auto* grid = new QGridLayout;
  const auto add = [this, grid](int row, const char* name, const std::string& caption,
                                QLineEdit* box) {
    QLabel* label = AddLabel(name, caption);
    label->setBuddy(box);
    box->setFixedWidth(kNumberWidth);
    box->setAlignment(Qt::AlignRight);
    grid->addWidget(label, row, 0);
    grid->addWidget(box, row, 1);
  };
  add(0, "lblFirstBoard", dialog_.lblFirstBoard, txtFirstBoard_);
  add(1, "lblLastBoard", dialog_.lblLastBoard, txtLastBoard_);
  grid->setColumnStretch(2, 1);
  return grid;
}

QWidget* LoadNumberWindow::MakeButtons() {
  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("Command1");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, [this] {
    if (dialog_.Command1()) {
      hide();
    } else {
      EnterFirstBoard();
    }
  });
  auto* buttons = new QWidget(this);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(kMargin, kSpacing, kMargin, kMargin);
  row->addStretch();
  row->addWidget(ok);
  return buttons;
}

void LoadNumberWindow::EnterFirstBoard() {
  txtFirstBoard_->setFocus();
  txtFirstBoard_->selectAll();
}

void LoadNumberWindow::closeEvent(QCloseEvent* event) { event->setAccepted(dialog_.Closed()); }

}  // namespace morvane::files
