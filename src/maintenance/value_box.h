#pragma once

#include <cstdint>
#include <string>

#include "text/number_filter.h"

namespace morvane::maintenance {

/// What a value box takes: more than `Upper` cannot be typed, and a box that is left with less than
/// `Lower` gets `Lower` in its place.
struct BoxLimits {
  std::int64_t Upper = 255;
  std::int64_t Lower = 0;
};

/// A box with a number of the machine's, in decimal. Its text is the only working copy; a text that
/// is none gives way to the last good one.
class ValueBox {
 public:
  explicit ValueBox(BoxLimits limits = {}) : limits_(limits) {}

  /// The box as it has been typed in; afterwards as it is to be shown.
  void Change(FilteredBox& box);
  /// The focus leaves it: an empty box, too, gets its lower limit.
  void Leave();
  /// As if it had been typed.
  void Put(std::int64_t value);
  /// What the machine holds.
  void Take(std::int64_t value);

  [[nodiscard]] const BoxLimits& Limits() const { return limits_; }
  [[nodiscard]] const std::string& Text() const { return text_; }
  /// An empty box counts as 0.
  [[nodiscard]] int Value() const;
  /// The same where 32 bits fit in.
  [[nodiscard]] std::int64_t WideValue() const;
  /// The machine has told its value.
  [[nodiscard]] bool Known() const { return !taken_.empty(); }
  /// Another number than the machine's stands in it.
  [[nodiscard]] bool Edited() const { return Known() && text_ != taken_; }

 private:
  BoxLimits limits_;
  std::string text_;   ///< the last good one
  std::string taken_;  ///< as it came from the machine; empty: it never did
};

}  // namespace morvane::maintenance
