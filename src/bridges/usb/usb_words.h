#pragma once

#include <string>
#include <vector>

#include "bridges/usb/serial_holder.h"
#include "bridges/usb/usb_bus.h"

namespace morvane::bridges {

/// What there is to say to the operator about the devices at the bus, in whole sentences, the lines
/// ending with LF but for the last.
namespace usb_words {

/// Nothing with the numbers of `which` is attached.
[[nodiscard]] std::string None(const UsbWhich& which);
/// Of the `attached` ones, none has the serial string that was asked for.
[[nodiscard]] std::string NotThatOne(const std::string& serial,
                                     const std::vector<UsbFound>& attached);
/// libusb can't be started.
[[nodiscard]] std::string NoBus();
/// A device with the numbers of `which` is there, and this user may not open it.
[[nodiscard]] std::string NoRights(const UsbWhich& which);
/// Another program has `device` by this same way. The `others` of `which` are attached too.
[[nodiscard]] std::string Held(const UsbWhich& which, const UsbFound& device,
                               const std::vector<UsbFound>& others);
/// The same of one that has it as a serial device.
[[nodiscard]] std::string HeldAsSerial(const UsbWhich& which, const UsbFound& device,
                                       const SerialUse& use, const std::vector<UsbFound>& others);
/// It went after it had been found.
[[nodiscard]] std::string Gone();
/// It was opened, or not even that, and does not answer.
[[nodiscard]] std::string Silent();
/// `opened` is one of several.
[[nodiscard]] std::string Several(const UsbWhich& which, const UsbFound& opened,
                                  const std::vector<UsbFound>& others);

}  // namespace usb_words
}  // namespace morvane::bridges
