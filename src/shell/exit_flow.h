#pragma once

#include "generate/generator.h"
#include "history/history.h"
#include "program/program.h"

namespace morvane::shell {

/// `menuExit` and the close box: whether the program may end. An unsaved set is asked about, a
/// running analysis refuses.
[[nodiscard]] bool ExitFlow(Program& program, generate::Generator& generator,
                            history::History& history);

}  // namespace morvane::shell
