#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace morvane::simulator {

/// The bridge's receive buffer: fixed in size, what does not fit is lost.
class ByteQueue {
 public:
  void Push(std::span<const std::uint8_t> bytes) {
    for (const std::uint8_t byte : bytes) {
      if (count_ == bytes_.size()) return;
      bytes_[(first_ + count_++) % bytes_.size()] = byte;
    }
  }
  /// Takes out as many bytes as there are, `bytes` at most; how many.
  std::size_t Take(std::span<std::uint8_t> bytes) {
    const std::size_t taken = std::min(bytes.size(), count_);
    for (std::size_t i = 0; i < taken; ++i) bytes[i] = bytes_[(first_ + i) % bytes_.size()];
    first_ = (first_ + taken) % bytes_.size();
    count_ -= taken;
    return taken;
  }
  void Clear() { count_ = 0; }
  [[nodiscard]] std::size_t Count() const { return count_; }

 private:
  std::array<std::uint8_t, 4096> bytes_{};
  std::size_t first_ = 0;
  std::size_t count_ = 0;
};

}  // namespace morvane::simulator
