#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "generate/rejection.h"

namespace morvane::generate {

/// How many candidates each test has rejected during a run.
struct RejectCounts {
  int Shape = 0;
  int Inner = 0;
  int History = 0;
  bool operator==(const RejectCounts&) const = default;
};

/// What the log says of a set that was made, in front of its boards.
struct GenerateLine {
  struct Tests {
    RejectionSwitches On;
    RejectCounts Rejected;
  };
  static constexpr std::string_view kStart = "  Generate: ";

  int First = 0;
  int Last = 0;
  std::optional<Tests> Dealt;  ///< nothing: the boards were left empty

  /// "  Generate: 1,32 : 0,1,1 : 0,2,0", each triple in the order shape, inner, history.
  [[nodiscard]] std::string Text() const;
  /// The line that `Text` wrote; nothing when it is not that, or its range can't be generated.
  [[nodiscard]] static std::optional<GenerateLine> Parse(std::string_view text);
};

}  // namespace morvane::generate
