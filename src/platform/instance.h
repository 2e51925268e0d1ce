#pragma once

#include <functional>
#include <string_view>

namespace morvane {

/// The programs that one user runs on one settings store. One of them is the running one; a later
/// start hands its file to that one by a link command and ends.
class Instance {
 public:
  using Execute = std::function<void(std::string_view command)>;

  virtual ~Instance() = default;
  /// Whether this program is the running one; it stays that until this object goes. May be asked
  /// again, since the other may have ended.
  [[nodiscard]] virtual bool Claim() = 0;
  /// Gives `command` to the running one. Whether it arrived there; the answer comes within seconds,
  /// whatever state the other is in. What arrives is taken up unless another request waits or the
  /// program is just ending.
  [[nodiscard]] virtual bool HandOver(std::string_view command) = 0;
  /// From now on the commands of later starts go to `execute`, out of the event loop. Only the
  /// running one may listen. Where there is no way to it, no command comes.
  virtual void Listen(Execute execute) = 0;
};

/// For a program that runs beside others: it is always the running one, and nobody calls it.
class LoneInstance final : public Instance {
 public:
  [[nodiscard]] bool Claim() override { return true; }
  [[nodiscard]] bool HandOver(std::string_view /*command*/) override { return false; }
  void Listen(Execute /*execute*/) override {}
};

}  // namespace morvane
