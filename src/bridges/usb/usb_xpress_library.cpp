#include "bridges/usb/usb_xpress_library.h"

#include <algorithm>

namespace morvane::bridges {
namespace {

constexpr UsbXpress::Handle kHandle = 1;

/// By which libraries say that they have none.
bool IsNone(UsbXpressFunctions::RawHandle handle) {
  return handle == nullptr || reinterpret_cast<std::intptr_t>(handle) == -1;
}

std::string CannotBeLoaded(const std::string& name, const std::string& why) {
  return "The USB library \"" + name + "\" cannot be loaded (" + why + ").";
}

std::string Lacks(const std::string& name, const char* function) {
  return "The USB library \"" + name + "\" lacks the function " + function +
         ".\nIt is another one, or too old.";
}

}  // namespace

UsbXpressLibrary::~UsbXpressLibrary() {
  if (opened_) UsbXpressLibrary::Close(kHandle);
}

bool UsbXpressLibrary::Load() {
  if (library_) return true;
  SharedLibrary library(name_);
  if (!library.IsLoaded()) {
    advice_ = CannotBeLoaded(name_, library.Trouble());
    return false;
  }
  const bool whole = functions_.ForEach([&](const char* name, auto& function) {
    function = reinterpret_cast<std::decay_t<decltype(function)>>(library.Find(name));
    if (function == nullptr) advice_ = Lacks(name_, name);
    return function != nullptr;
  });
  if (!whole) return false;
  advice_.clear();
  library_ = std::move(library);
  return true;
}

template <class Function, class... Arguments>
UsbXpress::Status UsbXpressLibrary::Call(Function UsbXpressFunctions::*which,
                                         Arguments... arguments) {
  return Load() ? (functions_.*which)(arguments...) : kDriverMissing;
}

template <class Function, class... Arguments>
UsbXpress::Status UsbXpressLibrary::CallOpened(Handle handle, Function UsbXpressFunctions::*which,
                                               Arguments... arguments) {
  if (!Load()) return kDriverMissing;
  if (!opened_ || handle != kHandle) return kInvalidHandle;
  return (functions_.*which)(*opened_, arguments...);
}

UsbXpress::Status UsbXpressLibrary::GetDllVersion(std::uint32_t& high, std::uint32_t& low) {
  return Call(&UsbXpressFunctions::GetDllVersion, &high, &low);
}

UsbXpress::Status UsbXpressLibrary::GetDriverVersion(std::uint32_t& high, std::uint32_t& low) {
  return Call(&UsbXpressFunctions::GetDriverVersion, &high, &low);
}

UsbXpress::Status UsbXpressLibrary::GetNumDevices(std::uint32_t& count) {
  if (Load()) advice_.clear();
  return Call(&UsbXpressFunctions::GetNumDevices, &count);
}

UsbXpress::Status UsbXpressLibrary::GetProductString(std::uint32_t index, ProductString& text,
                                                     std::uint32_t option) {
  const Status status = Call(&UsbXpressFunctions::GetProductString, index, text.data(), option);
  text.back() = '\0';
  return status;
}

UsbXpress::Status UsbXpressLibrary::Open(std::uint32_t index, Handle& handle) {
  if (opened_) return kInvalidParameter;
  if (Load()) advice_.clear();
  Raw raw = nullptr;
  const Status status = Call(&UsbXpressFunctions::Open, index, &raw);
  if (status == kDeviceIoFailed) {
    advice_ = "A machine is attached, and cannot be opened.\nAnother program may be using it.";
  }
  if (status != kSuccess) return status;
  if (IsNone(raw)) return kInvalidHandle;
  opened_ = raw;
  handle = kHandle;
  return kSuccess;
}

UsbXpress::Status UsbXpressLibrary::SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) {
  return Call(&UsbXpressFunctions::SetTimeouts, readMs, writeMs);
}

UsbXpress::Status UsbXpressLibrary::SetBaudRate(Handle handle, std::uint32_t rate) {
  return CallOpened(handle, &UsbXpressFunctions::SetBaudRate, rate);
}

UsbXpress::Status UsbXpressLibrary::SetLineControl(Handle handle, std::uint16_t control) {
  return CallOpened(handle, &UsbXpressFunctions::SetLineControl, control);
}

UsbXpress::Status UsbXpressLibrary::FlushBuffers(Handle handle, std::uint8_t transmit,
                                                 std::uint8_t receive) {
  return CallOpened(handle, &UsbXpressFunctions::FlushBuffers, transmit, receive);
}

// The library does not change what it writes, though its function does not say so.
UsbXpress::Status UsbXpressLibrary::Write(Handle handle, std::span<const std::uint8_t> bytes,
                                          std::uint32_t& written) {
  written = 0;
  const auto size = static_cast<std::uint32_t>(bytes.size());
  void* const from = const_cast<std::uint8_t*>(bytes.data());
  const Status status =
      CallOpened(handle, &UsbXpressFunctions::Write, from, size, &written, nullptr);
  written = std::min(written, size);
  return status;
}

// No count goes beyond what was asked for, whatever the library says.
UsbXpress::Status UsbXpressLibrary::Read(Handle handle, std::span<std::uint8_t> bytes,
                                         std::uint32_t& read) {
  read = 0;
  const auto size = static_cast<std::uint32_t>(bytes.size());
  void* const to = bytes.data();
  const Status status = CallOpened(handle, &UsbXpressFunctions::Read, to, size, &read, nullptr);
  read = std::min(read, size);
  return status;
}

UsbXpress::Status UsbXpressLibrary::WriteLatch(Handle handle, std::uint8_t mask,
                                               std::uint8_t value) {
  return CallOpened(handle, &UsbXpressFunctions::WriteLatch, mask, value);
}

/// Whatever the library says of it, the handle is used no more.
UsbXpress::Status UsbXpressLibrary::Close(Handle handle) {
  const Status status = CallOpened(handle, &UsbXpressFunctions::Close);
  if (handle == kHandle) opened_.reset();
  return status;
}

}  // namespace morvane::bridges
