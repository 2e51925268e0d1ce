#pragma once

#include <string>

namespace morvane {

class Sound {
 public:
  virtual ~Sound() = default;
  /// Starts the sound file and returns at once; a missing file does no harm.
  virtual void Play(const std::string& path) = 0;
};

}  // namespace morvane
