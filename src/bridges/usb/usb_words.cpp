#include "bridges/usb/usb_words.h"

#include <algorithm>

#include "bridges/usb/bridge_chip.h"
#include "text/text.h"

namespace morvane::bridges::usb_words {
namespace {

using Devices = std::vector<UsbFound>;

Devices With(Devices devices, const UsbFound& device) {
  devices.push_back(device);
  return devices;
}

/// Whether `--machine usb:SERIAL` means this one and none else of `all`.
bool HasOwnSerial(const UsbFound& device, const Devices& all) {
  const bool canBeSaid = !device.Serial.empty() && device.Serial.find(':') == std::string::npos;
  return canBeSaid && std::ranges::count(all, device.Serial, &UsbFound::Serial) == 1;
}

/// As `--machine` takes it, and the place where that would not do.
std::string NameOf(const UsbFound& device, const Devices& all) {
  std::string serial = WithoutControls(device.Serial);
  if (HasOwnSerial(device, all)) return serial;
  return (serial.empty() ? "the one" : serial) + " at USB socket " + device.Place;
}

std::string NamesOf(const Devices& devices, const Devices& all) {
  std::string names;
  for (const UsbFound& device : devices) {
    names += (names.empty() ? "" : ", ") + NameOf(device, all);
  }
  return names;
}

std::string CloseThatProgram() {
  return "Close that program first: one at a time drives a machine.";
}

std::string Hex4(std::uint16_t number) { return Hex8(number).substr(4); }

std::uint16_t VendorOf(const UsbWhich& which) { return which.Vendor.value_or(chip::kVendor); }

std::uint16_t ProductOf(const UsbWhich& which) {
  return which.Product.value_or(chip::kProducts.front());
}

/// Beside the `others`.
std::string AlsoAttached(const UsbWhich& which, const Devices& others, const Devices& all) {
  const bool named =
      std::ranges::all_of(others, [&](const UsbFound& other) { return HasOwnSerial(other, all); });
  const std::string numbers =
      which.Vendor ? Hex4(VendorOf(which)) + ":" + Hex4(ProductOf(which)) + ":" : "";
  return "Also attached: " + NamesOf(others, all) +
         (named ? ". Another one is named by --machine usb:" + numbers + "SERIAL."
                : ".\nWithout a serial string of its own none can be named: unplug those that are "
                  "not meant.");
}

bool IsInRule(const UsbWhich& which) {
  return VendorOf(which) == chip::kVendor &&
         std::ranges::find(chip::kProducts, ProductOf(which)) != chip::kProducts.end();
}

std::string LineOfRule(const UsbWhich& which) {
  return R"(SUBSYSTEM=="usb", ENV{DEVTYPE}=="usb_device", ATTR{idVendor}==")" +
         LowerCase(Hex4(VendorOf(which))) + R"(", ATTR{idProduct}==")" +
         LowerCase(Hex4(ProductOf(which))) + R"(", TAG+="uaccess", ENV{ID_MM_DEVICE_IGNORE}="1")";
}

}  // namespace

std::string None(const UsbWhich& which) {
  if (!which.Vendor) return "No machine is attached to a USB socket of this computer.";
  return "No device " + Hex4(*which.Vendor) + ":" + Hex4(ProductOf(which)) +
         " is attached to a USB socket of this computer.";
}

std::string NotThatOne(const std::string& serial, const std::vector<UsbFound>& attached) {
  return "The machine " + serial + " is not attached.\nAttached: " + NamesOf(attached, attached) +
         ".";
}

std::string NoBus() {
  return "The system does not let programs see its USB sockets (libusb cannot start).";
}

std::string NoRights(const UsbWhich& which) {
  std::string text =
      "A machine is attached, and this user may not use it.\n"
      "The rule 70-morvane.rules lets in who sits at the computer. An installed program "
      "has brought it along; otherwise it belongs into /etc/udev/rules.d.\n";
  if (!IsInRule(which)) {
    text += "For this machine it needs one line more:\n" + LineOfRule(which) + "\n";
  }
  return text +
         "Once it is there, unplug the machine and plug it in again.\n"
         "For others, over the network for example, the administrator has to give the right.";
}

std::string Held(const UsbWhich& which, const UsbFound& device, const Devices& others) {
  const Devices all = With(others, device);
  std::string text =
      "Another program has the machine " + NameOf(device, all) + ".\n" + CloseThatProgram();
  if (!others.empty()) text += "\n" + AlsoAttached(which, others, all);
  return text;
}

std::string HeldAsSerial(const UsbWhich& which, const UsbFound& device, const SerialUse& use,
                         const Devices& others) {
  std::string text = "Another program (" + WithoutControls(use.Program) +
                     ") has the machine as the serial device " + use.Device + ".\n" +
                     CloseThatProgram();
  if (!others.empty()) text += "\n" + AlsoAttached(which, others, With(others, device));
  return text;
}

std::string Gone() { return "The machine has been unplugged."; }

std::string Silent() {
  return "A machine is attached and does not answer at its USB socket.\n"
         "Unplug it and plug it in again.";
}

std::string Several(const UsbWhich& which, const UsbFound& opened, const Devices& others) {
  const Devices all = With(others, opened);
  return "Several machines are attached. This is " + NameOf(opened, all) + ".\n" +
         AlsoAttached(which, others, all);
}

}  // namespace morvane::bridges::usb_words
