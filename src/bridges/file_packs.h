#pragma once

#include "program/program.h"
#include "simulator/pack_source.h"

namespace morvane::bridges {

/// Packs from a board file that the operator chooses.
class FilePacks final : public simulator::PackSource {
 public:
  explicit FilePacks(Program& program) : program_(program) {}
  std::optional<std::vector<Board>> Ask() override;

 private:
  Program& program_;
};

}  // namespace morvane::bridges
