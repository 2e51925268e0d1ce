#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "audit/seed_book.h"
#include "audit/set_audit.h"
#include "audit/set_finder.h"
#include "audit/set_origin.h"

namespace morvane::audit {

/// Audits the sets of a log whose bytes come block by block.
class LogAudit final : private SetListener {
 public:
  /// `onSet` is given each set as soon as no line can tell more of it.
  explicit LogAudit(std::function<void(const SetAudit&)> onSet) : onSet_(std::move(onSet)) {}

  void Add(std::string_view block) { finder_.Add(block); }
  void End();

  /// Sets that could be checked or should have been, and how many of them are the same.
  [[nodiscard]] int Checked() const { return checked_; }
  [[nodiscard]] int Same() const { return same_; }
  /// Lines of seeds of the number generator without a set of theirs.
  [[nodiscard]] std::vector<std::size_t> UnusedSeeds() const { return seeds_.Unused(); }

 private:
  void OnNumberSeeds(LoggedSeeds seeds) override { seeds_.AddNumberSeeds(std::move(seeds)); }
  void OnShufflingSeed() override { seeds_.AddShufflingSeed(); }
  void OnSet(const LoggedSet& set) override;
  void OnOtherLine(std::string_view line) override;
  void GiveLatest();
  [[nodiscard]] SetAudit::Kind KindOf(const LoggedSet& set);
  void CheckBoards(const LoggedSet& set, SetAudit& audit);

  std::function<void(const SetAudit&)> onSet_;
  SetFinder finder_{*this};
  SeedBook seeds_;
  OriginBook origins_;
  std::optional<SetAudit> latest_;  ///< still to be given
  Redealer redealer_;
  int checked_ = 0;
  int same_ = 0;
};

}  // namespace morvane::audit
