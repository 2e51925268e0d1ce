#include "maintenance/ui/read_service_window.h"

#include <QCheckBox>
#include <QDragEnterEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "maintenance/ui/aside_page.h"
#include "maintenance/ui/file_card_panel.h"
#include "maintenance/ui/file_parameter_panel.h"
#include "maintenance/ui/file_picture_panel.h"
#include "maintenance/ui/output_panel.h"
#include "maintenance/ui/sensor_panel.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/files.h"
#include "platform/qt/dragged_file.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {
namespace {

constexpr const char* kTitle = "Morvane - Read_Service";
constexpr QSize kComfortable{760, 640};
constexpr int kPicturePage = 0;

struct Row {
  ServiceFieldName Name;
  const char* Caption;
};
constexpr std::array kIdentityRows{
    Row{"Serial_number", "Serial number"},
    Row{"Boards_dealed", "Boards dealt"},
    Row{"Manuf_date", "Made on"},
    Row{"Hardware_ID", "Hardware ID"},
    Row{"Soft_ver", "Firmware"},
    Row{"Down_ID", "Download ID"},
    Row{"Boot_ver", "Boot area"},
    Row{"FPGA_ver", "Logic"},
    Row{"Flash_ID_text", "Flash ID"},
    Row{"txtUSB_ID", "USB ID"},
    Row{"USB_driver", "USB driver"},
    Row{"DLLver", "USB library"},
    Row{"Die_ID", "Die ID"},
    Row{"Set_ID", "Set ID"},
};
/// By `kOutputBoxes`.
constexpr std::array<ServiceFieldName, kOutputBoxes.size()> kOutputFields{
    "Motors",   "Gate1",     "Gate2",           "Gate3",
    "Cam_leds", "Cam_power", "Front_green_led", "Front_Red_Led"};

}  // namespace

ReadServiceWindow::ReadServiceWindow(ReadService& viewer, QWidget* parent)
    : ServiceDialog("Read_Service", kTitle, parent), viewer_(viewer) {
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setAcceptDrops(true);
  Info_ = NewFileBox("Info", "The file", nullptr, this);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kServiceMargin, kServiceMargin, kServiceMargin, kServiceMargin);
  column->setSpacing(kServiceSpacing);
  damage_ = new ShownValue("Damage", "Damage", this);
  column->addWidget(Info_);
  column->addWidget(damage_);
  column->addWidget(MakePages(), 1);
  column->addWidget(MakeButtons());
  WatchButtons();
  resize(sizeHint().expandedTo(kComfortable).expandedTo({WidthBesidePictures(), 0}));
  FitToScreen(*this);
  tabs_->tabBar()->setFocus();
  show();
}

ReadServiceWindow::~ReadServiceWindow() { hide(); }

QWidget* ReadServiceWindow::MakePages() {
  auto* pages = new QWidget(this);
  auto* row = new QHBoxLayout(pages);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(tabs_ = new QTabWidget(pages));
  tabs_->setObjectName("tabs");
  AddPage(card_ = new FileCardPanel(viewer_, this), "Car&d");
  AddPage(parameters_ = new FileParameterPanel(viewer_, this), "P&arameters");
  AddPage(MakeSensors(), "S&ensors");
  AddPage(MakeIdentity(), "&Identity");
  AddPage(MakeLists(), "Coun&ters");
  pictures_ = new FilePicturePanel(viewer_, this);
  aside_ = std::make_unique<AsidePage>(*pictures_, kPicturePage, "&Pictures", *tabs_, *row);
  tabs_->setCurrentIndex(kPicturePage);
  return pages;
}

void ReadServiceWindow::AddPage(QWidget* page, const char* caption) {
  tabs_->addTab(new ScrollingPart(page, tabs_), caption);
}

QWidget* ReadServiceWindow::MakeSensors() {
  constexpr int kColumns = 3;
  auto* page = new QWidget(this);
  auto* outputs = new QGroupBox("Outputs", page);
  QGridLayout* const grid = NewGrid(outputs);
  for (std::size_t i = 0; i < kOutputFields.size(); ++i) {
    const int place = static_cast<int>(i);
    grid->addWidget(boxes_.AddSwitch(kOutputFields[i], kOutputBoxes[i].Caption, outputs),
                    place / kColumns, place % kColumns);
  }
  grid->setColumnStretch(kColumns, 1);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(kGroupMargin, kGroupMargin, kGroupMargin, kGroupMargin);
  column->setSpacing(kServiceSpacing);
  column->addWidget(sensors_ = new SensorPanel(page));
  column->addWidget(outputs);
  column->addStretch();
  return page;
}

QWidget* ReadServiceWindow::MakeIdentity() {
  auto* page = new QWidget(this);
  auto* form = new QFormLayout(page);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  for (const Row& row : kIdentityRows) {
    form->addRow(QString(row.Caption) + ":", boxes_.Add(row.Name, row.Caption, nullptr, page));
  }
  return page;
}

QPlainTextEdit* ReadServiceWindow::NewList(const char* name, const char* spoken, QWidget* parent) {
  auto* list = new QPlainTextEdit(parent);
  list->setObjectName(name);
  list->setAccessibleName(spoken);
  list->setReadOnly(true);
  list->setTabChangesFocus(true);
  list->setLineWrapMode(QPlainTextEdit::NoWrap);
  return list;
}

QWidget* ReadServiceWindow::MakeLists() {
  auto* page = new QWidget(this);
  QGridLayout* const grid = NewGrid(page);
  Errors_ = NewList("Errors", "Counters of errors", page);
  Test_ = NewList("Test", "Test bytes", page);
  grid->addWidget(NewLabelOf(Errors_, "Errors", page), 0, 0);
  grid->addWidget(Errors_, 1, 0);
  grid->addWidget(NewLabelOf(Test_, "Test", page), 0, 1);
  grid->addWidget(Test_, 1, 1);
  auto* written = new QWidget(page);
  boxes_.AddRow(*NewGrid(written), "Test values",
                {{"Test6", "First test value"}, {"Test7", "Second test value"}}, "88888", written);
  grid->addWidget(written, 2, 0, 1, 2, Qt::AlignLeft);
  return page;
}

QWidget* ReadServiceWindow::MakeButtons() {
  auto* buttons = new QWidget(this);
  auto* open = NewServiceButton(
      "Open", "&Open...", [this] { viewer_.Ask(); }, buttons);
  open->setToolTip("Another service file; one can be dropped on the window, too");
  auto* exit = NewServiceButton(
      "cmdExit", "E&xit", [this] { reject(); }, buttons);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(open);
  row->addStretch();
  row->addWidget(exit);
  return buttons;
}

void ReadServiceWindow::ShowAll() {
  const ServiceFileRead& read = viewer_.Read();
  setWindowTitle(QString(kTitle) + " - " + ToQt(FileTitle(viewer_.Path())));
  ShowFrom(*Info_, read.File.Info);
  ShowDamage();
  boxes_.Show(read.File);
  card_->Show();
  parameters_->Show();
  pictures_->Show();
  ShowSensors();
  // Setting it anew would scroll it back.
  for (const auto& [list, text] :
       {std::pair(Errors_, ToQt(ErrorsText(read))), std::pair(Test_, ToQt(TestText(read)))}) {
    if (list->toPlainText() != text) list->setPlainText(text);
  }
}

/// Beyond it everything is empty, or white.
void ReadServiceWindow::ShowDamage() {
  const auto line = viewer_.Path().empty() ? std::nullopt : viewer_.Read().Fault();
  damage_->setVisible(line.has_value());
  if (line)
    ShowChanged(*damage_,
                QString("Damaged at line %1: only what stands before it is shown").arg(*line));
}

void ReadServiceWindow::ShowSensors() {
  const ServiceFileRead& read = viewer_.Read();
  const Readings sensors = SensorsIn(read);
  sensors_->Show(sensors, sensors.Flip_Switch.Text.empty() && read.File["Cam_leds"] == "0");
}

void ReadServiceWindow::reject() {
  viewer_.Exit();
  ServiceDialog::reject();
}

int ReadServiceWindow::WidthBesidePictures() const {
  return tabs_->sizeHint().width() + aside_->Width() + 2 * kServiceMargin;
}

void ReadServiceWindow::resizeEvent(QResizeEvent* event) {
  ServiceDialog::resizeEvent(event);
  aside_->Place(width() >= WidthBesidePictures());
}

void ReadServiceWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!DraggedFile(*event).isEmpty()) AcceptCopy(*event);
}

void ReadServiceWindow::dropEvent(QDropEvent* event) {
  AcceptCopy(*event);
  viewer_.OpenSoon(FromQt(DraggedFile(*event)));
}

}  // namespace morvane::maintenance
