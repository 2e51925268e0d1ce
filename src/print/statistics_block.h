#pragma once

#include "model/statistics.h"
#include "platform/canvas.h"
#include "print/print_options.h"

namespace morvane::print {

/// The statistics of the boards printed, in the lower part of a page of its own.
void DrawStatistics(Canvas& canvas, const PrintOptions& options, const SetTotals& totals);

}  // namespace morvane::print
