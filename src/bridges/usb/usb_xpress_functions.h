#pragma once

#include <cstdint>

#include "platform/usb_xpress.h"

#ifdef _WIN32
#define MORVANE_USB_XPRESS_CALL __stdcall
#else
#define MORVANE_USB_XPRESS_CALL
#endif

namespace morvane::bridges {

/// The functions of the bridge library as it exports them. Each returns a 32-bit status, bytes
/// travel as bytes, and its handles are as wide as a pointer.
struct UsbXpressFunctions {
  template <class... Arguments>
  using Function = UsbXpress::Status(MORVANE_USB_XPRESS_CALL*)(Arguments...);
  using RawHandle = void*;
  using Overlapped = void*;

  Function<std::uint32_t*, std::uint32_t*> GetDllVersion = nullptr;
  Function<std::uint32_t*, std::uint32_t*> GetDriverVersion = nullptr;
  Function<std::uint32_t*> GetNumDevices = nullptr;
  Function<std::uint32_t, void*, std::uint32_t> GetProductString = nullptr;
  Function<std::uint32_t, RawHandle*> Open = nullptr;
  Function<std::uint32_t, std::uint32_t> SetTimeouts = nullptr;
  Function<RawHandle, std::uint32_t> SetBaudRate = nullptr;
  Function<RawHandle, std::uint16_t> SetLineControl = nullptr;
  Function<RawHandle, std::uint8_t, std::uint8_t> FlushBuffers = nullptr;
  Function<RawHandle, void*, std::uint32_t, std::uint32_t*, Overlapped> Write = nullptr;
  Function<RawHandle, void*, std::uint32_t, std::uint32_t*, Overlapped> Read = nullptr;
  Function<RawHandle, std::uint8_t, std::uint8_t> WriteLatch = nullptr;
  Function<RawHandle> Close = nullptr;

  /// Calls `take(name, function)` for each of them, until one call is false; whether none was.
  template <class Take>
  bool ForEach(Take take) {
    return take("SI_GetDLLVersion", GetDllVersion) &&
           take("SI_GetDriverVersion", GetDriverVersion) &&
           take("SI_GetNumDevices", GetNumDevices) &&
           take("SI_GetProductString", GetProductString) &&  //
           take("SI_Open", Open) &&                          //
           take("SI_SetTimeouts", SetTimeouts) &&            //
           take("SI_SetBaudRate", SetBaudRate) &&            //
           take("SI_SetLineControl", SetLineControl) &&      //
           take("SI_FlushBuffers", FlushBuffers) &&          //
           take("SI_Write", Write) &&                        //
           take("SI_Read", Read) &&                          //
           take("SI_WriteLatch", WriteLatch) &&              //
           take("SI_Close", Close);
  }
};

}  // namespace morvane::bridges
