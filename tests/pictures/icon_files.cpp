// Writes the icon of the program into a folder, as SVG and at every size that desktops ask for:
// icon_files FOLDER SIZE...

#include <QFile>
#include <QGuiApplication>
#include <iostream>

#include "icon_svg.h"
#include "platform/qt/program_icon.h"

namespace {

bool WriteSvg(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(morvane::IconSvg().toUtf8()) > 0 &&
         file.flush();
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QStringList words = QGuiApplication::arguments();
  if (words.size() < 3) return 2;
  bool written = WriteSvg(words[1] + "/morvane.svg");
  for (const QString& size : words.mid(2)) {
    written = morvane::ProgramPicture(size.toInt()).save(words[1] + "/morvane_" + size + ".png") &&
              written;
  }
  if (!written) std::cerr << "icon_files: not all could be written\n";
  return written ? 0 : 1;
}
