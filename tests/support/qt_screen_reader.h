#pragma once

namespace morvane::test {

/// Announcements are made only where a screen reader runs, or seems to.
void StartScreenReader(bool runs);

}  // namespace morvane::test
