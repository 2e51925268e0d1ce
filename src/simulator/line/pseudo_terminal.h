#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/runtime_error.h"

namespace morvane::simulator {

/// A serial device made by the system: what one end writes the other reads, byte by byte and
/// unchanged. Programs open `Path`; this is the other end. Linux.
class PseudoTerminal {
 public:
  PseudoTerminal() = default;
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  /// Once. What the system did not do.
  [[nodiscard]] std::optional<RuntimeError> Open();
  /// Makes `path` a link to the device; it goes with this object. The link of one that was killed
  /// is replaced; anything else that stands there is EEXIST.
  [[nodiscard]] std::optional<RuntimeError> Link(const std::string& path);

  [[nodiscard]] const std::string& Path() const { return path_; }
  /// What other programs find it by, wherever they run: the link, where there is one.
  [[nodiscard]] const std::string& Name() const { return link_.empty() ? path_ : link_; }
  /// Can be read from when bytes have come.
  [[nodiscard]] int Bytes() const { return ours_; }
  /// Can be read from when a program has closed the device.
  [[nodiscard]] int Closings() const { return closings_; }

  /// The control line that says that a program is there. A pseudo-terminal has none; the line is
  /// down where the device has the speed 0, which is what hangs up a real one.
  [[nodiscard]] bool LineIsUp() const;

  /// What has come, `bytes` at most; how many. It does not wait.
  [[nodiscard]] std::size_t Read(std::span<std::uint8_t> bytes) const;
  /// How many went; what the other end, which does not read, has no room for is lost.
  std::size_t Write(std::span<const std::uint8_t> bytes) const;
  /// Whether a program has closed the device since the last call, and none has it under a lock, as
  /// one that was refused finds it. If so nothing of what passed is left in it, and it can be
  /// opened again, also when that program was killed.
  [[nodiscard]] bool TakeClosing() const;

 private:
  [[nodiscard]] bool OpenEnds();
  [[nodiscard]] bool IsLeftLink(const std::string& path) const;
  [[nodiscard]] bool IsOurLink() const;
  [[nodiscard]] bool IsHeld() const;

  std::string path_;
  std::string link_;
  int ours_ = -1;
  int kept_ = -1;  ///< the device itself, so that its settings outlive who uses it
  int closings_ = -1;
};

}  // namespace morvane::simulator
