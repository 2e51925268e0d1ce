#pragma once

#include <functional>

#include "generate/generator.h"
#include "history/history.h"
#include "program/program.h"
#include "shell/flow_windows.h"

namespace morvane::shell {

/// `menuNew`: a new set, from the question about the current one until the window `Generate` has
/// gone. `keep` is called when a press in the window has changed the set; what there is then is
/// shown behind it.
void NewFlow(Program& program, generate::Generator& generator, history::History& history,
             FlowWindows& windows, const std::function<void()>& keep);

}  // namespace morvane::shell
