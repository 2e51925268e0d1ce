#include "audit/set_origin.h"

#include <algorithm>
#include <array>

namespace morvane::audit {
namespace {

constexpr std::string_view kStart = "Start ";
constexpr std::string_view kNew = " File-New: ";
constexpr std::string_view kSave = "  Save: ";
constexpr std::string_view kSaveError = "    Save Error: ";
/// Behind these the set is another, or nobody knows whose it is.
constexpr std::array<std::string_view, 5> kEndings{kStart, kNew,
                                                   " Exit: ", " File-Load: ", " File-Import: "};

/// Whether `text` has a digit for each '0' of the form, "A" or "P" for 'A', and otherwise the same.
bool HasForm(std::string_view text, std::string_view form) {
  return std::equal(text.begin(), text.end(), form.begin(), form.end(), [](char c, char wanted) {
    if (wanted == '0') return c >= '0' && c <= '9';
    return wanted == 'A' ? c == 'A' || c == 'P' : c == wanted;
  });
}

bool IsTime(std::string_view text) {
  return HasForm(text, "0:00:00 AM") || HasForm(text, "00:00:00 AM");
}

bool IsDateAndTime(std::string_view text) {
  constexpr std::string_view kDate = "0000-00-00 ";
  return text.size() > kDate.size() && HasForm(text.substr(0, kDate.size()), kDate) &&
         IsTime(text.substr(kDate.size()));
}

/// What stands behind `start`, where it is what it should be.
template <bool (*Is)(std::string_view)>
std::string Behind(std::string_view line, std::string_view start) {
  const std::string_view text = line.substr(start.size());
  return Is(text) ? std::string(text) : "";
}

}  // namespace

bool OriginBook::Take(std::string_view line, SetOrigin& latest) {
  if (line.starts_with(kStart)) {
    started_ = Behind<IsDateAndTime>(line, kStart);
    new_.clear();
  } else if (line.starts_with(kNew)) {
    new_ = Behind<IsTime>(line, kNew);
  } else if (line.starts_with(kSave) && latest.Saves.size() < SetOrigin::kMostSaves) {
    latest.Saves.push_back({std::string(line.substr(kSave.size())), false});
  } else if (line.starts_with(kSaveError) && !latest.Saves.empty()) {
    latest.Saves.back().Failed = true;
  }
  return std::none_of(kEndings.begin(), kEndings.end(),
                      [line](std::string_view start) { return line.starts_with(start); });
}

}  // namespace morvane::audit
