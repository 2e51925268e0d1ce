#pragma once

#include "platform/process_starter.h"

namespace morvane {

/// The system's processes.
class SystemProcesses final : public ProcessStarter {
 public:
  [[nodiscard]] StartedProcess Start(const ProcessOrder& order) override;
};

}  // namespace morvane
