#pragma once

#include <string>

#include "platform/shared_library.h"
#include "support/usb_library_double/usb_library_double.h"

namespace morvane::test {

/// The double, with this desk for as long as this object lives.
class LoadedDouble {
 public:
  explicit LoadedDouble(UsbLibraryDesk& desk) { Use(&desk); }
  ~LoadedDouble() { Use(nullptr); }
  LoadedDouble(const LoadedDouble&) = delete;
  LoadedDouble& operator=(const LoadedDouble&) = delete;

  /// What the program loads.
  [[nodiscard]] static std::string Path() { return MORVANE_USB_LIBRARY; }

 private:
  void Use(UsbLibraryDesk* desk) {
    const auto use = reinterpret_cast<UseDeskFunction>(library_.Find(kUseDesk));
    if (use != nullptr) use(desk);
  }

  SharedLibrary library_{Path()};
};

}  // namespace morvane::test
