#pragma once

#include <QLineEdit>
#include <functional>
#include <string>

#include "text/number_filter.h"

namespace morvane {

/// A text box whose text goes through a filter after every change that the operator makes.
class FilteredEdit : public QLineEdit {
 public:
  /// Takes what was typed and gives back what the box is to show.
  using Filter = std::function<FilteredBox(FilteredBox)>;

  explicit FilteredEdit(Filter filter, QWidget* parent = nullptr);
  /// Shows a text that does not come from the operator.
  void ShowText(const std::string& text);
  /// From now on the whole text is selected whenever the box gets the focus.
  void SelectWholeOnFocus() { selectsWhole_ = true; }

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void Edited();
  [[nodiscard]] FilteredBox Box() const;
  void Show(const FilteredBox& box);

  Filter filter_;
  bool selectsWhole_ = false;
  bool clickSelects_ = false;
};

}  // namespace morvane
