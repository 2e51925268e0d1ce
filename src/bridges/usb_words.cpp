#include "bridges/usb_words.h"

#include "bridges/bridge_chip.h"
#include "text/text.h"

namespace morvane::bridges::usb_words {
namespace {

/// As `--machine` takes it; one without a serial string is told by its place.
std::string NameOf(const UsbFound& device) {
  return device.Serial.empty() ? "the one at USB socket " + device.Place
                               : WithoutControls(device.Serial);
}

std::string NamesOf(const std::vector<UsbFound>& devices) {
  std::string names;
  for (const UsbFound& device : devices) {
    names += (names.empty() ? "" : ", ") + NameOf(device);
  }
  return names;
}

std::string Hex4(std::uint16_t number) { return Hex8(number).substr(4); }

std::string HowToName() { return "Another one is named by --machine usb:SERIAL."; }

}  // namespace

std::string None(const UsbWhich& which) {
  if (!which.Vendor) return "No machine is attached to a USB socket of this computer.";
  return "No device " + Hex4(*which.Vendor) + ":" +
         Hex4(which.Product.value_or(chip::kProducts.front())) +
         " is attached to a USB socket of this computer.";
}

std::string NotThatOne(const std::string& serial, const std::vector<UsbFound>& attached) {
  return "The machine " + serial + " is not attached.\nAttached: " + NamesOf(attached) + ".";
}

std::string NoRights() {
  return "A machine is attached, and this user may not use it.\n"
         "The rule 70-morvane.rules belongs into /etc/udev/rules.d.\n"
         "Once it is there, unplug the machine and plug it in again.";
}

std::string Held(const UsbFound& device, const std::vector<UsbFound>& others) {
  std::string text = "Another program has the machine " + NameOf(device) +
                     ".\nClose that program first: one at a time drives a machine.";
  if (!others.empty()) text += "\nAlso attached: " + NamesOf(others) + ". " + HowToName();
  return text;
}

std::string HeldAsSerial(const std::string& path) {
  return "Another program has the machine as the serial device " + path +
         ".\nClose that program first: one at a time drives a machine.";
}

std::string Gone() { return "The machine was unplugged while it was being opened."; }

std::string Silent() {
  return "A machine is attached and does not answer at its USB socket.\n"
         "Unplug it and plug it in again.";
}

std::string Several(const UsbFound& opened, const std::vector<UsbFound>& others) {
  return "Several machines are attached. This is " + NameOf(opened) +
         ".\nAlso attached: " + NamesOf(others) + ". " + HowToName();
}

}  // namespace morvane::bridges::usb_words
