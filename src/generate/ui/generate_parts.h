#pragma once

#include <string_view>

class QLabel;
class QWidget;

// What the parts of the window `Generate` have in common in their looks.

namespace morvane::generate {

inline constexpr int kGap = 8;  // all in pixels

/// Of a box for a number; a counter has up to five digits.
[[nodiscard]] int NumberWidth(const QWidget& box);

/// Makes the label an explanation: plain, and in as many lines as it takes.
void MakeWords(QLabel& label);
[[nodiscard]] QLabel* NewWords(const char* name, std::string_view text, QWidget* parent);

}  // namespace morvane::generate
