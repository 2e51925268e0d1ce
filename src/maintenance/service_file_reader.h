#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// A number as a viewer lists it.
struct LabelledNumber {
  int Label;
  std::string_view Text;
};
/// Of a line of counters that is listed, the first ones under labels that are one higher; the last
/// of the line is left out: required, the numbers are known so. None of the other lines.
[[nodiscard]] std::vector<LabelledNumber> ErrorsOfLine(const ServiceFile& file, int line);
/// Of a line of test bytes, labelled 0 to 127. None of the other lines.
[[nodiscard]] std::vector<LabelledNumber> TestBytesOfLine(const ServiceFile& file, int line);

// Both as the viewer's lists have them, as far as the file was read; their lines end with LF.

[[nodiscard]] std::string ErrorsText(const ServiceFileRead& read);
[[nodiscard]] std::string TestText(const ServiceFileRead& read);

}  // namespace morvane::maintenance
