#include "morvane_cli/page_platform.h"

namespace morvane {

/// The others have no fonts of the system's.
const char* PagePlatform() { return "windows"; }

}  // namespace morvane
