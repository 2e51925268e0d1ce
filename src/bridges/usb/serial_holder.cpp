#include "bridges/usb/serial_holder.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>
#include <utility>
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

/// A device may have several nodes, and a node made anew is another file.
bool SameDevice(const struct stat& one, const std::string& path) {
  struct stat other {};
  if (stat(path.c_str(), &other) != 0) return false;
  if (S_ISCHR(one.st_mode) && S_ISCHR(other.st_mode)) return one.st_rdev == other.st_rdev;
  return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// A file on a network that is gone would not be looked at in time.
bool IsDevice(const std::string& link) {
  std::error_code failure;
  return std::filesystem::read_symlink(link, failure).string().find("/dev/") != std::string::npos;
}

bool Holds(const std::string& process, const struct stat& device) {
  const std::string folder = "/proc/" + process + "/fd";
  return std::ranges::any_of(NamesIn(folder), [&](const std::string& file) {
    return IsDevice(folder + "/" + file) && SameDevice(device, folder + "/" + file);
  });
}

/// Empty when it has ended.
std::string NameOf(const std::string& process) {
  std::ifstream file("/proc/" + process + "/comm");
  std::string name;
  std::getline(file, name);
  return name;
}

}  // namespace

std::optional<std::string> ProgramHolding(const std::string& device) {
  struct stat file {};
  if (stat(device.c_str(), &file) != 0) return std::nullopt;
  const std::string own = std::to_string(getpid());
  for (const std::string& process : NamesIn("/proc")) {
    if (!IsNumber(process) || process == own || !Holds(process, file)) continue;
    if (std::string name = NameOf(process); !name.empty()) return name;
  }
  return std::nullopt;
}

std::optional<SerialUse> SerialUseAt(const std::string& place) {
  for (const std::string& name : NamesIn("/sys/bus/usb/devices/" + place + ":1.0")) {
    if (!name.starts_with("ttyUSB")) continue;
    const std::string device = "/dev/" + name;
    if (auto program = ProgramHolding(device)) return SerialUse{device, *std::move(program)};
  }
  return std::nullopt;
}

}  // namespace morvane::bridges
