#pragma once

#include "edit/editor.h"
#include "platform/qt/filtered_edit.h"

namespace morvane::edit {

/// One of the boxes `txtSuit`: the cards that a hand holds in a suit, as letters in card order.
class SuitBox final : public FilteredEdit {
 public:
  SuitBox(Editor& editor, int index, QWidget* parent);
  void Show();

 protected:
  bool event(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] FilteredBox Typed(const FilteredBox& box);

  Editor& editor_;
  int index_;
  bool typing_ = false;  ///< what is shown comes back to the box by itself
};

}  // namespace morvane::edit
