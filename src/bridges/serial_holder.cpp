#include "bridges/serial_holder.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

namespace morvane::bridges {
namespace {

/// The names in a folder; none when it can't be read.
std::vector<std::string> NamesIn(const std::string& folder) {
  struct Closer {
    void operator()(DIR* open) const { closedir(open); }
  };
  std::vector<std::string> names;
  const std::unique_ptr<DIR, Closer> open(opendir(folder.c_str()));
  if (!open) return names;
  while (const dirent* entry = readdir(open.get())) names.emplace_back(entry->d_name);
  return names;
}

bool IsNumber(std::string_view name) {
  return std::ranges::all_of(name, [](char c) { return c >= '0' && c <= '9'; });
}

bool SameFile(const struct stat& one, const std::string& path) {
  struct stat other {};
  return stat(path.c_str(), &other) == 0 && one.st_dev == other.st_dev &&
         one.st_ino == other.st_ino;
}

bool IsOpenSomewhere(const std::string& device) {
  struct stat file {};
  if (stat(device.c_str(), &file) != 0) return false;
  for (const std::string& process : NamesIn("/proc")) {
    if (!IsNumber(process)) continue;
    const std::string folder = "/proc/" + process + "/fd";
    const auto holds = [&](const std::string& fd) { return SameFile(file, folder + "/" + fd); };
    if (std::ranges::any_of(NamesIn(folder), holds)) return true;
  }
  return false;
}

}  // namespace

std::optional<std::string> SerialDeviceInUse(const std::string& place) {
  for (const std::string& name : NamesIn("/sys/bus/usb/devices/" + place + ":1.0")) {
    if (!name.starts_with("ttyUSB")) continue;
    if (std::string device = "/dev/" + name; IsOpenSomewhere(device)) return device;
  }
  return std::nullopt;
}

}  // namespace morvane::bridges
