#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/runtime_error.h"

namespace morvane {

/// Another program that was started. It goes its own way when this goes.
class ChildProcess {
 public:
  virtual ~ChildProcess() = default;
  [[nodiscard]] virtual bool Lives() = 0;
};

/// What is started, and with what: `Variables` ("NAME=value") come on top of our own.
struct ProcessOrder {
  std::string Path;
  std::vector<std::string> Arguments;
  std::vector<std::string> Variables;
};

/// A program, or why it could not be started.
struct StartedProcess {
  std::unique_ptr<ChildProcess> Child;
  std::optional<RuntimeError> Error;
};

/// Starts other programs, without a window.
class ProcessStarter {
 public:
  virtual ~ProcessStarter() = default;
  [[nodiscard]] virtual StartedProcess Start(const ProcessOrder& order) = 0;
};

}  // namespace morvane
