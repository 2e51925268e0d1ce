#include "maintenance/ui/identity_panel.h"

#include <QApplication>
#include <QClipboard>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "maintenance/maintenance.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_text.h"

namespace morvane::maintenance {
namespace {

struct Row {
  const char* Name;
  const char* Caption;
  std::string Identity::*Text;
};

constexpr std::array<Row, IdentityPanel::kTexts> kRows{{
    {"Serial_number", "Serial number", &Identity::Serial_number},
    {"Boards_dealed", "Boards dealt", &Identity::Boards_dealed},
    {"Manuf_date", "Made on", &Identity::Manuf_date},
    {"Hardware_ID", "Hardware ID", &Identity::Hardware_ID},
    {"Soft_ver", "Firmware", &Identity::Soft_ver},
    {"Down_ID", "Download ID", &Identity::Down_ID},
    {"Boot_ver", "Boot area", &Identity::Boot_ver},
    {"FPGA_ver", "Logic", &Identity::FPGA_ver},
    {"Flash_ID_text", "Flash ID", &Identity::Flash_ID_text},
    {"txtUSB_ID", "USB ID", &Identity::txtUSB_ID},
    {"USB_driver", "USB driver", &Identity::USB_driver},
    {"DLLver", "USB library", &Identity::DLLver},
}};

}  // namespace

IdentityPanel::IdentityPanel(const Maintenance& maintenance, QWidget* parent)
    : QWidget(parent), maintenance_(maintenance) {
  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  for (std::size_t i = 0; i < kTexts; ++i) {
    texts_[i] = new ShownText(kRows[i].Name, "", this);
    texts_[i]->setAccessibleName(kRows[i].Caption);
    form->addRow(QString(kRows[i].Caption) + ":", texts_[i]);
  }
  auto* copy = NewServiceButton(
      "Copy", "Cop&y all", [this] { CopyAll(); }, this);
  copy->setToolTip("Copies all of it to the clipboard");
  auto* column = new QVBoxLayout(this);
  column->setSpacing(kServiceSpacing);
  column->addLayout(form);
  column->addWidget(copy, 0, Qt::AlignLeft);
  column->addStretch();
}

void IdentityPanel::Show() {
  for (std::size_t i = 0; i < kTexts; ++i) {
    const QString text = ToQt(maintenance_.TheIdentity().*kRows[i].Text);
    if (texts_[i]->text() != text) texts_[i]->setText(text);
  }
}

void IdentityPanel::CopyAll() const {
  QString lines;
  for (const Row& row : kRows) {
    lines += QString(row.Caption) + ": " + ToQt(maintenance_.TheIdentity().*row.Text) + QChar('\n');
  }
  QApplication::clipboard()->setText(lines);
}

}  // namespace morvane::maintenance
