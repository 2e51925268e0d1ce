#include "maintenance/ui/developer_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "maintenance/maintenance.h"
#include "maintenance/ui/service_widgets.h"
#include "maintenance/ui/value_edit.h"
#include "platform/qt/qt_text.h"

namespace morvane::maintenance {

DeveloperPanel::DeveloperPanel(Maintenance& maintenance, QWidget* parent)
    : QWidget(parent),
      maintenance_(maintenance),
      Test_(NewServiceButton(
          "Test", "Te&st", [&maintenance] { maintenance.Developer().Test(); }, this)),
      TestText_(new QPlainTextEdit(this)),
      Test6_(
          new ValueEdit(maintenance.Developer().Test6, "Test6", "First number of the test", this)),
      Test7_(
          new ValueEdit(maintenance.Developer().Test7, "Test7", "Second number of the test", this)),
      Test_write_(NewServiceButton(
          "Test_write", "Send n&umbers",
          [this] {
            for (ValueEdit* box : {Test6_, Test7_}) box->Leave();
            maintenance_.Developer().Test_write();
          },
          this)),
      Advance_(NewServiceButton(
          "Advance", "Ad&vance", [&maintenance] { maintenance.Advance(); }, this)) {
  Advance_->setToolTip("The factory's form: record, counters, tools for firmware");
  Test_->setToolTip("Asks the machine for its diagnosis text, when the box is empty");
  TestText_->setObjectName("TestText");
  TestText_->setAccessibleName("Diagnosis of the machine");
  TestText_->setPlaceholderText("The diagnosis of the machine; empty it to ask again");
  TestText_->setTabChangesFocus(true);
  connect(TestText_, &QPlainTextEdit::textChanged, this,
          [this] { maintenance_.Developer().TestText = FromQt(TestText_->toPlainText()); });
  auto* numbers = new QHBoxLayout;
  numbers->addWidget(NewLabelOf(Test6_, "Numbers", this));
  numbers->addWidget(Test6_);
  numbers->addWidget(Test7_);
  numbers->addWidget(Test_write_);
  numbers->addStretch();
  auto* column = new QVBoxLayout(this);
  column->setSpacing(kServiceSpacing);
  column->addWidget(Test_, 0, Qt::AlignLeft);
  column->addWidget(TestText_, 1);
  column->addLayout(numbers);
  column->addWidget(Advance_, 0, Qt::AlignLeft);
}

void DeveloperPanel::Show() {
  for (QWidget* control : std::initializer_list<QWidget*>{Test_, Test6_, Test7_, Test_write_}) {
    control->setEnabled(maintenance_.Controls().MachineKnown);
  }
  Advance_->setEnabled(maintenance_.Controls().Download);
  // Setting it anew would scroll it back.
  const QString text = ToQt(maintenance_.Developer().TestText);
  if (TestText_->toPlainText() != text) TestText_->setPlainText(text);
  Test6_->Show();
  Test7_->Show();
}

}  // namespace morvane::maintenance
