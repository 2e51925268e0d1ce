#pragma once

#include <QString>
#include <vector>

class QPalette;

namespace morvane::simulator {

// Cards as rich text, the suits in their colours on the ground of a palette. They are program cards
// 1..52; 0 is a joker.

/// "♠A" or "JK", without colours.
[[nodiscard]] QString CardText(int card);
/// "♠A ♥7 JK", in their order.
[[nodiscard]] QString CardsInOrder(const std::vector<int>& cards, const QPalette& palette);
/// "13: ♠ AK4 ♥ ...", suit by suit; with `counted` only how many they are.
[[nodiscard]] QString PileBySuits(const std::vector<int>& cards, bool counted,
                                  const QPalette& palette);
/// "28: ♠A ♥7 JK ...": the upper cards of a pile whose last card lies on top, the topmost first.
[[nodiscard]] QString PileFromTop(const std::vector<int>& cards, const QPalette& palette);

}  // namespace morvane::simulator
