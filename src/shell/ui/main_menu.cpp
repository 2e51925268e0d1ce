#include "shell/ui/main_menu.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QEvent>
#include <QLabel>
#include <QStatusBar>
#include <QVBoxLayout>

#include "platform/qt/dragged_file.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"
#include "shell/start_up.h"
#include "shell/ui/first_steps.h"
#include "shell/ui/menu_bar.h"
#include "shell/ui/set_header.h"
#include "shell/ui/set_numbers.h"
#include "shell/ui/statistics_panel.h"

namespace morvane::shell {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr QSize kComfortable{980, 620};

}  // namespace

MainMenu::MainMenu(Program& program, Shell& shell, Help& help) : program_(program), shell_(shell) {
  setObjectName("MainMenu");
  setWindowTitle("Morvane - Main Menu[*]");
  setAcceptDrops(true);
  setMenuBar(new MenuBar(shell_, help, program_.ServiceLevel, this));
  MakeStatusBar();
  MakeContent();
  RefreshSet();
  resize(kComfortable);
  RestorePlace();
}

void MainMenu::MakeStatusBar() {
  statusBar()->setObjectName("StatusBar1");
  panel_ = new ShownValue("Panel1", "Status", this);
  panel_->setTextFormat(Qt::PlainText);
  lblVersion_ = new QLabel(this);
  lblVersion_->setObjectName("lblVersion");
  statusBar()->addWidget(panel_, 1);
  statusBar()->addPermanentWidget(lblVersion_);
}

/// Where the window is small, the statistics scroll first, and the rest stays in sight.
void MainMenu::MakeContent() {
  auto* content = new QWidget(this);
  header_ = new SetHeader(
      shell_, [this] { ShowTitle(); }, content);
  numbers_ = new SetNumbers([this] { shell_.ShowStat(); }, content);
  steps_ = new FirstSteps(shell_, content);
  statistics_ = new StatisticsPanel(content);
  statisticsPart_ = new ScrollingPart(statistics_, content);
  auto* all = new QVBoxLayout(content);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->setSpacing(kSpacing);
  all->addWidget(header_);
  all->addWidget(numbers_);
  all->addWidget(steps_);
  all->addWidget(statisticsPart_, 1);
  all->addStretch();
  setCentralWidget(new ScrollingPart(content, this));
}

QtUi::MainWindow MainMenu::ForUi() {
  return {centralWidget(), [this](const std::string& text) { Status(text); },
          [this] { RefreshSet(); }};
}

void MainMenu::Status(const std::string& text) { panel_->Show(ToQt(WithoutPadding(text))); }

void MainMenu::RefreshSet() {
  header_->Show(program_.Set);
  lblVersion_->setText("Morvane  ver: " + ToQt(program_.VersionText));
  ShowOrHideStatistics();
  if (!program_.Set.Exists()) ShowStatistics({});
  ShowOrHideSteps();
  ShowTitle();
}

/// A focus that is hidden would go to the event's name, which the next key would change.
void MainMenu::ShowOrHideStatistics() {
  const bool shown = program_.ShowStatistics;
  numbers_->ShowCaption(shown);
  if (!shown && statisticsPart_->isAncestorOf(focusWidget())) numbers_->FocusButton();
  statisticsPart_->setVisible(shown);
}

void MainMenu::ShowStatistics(const StatisticsPage& page) {
  numbers_->Show(page);
  statistics_->Show(page);
  ShowOrHideSteps();
}

void MainMenu::ShowOrHideSteps() { steps_->setVisible(!program_.Set.Exists()); }

void MainMenu::ShowTitle() { setWindowModified(!program_.Set.IsSaved()); }

bool MainMenu::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && !activated_) {
    activated_ = true;
    shell_.Activated();
    header_->FocusEventName();
  }
  return QMainWindow::event(event);
}

void MainMenu::closeEvent(QCloseEvent* event) {
  const bool ends = shell_.Exit();
  event->setAccepted(ends);
  if (ends) StorePlace();
}

void MainMenu::dragEnterEvent(QDragEnterEvent* event) {
  if (!shell_.FlowActive() && !DraggedFile(*event).isEmpty()) AcceptCopy(*event);
}

/// A file that is dropped here is taken as one that is opened while the program runs: a board file
/// is loaded, a firmware file asks for its download.
void MainMenu::dropEvent(QDropEvent* event) {
  AcceptCopy(*event);
  shell_.LinkExecute(LinkCommandFor(FromQt(DraggedFile(*event))));
}

void MainMenu::RestorePlace() {
  const std::string place = program_.Store.Get(kMainMenuPlace);
  if (!place.empty()) restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(place)));
  // The screen may be another one, or a smaller one, than it was.
  if (!isMaximized() && !isFullScreen()) FitToScreen(*this);
}

void MainMenu::StorePlace() {
  program_.StoreSetting(kMainMenuPlace, saveGeometry().toBase64().toStdString());
}

}  // namespace morvane::shell
