#pragma once

#include <string>
#include <vector>

namespace morvane {

/// The words that an application is made of, which holds on to them: those of the command line, and
/// `more`.
class ApplicationWords {
 public:
  ApplicationWords(int argc, char** argv, std::vector<std::string> more);
  ApplicationWords(const ApplicationWords&) = delete;
  ApplicationWords& operator=(const ApplicationWords&) = delete;

  [[nodiscard]] int& Count() { return count_; }
  [[nodiscard]] char** Words() { return words_.data(); }

 private:
  std::vector<std::string> more_;
  std::vector<char*> words_;  ///< null behind the last
  int count_;
};

}  // namespace morvane
