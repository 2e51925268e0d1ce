#pragma once

namespace morvane {

/// The a-priori probability that a hand has so many high-card points, 0..37; 0 for any other
/// number.
[[nodiscard]] double PointFrequency(int points);

}  // namespace morvane
