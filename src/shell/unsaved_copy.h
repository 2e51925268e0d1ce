#pragma once

#include <optional>
#include <string>

#include "platform/file_lock.h"
#include "platform/runtime_error.h"
#include "program/program.h"

namespace morvane::shell {

/// The copy of a set with unsaved changes in the data folder, by which the set survives however the
/// program ends. Programs that share the folder have a file each, `Unsaved_<place>.txt`, private to
/// the user; who holds the lock beside it is at work on it, so that a copy whose lock is free is
/// one that its program left behind. A mark beside it says that its program runs; where it stands
/// and the lock is free, that program ended without its end, be it a crash or the power.
class UnsavedCopy {
 public:
  /// More programs than share a folder.
  static constexpr int kPlaces = 20;

  explicit UnsavedCopy(Program& program) : program_(program) {}

  /// Says what other programs left behind and offers it, until one is taken; finds a place of this
  /// program's own, and marks it. Once, before the other calls.
  void Open();
  /// Makes the copy what the set is: written, or removed where nothing is unsaved. While there is
  /// no set, as when one is being made, the last copy stays.
  void Keep();
  /// Behind the start: says in the status that the program before ended unexpectedly, and left
  /// nothing.
  void TellNothingLost();
  /// What the copy has: nothing, the set as it was before a change that could not be written, or
  /// the last change.
  enum class State { kNone, kOlder, kLast };
  [[nodiscard]] State Kept() const;
  /// The set was saved or given up.
  void Remove();
  /// The program ends as programs do.
  void End();
  /// Whether there is no copy of the changes, which the operator has not been told yet.
  [[nodiscard]] bool FailureToTell() const;
  void TellFailure();

 private:
  enum class Outcome { kTaken, kGone, kLeft };
  void FindPlace();
  /// Whether its program ended unexpectedly; then that is in the log.
  bool TakeMark(const std::string& path);
  [[nodiscard]] Outcome Look(const std::string& path);
  [[nodiscard]] Outcome Offer(const std::string& path, bool unexpected);
  [[nodiscard]] Outcome TellDamaged(const std::string& path);
  [[nodiscard]] std::string PathOf(int place) const;

  Program& program_;
  std::optional<FileLock> lock_;  ///< on the file; without it there is no place
  std::string path_;
  std::string kept_;  ///< the set as the copy has it, without its time
  std::optional<RuntimeError> failure_;
  bool failureTold_ = false;
  bool unexpected_ = false;  ///< a program before ended so
  bool found_ = false;       ///< a copy of one before
};

}  // namespace morvane::shell
