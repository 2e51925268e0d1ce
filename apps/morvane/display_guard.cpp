#include "display_guard.h"

#include <QString>
#include <cstdlib>
#include <iostream>
#include <string>

namespace morvane {
namespace {

constexpr int kNoDisplay = 1;

std::string Variable(const char* name) { return qEnvironmentVariable(name).toStdString(); }

std::string WhyThereIsNone() {
  const std::string platform = Variable("QT_QPA_PLATFORM");
  const std::string with = platform.empty() ? "" : " with QT_QPA_PLATFORM=" + platform;
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"}) {
    const std::string display = Variable(name);
    if (!display.empty()) return "the display " + display + " cannot be opened" + with;
  }
  return "there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set" + with;
}

/// What Qt says of its plugins before it gives up is for who asked to see it.
void TakeMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type == QtDebugMsg) std::cerr << message.toStdString() << "\n";
  if (type != QtFatalMsg) return;
  std::cerr << "morvane: " << WhyThereIsNone() << "\n";
  std::_Exit(kNoDisplay);
}

}  // namespace

DisplayGuard::DisplayGuard() : before_(qInstallMessageHandler(TakeMessage)) {}

DisplayGuard::~DisplayGuard() { qInstallMessageHandler(before_); }

}  // namespace morvane
