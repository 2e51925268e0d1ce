#include "support/qt_screen_reader.h"

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

namespace morvane::test {

void StartScreenReader(bool runs) {
  QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(runs);
}

}  // namespace morvane::test
