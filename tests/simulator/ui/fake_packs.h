#pragma once

#include "simulator/pack_source.h"

namespace morvane::test {

/// Gives the boards that a test chose.
class FakePacks final : public simulator::PackSource {
 public:
  std::optional<std::vector<Board>> Ask() override {
    ++Asked;
    return Chosen;
  }
  std::optional<std::vector<Board>> Chosen;
  int Asked = 0;
};

}  // namespace morvane::test
