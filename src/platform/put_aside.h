#pragma once

#include <string>

namespace morvane {

/// Gives a file that is damaged the first free name of "<path>.damaged", "<path>.damaged2" and so
/// on. That name; empty when the file cannot be moved.
[[nodiscard]] std::string PutAside(const std::string& path);

}  // namespace morvane
