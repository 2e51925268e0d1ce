#pragma once

#include <optional>
#include <string_view>

#include "platform/windows/opening.h"

namespace morvane {

/// A plain file that only grows.
class AppendedFile {
 public:
  /// Makes the file where it is missing.
  AppendedFile(const std::string& path, NewFile access);
  [[nodiscard]] const std::optional<RuntimeError>& Error() const { return error_; }
  /// A line's end where there is none.
  [[nodiscard]] char LastByte() const;
  /// Adds the bytes in one write of the system, wherever its end is by then.
  [[nodiscard]] std::optional<RuntimeError> Add(std::string_view bytes) const;

 private:
  OpenedHandle file_;
  std::optional<RuntimeError> error_;
};

}  // namespace morvane
