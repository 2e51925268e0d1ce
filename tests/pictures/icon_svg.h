#pragma once

#include <QString>

namespace morvane {

/// The program's icon as an SVG file.
[[nodiscard]] QString IconSvg();

}  // namespace morvane
