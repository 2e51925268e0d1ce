#include "shell/read_service_flow.h"

#include <memory>
#include <utility>

namespace morvane::shell {
namespace {

constexpr int kRequestMs = 100;

/// A service file from outside is for the viewer that is open.
void TakeRequest(Program& program, maintenance::ReadService& viewer) {
  const LinkRequest& request = program.Link;
  if (request.Pending != LinkRequest::kLoad || viewer.Path().empty()) return;
  if (!maintenance::IsServiceFile(request.File)) return;
  viewer.OpenFile(std::exchange(program.Link, {}).File);
}

}  // namespace

void ReadServiceFlow(Program& program, maintenance::ReadServiceDialog& dialogs,
                     const std::string& path) {
  // Its pictures are much for a stack.
  const auto viewer = std::make_unique<maintenance::ReadService>(program);
  const auto requests = program.Loop.StartTimer(kRequestMs, [&] { TakeRequest(program, *viewer); });
  if (dialogs.ShowReadService(*viewer, path)) return;
  program.ShowMessage("      This program has no window for service files.      ", kOkCritical,
                      maintenance::kReadServiceTitle);
}

}  // namespace morvane::shell
