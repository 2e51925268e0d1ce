#include "shell/ui/main_menu.h"

#include <QCloseEvent>
#include <QDir>
#include <QDragEnterEvent>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

#include "platform/qt/filtered_edit.h"
#include "platform/qt/qt_text.h"

namespace morvane::shell {
namespace {

/// The file that is dragged; empty when it is not a single one of this computer.
QString DraggedFile(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  return urls.size() == 1 ? QDir::toNativeSeparators(urls.front().toLocalFile()) : QString();
}

}  // namespace

QtUi::MainWindow MainMenu::ForUi() {
  return {centralWidget(), [this](const std::string& text) { Status(text); },
          [this] { RefreshSet(); }};
}

void MainMenu::Status(const std::string& text) { panel_->setText(ToQt(WithoutPadding(text))); }

void MainMenu::RefreshSet() {
  BoardSet& set = program_.Set;
  set.CountCompleted();
  txtFileName_->setText(ToQt(set.BoardSetFile));
  txtEventName_->ShowText(set.EventName);
  txtEventSite_->ShowText(set.EventSite);
  txtEventDate_->ShowText(set.EventDate);
  const auto show = [&set](QLineEdit* box, int number) {
    box->setText(set.Exists() ? QString::number(number) : QString());
  };
  show(txtFirstBoard_, set.FirstBoard);
  show(txtLastBoard_, set.LastBoard);
  show(txtCount_, set.Count());
  show(txtCompleted_, set.CompletedBoards);
  lblVersion_->setText("Morvane  ver: " + ToQt(program_.VersionText));
  ShowStat_->setText(program_.ShowStatistics ? "&Hide Statistics" : "&Show Statistics");
  statistics_->setVisible(program_.ShowStatistics);
  ShowTitle();
}

void MainMenu::ShowTitle() { setWindowModified(program_.Set.Changed()); }

bool MainMenu::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && !activated_) {
    activated_ = true;
    shell_.Activated();
    txtEventName_->setFocus();
  }
  return QMainWindow::event(event);
}

void MainMenu::closeEvent(QCloseEvent* event) {
  const bool ends = shell_.Exit();
  event->setAccepted(ends);
  if (ends) StorePlace();
}

void MainMenu::dragEnterEvent(QDragEnterEvent* event) {
  if (!shell_.FlowActive() && !DraggedFile(*event).isEmpty()) event->acceptProposedAction();
}

/// A file that is dropped here is loaded, as one that is opened while the program runs.
void MainMenu::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  shell_.LinkExecute("1" + FromQt(DraggedFile(*event)));
}

void MainMenu::RestorePlace() {
  const std::string place = program_.Store.Get(kMainMenuPlace);
  if (!place.empty()) restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(place)));
}

void MainMenu::StorePlace() {
  program_.StoreSetting(kMainMenuPlace, saveGeometry().toBase64().toStdString());
}

}  // namespace morvane::shell
