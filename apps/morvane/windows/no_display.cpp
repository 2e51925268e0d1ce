#include "morvane/no_display.h"

#include <QString>

namespace morvane {

/// The system has a display; what reaches it is a library that was left behind, or was not asked
/// for.
std::string WhyNoDisplay() {
  const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM");
  if (!platform.isEmpty()) {
    return "no window can be shown with QT_QPA_PLATFORM=" + platform.toStdString();
  }
  return "platforms\\qwindows.dll, which belongs beside the program, cannot be loaded";
}

}  // namespace morvane
