#include "maintenance/ui/maintenance_window.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "maintenance/advance_form.h"
#include "maintenance/maintenance.h"
#include "maintenance/ui/advance_window.h"
#include "maintenance/ui/aside_page.h"
#include "maintenance/ui/auto_setup_window.h"
#include "maintenance/ui/board_calibration_window.h"
#include "maintenance/ui/card_panel.h"
#include "maintenance/ui/developer_panel.h"
#include "maintenance/ui/firmware_window.h"
#include "maintenance/ui/identity_panel.h"
#include "maintenance/ui/magnify_window.h"
#include "maintenance/ui/output_panel.h"
#include "maintenance/ui/parameter_panel.h"
#include "maintenance/ui/picture_panel.h"
#include "maintenance/ui/sensor_panel.h"
#include "maintenance/ui/service_file_window.h"
#include "maintenance/ui/service_widgets.h"
#include "maintenance/ui/test_deal_window.h"
#include "maintenance/ui/verdict_panel.h"
#include "platform/qt/held_enter.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {
namespace {

constexpr QSize kComfortable{880, 720};
constexpr int kPicturePage = 1;

}  // namespace

MaintenanceWindow::MaintenanceWindow(Program& program, Maintenance& maintenance, QWidget* parent)
    : QDialog(parent), program_(program), maintenance_(maintenance) {
  setObjectName("Maintenance");
  setWindowTitle(ToQt("Morvane - Maintenance" + maintenance.TheMachine().TitleMark()));
  setWindowModality(Qt::WindowModal);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  // In the order in which the tab key walks through them.
  live_ = new ScrollingPart(MakeLive(program), this);
  live_->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);  // not sideways
  auto* column = new QVBoxLayout;
  column->setContentsMargins(0, kServiceMargin, kServiceMargin, kServiceMargin);
  column->setSpacing(kServiceSpacing);
  contact_ = new ShownValue("lblContact", "The machine", this);
  contact_->setWordWrap(true);
  column->addWidget(contact_);
  column->addWidget(MakePages(program), 1);
  column->addWidget(MakeButtons());
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(live_);
  row->addLayout(column, 1);
  for (auto* button : findChildren<QAbstractButton*>()) button->installEventFilter(this);
  resize(sizeHint().expandedTo(kComfortable).expandedTo({WidthBesidePicture(), 0}));
  FitToScreen(*this);
  tabs_->tabBar()->setFocus();  // a key pressed by mistake there switches nothing on
  show();
}

MaintenanceWindow::~MaintenanceWindow() { hide(); }

QWidget* MaintenanceWindow::MakeLive(const Program& program) {
  auto* live = new QWidget(this);
  sensors_ = new SensorPanel(live);
  sensors_->AddTraces();
  outputs_ = new OutputPanel(maintenance_, program.ServiceLevel, live);
  verdict_ = new VerdictPanel(maintenance_, program.ServiceLevel, live);
  auto* column = new QVBoxLayout(live);
  column->setContentsMargins(kServiceMargin, kServiceMargin, kServiceMargin, kServiceMargin);
  column->setSpacing(kServiceSpacing);
  column->addWidget(sensors_);
  column->addWidget(outputs_);
  column->addWidget(verdict_);
  column->addWidget(MakeServiceButtons(live));
  column->addStretch();
  return live;
}

/// What hunts a misreading.
QWidget* MaintenanceWindow::MakeServiceButtons(QWidget* live) {
  auto* buttons = new QWidget(live);
  Email_ = NewServiceButton(
      "Email", "Create Service File", [this] { maintenance_.Email(); }, buttons);
  Email_->setToolTip("All that a technician would ask for, in one file to be sent in");
  DealTest_ = NewServiceButton(
      "DealTest", "Test Deal", [this] { maintenance_.DealTest(); }, buttons);
  DealTest_->setToolTip("Deals a known deck until the machine takes a card for another");
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(Email_);
  row->addWidget(DealTest_);
  row->addStretch();
  return buttons;
}

QWidget* MaintenanceWindow::MakePages(Program& program) {
  auto* pages = new QWidget(this);
  auto* row = new QHBoxLayout(pages);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(tabs_ = new QTabWidget(pages));
  tabs_->setObjectName("tabs");
  tabs_->addTab(parameters_ = new ParameterPanel(maintenance_, tabs_), "&Parameters");
  picture_ = new PicturePanel(program, maintenance_, this);
  aside_ = std::make_unique<AsidePage>(*picture_, kPicturePage, "Pic&ture", *tabs_, *row);
  AddPage(cards_ = new CardPanel(maintenance_, this), "&Cards");
  AddPage(identity_ = new IdentityPanel(maintenance_, this), "&Identity");
  if (program.ServiceLevel >= 2) {
    AddPage(developer_ = new DeveloperPanel(maintenance_, this), "Developer");
  }
  return pages;
}

void MaintenanceWindow::AddPage(QWidget* page, const char* caption) {
  tabs_->addTab(new ScrollingPart(page, tabs_), caption);
}

QWidget* MaintenanceWindow::MakeButtons() {
  auto* buttons = new QWidget(this);
  Download_ = NewServiceButton(
      "Download", "&Download", [this] { maintenance_.Download(); }, buttons);
  auto* exit = NewServiceButton(
      "cmdExit", "&Exit", [this] { AskToLeave(); }, buttons);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(Download_);
  row->addStretch();
  row->addWidget(exit);
  return buttons;
}

void MaintenanceWindow::ShowReadings() {
  const Readings& now = maintenance_.Console().Now();
  // Once it has told anything it is blank only for want of light.
  const bool unlit = now.Flip_Switch.Text.empty() && maintenance_.Console().StatusAnswers() > 0;
  sensors_->Show(now, unlit);
  sensors_->Follow(program_.Time.Elapsed(), now);
  outputs_->ShowReadings();
  verdict_->Show();
  picture_->ShowReadings();
}

void MaintenanceWindow::ShowAll() {
  ShowContact();
  ShowReadings();
  outputs_->Show();
  parameters_->Show();
  picture_->Show();
  cards_->Show();
  identity_->Show();
  if (developer_ != nullptr) developer_->Show();
  Email_->setEnabled(maintenance_.Controls().MachineKnown);
  DealTest_->setEnabled(maintenance_.Controls().MachineKnown);
  ShowDownload();
}

/// It has the focus where it is all that is of use. The focus must not move from it to the button
/// that leaves.
void MaintenanceWindow::ShowDownload() {
  const ServiceControls& controls = maintenance_.Controls();
  if (controls.Download == !Download_->isHidden()) return;
  if (focusWidget() == Download_) tabs_->tabBar()->setFocus();
  Download_->setVisible(controls.Download);
  if (controls.Download && !controls.MachineKnown) Download_->setFocus();
}

void MaintenanceWindow::ShowPicture() { picture_->ShowPicture(); }

void MaintenanceWindow::Magnify() {
  MagnifyWindow window(maintenance_.Bench().Pictures(), this);
  window.show();
  program_.Loop.RunUntil([&window] { return !window.isVisible(); });
}

void MaintenanceWindow::ShowAdvance(AdvanceForm& form) {
  AdvanceWindow window(program_, form, this);
  window.show();
  form.Open(window);
  program_.Loop.RunUntil([&form] { return form.Closed(); });
}

std::unique_ptr<AutoSetupView> MaintenanceWindow::OpenAutoSetup(AutoSetup& setup) {
  return std::make_unique<AutoSetupWindow>(
      program_.Time, setup, [this] { ShowPicture(); }, this);
}

std::unique_ptr<FirmwareView> MaintenanceWindow::OpenFirmware(FirmwareDownload& download) {
  ShowChanged(*contact_, "The machine is being loaded ...");
  return std::make_unique<FirmwareWindow>(program_.Time, download, this);
}

std::unique_ptr<ServiceFileView> MaintenanceWindow::OpenServiceFile(ServiceGathering& gathering) {
  return std::make_unique<ServiceFileWindow>(
      gathering, [this] { ShowPicture(); }, this);
}

std::unique_ptr<BoardCalibrationView> MaintenanceWindow::OpenBoardCalibration(
    BoardCalibration& calibration) {
  return std::make_unique<BoardCalibrationWindow>(calibration, this);
}

std::unique_ptr<TestDealView> MaintenanceWindow::OpenTestDeal(TestDeal& deal) {
  return std::make_unique<TestDealWindow>(program_, deal, testDealPlace_, this);
}

void MaintenanceWindow::ShowContact() {
  const Identity& machine = maintenance_.TheIdentity();
  QString text = "Asking the machine ...";
  if (maintenance_.Controls().MachineKnown) {
    text = "Machine " + ToQt(machine.Serial_number) + ", firmware " + ToQt(machine.Soft_ver);
  } else if (maintenance_.Controls().Download) {
    text = "The machine holds no firmware. It can only be loaded with one.";
  }
  ShowChanged(*contact_, text);
}

void MaintenanceWindow::Close() { hide(); }

void MaintenanceWindow::AskToLeave() {
  parameters_->LeaveBox();
  maintenance_.Exit();
}

void MaintenanceWindow::closeEvent(QCloseEvent* event) {
  AskToLeave();
  event->setAccepted(maintenance_.Closed());
}

/// All of it beside each other.
int MaintenanceWindow::WidthBesidePicture() const {
  return live_->sizeHint().width() + tabs_->sizeHint().width() + aside_->Width() + kServiceMargin;
}

void MaintenanceWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  aside_->Place(width() >= WidthBesidePicture());
}

/// Enter presses the button that has the focus, and no other. An Escape that is held down has
/// closed a window over this one, and does not close this one, too.
void MaintenanceWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
  if (event->key() == Qt::Key_Escape && IsHeldEscape(*event)) return;
  QDialog::keyPressEvent(event);
}

/// Where a window goes between two repeats, the system may tell the second one as a new key.
bool MaintenanceWindow::IsHeldEscape(const QKeyEvent& event) {
  const auto now = program_.Time.Elapsed();
  const bool held = event.isAutoRepeat() || now - heldEscapeAt_ < kRepeats;
  if (held) heldEscapeAt_ = now;
  return held;
}

/// Every key is offered here before it works as the letter of a button.
bool MaintenanceWindow::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    keyHeld_ = static_cast<QKeyEvent*>(event)->isAutoRepeat();
  }
  if (event->type() == QEvent::WindowUnblocked) heldEscapeAt_ = program_.Time.Elapsed();
  return QDialog::event(event);
}

/// Held down, neither Enter nor a letter presses again.
bool MaintenanceWindow::eventFilter(QObject* button, QEvent* event) {
  const bool heldLetter = keyHeld_ && event->type() == QEvent::Shortcut;
  return heldLetter || IsHeldEnter(*event) || QDialog::eventFilter(button, event);
}

}  // namespace morvane::maintenance
