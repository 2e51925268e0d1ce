#pragma once

#include <umockdev.h>

#include <memory>
#include <vector>

#include "support/emulated_usb.h"

namespace morvane::test {

/// A bus of the system with nothing at it but what a test puts there. The process runs with
/// umockdev's library preloaded; the processes that it starts see the same bus.
class EmulatedBus {
 public:
  EmulatedBus();
  ~EmulatedBus();
  EmulatedBus(const EmulatedBus&) = delete;
  EmulatedBus& operator=(const EmulatedBus&) = delete;
  EmulatedUsb& Attach(const UsbKind& kind = {});

 private:
  UMockdevTestbed* testbed_;
  int lastAddress_ = 1;  ///< the bus's own
  std::vector<std::unique_ptr<EmulatedUsb>> devices_;
};

}  // namespace morvane::test
