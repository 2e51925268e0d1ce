#pragma once

#include <functional>
#include <string>

#include "platform/qt/filtered_edit.h"

namespace morvane {

/// A box for a number from 1 to a limit, as `FilterNumber` lets it be typed.
class NumberEdit final : public FilteredEdit {
 public:
  explicit NumberEdit(int limit, QWidget* parent = nullptr);
  void SetLimit(int limit) { limit_ = limit; }
  void ShowNumber(int number);
  /// The number in the box; 0 in an empty one.
  [[nodiscard]] int Number() const;

  std::function<void(const std::string&)> OnChange;  ///< after each change by the operator
  std::function<void(const std::string&)> OnLeave;   ///< Enter, or the focus goes elsewhere

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  FilteredBox Typed(FilteredBox box);

  int limit_;
  std::string previous_;
};

}  // namespace morvane
