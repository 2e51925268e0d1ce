#include "display_guard.h"

#include <QString>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "no_display.h"

namespace morvane {
namespace {

constexpr int kNoDisplay = 1;

/// What hears of messages is given nothing else.
std::function<void()>& BeforeEnd() {
  static std::function<void()> end;
  return end;
}

/// What Qt says of its plugins before it gives up is for who asked to see it.
void TakeMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type == QtDebugMsg) std::cerr << message.toStdString() << "\n";
  if (type != QtFatalMsg) return;
  std::cerr << "morvane: " << WhyNoDisplay() << "\n";
  BeforeEnd()();
  std::_Exit(kNoDisplay);
}

}  // namespace

DisplayGuard::DisplayGuard(std::function<void()> beforeEnd) {
  BeforeEnd() = std::move(beforeEnd);
  before_ = qInstallMessageHandler(TakeMessage);
}

DisplayGuard::~DisplayGuard() {
  qInstallMessageHandler(before_);
  BeforeEnd() = {};
}

}  // namespace morvane
