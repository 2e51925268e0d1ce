#pragma once

#include "platform/runtime_error.h"

namespace morvane {
class Program;
}

namespace morvane::print {

inline constexpr const char* kPrintingError = "Printing Error";

/// Tells the operator that the system, or the printer, failed a run.
void ReportPrintFailure(Program& program, const RuntimeError& error);

}  // namespace morvane::print
