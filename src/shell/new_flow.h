#pragma once

#include <functional>

#include "generate/generate_form.h"
#include "generate/generator.h"
#include "history/history.h"
#include "program/program.h"

namespace morvane::shell {

/// `menuNew`: a new set, from the question about the current one until the window `Generate` has
/// gone. `keep` is called when a press in the window has changed the set.
void NewFlow(Program& program, generate::Generator& generator, history::History& history,
             generate::GenerateDialog& dialog, const std::function<void()>& keep);

}  // namespace morvane::shell
