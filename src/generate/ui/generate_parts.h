#pragma once

#include <string_view>

class QLabel;
class QWidget;

// What the parts of the window `Generate` have in common in their looks.

namespace morvane::generate {

inline constexpr int kGap = 8;  // all in pixels
inline constexpr int kNumberWidth = 60;

/// Makes the label an explanation: plain, and in as many lines as it takes.
void MakeWords(QLabel& label);
[[nodiscard]] QLabel* NewWords(const char* name, std::string_view text, QWidget* parent);

}  // namespace morvane::generate
