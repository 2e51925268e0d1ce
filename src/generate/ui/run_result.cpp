#include "generate/ui/run_result.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "generate/generate_report.h"
#include "generate/ui/generate_parts.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"

namespace morvane::generate {
namespace {

constexpr int kResultLines = 5;

}  // namespace

RunResult::RunResult(const GenerateForm& form, QWidget* parent)
    : QWidget(parent),
      form_(form),
      BoardsGen_(new ShownValue("BoardsGen", "Boards generated", this)),
      progress_(AddBar("Progress", "Progress of the generation", 1)),
      bits_(AddBar("RandomBits", "New random bits", RandomPool::kMostBits)),
      Result_(new QPlainTextEdit(this)),
      Copy_(new QPushButton("&Copy Result", this)) {
  progress_->setTextVisible(false);
  bits_->setFormat("%v of %m");
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addLayout(PlaceBars());
  column->addLayout(PlaceResult());
}

QProgressBar* RunResult::AddBar(const char* name, const char* spokenName, int most) {
  auto* bar = new QProgressBar(this);
  bar->setObjectName(name);
  bar->setAccessibleName(spokenName);
  bar->setRange(0, most);
  return bar;
}

QLayout* RunResult::PlaceBars() {
  auto* generated = new QHBoxLayout;
  BoardsGen_->setMinimumWidth(fontMetrics().horizontalAdvance("0000"));
  generated->addWidget(BoardsGen_);
  generated->addWidget(progress_, 1);
  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel("New random bits:", this), 0, 0);
  grid->addWidget(bits_, 0, 1);
  grid->addWidget(NewWords("lblBits", kBitsWords, this), 0, 2);
  grid->addWidget(new QLabel("Boards generated:", this), 1, 0);
  grid->addLayout(generated, 1, 1, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(2, 1);
  return grid;
}

QLayout* RunResult::PlaceResult() {
  Result_->setObjectName("Result");
  Result_->setReadOnly(true);
  Result_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  Result_->setTabChangesFocus(true);
  Result_->setFixedHeight((kResultLines + 1) * fontMetrics().lineSpacing());
  auto* label = new QLabel("Result:", this);
  label->setBuddy(Result_);
  Copy_->setObjectName("Copy");
  Copy_->setToolTip("Copies the result, with the SHA-256 of the deals, to the clipboard");
  connect(Copy_, &QPushButton::clicked, this,
          [this] { QApplication::clipboard()->setText(ToQt(form_.State().Result)); });
  auto* row = new QHBoxLayout;
  row->addWidget(label, 0, Qt::AlignTop);
  row->addWidget(Result_, 1);
  row->addWidget(Copy_, 0, Qt::AlignTop);
  return row;
}

void RunResult::Show() {
  const GenerateFormState& now = form_.State();
  const QString result = ToQt(now.Result).trimmed();
  if (result != Result_->toPlainText()) Result_->setPlainText(result);
  Copy_->setEnabled(!result.isEmpty());
  ShowProgress();
  ShowBits();
}

void RunResult::ShowProgress() {
  const GenerateFormState& now = form_.State();
  BoardsGen_->Show(now.BoardsGen == 0 ? QString() : QString::number(now.BoardsGen));
  progress_->setMaximum(std::max(1, now.BoardsToMake));
  progress_->setValue(std::min(now.BoardsGen, now.BoardsToMake));
}

void RunResult::ShowBits() { bits_->setValue(form_.Bits()); }

}  // namespace morvane::generate
