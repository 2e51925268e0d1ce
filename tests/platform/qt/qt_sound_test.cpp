#include <gtest/gtest.h>

#include <QSoundEffect>
#include <QTest>
#include <QUrl>

namespace morvane {
namespace {

TEST(ErrorSoundFile, IsTakenByTheSoundDevicesLibrary) {
  QSoundEffect effect;
  effect.setSource(QUrl::fromLocalFile(MORVANE_TEST_DATA "/../../apps/morvane/Dealing_Error.wav"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return effect.status() == QSoundEffect::Ready; }));
}

}  // namespace
}  // namespace morvane
