#pragma once

#include <memory>

#include "platform/sound.h"

class QSoundEffect;

namespace morvane {

class QtSound final : public Sound {
 public:
  QtSound();
  QtSound(const QtSound&) = delete;
  QtSound& operator=(const QtSound&) = delete;
  ~QtSound() override;
  void Play(const std::string& path) override;

 private:
  std::unique_ptr<QSoundEffect> effect_;  ///< made with the first sound that there is
};

}  // namespace morvane
