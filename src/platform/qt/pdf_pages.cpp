#include "platform/qt/pdf_pages.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPdfWriter>

#include "platform/qt/qt_canvas.h"
#include "platform/qt/qt_text.h"

namespace morvane {
namespace {

constexpr int kDotsPerInch = 1200;
constexpr double kMargin = 12;  // points; what common printers reach

/// Families are named also where there are no fonts, and texts become boxes.
bool HasFonts() { return QFontMetricsF(QFont()).inFont('N'); }

}  // namespace

QPageSize PageSizeOf(Paper sheet, const QPageSize& usual) {
  if (sheet == Paper::kPrinters) return usual;
  return QPageSize(sheet == Paper::kLetter ? QPageSize::Letter : QPageSize::A4);
}

std::string PdfPages(const PrintJob& job, const Printer::Draw& draw, const QPageSize& paper) {
  if (!HasFonts()) return {};
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&bytes);
    writer.setResolution(kDotsPerInch);
    writer.setTitle(ToQt(job.Title));
    writer.setCreator("Morvane");
    writer.setPageLayout({paper, QPageLayout::Portrait,
                          QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Point});
    QtCanvas canvas(writer);
    draw(canvas);
  }
  return bytes.data().toStdString();
}

}  // namespace morvane
