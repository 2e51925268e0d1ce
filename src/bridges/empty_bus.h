#pragma once

#include "platform/usb_xpress.h"

namespace morvane::bridges {

/// The machine at its own USB socket, which this program cannot reach yet: a library without
/// devices. Opening the link tells the operator that no machine was found.
class EmptyBus final : public UsbXpress {
 public:
  Status GetDllVersion(std::uint32_t& high, std::uint32_t& low) override {
    high = kAsksForNoUpdate;
    low = 0;
    return kSuccess;
  }
  Status GetDriverVersion(std::uint32_t& high, std::uint32_t& low) override {
    return GetDllVersion(high, low);
  }
  Status GetNumDevices(std::uint32_t& count) override {
    count = 0;
    return kDeviceNotFound;
  }
  Status GetProductString(std::uint32_t /*index*/, ProductString& /*text*/,
                          std::uint32_t /*option*/) override {
    return kDeviceNotFound;
  }
  Status Open(std::uint32_t /*index*/, Handle& /*handle*/) override { return kDeviceNotFound; }
  Status SetTimeouts(std::uint32_t /*readMs*/, std::uint32_t /*writeMs*/) override {
    return kSuccess;
  }
  Status SetBaudRate(Handle /*handle*/, std::uint32_t /*rate*/) override { return kInvalidHandle; }
  Status SetLineControl(Handle /*handle*/, std::uint16_t /*control*/) override {
    return kInvalidHandle;
  }
  Status FlushBuffers(Handle /*handle*/, std::uint8_t /*transmit*/,
                      std::uint8_t /*receive*/) override {
    return kInvalidHandle;
  }
  Status Write(Handle /*handle*/, std::span<const std::uint8_t> /*bytes*/,
               std::uint32_t& written) override {
    written = 0;
    return kInvalidHandle;
  }
  Status Read(Handle /*handle*/, std::span<std::uint8_t> /*bytes*/, std::uint32_t& read) override {
    read = 0;
    return kInvalidHandle;
  }
  Status WriteLatch(Handle /*handle*/, std::uint8_t /*mask*/, std::uint8_t /*value*/) override {
    return kInvalidHandle;
  }
  Status Close(Handle /*handle*/) override { return kInvalidHandle; }

 private:
  static constexpr std::uint32_t kAsksForNoUpdate = 0x00030001;
};

}  // namespace morvane::bridges
