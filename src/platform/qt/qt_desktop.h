#pragma once

#include "platform/desktop.h"

namespace morvane {

/// The desktop that the windows stand on.
class QtDesktop final : public Desktop {
 public:
  [[nodiscard]] bool Show(const std::string& path) override;
  void Copy(const std::string& text) override;
  [[nodiscard]] std::vector<std::string> Facts() const override;
};

}  // namespace morvane
