#include "platform/qt/pdf_printer.h"

#include <QLocale>

#include "platform/qt/pdf_pages.h"

namespace morvane {
namespace {

/// What is used in the country.
QPageSize UsualSize() {
  const bool inches = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  return QPageSize(inches ? QPageSize::Letter : QPageSize::A4);
}

}  // namespace

std::optional<RuntimeError> PdfPrinter::Print(const PrintJob& /*job*/, const Draw& /*draw*/) {
  return RuntimeError{ENODEV, "There is no printer"};
}

std::string PdfPrinter::Pdf(const PrintJob& job, const Draw& draw) {
  return PdfPages(job, draw, PageSizeOf(job.Sheet, UsualSize()));
}

}  // namespace morvane
