#pragma once

#include <string>
#include <utility>

namespace morvane::bridges {

/// The names that a trace is kept under, and what stands there. The newest part is FILE, the ones
/// before it, and the traces before this one, are FILE.1 (the newest) to FILE.4; older ones go.
/// FILE.lock keeps other programs away.
class TraceParts {
 public:
  static constexpr int kOld = 4;

  explicit TraceParts(std::string path) : path_(std::move(path)) {}

  [[nodiscard]] const std::string& Newest() const { return path_; }
  /// The name of the newest part beside this one, which may be that itself.
  [[nodiscard]] static std::string NewestBeside(const std::string& path);
  static constexpr const char* kLockEnding = ".lock";
  [[nodiscard]] std::string Lock() const { return path_ + kLockEnding; }

  /// Why no part can be written, with the name that it is about; empty where one can. What is no
  /// trace is left alone, and so is a link.
  [[nodiscard]] std::string Wrong() const;
  /// Moves the parts on as far as there is one in the way, the oldest first, so that nothing is
  /// written over but the one that goes. A part in which nothing stands but its head goes at once.
  /// Why it could not, as above. A program that is killed meanwhile leaves one name without a part.
  [[nodiscard]] std::string MoveOn();
  /// Gives them the names back that they had before, as far as `MoveOn` came. That the oldest has
  /// gone stays so.
  void MoveBack();

 private:
  [[nodiscard]] std::string Name(int number) const;

  std::string path_;
  // The names that the last `MoveOn` gave are those behind the first, up to the last.
  int first_ = 0;
  int last_ = 0;
};

}  // namespace morvane::bridges
