#pragma once

#include <QLayout>
#include <QPushButton>
#include <QString>

namespace morvane::edit {

/// A button that leaves the focus where it is when it is clicked, and Enter to the window. It is
/// spoken as its tip. Alt and its letter press it once, at once.
[[nodiscard]] QPushButton* NewEditButton(const QString& name, const QString& caption,
                                         const QString& tip, QWidget* parent);

/// The margins and gaps of groups, in pixels.
inline constexpr int kGroupMargin = 6;
inline constexpr int kGroupGap = 4;
inline void MakeTight(QLayout& layout) {
  layout.setContentsMargins(kGroupMargin, kGroupMargin, kGroupMargin, kGroupMargin);
  layout.setSpacing(kGroupGap);
}

/// A button as narrow as its few letters, where a style makes every button wide.
inline void MakeNarrow(QPushButton& button) {
  button.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  button.setMinimumWidth(button.fontMetrics().horizontalAdvance(button.text() + "MM"));
}

}  // namespace morvane::edit
