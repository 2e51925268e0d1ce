#pragma once

#include <string>
#include <vector>

#include "platform/desktop.h"

namespace morvane::test {

/// A desktop that notes what it is to do.
class FakeDesktop final : public Desktop {
 public:
  bool Show(const std::string& path) override {
    Shown.push_back(path);
    return Shows;
  }
  void Copy(const std::string& text) override { Copied = text; }
  [[nodiscard]] std::vector<std::string> Facts() const override { return {"System: paper"}; }

  bool Shows = true;  ///< it has a program for what it is to show
  std::vector<std::string> Shown;
  std::string Copied;
};

}  // namespace morvane::test
