#include "maintenance/value_box.h"

#include "text/text.h"

namespace morvane::maintenance {

void ValueBox::Change(FilteredBox& box) { FilterNumberZero(box, text_, limits_.Upper); }

void ValueBox::Leave() {
  if (text_.empty() || Value() < limits_.Lower) text_ = std::to_string(limits_.Lower);
}

void ValueBox::Take(int value) { text_ = taken_ = std::to_string(value); }

int ValueBox::Value() const { return Val(text_); }

}  // namespace morvane::maintenance
