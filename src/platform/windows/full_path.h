#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// The name as the system takes it: whole, with its own separators, and without what it leaves out
/// (".", "..", a dot or a blank at the end).
[[nodiscard]] std::wstring FullPath(const std::wstring& name);

/// Whether a full path means a device: some names do wherever they stand (NUL, CON, COM1), and the
/// system knows which.
[[nodiscard]] bool IsDevice(std::wstring_view fullPath);

/// The drive or the share that a path begins with, with its separator if it has one: "C:\",
/// "C:", "\\server\share\", "\"; empty where it begins with none. The standard library knows no
/// shares here.
[[nodiscard]] std::string RootOf(std::string_view path);

/// Whether the system would take another file for this one: it leaves out a dot or a blank at the
/// end, and behind a colon stands what lies hidden beside a file's content.
[[nodiscard]] bool MeansAnother(std::string_view path);

}  // namespace morvane
