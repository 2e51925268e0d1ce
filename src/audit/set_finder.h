#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "audit/logged_set.h"

namespace morvane::audit {

/// Whoever wants to know what a `SetFinder` finds, in the order of the log. A set comes behind the
/// seeds that stand before it, and before those that stand behind it.
class SetListener {
 public:
  virtual ~SetListener() = default;
  virtual void OnNumberSeeds(LoggedSeeds seeds) = 0;
  virtual void OnShufflingSeed() = 0;
  virtual void OnSet(const LoggedSet& set) = 0;
  /// Any line that belongs to no set.
  virtual void OnOtherLine(std::string_view /*line*/) {}
};

/// Finds the sets in a log of any length, whose bytes come block by block. Lines of other kinds,
/// and damaged ones, may stand anywhere; it keeps no more than one set and one line.
class SetFinder {
 public:
  explicit SetFinder(SetListener& listener) : listener_(listener) {}

  void Add(std::string_view block);
  /// The log is at its end.
  void End();

 private:
  void TakeLines(std::string_view whole);
  void TakeLine(std::string_view line);
  void TakeOther(std::string_view line);
  void TakeRecord(LoggedRecord record);
  void Open(LoggedSet::Kind kind, const generate::GenerateLine& what);
  void Close();
  [[nodiscard]] bool BelongsToSet(const LoggedRecord& record) const;
  void Count(const LoggedRecord& record);

  SetListener& listener_;
  std::string rest_;  ///< a line whose end has not come yet
  std::size_t line_ = 0;
  std::optional<std::string> seedr_;  ///< waiting for its other half
  std::optional<LoggedSet> set_;
  std::vector<bool> seen_;  ///< [number]: the open set has a record of this board
  int missing_ = 0;         ///< how many boards of its range it has none of yet
};

}  // namespace morvane::audit
