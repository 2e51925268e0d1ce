#pragma once

#include <functional>

#include "maintenance/value_box.h"
#include "platform/qt/filtered_edit.h"

namespace morvane::maintenance {

/// A box in which a `ValueBox` is typed; what the machine does not hold is marked.
class ValueEdit final : public FilteredEdit {
 public:
  /// `box` outlives it.
  ValueEdit(ValueBox& box, const char* name, const QString& spokenName, QWidget* parent);

  void Show();
  /// What happens when the focus goes elsewhere, also where it stays: Enter, or a letter.
  void Leave();

  std::function<void()> OnChange = [] {};  ///< it may be marked now, or no more

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  FilteredBox Typed(FilteredBox typed);

  ValueBox& box_;
};

}  // namespace morvane::maintenance
