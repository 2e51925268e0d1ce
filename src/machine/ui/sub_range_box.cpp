#include "machine/ui/sub_range_box.h"

#include <QHBoxLayout>
#include <QLabel>

#include "machine/board_run.h"
#include "machine/ui/run_widgets.h"
#include "platform/qt/number_edit.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"

namespace morvane::machine {

SubRangeBox::SubRangeBox(BoardRun& run, QWidget* parent)
    : QWidget(parent),
      run_(run),
      Subfrom_(NewNumberBox("Subfrom", "First board to deal", kMaxBoards, this)),
      Subto_(NewNumberBox("Subto", "Last board to deal", kMaxBoards, this)),
      Subfirst_(new ShownValue("Subfirst", "First board of the set", this)),
      Sublast_(new ShownValue("Sublast", "Last board of the set", this)) {
  PlaceControls();
  Subfrom_->OnLeave = [&run](const std::string& text) { run.LeaveSubfrom(text); };
  Subto_->OnLeave = [&run](const std::string& text) { run.LeaveSubto(text); };
}

void SubRangeBox::PlaceControls() {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* from = new QLabel("Fro&m:", this);
  from->setBuddy(Subfrom_);
  auto* to = new QLabel("&To:", this);
  to->setBuddy(Subto_);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(from);
  row->addWidget(Subfrom_);
  row->addWidget(to);
  row->addWidget(Subto_);
  row->addWidget(new QLabel("Board Set:", this));
  row->addWidget(Subfirst_);
  row->addWidget(new QLabel("-", this));
  row->addWidget(Sublast_);
}

void SubRangeBox::Show(const BoardSet& set) {
  const RunWindowState& window = run_.Window();
  Subfrom_->setEnabled(window.Controls.Options);
  Subto_->setEnabled(window.Controls.Options);
  setVisible(window.SubRangeShown);
  ShowNumbers(set);
}

std::optional<RangeTexts> SubRangeBox::Texts() const {
  if (!run_.Window().SubRangeShown) return std::nullopt;
  return RangeTexts{FromQt(Subfrom_->text()), FromQt(Subto_->text())};
}

void SubRangeBox::ShowNumbers(const BoardSet& set) {
  const RunMemory& range = run_.Place().Range();
  ShowNumberIn(*Subfrom_, range.RunFirst);
  ShowNumberIn(*Subto_, range.RunLast);
  Subfrom_->SetLimit(set.LastBoard);
  Subto_->SetLimit(set.LastBoard);
  Subfirst_->Show(QString::number(set.FirstBoard));
  Sublast_->Show(QString::number(set.LastBoard));
}

}  // namespace morvane::machine
