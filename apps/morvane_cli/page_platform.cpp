#include "page_platform.h"

namespace morvane {

const char* PagePlatform() { return "offscreen"; }

}  // namespace morvane
