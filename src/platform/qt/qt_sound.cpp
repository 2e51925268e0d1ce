#include <QAudioDevice>
#include <QFileInfo>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

#include "platform/qt/qt_text.h"
#include "platform/system_sound.h"

namespace morvane {
namespace {

class QtSound final : public Sound {
 public:
  void Play(const std::string& path) override {
    const QString file = ToQt(path);
    if (!QFileInfo::exists(file) || QMediaDevices::defaultAudioOutput().isNull()) return;
    if (!effect_) effect_ = std::make_unique<QSoundEffect>();
    effect_->setSource(QUrl::fromLocalFile(file));
    effect_->play();
  }

 private:
  std::unique_ptr<QSoundEffect> effect_;  ///< made with the first sound that there is
};

}  // namespace

std::unique_ptr<Sound> MakeSystemSound() { return std::make_unique<QtSound>(); }

}  // namespace morvane
