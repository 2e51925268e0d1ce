#include "platform/qt/qt_desktop.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <QSysInfo>
#include <QUrl>

#include "platform/qt/qt_text.h"

namespace morvane {
namespace {

/// "Screen: 1920 x 1080, scale 1.5, 144 dpi", in its own pixels.
QString TextOf(const QScreen& screen) {
  const QSize pixels = screen.size() * screen.devicePixelRatio();
  return QString("Screen: %1 x %2, scale %3, %4 dpi")
      .arg(pixels.width())
      .arg(pixels.height())
      .arg(screen.devicePixelRatio())
      .arg(screen.logicalDotsPerInch());
}

}  // namespace

bool QtDesktop::Show(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(path)));
}

void QtDesktop::Copy(const std::string& text) { QGuiApplication::clipboard()->setText(ToQt(text)); }

std::vector<std::string> QtDesktop::Facts() const {
  std::vector<std::string> facts{
      FromQt("System: " + QSysInfo::prettyProductName() + ", " + QSysInfo::kernelType() + " " +
             QSysInfo::kernelVersion() + ", " + QSysInfo::currentCpuArchitecture()),
      FromQt("Language: " + QLocale::system().name()),
      FromQt("Windows: " + QGuiApplication::platformName())};
  for (const QScreen* screen : QGuiApplication::screens()) facts.push_back(FromQt(TextOf(*screen)));
  return facts;
}

}  // namespace morvane
