#pragma once

#include "program/program.h"

namespace morvane::machine {

/// Plays the sound of a fault, `Dealing_Error.wav` beside the program file; returns at once. Where
/// the file or a sound device is missing, nothing is heard and nothing is said.
void PlayErrorSound(Program& program);

/// The same where the operator has not switched it off.
void SoundAFault(Program& program);

}  // namespace morvane::machine
