#include "text/number_filter.h"

#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane {
namespace {

bool IsNumber(const std::string& text, std::int64_t limit) {
  if (text.empty()) return true;
  return text.front() != '0' && text.find_first_not_of("0123456789") == std::string::npos &&
         WideVal(text) <= limit;
}

bool KeepOrRestore(FilteredBox& box, std::string& previous, bool valid) {
  if (valid) {
    previous = box.Text;
    return true;
  }
  box.Text = previous;
  if (box.Caret > 0) --box.Caret;
  return false;
}

}  // namespace

bool FilterNumber(FilteredBox& box, std::string& previous, std::int64_t limit) {
  return KeepOrRestore(box, previous, IsNumber(box.Text, limit));
}

bool FilterNumberZero(FilteredBox& box, std::string& previous, std::int64_t limit) {
  return KeepOrRestore(box, previous, box.Text == "0" || IsNumber(box.Text, limit));
}

bool FilterLength(FilteredBox& box, std::string& previous) {
  return KeepOrRestore(box, previous, CharacterCount(box.Text) <= kLongestEventText);
}

}  // namespace morvane
