#pragma once

#include "platform/usb_xpress.h"

namespace morvane::test {

/// A bridge in front of another, which lets everything through.
class PassingBridge : public UsbXpress {
 public:
  explicit PassingBridge(UsbXpress& behind) : behind_(behind) {}

  Status GetDllVersion(std::uint32_t& high, std::uint32_t& low) override {
    return behind_.GetDllVersion(high, low);
  }
  Status GetDriverVersion(std::uint32_t& high, std::uint32_t& low) override {
    return behind_.GetDriverVersion(high, low);
  }
  Status GetNumDevices(std::uint32_t& count) override { return behind_.GetNumDevices(count); }
  Status GetProductString(std::uint32_t index, ProductString& text, std::uint32_t option) override {
    return behind_.GetProductString(index, text, option);
  }
  Status Open(std::uint32_t index, Handle& handle) override { return behind_.Open(index, handle); }
  Status SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) override {
    return behind_.SetTimeouts(readMs, writeMs);
  }
  Status SetBaudRate(Handle handle, std::uint32_t rate) override {
    return behind_.SetBaudRate(handle, rate);
  }
  Status SetLineControl(Handle handle, std::uint16_t control) override {
    return behind_.SetLineControl(handle, control);
  }
  Status FlushBuffers(Handle handle, std::uint8_t transmit, std::uint8_t receive) override {
    return behind_.FlushBuffers(handle, transmit, receive);
  }
  Status Write(Handle handle, std::span<const std::uint8_t> bytes,
               std::uint32_t& written) override {
    return behind_.Write(handle, bytes, written);
  }
  Status Read(Handle handle, std::span<std::uint8_t> bytes, std::uint32_t& read) override {
    return behind_.Read(handle, bytes, read);
  }
  Status WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) override {
    return behind_.WriteLatch(handle, mask, value);
  }
  Status Close(Handle handle) override { return behind_.Close(handle); }

 private:
  UsbXpress& behind_;
};

}  // namespace morvane::test
