#pragma once

#include <QPageSize>
#include <string>

#include "platform/printer.h"

namespace morvane {

/// The bytes of a PDF file with the pages that `draw` draws, upright. It needs a `QGuiApplication`,
/// and no display.
[[nodiscard]] std::string PdfPages(const PrintJob& job, const Printer::Draw& draw,
                                   const QPageSize& paper);

}  // namespace morvane
