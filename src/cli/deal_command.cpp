#include "cli/deal_command.h"

#include <algorithm>

#include "model/text.h"
#include "simulator/simulated_machine.h"

namespace morvane::cli {
namespace {

constexpr const char* kRight = "right";

/// Leaves its report when the shell lets it go.
class ReportingRun final : public ConsoleRunHolder {
};

}  // namespace
}  // namespace morvane::cli
