#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulator/stored_parameters.h"

namespace morvane::simulator {

// The parameters as a text: a heading, and a line a sub-code with it and its five bytes in decimal,
// in ascending order.

[[nodiscard]] std::string TextOf(const StoredParameters& parameters);
/// Nothing for a text that is any other than those, a file of zeros or half of one.
[[nodiscard]] std::optional<StoredParameters> ParametersIn(std::string_view text);

/// The file in which they outlive the program; without a path there is none. One that holds
/// anything else is left alone.
class ParameterStore {
 public:
  explicit ParameterStore(std::string path) : path_(std::move(path)) {}

  /// Those of a new machine where the file is missing or damaged.
  [[nodiscard]] StoredParameters Load();
  /// Written beside and renamed. A file that cannot be written stays as it is.
  void Save(const StoredParameters& parameters);
  /// What is wrong with the file, in a line for its owner; empty while nothing is.
  [[nodiscard]] const std::string& Trouble() const { return trouble_; }

 private:
  void LeaveAlone(const std::string& why);

  std::string path_;
  bool leftAlone_ = false;
  std::string trouble_;
};

}  // namespace morvane::simulator
