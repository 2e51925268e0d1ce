#include <gtest/gtest.h>

#include <QApplication>
#include <cstdio>
#include <memory>

namespace {

void DropNoise(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
  if (text.startsWith("This plugin does not support")) return;
  std::fprintf(stderr, "%s\n", qPrintable(text));
}

constexpr const char* kPlatform = "QT_QPA_PLATFORM";
constexpr const char* kNoDisplay = "offscreen";  // perhaps with a screen of another size
constexpr const char* kDesktop = "windows";

/// One application for all window tests, on no display; on Windows' own where that is asked for.
class QtEnvironment final : public testing::Environment {
 public:
  void SetUp() override {
    const QByteArray asked = qgetenv(kPlatform);
    if (!asked.startsWith(kNoDisplay) && asked != kDesktop) qputenv(kPlatform, kNoDisplay);
    qInstallMessageHandler(DropNoise);
    application_ = std::make_unique<QApplication>(argc_, argv_);
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void TearDown() override { application_.reset(); }

 private:
  char name_[8] = "test_ui";
  char* argv_[2] = {name_, nullptr};
  int argc_ = 1;
  std::unique_ptr<QApplication> application_;
};

const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
