#pragma once

namespace morvane {

/// The platform of Qt that has the fonts of pages and needs no display.
[[nodiscard]] const char* PagePlatform();

}  // namespace morvane
