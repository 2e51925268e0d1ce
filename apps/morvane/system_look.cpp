#include "system_look.h"

namespace morvane {

std::vector<std::string> SystemLook() { return {}; }

}  // namespace morvane
