#pragma once

#include <QFont>
#include <functional>

class QDialog;
class QPushButton;
class QWidget;

namespace morvane {
class NumberEdit;
}

// What the parts of the run window have in common in their looks.

namespace morvane::machine {

class MachineRun;

inline constexpr int kRunSpacing = 10;  // all in pixels
inline constexpr int kRunMargin = 12;
inline constexpr int kBigButton = 40;  // its height
inline constexpr int kCommandWidth = 5 * kBigButton / 2;

/// Name, title and modality.
void PrepareRunWindow(QDialog& window, const MachineRun& run);

/// Bold, and `by` times as large.
[[nodiscard]] QFont Enlarged(QFont font, qreal by);

/// A high button that Enter presses when it has the focus.
[[nodiscard]] QPushButton* NewButton(const char* name, const char* caption,
                                     std::function<void()> press, QWidget* parent);
/// The button that stays usable while cards run. It takes no focus by keys: the focus must not fall
/// onto it, or a second press of the key that started the run would break it.
[[nodiscard]] QPushButton* NewBreakButton(const char* name, std::function<void()> press,
                                          QWidget* parent);
/// A button that leaves Enter to the default button.
[[nodiscard]] QPushButton* NewSmallButton(const char* name, const char* caption, const char* tip,
                                          std::function<void()> press, QWidget* parent);
[[nodiscard]] NumberEdit* NewNumberBox(const char* name, const char* tip, int limit,
                                       QWidget* parent);
/// The text that is being typed stays when it is that number already.
void ShowNumberIn(NumberEdit& box, int number);

}  // namespace morvane::machine
