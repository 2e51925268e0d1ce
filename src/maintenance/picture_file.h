#pragma once

#include <string_view>

#include "program/program.h"

namespace morvane::maintenance {

/// Asks for a file and writes a picture into it, `png` being its bytes. ".png" is added to a name
/// without it. False: it was not written, and the operator knows.
bool SavePicture(Program& program, std::string_view png);

}  // namespace morvane::maintenance
