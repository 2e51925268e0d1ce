#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace morvane::bridges {

using Bytes = std::vector<std::uint8_t>;

/// The other end of a pseudo-terminal: it sends and takes what a test tells it, and knows nothing
/// of any machine.
class ScriptedPeer {
 public:
  ScriptedPeer();
  ~ScriptedPeer() { Leave(); }
  ScriptedPeer(const ScriptedPeer&) = delete;
  ScriptedPeer& operator=(const ScriptedPeer&) = delete;

  /// The device that the bridge opens.
  [[nodiscard]] const std::string& Path() const { return path_; }
  void Send(const Bytes& bytes) const;
  /// As many of `bytes` as the line takes within 10 ms.
  [[nodiscard]] std::size_t SendSome(const Bytes& bytes) const;
  /// Waits for `count` bytes; fewer when nothing comes for a second.
  [[nodiscard]] Bytes Take(std::size_t count) const;
  /// What lies there now and within `ms` of the last byte.
  [[nodiscard]] Bytes TakeAll(int ms) const;
  /// Of the device, one of the system's constants.
  [[nodiscard]] unsigned Speed() const;
  /// Pulls the plug.
  void Leave();

 private:
  [[nodiscard]] Bytes TakeUpTo(std::size_t count, int ms) const;
  int file_ = -1;
  std::string path_;
};

}  // namespace morvane::bridges
