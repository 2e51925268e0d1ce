#include "machine/error_sound.h"

namespace morvane::machine {

void PlayErrorSound(Program& program) {
  program.Speaker.Play(program.Paths.Application + "/Dealing_Error.wav");
}

void SoundAFault(Program& program) {
  if (program.Store.IsOn(kErrorSound)) PlayErrorSound(program);
}

}  // namespace morvane::machine
