#pragma once

#include <string>
#include <vector>

#include "bridges/usb_bus.h"

namespace morvane::bridges {

/// What there is to say to the operator about the devices at the bus, in whole sentences, the lines
/// ending with LF but for the last.
namespace usb_words {

/// Nothing with the numbers of `which` is attached.
[[nodiscard]] std::string None(const UsbWhich& which);
/// Of the `attached` ones, none has the serial string that was asked for.
[[nodiscard]] std::string NotThatOne(const std::string& serial,
                                     const std::vector<UsbFound>& attached);
/// A device is there, and this user may not open it.
[[nodiscard]] std::string NoRights();
/// Another program has `device` by this same way. The `others` are attached too.
[[nodiscard]] std::string Held(const UsbFound& device, const std::vector<UsbFound>& others);
/// Another program has it as the serial device `path`.
[[nodiscard]] std::string HeldAsSerial(const std::string& path);
/// It went between the search and the opening.
[[nodiscard]] std::string Gone();
/// It was opened, or not even that, and does not answer.
[[nodiscard]] std::string Silent();
/// `opened` is one of several.
[[nodiscard]] std::string Several(const UsbFound& opened, const std::vector<UsbFound>& others);

}  // namespace usb_words
}  // namespace morvane::bridges
