#include "maintenance/ui/measure_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "maintenance/recognition_bench.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"

namespace morvane::maintenance {
namespace {

using Texts = RecognitionBench::Texts;

struct Cell {
  const char* Name;
  const char* Spoken;
  std::string Texts::*Text;
  int Row;
  int Column;
};

constexpr std::array<Cell, MeasurePanel::kTexts> kCells{{
    {"Symbol_size_x", "Width of the symbol", &Texts::Symbol_size_x, 1, 1},
    {"Symbol_size_y", "Height of the symbol", &Texts::Symbol_size_y, 1, 2},
    {"Suit_size_x", "Width of the suit", &Texts::Suit_size_x, 2, 1},
    {"Suit_size_y", "Height of the suit", &Texts::Suit_size_y, 2, 2},
    {"Reco_param1", "First parameter of the recognition", &Texts::Reco_param1, 1, 4},
    {"Reco_param2", "Second parameter of the recognition", &Texts::Reco_param2, 1, 5},
    {"Cap_time", "Time of the capture", &Texts::Cap_time, 2, 4},
}};

}  // namespace

MeasurePanel::MeasurePanel(RecognitionBench& bench, QWidget* parent)
    : QGroupBox("Measured", parent), bench_(bench) {
  QGridLayout* const grid = NewGrid(this);
  grid->addWidget(new QLabel("x", this), 0, 1, Qt::AlignHCenter);
  grid->addWidget(new QLabel("y", this), 0, 2, Qt::AlignHCenter);
  grid->addWidget(new QLabel("Symbol size", this), 1, 0);
  grid->addWidget(new QLabel("Suit size", this), 2, 0);
  grid->addWidget(new QLabel("Parameters", this), 1, 3);
  grid->addWidget(new QLabel("Capture time", this), 2, 3);
  for (std::size_t i = 0; i < kTexts; ++i) {
    const Cell& cell = kCells[i];
    texts_[i] = new ShownValue(cell.Name, cell.Spoken, this);
    texts_[i]->setFrameShape(QFrame::StyledPanel);
    texts_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    texts_[i]->setMargin(2);
    const bool time = cell.Text == &Texts::Cap_time;
    KeepSizeFor(*texts_[i], {time ? "88888" : "-888"});
    grid->addWidget(texts_[i], cell.Row, cell.Column, 1, time ? 2 : 1);
  }
  AddHold({"HoldS", "Expected rank", "Expected rank"}, bench.HoldS, 0);
  AddHold({"HoldC", "Suit", "Expected suit"}, bench.HoldC, 3);
  grid->setColumnStretch(6, 1);
}

/// Compared letter by letter with what is shown of the card.
void MeasurePanel::AddHold(const Hold& hold, std::string& text, int column) {
  auto* box = new QLineEdit(this);
  box->setObjectName(hold.Name);
  box->setAccessibleName(hold.Spoken);
  box->setToolTip("Another card than this stops the recognition until the next capture");
  box->setFixedWidth(box->fontMetrics().horizontalAdvance("00000"));
  connect(box, &QLineEdit::textEdited, this,
          [&text](const QString& typed) { text = FromQt(typed); });
  auto* grid = static_cast<QGridLayout*>(layout());
  grid->addWidget(NewLabelOf(box, hold.Caption, this), 3, column);
  grid->addWidget(box, 3, column + 1, 1, 2);
}

void MeasurePanel::Show() {
  for (std::size_t i = 0; i < kTexts; ++i) {
    const QString text = ToQt(bench_.Shown().*kCells[i].Text);
    ShowChanged(*texts_[i], text);
  }
}

}  // namespace morvane::maintenance
