#include <gtest/gtest.h>

#include "support/usb_preload.h"

namespace {

class UsbEnvironment final : public testing::Environment {
 public:
  void SetUp() override {
    if (!morvane::test::StartOverForEmulation()) FAIL() << "not started over";
  }
};

const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new UsbEnvironment);

}  // namespace
