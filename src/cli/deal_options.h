#pragma once

#include <optional>
#include <string>

namespace morvane::cli {

/// What `deal` takes. A number that was not given is empty, and means what the set says.
struct DealOptions {
  std::string In;
  std::optional<int> From;
  std::optional<int> To;
  std::optional<int> Copies;
  bool Auto = false;
  bool Yes = false;
  bool Import = false;
};

}  // namespace morvane::cli
