#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "maintenance/maintenance.h"

namespace morvane::cli {

/// A value that a parameter is to have.
struct ParameterChange {
  std::string Name;
  std::string Value;
  bool operator==(const ParameterChange&) const = default;
};
using ParameterChanges = std::vector<ParameterChange>;

/// The parameters that can be written, boxes and check boxes, in the order of the window.
[[nodiscard]] std::span<const std::string_view> ParameterNames();

/// Why no machine takes that: no such name, or a value that its box would refuse or replace. Empty:
/// one may.
[[nodiscard]] std::string WhyNot(const ParameterChange& change);
/// The same of several, of which each name stands there once.
[[nodiscard]] std::string WhyNot(const ParameterChanges& changes);

/// Whether this machine, whose parameters have been read, has one of `ParameterNames`.
[[nodiscard]] bool Has(const maintenance::Maintenance& console, std::string_view name);
/// What one of `ParameterNames` holds.
[[nodiscard]] std::string ValueOf(const maintenance::ParameterBoxes& boxes, std::string_view name);

/// Types the changes, for which there was no `WhyNot`, into `boxes`, which hold the parameters of
/// the console's machine. Not empty: what cannot be; `boxes` mean nothing then.
[[nodiscard]] std::string Type(const ParameterChanges& changes,
                               const maintenance::Maintenance& console,
                               maintenance::ParameterBoxes& boxes);

}  // namespace morvane::cli
