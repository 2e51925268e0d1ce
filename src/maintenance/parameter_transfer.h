#pragma once

#include "machine/gates.h"
#include "maintenance/parameter_boxes.h"
#include "maintenance/service_link.h"

namespace morvane::maintenance {

/// Since when a firmware has the camera's settings.
inline constexpr machine::VersionGate kVideoGate{0x80, nullptr};

/// Whether the machine is known to keep parameters of its own for cards with this index.
[[nodiscard]] bool HasRecord(const machine::Machine& machine, wire::CardIndex index);

/// `ReadParameters`: the record of `index` and what stands once in the machine, as far as its
/// firmware has it, into the boxes. False: the link is lost, which the operator has been told.
bool ReadParameters(ServiceLink& link, const machine::Machine& machine, wire::CardIndex index,
                    ParameterBoxes& boxes);

/// The frames of `WriteParameters`, in the order in which the machine needs them; of the three
/// records that of `index` alone. Thresholds are put right in their boxes first. False: the link is
/// lost, which the operator has been told.
bool SendParameters(ServiceLink& link, const machine::Machine& machine, wire::CardIndex index,
                    ParameterBoxes& boxes);

/// Since which firmware a machine has the box; null: every one has it.
[[nodiscard]] const machine::VersionGate* GateOf(Parameter parameter);

/// What the log says of the values.
[[nodiscard]] std::string ParametersText(const ParameterBoxes& boxes, wire::CardIndex index);

}  // namespace morvane::maintenance
