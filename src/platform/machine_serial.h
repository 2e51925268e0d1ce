#pragma once

#include <algorithm>

#include "platform/usb_xpress.h"

namespace morvane {

/// Whether `text` is the serial string of a machine: four digits, any fifth character, and the end.
inline bool IsMachineSerial(const UsbXpress::ProductString& text) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return std::all_of(text.begin(), text.begin() + 4, isDigit) && text[5] == '\0';
}

}  // namespace morvane
