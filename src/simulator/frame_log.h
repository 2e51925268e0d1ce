#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "wire/frame.h"
#include "wire/frame_text.h"

namespace morvane::simulator {

/// The last exchanges as the machine saw them, oldest first. Polls that get the same answer but for
/// the counts of cards or what is measured are one entry, and so is each of the frames that the
/// service polls in turn. It is of fixed size; texts are made when they are asked for.
class FrameLog {
 public:
  static constexpr std::size_t kCapacity = 64;

  enum class Ending : std::uint8_t {
    kAnswered,
    kSilent,   ///< a command that gets no answer, or whose answer was lost
    kBad,      ///< bytes whose check failed
    kUnasked,  ///< a reply without a command
  };

  /// Plain frames; `reply` means nothing unless it was answered, `command`
  /// where it was bad or there was none.
  void Note(const wire::Frame& command, const wire::Frame& reply, Ending ending);

  [[nodiscard]] std::size_t Count() const { return count_; }
  /// "CmdStatus -> status: busy, 3 2 4 1", with "54 x " in front of a repeated one.
  [[nodiscard]] std::string Text(std::size_t at) const;
  /// Goes up with every exchange.
  [[nodiscard]] std::uint64_t Exchanges() const { return exchanges_; }

 private:
  using Head = std::array<std::uint8_t, wire::kTextBytes>;
  struct Entry {
    Head Command{};
    Head Reply{};
    Ending How = Ending::kSilent;
    std::uint64_t Times = 1;
  };
  [[nodiscard]] static Entry EntryOf(const wire::Frame& command, const wire::Frame& reply,
                                     Ending ending);
  [[nodiscard]] static bool Repeats(const Entry& before, const Entry& now);
  [[nodiscard]] static wire::Frame FrameOf(const Head& head);
  [[nodiscard]] Entry* Repeated(const Entry& now);

  std::array<Entry, kCapacity> entries_{};
  std::size_t first_ = 0;
  std::size_t count_ = 0;
  std::uint64_t exchanges_ = 0;
};

}  // namespace morvane::simulator
