#pragma once

namespace morvane::test {

/// A process that emulates a bus has umockdev's library before all others, which only its start can
/// do: it is started over, once, with the same words. False when it could not be.
bool StartOverForEmulation();

}  // namespace morvane::test
