// Writes the icon of the program into a folder, as SVG, at every size that desktops ask for, and
// with the sizes that Windows shows in one file: icon_files FOLDER SIZE...

#include <QFile>
#include <QGuiApplication>
#include <iostream>

#include "icon_ico.h"
#include "icon_svg.h"
#include "platform/qt/program_icon.h"

namespace {

const QList<int> kWindowsSizes{16, 20, 24, 32, 40, 48, 64, 128, 256};

bool Write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) > 0 && file.flush();
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QStringList words = QGuiApplication::arguments();
  if (words.size() < 3) return 2;
  bool written = Write(words[1] + "/morvane.svg", morvane::IconSvg().toUtf8());
  written = Write(words[1] + "/morvane.ico", morvane::IconIco(kWindowsSizes)) && written;
  for (const QString& size : words.mid(2)) {
    written = morvane::ProgramPicture(size.toInt()).save(words[1] + "/morvane_" + size + ".png") &&
              written;
  }
  if (!written) std::cerr << "icon_files: not all could be written\n";
  return written ? 0 : 1;
}
