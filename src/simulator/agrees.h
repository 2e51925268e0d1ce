#pragma once

#include "wire/fields.h"

namespace morvane::simulator {

/// Whether `command` is one that a program can have sent: what its rows fix stands in it, and flags
/// are 0 or 1. One check byte lets a garbled frame through now and then, and a poll turned into a
/// start would be a wrong deal that nobody sees. What belongs together gives it away.
template <typename F>
[[nodiscard]] bool Agrees(const F& fields, const wire::Frame& command) {
  wire::Frame again = command;
  wire::PutRows(fields, again);
  return again == command;
}

}  // namespace morvane::simulator
