#include <windows.h>
// After it, which it needs.
#include <mmsystem.h>

#include "platform/system_sound.h"
#include "platform/windows/wide.h"

namespace morvane {
namespace {

class WaveSound final : public Sound {
 public:
  void Play(const std::string& path) override {
    PlaySoundW(Wide(path).c_str(), nullptr, SND_ASYNC | SND_FILENAME | SND_NODEFAULT);
  }
};

}  // namespace

std::unique_ptr<Sound> MakeSystemSound() { return std::make_unique<WaveSound>(); }

}  // namespace morvane
