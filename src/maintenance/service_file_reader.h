#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "maintenance/service_file.h"

namespace morvane::maintenance {

/// No file of ours is nearly as large.
inline constexpr std::uint64_t kLargestServiceFile = 1'000'000;

/// A service file as far as it could be read.
struct ServiceFileRead {
  ServiceFile File;
  /// How many lines are behind us; the good fields of the next one are in `File`, too.
  int Lines = 0;
  /// The line, from 1, that cannot be read.
  [[nodiscard]] std::optional<int> Fault() const;
};

/// Of any bytes. Lines may also end with LF alone.
[[nodiscard]] ServiceFileRead ServiceFileIn(std::string bytes);

// What the two lists of a viewer say, as far as the file was read; their lines end with LF.

/// The first counters, under labels that are one higher; the last of a line is left out: required,
/// the numbers are known so.
[[nodiscard]] std::string ErrorsText(const ServiceFileRead& read);
/// The test bytes, labelled 0 to 127.
[[nodiscard]] std::string TestText(const ServiceFileRead& read);

}  // namespace morvane::maintenance
