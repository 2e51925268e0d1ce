#include "shell/read_service_flow.h"

namespace morvane::shell {

void ReadServiceFlow(Program& program, maintenance::ReadServiceDialog& dialogs,
                     const std::string& path) {
  maintenance::ReadService viewer(program);
  if (dialogs.ShowReadService(viewer, path)) return;
  program.ShowMessage("      This program has no window for service files.      ", kOkCritical,
                      maintenance::kReadServiceTitle);
}

}  // namespace morvane::shell
