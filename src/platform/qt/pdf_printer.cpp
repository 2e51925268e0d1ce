#include "platform/qt/pdf_printer.h"

#include <QFontDatabase>
#include <QLocale>

#include "platform/qt/pdf_pages.h"

namespace morvane {
namespace {

/// Where nothing is said, what is used in the country.
QPageSize SizeOf(Paper sheet) {
  const bool inches = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  const bool letter = sheet == Paper::kLetter || (sheet == Paper::kPrinters && inches);
  return QPageSize(letter ? QPageSize::Letter : QPageSize::A4);
}

}  // namespace

std::optional<RuntimeError> PdfPrinter::Print(const PrintJob& /*job*/, const Draw& /*draw*/) {
  return RuntimeError{ENODEV, "There is no printer"};
}

std::string PdfPrinter::Pdf(const PrintJob& job, const Draw& draw) {
  if (QFontDatabase::families().isEmpty()) return {};
  return PdfPages(job, draw, SizeOf(job.Sheet));
}

}  // namespace morvane
