#include <gmock/gmock.h>

#include <regex>

#include "bridges/usb/bridge_chip.h"
#include "bridges/usb/usb_words.h"
#include "support/fakes.h"
#include "text/text.h"

namespace morvane::bridges {
namespace {

const std::string kName = "70-morvane.rules";

std::string Rules() { return test::Content(MORVANE_TEST_DATA "/../../packaging/" + kName); }

/// The "vendor:product" that each rule for `subsystem` gives to whoever sits at the computer.
std::vector<std::string> GivenBy(const std::string& rules, const std::string& subsystem) {
  const std::regex rule("SUBSYSTEM==\"" + subsystem +
                        "\".*?ATTRS?\\{idVendor\\}==\"(\\w+)\", ATTRS?\\{idProduct\\}==\"(\\w+)\", "
                        "TAG\\+=\"uaccess\", ENV\\{ID_MM_\\w+_IGNORE\\}=\"1\"\n");
  std::vector<std::string> given;
  for (std::sregex_iterator at(rules.begin(), rules.end(), rule), end; at != end; ++at) {
    given.push_back((*at)[1].str() + ":" + (*at)[2].str());
  }
  return given;
}

TEST(UdevRule, ItIsAboutEachProductOfTheChipAndNoOther) {
  std::vector<std::string> chips;
  for (const std::uint16_t product : chip::kProducts) {
    chips.push_back(LowerCase(Hex8(chip::kVendor).substr(4) + ":" + Hex8(product).substr(4)));
  }
  EXPECT_EQ(GivenBy(Rules(), "usb"), chips);
  EXPECT_EQ(GivenBy(Rules(), "tty"), chips);
}

TEST(UdevRule, TheOperatorIsToldOfItByItsName) {
  EXPECT_THAT(usb_words::NoRights({}), ::testing::HasSubstr("The rule " + kName + " "));
}

TEST(UdevRule, ForOtherNumbersTheOperatorIsToldTheLineThatItNeeds) {
  const UsbWhich own{.Vendor = 0x1234, .Product = 0xABCD};
  EXPECT_EQ(GivenBy(usb_words::NoRights(own), "usb"), std::vector<std::string>{"1234:abcd"});
  const UsbWhich ofTheChip{.Vendor = 0x10C4, .Product = 0xEA70};
  EXPECT_EQ(usb_words::NoRights(ofTheChip), usb_words::NoRights({})) << "it has them";
  const UsbWhich unusual{.Vendor = 0x10C4, .Product = 0x8005};
  EXPECT_EQ(GivenBy(usb_words::NoRights(unusual), "usb"), std::vector<std::string>{"10c4:8005"});
}

}  // namespace
}  // namespace morvane::bridges
