#include "platform/qt/pdf_printer.h"

#include "platform/qt/pdf_pages.h"

namespace morvane {

std::optional<RuntimeError> PdfPrinter::Print(const PrintJob& /*job*/, const Draw& /*draw*/) {
  return RuntimeError{ENODEV, "There is no printer"};
}

std::string PdfPrinter::Pdf(const PrintJob& job, const Draw& draw) {
  return PdfPages(job, draw, QPageSize(QPageSize::A4));
}

}  // namespace morvane
