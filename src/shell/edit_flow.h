#pragma once

#include "edit/editor.h"
#include "generate/generator.h"
#include "program/program.h"
#include "shell/flow_windows.h"

namespace morvane::shell {

/// `menuEdit`: the editor over the set, from opening it until its window has gone.
void EditFlow(Program& program, generate::Generator& generator, edit::ClipMemory& clip,
              FlowWindows& windows, edit::Editor::Services services);

}  // namespace morvane::shell
