#include "application_words.h"

#include <utility>

namespace morvane {

ApplicationWords::ApplicationWords(int argc, char** argv, std::vector<std::string> more)
    : more_(std::move(more)),
      words_(argv, argv + argc),
      count_(argc + static_cast<int>(more_.size())) {
  for (std::string& word : more_) words_.push_back(word.data());
  words_.push_back(nullptr);
}

}  // namespace morvane
