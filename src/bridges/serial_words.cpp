#include "bridges/serial_words.h"

#include <unistd.h>

#include <QSerialPortInfo>
#include <filesystem>

#include "platform/files.h"

namespace morvane::bridges {
namespace {

bool Exists(const std::string& path) {
  std::error_code failure;
  return std::filesystem::exists(PathOfUtf8(path), failure);
}

std::string DevicesHere() {
  std::string names;
  for (const QSerialPortInfo& device : QSerialPortInfo::availablePorts()) {
    names += (names.empty() ? "" : ", ") + device.systemLocation().toStdString();
  }
  return names.empty() ? "There is no serial device here." : "Serial devices here: " + names + ".";
}

bool MayUse(const std::string& path) { return eaccess(path.c_str(), R_OK | W_OK) == 0; }

}  // namespace

std::string WordsOfMissing(const std::string& path) {
  if (Exists(path)) return path + " is no serial device.\n" + DevicesHere();
  return "There is no " + path + ".\n" + DevicesHere() +
         "\nWhile a program has the machine by --machine usb, its serial device is gone.";
}

std::string WordsOfFailed(const std::string& path, const std::string& why) {
  return path + " cannot be opened: " + why + ".\n" + DevicesHere();
}

std::string WordsOfHeld(const std::string& path, const std::string& program) {
  return "Another program (" + program + ") has " + path + ".\nClose it and try again.";
}

std::string WordsOfRefused(const std::string& path) {
  if (MayUse(path)) return "Another program has " + path + ".\nClose it and try again.";
  return "This user may not use " + path +
         ".\nThe rule 70-morvane.rules lets in who sits at the computer. An installed program has "
         "brought it along; otherwise it belongs into /etc/udev/rules.d. Once it is there, unplug "
         "the cable and plug it in again.\nWithout it, members of the group that owns the "
         "device may, as a rule dialout.";
}

}  // namespace morvane::bridges
