#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "audit/log_audit.h"
#include "support.h"

namespace {

using namespace morvane;
using namespace morvane::audit;

struct Outcome {
  std::vector<bool> SetIsSame;
  std::vector<std::size_t> UnusedSeeds;
  bool operator==(const Outcome&) const = default;
};

void RequireSense(const SetAudit& set) {
  const int boards = set.What.Last - set.What.First + 1;
  if (set.IsSame()) {
    Require(set.SameBoards == boards && set.Records == boards && set.Fingerprint.size() == 64);
  }
  Require(set.SameBoards <= boards);
  if (set.Is == SetAudit::kNumber) {
    Require(static_cast<int>(set.Findings.size()) + set.SameBoards >= boards);
  }
}

/// The audit of a log that comes in blocks of `size` bytes.
Outcome AuditInBlocks(std::string_view text, std::size_t size) {
  Outcome outcome;
  LogAudit log([&outcome](const SetAudit& set) {
    RequireSense(set);
    outcome.SetIsSame.push_back(set.IsSame());
  });
  for (; !text.empty(); text.remove_prefix(std::min(size, text.size())))
    log.Add(text.substr(0, size));
  log.End();
  outcome.UnusedSeeds = log.UnusedSeeds();
  return outcome;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Require(AuditInBlocks(text, 65536) == AuditInBlocks(text, 1 + size % 97));
  return 0;
}
