#include "support/usb_library_double/usb_library_double.h"

#include <cstring>

// The signatures are written down here once more, so that a mistake in the program's table shows.

namespace {

using morvane::UsbXpress;
using morvane::test::UsbLibraryDesk;

UsbLibraryDesk* desk = nullptr;
UsbXpress::Handle opened = -1;

std::string Text(std::uint64_t number) { return " " + std::to_string(number); }

/// Notes the call. Whether it goes on to the desk; its status when not.
bool Goes(const std::string& name, const std::string& arguments, std::int32_t& status) {
  status = UsbXpress::kDeviceNotFound;
  if (desk == nullptr) return false;
  desk->Calls.push_back(name + arguments);
  status = desk->FailureStatus;
  return desk->FailureStatus == 0 || desk->FailingCall != name;
}

/// The desk's own handle; none for any other than that of the opened device.
UsbXpress::Handle Behind(void* handle) {
  return reinterpret_cast<std::uintptr_t>(handle) == desk->Handle ? opened : -1;
}

std::string Text(void* handle) {
  const bool ours = desk != nullptr && reinterpret_cast<std::uintptr_t>(handle) == desk->Handle;
  return ours ? " opened" : " another";
}

std::string Overlapped(void* overlapped) { return overlapped == nullptr ? "" : " overlapped"; }

}  // namespace

extern "C" {

void UseDesk(UsbLibraryDesk* used) {
  desk = used;
  opened = -1;
}

std::int32_t SI_GetDLLVersion(std::uint32_t* high, std::uint32_t* low) {
  std::int32_t status = 0;
  if (Goes("GetDLLVersion", "", status)) return desk->Behind.GetDllVersion(*high, *low);
  if (desk != nullptr) return status;
  *high = 0x30001;
  *low = 0;
  return 0;
}

std::int32_t SI_GetDriverVersion(std::uint32_t* high, std::uint32_t* low) {
  std::int32_t status = 0;
  if (!Goes("GetDriverVersion", "", status)) return status;
  return desk->Behind.GetDriverVersion(*high, *low);
}

std::int32_t SI_GetNumDevices(std::uint32_t* count) {
  std::int32_t status = 0;
  if (!Goes("GetNumDevices", "", status)) return status;
  return desk->Behind.GetNumDevices(*count);
}

std::int32_t SI_GetProductString(std::uint32_t index, void* text, std::uint32_t option) {
  std::int32_t status = 0;
  if (!Goes("GetProductString", Text(index) + Text(option), status)) return status;
  UsbXpress::ProductString string{};
  status = desk->Behind.GetProductString(index, string, option);
  if (status == 0) std::memcpy(text, string.data(), string.size());
  return status;
}

std::int32_t SI_Open(std::uint32_t index, void** handle) {
  std::int32_t status = 0;
  if (!Goes("Open", Text(index), status)) return status;
  status = desk->Behind.Open(index, opened);
  if (status == 0) *handle = reinterpret_cast<void*>(static_cast<std::uintptr_t>(desk->Handle));
  return status;
}

std::int32_t SI_SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) {
  std::int32_t status = 0;
  if (!Goes("SetTimeouts", Text(readMs) + Text(writeMs), status)) return status;
  return desk->Behind.SetTimeouts(readMs, writeMs);
}

std::int32_t SI_SetBaudRate(void* handle, std::uint32_t rate) {
  std::int32_t status = 0;
  if (!Goes("SetBaudRate", Text(handle) + Text(rate), status)) return status;
  return desk->Behind.SetBaudRate(Behind(handle), rate);
}

std::int32_t SI_SetLineControl(void* handle, std::uint16_t control) {
  std::int32_t status = 0;
  if (!Goes("SetLineControl", Text(handle) + Text(control), status)) return status;
  return desk->Behind.SetLineControl(Behind(handle), control);
}

std::int32_t SI_FlushBuffers(void* handle, std::uint8_t transmit, std::uint8_t receive) {
  std::int32_t status = 0;
  if (!Goes("FlushBuffers", Text(handle) + Text(transmit) + Text(receive), status)) return status;
  return desk->Behind.FlushBuffers(Behind(handle), transmit, receive);
}

std::int32_t SI_Write(void* handle, void* bytes, std::uint32_t count, std::uint32_t* written,
                      void* overlapped) {
  std::int32_t status = 0;
  if (!Goes("Write", Text(handle) + Text(count) + Overlapped(overlapped), status)) return status;
  status = desk->Behind.Write(Behind(handle), {static_cast<std::uint8_t*>(bytes), count}, *written);
  *written += desk->Boast;
  return status;
}

std::int32_t SI_Read(void* handle, void* bytes, std::uint32_t count, std::uint32_t* read,
                     void* overlapped) {
  std::int32_t status = 0;
  if (!Goes("Read", Text(handle) + Text(count) + Overlapped(overlapped), status)) return status;
  status = desk->Behind.Read(Behind(handle), {static_cast<std::uint8_t*>(bytes), count}, *read);
  *read += desk->Boast;
  return status;
}

std::int32_t SI_WriteLatch(void* handle, std::uint8_t mask, std::uint8_t value) {
  std::int32_t status = 0;
  if (!Goes("WriteLatch", Text(handle) + Text(mask) + Text(value), status)) return status;
  return desk->Behind.WriteLatch(Behind(handle), mask, value);
}

#ifndef MORVANE_LACKS_CLOSE
std::int32_t SI_Close(void* handle) {
  std::int32_t status = 0;
  if (!Goes("Close", Text(handle), status)) return status;
  return desk->Behind.Close(Behind(handle));
}
#endif

}  // extern "C"
