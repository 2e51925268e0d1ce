#pragma once

#include <QColor>
#include <QStringList>
#include <functional>

class QAbstractButton;
class QGridLayout;
class QLabel;
class QPushButton;
class QWidget;

namespace morvane {
class ShownValue;
}

// What the parts of the service's windows have in common in their looks.

namespace morvane::maintenance {

inline constexpr int kServiceSpacing = 8;  // all in pixels
inline constexpr int kServiceMargin = 10;
inline constexpr int kGroupMargin = 6;

// The grounds of indicators, required to the number. Black can be read on each of them.
inline constexpr QColor kGoodGround{0x80, 0xFF, 0x80};
inline constexpr QColor kBadGround{0xFF, 0x40, 0x40};
inline constexpr QColor kStillGround{0xFF, 0xFF, 0xFF};

/// The controls of a group, close to each other.
[[nodiscard]] QGridLayout* NewGrid(QWidget* group);
/// A button that Enter presses when it has the focus.
[[nodiscard]] QPushButton* NewServiceButton(const char* name, const char* caption,
                                            std::function<void()> press, QWidget* parent);
/// The box shows what it is, and cannot be changed; it does not look as if it were off.
void MakeReadOnly(QAbstractButton& box);
/// A label of a control, which its letter reaches.
[[nodiscard]] QLabel* NewLabelOf(QWidget* control, const char* caption, QWidget* parent);

/// Shows the text where it is another one: a reader need not hear it twice.
void ShowChanged(ShownValue& value, const QString& text);

/// Gives the label the size for the largest of the texts and for each of them, so that nothing has
/// to be placed anew when its text changes.
void KeepSizeFor(QLabel& label, const QStringList& texts);

/// Shows that what stands in the control is not the machine's: bold, and in words.
void MarkEdited(QWidget& control, bool edited);
/// As wide as it is with the mark.
void KeepWidthOfMark(QWidget& control);

}  // namespace morvane::maintenance
