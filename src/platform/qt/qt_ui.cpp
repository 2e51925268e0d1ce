#include "platform/qt/qt_ui.h"

#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <algorithm>

#include "platform/qt/qt_text.h"
#include "platform/qt/window_place.h"
#include "text/box_text.h"
#include "text/text.h"

namespace morvane {
namespace {

constexpr int kButtons = 0x0F;
constexpr int kIcons = 0x70;
constexpr int kSecondIsDefault = 0x100;
constexpr int kOverAllWindows = 0x1000;

// The system's own adds the ending of its row to a name that has another one: "evening.pbn.bri".
#ifdef _WIN32
constexpr bool kOwnSaveDialog = true;
#else
constexpr bool kOwnSaveDialog = false;
#endif

QMessageBox::StandardButtons ButtonsOf(int flags) {
  switch (flags & kButtons) {
    case 1:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case 3:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case 4:
      return QMessageBox::Yes | QMessageBox::No;
    default:
      return QMessageBox::Ok;
  }
}

QMessageBox::Icon IconOf(int flags) {
  switch (flags & kIcons) {
    case 16:
      return QMessageBox::Critical;
    case 32:
      return QMessageBox::Question;
    case 48:
      return QMessageBox::Warning;
    case 64:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

/// The answer that changes least; also what Escape and the close box give.
QMessageBox::StandardButton CautiousAnswer(QMessageBox::StandardButtons buttons) {
  if (buttons.testFlag(QMessageBox::Cancel)) return QMessageBox::Cancel;
  if (buttons.testFlag(QMessageBox::No)) return QMessageBox::No;
  return QMessageBox::Ok;
}

int AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Yes:
      return kYes;
    case QMessageBox::No:
      return kNo;
    case QMessageBox::Cancel:
      return kCancel;
    default:
      return kOk;
  }
}

/// The rows of a filter in Qt's form "caption(pattern)". The captions have brackets of their own,
/// so the dialog must not show the pattern.
QStringList FilterRows(const std::string& filter) {
  const QStringList parts = ToQt(filter).split('|');
  QStringList rows;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString patterns = parts[i + 1];
    // "*.*" means every file, those without a dot too.
    if (patterns == "*.*") patterns = "*";
    rows << parts[i] + "(" + patterns.replace(';', ' ') + ")";
  }
  return rows;
}

void Prepare(QFileDialog& dialog, const FileRequest& request) {
  const QStringList rows = FilterRows(request.Filter);
  dialog.setObjectName(request.Saving ? "cdSave" : "cdOpen");
  dialog.setWindowTitle(ToQt(request.Title));
  dialog.setAcceptMode(request.Saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.Saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  if (kOwnSaveDialog && request.Saving) dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setNameFilters(rows);
  const auto row = std::clamp<qsizetype>(request.FilterIndex - 1, 0, rows.size() - 1);
  if (!rows.empty()) dialog.selectNameFilter(rows[row]);
  if (!request.Directory.empty()) dialog.setDirectory(ToQt(request.Directory));
}

void Prepare(QMessageBox& box, const std::string& text, int flags, const std::string& title) {
  box.setObjectName("MessageBox");
  box.setWindowTitle(ToQt(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(WithoutPadding(text)));
  box.setIcon(IconOf(flags));
  const auto buttons = ButtonsOf(flags);
  box.setStandardButtons(buttons);
  box.setEscapeButton(CautiousAnswer(buttons));
  box.setResult(CautiousAnswer(buttons));
  if ((flags & kSecondIsDefault) != 0) box.setDefaultButton(CautiousAnswer(buttons));
  box.setWindowFlag(Qt::WindowStaysOnTopHint, (flags & kOverAllWindows) != 0);
}

}  // namespace

QtUi::~QtUi() {
  Busy(false);
  Waiting("");
  for (const QPointer<QWidget>& box : beside_) delete box;
}

int QtUi::MessageBox(const std::string& text, int flags, const std::string& title) {
  QMessageBox box(Owner());
  Prepare(box, text, flags, title);
  Run(box, (flags & kOverAllWindows) != 0 ? Qt::ApplicationModal : Qt::WindowModal);
  return AnswerOf(box.isVisible() ? CautiousAnswer(ButtonsOf(flags)) : box.result());
}

void LastBox(const std::string& text, int flags, const std::string& title) {
  QMessageBox box;
  Prepare(box, text, flags, title);
  box.show();
  FitToScreen(box);
  while (box.isVisible()) {
    QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
}

void QtUi::BoxBeside(const std::string& text, int flags, const std::string& title) {
  // Of no other window: a modal one over that would block it.
  auto* box = new QMessageBox;
  beside_.emplace_back(box);
  Prepare(*box, text, flags, title);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setModal(false);
  FitToScreen(*box);
  box->show();
}

std::optional<std::string> QtUi::AskFile(const FileRequest& request) {
  QFileDialog dialog(Owner());
  Prepare(dialog, request);
  Run(dialog);
  if (dialog.isVisible() || dialog.result() != QDialog::Accepted) return std::nullopt;
  const QStringList files = dialog.selectedFiles();
  if (files.empty()) return std::nullopt;
  return FromQt(QDir::toNativeSeparators(files.front()));
}

void QtUi::Run(QDialog& dialog, Qt::WindowModality blocks) {
  dialog.setWindowModality(blocks);
  dialog.show();
  FitToScreen(dialog);
  loop_.RunUntil([&dialog] { return !dialog.isVisible(); });
}

QWidget* QtUi::Owner() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (!main_.Client) return nullptr;
  QWidget* window = main_.Client->window();
  return window->isVisible() ? window : nullptr;
}

void QtUi::Status(const std::string& text) {
  status_ = text;
  if (main_.Status) main_.Status(text);
}

void QtUi::RefreshSet() {
  if (main_.RefreshSet) main_.RefreshSet();
}

void QtUi::Busy(bool on) {
  if (on == busy_) return;
  busy_ = on;
  if (on) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void QtUi::Waiting(const std::string& what) {
  if (what.empty() == !waiting_) return;
  waiting_ = !what.empty();
  // An hourglass of its own: the flow may have one up already.
  if (waiting_) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
  if (main_.Status) main_.Status(waiting_ ? what : status_);
}

Point QtUi::Mouse() const {
  QPoint at = QCursor::pos();
  if (main_.Client) at = main_.Client->mapFromGlobal(at);
  return {at.x(), at.y()};
}

}  // namespace morvane
