#include "display_guard.h"

#include <QString>
#include <cstdlib>
#include <iostream>

#include "no_display.h"

namespace morvane {
namespace {

constexpr int kNoDisplay = 1;

/// What Qt says of its plugins before it gives up is for who asked to see it.
void TakeMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type == QtDebugMsg) std::cerr << message.toStdString() << "\n";
  if (type != QtFatalMsg) return;
  std::cerr << "morvane: " << WhyNoDisplay() << "\n";
  std::_Exit(kNoDisplay);
}

}  // namespace

DisplayGuard::DisplayGuard() : before_(qInstallMessageHandler(TakeMessage)) {}

DisplayGuard::~DisplayGuard() { qInstallMessageHandler(before_); }

}  // namespace morvane
