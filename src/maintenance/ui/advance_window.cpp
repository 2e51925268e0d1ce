#include "maintenance/ui/advance_window.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QTextDocument>
#include <QVBoxLayout>
#include <array>

#include "maintenance/factory_tools.h"
#include "maintenance/ui/service_widgets.h"
#include "maintenance/ui/value_edit.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {
namespace {

constexpr int kServiceLevelToSet = 2;
constexpr qsizetype kErrorColumns = 62;  // of a line of `Error_view`

/// The letters of the check boxes, by `kHardwareBoxes`, each at the word's begin.
constexpr std::array<const char*, kHardwareBoxes.size()> kWordsWithLetter{"Flip", "Sony", "Reader",
                                                                          "jumbo"};

QString CaptionOf(std::size_t box) {
  QString caption = kHardwareBoxes[box].Caption;
  return caption.insert(caption.indexOf(kWordsWithLetter[box]), '&');
}

QHBoxLayout* NewRow(QWidget* part) {
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kServiceSpacing);
  return row;
}

}  // namespace

AdvanceWindow::AdvanceWindow(Program& program, AdvanceForm& form, QWidget* parent)
    : ServiceDialog("Advance_form", "Morvane - Advance_Maintenance", parent),
      program_(program),
      form_(form) {
  QWidget* body = MakeBody(program.ServiceLevel);
  Fill(*this, body, MakeButtons());
  WatchButtons();
  ShowAll();
  FitToScreen(*this);
}

QWidget* AdvanceWindow::MakeBody(int serviceLevel) {
  auto* body = new QWidget(this);
  auto* column = new QVBoxLayout(body);
  column->setContentsMargins(kServiceMargin, kServiceMargin, kServiceMargin, kServiceMargin);
  column->setSpacing(kServiceSpacing);
  if (serviceLevel >= kServiceLevelToSet) column->addWidget(MakeSetUp());
  auto* below = new QHBoxLayout;
  below->setSpacing(kServiceSpacing);
  below->addWidget(MakeErrors(), 1);
  below->addWidget(MakeTools());
  column->addLayout(below, 1);
  return body;
}

QWidget* AdvanceWindow::MakeSetUp() {
  auto* group = new QGroupBox("Set-up", this);
  group->setObjectName("SetUp");
  group->setEnabled(form_.MachineKnown());
  auto* column = new QVBoxLayout(group);
  column->setSpacing(kServiceSpacing);
  column->addWidget(MakeNumbers());
  column->addWidget(MakeHardware());
  column->addWidget(MakeSetters());
  return group;
}

ValueEdit* AdvanceWindow::Add(ValueBox& box, const char* name, const char* spoken,
                              QWidget* parent) {
  boxes_.push_back(new ValueEdit(box, name, spoken, parent));
  return boxes_.back();
}

QWidget* AdvanceWindow::MakeNumbers() {
  auto* part = new QWidget(this);
  QHBoxLayout* const row = NewRow(part);
  const auto add = [&](ValueBox& box, const char* name, const char* caption, const char* spoken) {
    ValueEdit* edit = Add(box, name, spoken, part);
    row->addWidget(NewLabelOf(edit, caption, part));
    row->addWidget(edit);
  };
  add(form_.Adv_SerialNumber, "Adv_SerialNumber", "Seria&l number", "Serial number");
  row->addSpacing(kServiceSpacing);
  add(form_.Adv_Day, "Adv_Day", "Made on:  &day", "Day of manufacture");
  add(form_.Adv_month, "Adv_month", "&month", "Month of manufacture");
  add(form_.Adv_Year, "Adv_Year", "&year", "Year of manufacture");
  row->addStretch();
  return part;
}

QWidget* AdvanceWindow::MakeHardware() {
  auto* part = new QWidget(this);
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGroupMargin);
  for (std::size_t i = 0; i < kHardwareBoxes.size(); ++i) {
    const HardwareBox& box = kHardwareBoxes[i];
    auto* bit = new QCheckBox(CaptionOf(i), part);
    bit->setObjectName(QString::fromUtf8(box.Name));
    connect(bit, &QCheckBox::clicked, this, [this, &box](bool on) { form_.Click(box, on); });
    bits_.push_back(bit);
    column->addWidget(bit);
  }
  auto* shown = new QWidget(part);
  QHBoxLayout* const row = NewRow(shown);
  Curr_HID_ = new ShownValue("Curr_HID", "Hardware identifier", shown);
  KeepSizeFor(*Curr_HID_, {"65535"});
  row->addWidget(new QLabel("Hardware identifier", shown));
  row->addWidget(Curr_HID_);
  row->addStretch();
  column->addWidget(shown);
  return part;
}

QWidget* AdvanceWindow::MakeSetters() {
  auto* part = new QWidget(this);
  QHBoxLayout* const row = NewRow(part);
  const auto button = [&](const char* name, const char* caption, const char* tip,
                          std::function<void()> press) {
    setters_.push_back(NewServiceButton(name, caption, std::move(press), part));
    setters_.back()->setToolTip(tip);
    row->addWidget(setters_.back());
  };
  button("Update", "&Update", "Writes serial number, date and hardware identifier to the machine",
         [this] { form_.Update(); });
  row->addStretch();
  ValueEdit* boards = Add(form_.Boards_dealt, "Boards_dealt", "Boards dealt", part);
  row->addWidget(NewLabelOf(boards, "B&oards dealt", part));
  row->addWidget(boards);
  button("Clear_boards", "Set &Number of Dealt Boards",
         "Sets the machine's counter of dealt boards", [this] { form_.Clear_boards(); });
  row->addStretch();
  button("ErrorClear", "&Errors Clear", "Erases the machine's error counters",
         [this] { form_.ErrorClear(); });
  return part;
}

QWidget* AdvanceWindow::MakeErrors() {
  auto* group = new QGroupBox("Coun&ters of errors", this);
  group->setEnabled(form_.MachineKnown());
  Error_view_ = new QPlainTextEdit(group);
  Error_view_->setObjectName("Error_view");
  Error_view_->setAccessibleName("Counters of errors");
  Error_view_->setReadOnly(true);
  Error_view_->setTabChangesFocus(true);
  Error_view_->setLineWrapMode(QPlainTextEdit::NoWrap);
  Error_view_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  const int text = Error_view_->fontMetrics().horizontalAdvance(QString(kErrorColumns, QChar('0')));
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const auto around = static_cast<int>(Error_view_->document()->documentMargin());
  Error_view_->setMinimumWidth(text + bar + 2 * (around + Error_view_->frameWidth() + 1));
  NewGrid(group)->addWidget(Error_view_);
  return group;
}

QWidget* AdvanceWindow::MakeTools() {
  auto* group = new QGroupBox("Tools", this);
  auto* column = new QVBoxLayout(group);
  column->setSpacing(kServiceSpacing);
  const auto add = [&](const char* name, const char* caption, bool (*tool)(Program&),
                       const char* made) {
    column->addWidget(NewServiceButton(
        name, caption, [this, tool, made] { Use(tool, made); }, group));
  };
  add("Boot", "&boot.adb -> boot.c", Boot, "The C file is written.");
  add("Prepare", "Code &Prepare", Prepare, "The firmware file is written.");
  add("txt_hex", "t&xt -> hex", txt_hex, "Intel HEX is written.");
  lblTool_ = new ShownValue("lblTool", "What the tool has done", group);
  lblTool_->setWordWrap(true);
  column->addWidget(lblTool_);
  column->addStretch();
  return group;
}

/// Not every tool has a box of its own for a good end.
void AdvanceWindow::Use(bool (*tool)(Program&), const char* made) {
  ShowChanged(*lblTool_, "");
  ShowChanged(*lblTool_, tool(program_) ? made : "Nothing is written.");
}

QWidget* AdvanceWindow::MakeButtons() {
  auto* buttons = new QWidget(this);
  QHBoxLayout* const row = NewRow(buttons);
  row->setContentsMargins(kServiceMargin, 0, kServiceMargin, kServiceMargin);
  row->addStretch();
  auto* close = NewServiceButton(
      "cmdClose", "&Close", [this] { reject(); }, buttons);
  close->setToolTip("Back to the console (Escape)");
  row->addWidget(close);
  return buttons;
}

void AdvanceWindow::ShowAll() {
  for (ValueEdit* box : boxes_) box->Show();
  if (Curr_HID_ != nullptr) ShowHardware();
  for (QPushButton* button : setters_) button->setEnabled(form_.Known());
  ShowErrors();
  if (form_.Closed()) hide();
}

void AdvanceWindow::ShowHardware() {
  for (std::size_t i = 0; i < bits_.size(); ++i) {
    bits_[i]->setChecked(form_.IsChecked(kHardwareBoxes[i]));
  }
  const QString none = form_.HoldsNoRecord() ? " (the machine holds no record)" : "";
  ShowChanged(*Curr_HID_, form_.Known() ? QString::number(form_.Curr_HID()) + none : "");
}

/// Setting it anew would scroll it back.
void AdvanceWindow::ShowErrors() {
  const QString text = form_.Known() ? ToQt(form_.Error_view()) : "";
  if (Error_view_->toPlainText() != text) Error_view_->setPlainText(text);
}

}  // namespace morvane::maintenance
