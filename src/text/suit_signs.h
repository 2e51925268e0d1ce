#pragma once

#include <array>
#include <string_view>

namespace morvane {

/// The signs of no-trump (none), spades, hearts, diamonds and clubs, in UTF-8.
inline constexpr std::array<std::string_view, 5> SuitSigns{"", "\u2660", "\u2665", "\u2666",
                                                           "\u2663"};

}  // namespace morvane
