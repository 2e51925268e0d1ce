#include "platform/qt/qt_printer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QMainWindow>
#include <QPrintDialog>
#include <algorithm>
#include <utility>

#include "platform/files.h"
#include "platform/qt/pdf_pages.h"
#include "platform/qt/preview_window.h"
#include "platform/qt/qt_canvas.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/window_place.h"

namespace morvane {
namespace {

constexpr double kLeastMargin = 12;  // points; many printers tell less than they reach

/// The window that is at work, also while another program has the keyboard.
QWidget* Owner() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* active = QApplication::activeWindow()) return active;
  const auto windows = QApplication::topLevelWidgets();
  const auto main = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() && qobject_cast<const QMainWindow*>(window) != nullptr;
  });
  return main == windows.end() ? nullptr : *main;
}

bool IsPaper(const QPrinter& device) { return device.outputFormat() == QPrinter::NativeFormat; }
bool IsFile(const QPrinter& device) {
  return !IsPaper(device) && !device.outputFileName().isEmpty();
}

/// Upright, whatever the dialog said, within what the printer reaches.
void LayOut(QPrinter& device) {
  device.setFullPage(false);
  device.setPageOrientation(QPageLayout::Portrait);
  QPageLayout layout = device.pageLayout();
  layout.setUnits(QPageLayout::Point);
  const QMarginsF least = layout.minimumMargins();
  device.setPageMargins(
      {std::max(least.left(), kLeastMargin), std::max(least.top(), kLeastMargin),
       std::max(least.right(), kLeastMargin), std::max(least.bottom(), kLeastMargin)},
      QPageLayout::Point);
}

/// It sets up, another button prints. Copies are in sight at once; which boards are printed is said
/// elsewhere, and pages chosen here would be missing from later jobs too.
[[maybe_unused]] void Prepare(QPrintDialog& dialog) {
  if (auto* pages = dialog.findChild<QWidget*>("gbPrintRange")) pages->hide();
  const auto* buttons = dialog.findChild<QDialogButtonBox*>();
  if (buttons == nullptr) return;
  for (QAbstractButton* button : buttons->buttons()) {
    const auto role = buttons->buttonRole(button);
    if (role == QDialogButtonBox::AcceptRole) button->setText("OK");
    if (role == QDialogButtonBox::ResetRole) button->click();  // "Options >>"
  }
}

/// What is chosen of a device, for the dialog changes it before it is confirmed.
class Choice {
 public:
  explicit Choice(QPrinter& device)
      : device_(device),
        format_(device.outputFormat()),
        name_(device.printerName()),
        file_(device.outputFileName()),
        layout_(device.pageLayout()),
        duplex_(device.duplex()),
        colours_(device.colorMode()) {}

  /// Another printer brings paper, sides and colours of its own.
  void Restore() {
    if (device_.outputFormat() == format_ && device_.printerName() == name_) return;
    device_.setOutputFileName(file_);
    device_.setOutputFormat(format_);
    if (IsPaper(device_)) device_.setPrinterName(name_);
    device_.setPageLayout(layout_);
    device_.setDuplex(duplex_);
    device_.setColorMode(colours_);
  }

 private:
  QPrinter& device_;
  QPrinter::OutputFormat format_;
  QString name_;
  QString file_;
  QPageLayout layout_;
  QPrinter::DuplexMode duplex_;
  QPrinter::ColorMode colours_;
};

/// Whether it was confirmed; a program that quits does not.
bool Confirmed(QPrintDialog& dialog, EventLoop& loop) {
#ifdef _WIN32
  static_cast<void>(loop);
  return dialog.exec() == QDialog::Accepted;  // the system's own has a loop of its own
#else
  dialog.open();
  Prepare(dialog);
  FitToScreen(dialog);
  loop.RunUntil([&dialog] { return !dialog.isVisible(); });
  return !dialog.isVisible() && dialog.result() == QDialog::Accepted;
#endif
}

bool HasFailed(const QPrinter& device) {
  return device.printerState() == QPrinter::Aborted || device.printerState() == QPrinter::Error;
}

RuntimeError NoPrinter() { return {ENODEV, "There is no printer"}; }

RuntimeError NotTaken(const QPrinter& device) {
  const bool aborted = device.printerState() == QPrinter::Aborted;
  return {aborted ? ECANCELED : EIO,
          aborted ? "The printer has aborted the job" : "The printer takes no more pages"};
}

}  // namespace

QtPrinter::QtPrinter(EventLoop& loop, std::unique_ptr<PrintSystem> system)
    : loop_(loop), system_(std::move(system)) {}

/// A printer may have come since there was none.
QPrinter& QtPrinter::Device() const {
  if (!device_) {
    device_ = system_->MakeDevice();
  } else if (!IsPaper(*device_) && !IsFile(*device_)) {
    const QString name = system_->DefaultName();
    if (!name.isEmpty()) device_->setPrinterName(name);
  }
  return *device_;
}

QPrinter& QtPrinter::DeviceFor(const PrintJob& job) {
  QPrinter& device = Device();
  LayOut(device);
  device.setPrintRange(QPrinter::AllPages);
  device.setPageRanges({});
  device.setDocName(ToQt(job.Title));
  device.setCreator("Morvane");
  device.setCopyCount(job.Copies);
  return device;
}

std::string QtPrinter::DeviceName() const {
  const QPrinter& device = Device();
  return FromQt(IsFile(device) ? device.outputFileName() : device.printerName());
}

/// The dialog of Windows is that of a printer; the other one offers a file too.
std::optional<RuntimeError> QtPrinter::WhyNoSetup() const {
#ifdef _WIN32
  if (!IsPaper(Device())) return NoPrinter();
#endif
  return std::nullopt;
}

std::optional<int> QtPrinter::Setup(int copies) {
  QPrinter& device = Device();
  LayOut(device);
  device.setCopyCount(copies);
  Choice before(device);
  QPrintDialog dialog(&device, Owner());
  dialog.setObjectName("PrinterSetup");
  dialog.setWindowTitle("Printer Setup");
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                    QAbstractPrintDialog::PrintCollateCopies);
  if (Confirmed(dialog, loop_)) return device.copyCount();
  before.Restore();
  return std::nullopt;
}

std::optional<RuntimeError> QtPrinter::Print(const PrintJob& job, const Draw& draw) {
  QPrinter& device = DeviceFor(job);
  if (IsFile(device)) return PrintToFile(device, job, draw);
  if (!IsPaper(device)) return NoPrinter();
  if (!system_->Has(device.printerName())) {
    return RuntimeError{ENODEV,
                        "The printer " + FromQt(device.printerName()) + " is not there any more"};
  }
  int passes = device.supportsMultipleCopies() ? 1 : job.Copies;
  for (; passes > 0; --passes) {
    if (auto error = PrintOnce(device, draw)) return error;
  }
  return std::nullopt;
}

/// All pages or none: what a program that quits has drawn so far replaces nothing.
/// The file was chosen for one job: no later one replaces it without a question.
std::optional<RuntimeError> QtPrinter::PrintToFile(QPrinter& device, const PrintJob& job,
                                                   const Draw& draw) {
  const std::string pdf = PdfPages(job, draw, device.pageLayout().pageSize());
  if (loop_.Quitting()) return RuntimeError{ECANCELED, "The program ends"};
  auto error = WriteFile(FromQt(device.outputFileName()), pdf);
  if (!error) device.setOutputFileName({});
  return error;
}

std::optional<RuntimeError> QtPrinter::PrintOnce(QPrinter& device, const Draw& draw) {
  {
    QtCanvas canvas(device);
    if (!canvas.IsGood()) return RuntimeError{EIO, "The printer does not take the job"};
    draw(canvas);
    if (loop_.Quitting()) device.abort();
    if (!canvas.IsGood() || HasFailed(device)) return NotTaken(device);
    if (!canvas.End()) return NotTaken(device);
  }
  if (HasFailed(device)) return NotTaken(device);
  return system_->RefusedJob();
}

void QtPrinter::Preview(const PrintJob& job, const Draw& draw,
                        const std::vector<PreviewAction>& actions) {
  const auto paint = [&draw](QPrinter& device) {
    QtCanvas canvas(device);
    draw(canvas);
  };
  PreviewWindow window(DeviceFor(job), paint, actions, Owner());
  if (previewSize_.isValid()) window.resize(previewSize_);
  FitToScreen(window);
  window.open();
  loop_.RunUntil([&window] { return !window.isVisible(); });
  previewSize_ = window.size();
}

std::string QtPrinter::Pdf(const PrintJob& job, const Draw& draw) {
  return PdfPages(job, draw, PageSizeOf(job.Sheet, Device().pageLayout().pageSize()));
}

}  // namespace morvane
