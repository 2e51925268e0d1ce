#include "support/emulated_bus.h"

#include <gtest/gtest.h>

namespace morvane::test {

EmulatedBus::EmulatedBus() : testbed_(umockdev_testbed_new()) {
  EXPECT_TRUE(umockdev_in_mock_environment()) << "umockdev's library is to be preloaded";
  g_free(umockdev_testbed_add_device(testbed_, "usb", "usb1", nullptr, "busnum", "1", "devnum", "1",
                                     nullptr, "DEVTYPE", "usb_device", nullptr));
}

EmulatedBus::~EmulatedBus() {
  g_object_unref(testbed_);  // its thread ends with it
  devices_.clear();
}

EmulatedUsb& EmulatedBus::Attach(const UsbKind& kind) {
  devices_.push_back(std::make_unique<EmulatedUsb>(testbed_, lastAddress_, kind));
  return *devices_.back();
}

}  // namespace morvane::test
