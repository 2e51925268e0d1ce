#pragma once

#include <QFont>
#include <functional>

class QPushButton;
class QWidget;

namespace morvane {
class NumberEdit;
}

// What the parts of the run window have in common in their looks.

namespace morvane::machine {

inline constexpr int kRunSpacing = 10;  // all in pixels
inline constexpr int kBigButton = 40;   // its height
inline constexpr int kCommandWidth = 5 * kBigButton / 2;

/// Bold, and `by` times as large.
[[nodiscard]] QFont Enlarged(QFont font, qreal by);

/// A high button that Enter presses when it has the focus.
[[nodiscard]] QPushButton* NewButton(const char* name, const char* caption,
                                     std::function<void()> press, QWidget* parent);
/// A button that leaves Enter to the default button.
[[nodiscard]] QPushButton* NewSmallButton(const char* name, const char* caption, const char* tip,
                                          std::function<void()> press, QWidget* parent);
[[nodiscard]] NumberEdit* NewNumberBox(const char* name, const char* tip, int limit,
                                       QWidget* parent);
/// The text that is being typed stays when it is that number already.
void ShowNumberIn(NumberEdit& box, int number);

}  // namespace morvane::machine
