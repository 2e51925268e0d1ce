#include "platform/console/progress_line.h"

namespace morvane {

void ProgressLine::Show(const std::string& text) {
  if (!terminal_.ShowsProgress() || text == shown_) return;
  const std::size_t rest = shown_.size() > text.size() ? shown_.size() - text.size() : 0;
  terminal_.Out("\r" + text + std::string(rest, ' ') + (text.empty() ? "\r" : ""));
  shown_ = text;
}

void ProgressLine::Leave() {
  if (!shown_.empty()) terminal_.Out("\n");
  shown_.clear();
}

}  // namespace morvane
