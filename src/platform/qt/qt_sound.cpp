#include "platform/qt/qt_sound.h"

#include <QAudioDevice>
#include <QFileInfo>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

#include "platform/qt/qt_text.h"

namespace morvane {

QtSound::QtSound() = default;
QtSound::~QtSound() = default;

void QtSound::Play(const std::string& path) {
  const QString file = ToQt(path);
  if (!QFileInfo::exists(file) || QMediaDevices::defaultAudioOutput().isNull()) return;
  if (!effect_) effect_ = std::make_unique<QSoundEffect>();
  effect_->setSource(QUrl::fromLocalFile(file));
  effect_->play();
}

}  // namespace morvane
