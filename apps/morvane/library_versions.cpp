#include "library_versions.h"

#include <dds/dll.h>
#include <png.h>
#include <sodium.h>

#include <QtGlobal>

#ifndef _WIN32
#include <libusb.h>
#endif

namespace morvane {
namespace {

/// "2.9.0", of 20900.
std::string DdsVersion() {
  constexpr int kPart = 100;
  const auto part = [](int n) { return std::to_string(n % kPart); };
  return std::to_string(DDS_VERSION / kPart / kPart) + "." + part(DDS_VERSION / kPart) + "." +
         part(DDS_VERSION);
}

#ifndef _WIN32
std::string UsbVersion() {
  const libusb_version& version = *libusb_get_version();
  return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
         std::to_string(version.micro);
}
#endif

}  // namespace

std::vector<shell::Library> LibraryVersions() {
  return {
      {"Qt", qVersion()},
#ifndef _WIN32
      {"libusb", UsbVersion()},
#endif
      {"libsodium", sodium_version_string()},
      {"libpng", png_get_libpng_ver(nullptr)},
      {"DDS", DdsVersion() + " (built with)"},
      {"SimpleIni", MORVANE_SIMPLEINI_VERSION " (built with)"},
  };
}

}  // namespace morvane
