#include "machine/ui/test_panel.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "machine/machine_run.h"
#include "machine/ui/run_widgets.h"
#include "platform/qt/qt_text.h"

namespace morvane::machine {

TestPanel::TestPanel(MachineRun& run, QWidget* parent, const char* buttonName)
    : QWidget(parent),
      run_(run),
      Command1_(NewSmallButton(
          buttonName, "Test", "Asks the machine for its diagnosis text", [&run] { run.Command1(); },
          this)),
      TestText_(new QPlainTextEdit(this)) {
  TestText_->setObjectName("TestText");
  TestText_->setAccessibleName("Diagnosis of the machine");
  TestText_->setReadOnly(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kRunSpacing);
  column->addWidget(Command1_, 0, Qt::AlignLeft);
  column->addWidget(TestText_, 1);
  hide();
}

void TestPanel::Show() {
  setVisible(run_.Window().Command1Shown);
  Command1_->setEnabled(run_.Window().Controls.Options);
  // Setting it anew would scroll it back.
  const QString text = ToQt(run_.TestText());
  if (TestText_->toPlainText() != text) TestText_->setPlainText(text);
}

}  // namespace morvane::machine
