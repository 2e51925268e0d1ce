#pragma once

#include <QIcon>

namespace morvane {

/// The icon of every window: the ace of spades, painted at the usual sizes.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace morvane
