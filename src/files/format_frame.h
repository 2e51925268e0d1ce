#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "files/failure_reports.h"

namespace morvane::files {

struct Format;

/// A larger file is no set: 256 MB.
inline constexpr std::uint64_t kLargestSetFile = std::uint64_t{256} << 20U;

// What every reader and every writer does around its format's bytes.

/// Reads the file and has `take` make something of its bytes, with no box meanwhile. What went
/// wrong with reading, or that the memory did not do for it (ENOMEM), which nobody has been told.
[[nodiscard]] std::optional<RuntimeError> ReadUnderHourglass(
    Program& program, const std::string& path, const std::function<void(std::string bytes)>& take);

/// Fills the set from the bytes of a file; nothing when all of them are right.
using Parse = std::function<std::optional<FormatFault>(std::string bytes)>;

/// Reads the file and has `parse` take it. False: what failed has been told.
[[nodiscard]] bool ReadThrough(Program& program, const std::string& path, const Parse& parse);

/// Makes the bytes of a file from the set.
using Compose = std::function<std::string()>;

/// Holds the set against `format`, then writes what `compose` makes. False:
/// nothing was saved, because of an error that the operator has been told or because of an answer.
[[nodiscard]] bool WriteThrough(Program& program, const Format& format, const std::string& path,
                                const std::string& incompleteBoards, const Compose& compose);

}  // namespace morvane::files
