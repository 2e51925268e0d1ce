#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/settings.h"

namespace morvane {

// What an INI file holds, without the file. Names compare without regard to case; a value may be
// any text. What cannot be read of a damaged content counts as never written.

/// The value of `key`; nothing where it was never written.
[[nodiscard]] std::optional<std::string> IniValue(std::string_view content, const SettingKey& key);

/// `content` with `key` set to `value` and everything else that could be read; nothing when there
/// is not enough memory for it.
[[nodiscard]] std::optional<std::string> WithIniValue(std::string_view content,
                                                      const SettingKey& key,
                                                      std::string_view value);

}  // namespace morvane
