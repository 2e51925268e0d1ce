#include "no_display.h"

#include <QString>

namespace morvane {
namespace {

std::string Variable(const char* name) { return qEnvironmentVariable(name).toStdString(); }

}  // namespace

std::string WhyNoDisplay() {
  const std::string platform = Variable("QT_QPA_PLATFORM");
  const std::string with = platform.empty() ? "" : " with QT_QPA_PLATFORM=" + platform;
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"}) {
    const std::string display = Variable(name);
    if (!display.empty()) return "the display " + display + " cannot be opened" + with;
  }
  return "there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set" + with;
}

}  // namespace morvane
