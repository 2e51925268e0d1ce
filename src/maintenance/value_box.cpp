#include "maintenance/value_box.h"

#include <algorithm>

#include "text/text.h"

namespace morvane::maintenance {

void ValueBox::Change(FilteredBox& box) { FilterNumberZero(box, text_, limits_.Upper); }

void ValueBox::Leave() {
  if (text_.empty() || Value() < limits_.Lower) text_ = std::to_string(limits_.Lower);
}

void ValueBox::Put(int value) { text_ = std::to_string(std::clamp(value, 0, limits_.Upper)); }

void ValueBox::Take(int value) { text_ = taken_ = std::to_string(value); }

int ValueBox::Value() const { return Val(text_); }

}  // namespace morvane::maintenance
