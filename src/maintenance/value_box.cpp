#include "maintenance/value_box.h"

#include <algorithm>

#include "text/text.h"

namespace morvane::maintenance {

void ValueBox::Change(FilteredBox& box) { FilterNumberZero(box, text_, limits_.Upper); }

void ValueBox::Leave() {
  if (text_.empty() || WideValue() < limits_.Lower) text_ = std::to_string(limits_.Lower);
}

void ValueBox::Put(std::int64_t value) {
  text_ = std::to_string(std::clamp<std::int64_t>(value, 0, limits_.Upper));
}

void ValueBox::Take(std::int64_t value) { text_ = taken_ = std::to_string(value); }

int ValueBox::Value() const { return Val(text_); }

std::int64_t ValueBox::WideValue() const { return WideVal(text_); }

}  // namespace morvane::maintenance
