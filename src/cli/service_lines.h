#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "maintenance/advance_form.h"
#include "maintenance/maintenance.h"

namespace morvane::cli {

/// A control of the service console and its text; empty where it is not known.
struct ServiceLine {
  std::string Name;
  std::string Value;
  bool operator==(const ServiceLine&) const = default;
};
using ServiceLines = std::vector<ServiceLine>;

/// "NAME: VALUE", without what could command a terminal.
[[nodiscard]] std::string TextOf(const ServiceLine& line);
/// A line each, with its end.
[[nodiscard]] std::string TextOf(const ServiceLines& lines);

[[nodiscard]] ServiceLines IdentityLines(const maintenance::Identity& identity);
/// The check boxes of `ConsolePoll::Outputs`: 0 or 1.
[[nodiscard]] ServiceLines OutputLines(std::uint8_t outputs);
[[nodiscard]] ServiceLines SensorLines(const maintenance::Readings& readings);
/// The captions of the radio buttons, by the names of their settings.
[[nodiscard]] ServiceLines SelectionLines(const machine::CardSettings& selection);
/// `CardIndex` and `param_ID`, and of the parameters those that the machine has: a number each, or
/// 0 or 1. None before they have been read.
[[nodiscard]] ServiceLines ParameterLines(const maintenance::Maintenance& console);

/// What the bench shows of a card; `Focus` where the machine's is shown at all.
[[nodiscard]] ServiceLines RecognitionLines(const maintenance::RecognitionBench::Texts& texts);

/// The manufacturing record and the counters, the check boxes as 0 or 1.
[[nodiscard]] ServiceLines RecordLines(const maintenance::AdvanceForm& form);

/// The captions of the indexes, by `CardSettings::Index`.
inline constexpr std::array<std::string_view, 3> kIndexCaptions{"Standard", "Jumbo", "Small"};
inline constexpr std::string_view kCardIndexName = "CardIndex";
inline constexpr std::string_view kParamIdName = "param_ID";

}  // namespace morvane::cli
