#pragma once

#include <QPageSize>
#include <string>

#include "platform/printer.h"

namespace morvane {

/// What `sheet` asks for; without a wish the `usual` one.
[[nodiscard]] QPageSize PageSizeOf(Paper sheet, const QPageSize& usual);

/// The bytes of a PDF file with the pages that `draw` draws, upright. It needs a `QGuiApplication`,
/// and no display; empty without fonts.
[[nodiscard]] std::string PdfPages(const PrintJob& job, const Printer::Draw& draw,
                                   const QPageSize& paper);

}  // namespace morvane
