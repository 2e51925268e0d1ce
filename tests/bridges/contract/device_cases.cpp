#include <algorithm>
#include <array>

#include "bridges/contract/contract.h"

namespace morvane::bridges {
namespace {

using ProductString = UsbXpress::ProductString;

void TheVersionsAskForNoUpdate(ContractDesk& desk) {
  std::uint32_t high = 0;
  std::uint32_t low = 99;
  EXPECT_EQ(desk.Bridge().GetDllVersion(high, low), UsbXpress::kSuccess);
  EXPECT_EQ(desk.Bridge().GetDriverVersion(high, low), UsbXpress::kSuccess);
  EXPECT_GE(high, 0x00030001U);
}

void OneDeviceIsThereOpenOrNot(ContractDesk& desk) {
  ContractClient client(desk);
  for (int opened = 0; opened < 2; ++opened) {
    client.FindDevice();
    if (opened == 0) client.Open();
  }
}

void TheSerialStringIsEndedAndAlwaysTheSame(ContractDesk& desk) {
  ContractClient(desk).FindDevice();
  std::array<ProductString, 2> texts;
  texts[0].fill('x');
  texts[1].fill('y');
  for (ProductString& text : texts) {
    EXPECT_EQ(desk.Bridge().GetProductString(0, text, UsbXpress::kSerialString),
              UsbXpress::kSuccess);
    EXPECT_NE(text[0], '\0');
    ASSERT_NE(std::find(text.begin(), text.end(), '\0'), text.end());
  }
  EXPECT_STREQ(texts[0].data(), texts[1].data());
}

void NothingIsToldOfADeviceThatIsNotThere(ContractDesk& desk) {
  ContractClient(desk).FindDevice();
  ProductString text{'x'};
  EXPECT_EQ(desk.Bridge().GetProductString(1, text, UsbXpress::kSerialString),
            UsbXpress::kDeviceNotFound);
  EXPECT_EQ(desk.Bridge().GetProductString(0xFFFFFFFF, text, UsbXpress::kSerialString),
            UsbXpress::kDeviceNotFound);
}

void OnlyTheSerialStringIsTold(ContractDesk& desk) {
  ContractClient(desk).FindDevice();
  ProductString text{};
  EXPECT_EQ(desk.Bridge().GetProductString(0, text, 1), UsbXpress::kInvalidParameter);
  EXPECT_EQ(desk.Bridge().GetProductString(0, text, 0xFFFFFFFF), UsbXpress::kInvalidParameter);
}

void ADeviceThatIsNotThereIsNotOpened(ContractDesk& desk) {
  ContractClient(desk).FindDevice();
  UsbXpress::Handle handle = ContractClient::kNone;
  EXPECT_EQ(desk.Bridge().Open(1, handle), UsbXpress::kDeviceNotFound);
  EXPECT_EQ(handle, ContractClient::kNone);
  ContractClient(desk).Open();
}

constexpr std::array<ContractCase, 6> kCases{{
    {"TheVersionsAskForNoUpdate", TheVersionsAskForNoUpdate},
    {"OneDeviceIsThereOpenOrNot", OneDeviceIsThereOpenOrNot},
    {"TheSerialStringIsEndedAndAlwaysTheSame", TheSerialStringIsEndedAndAlwaysTheSame},
    {"NothingIsToldOfADeviceThatIsNotThere", NothingIsToldOfADeviceThatIsNotThere},
    {"OnlyTheSerialStringIsTold", OnlyTheSerialStringIsTold},
    {"ADeviceThatIsNotThereIsNotOpened", ADeviceThatIsNotThereIsNotOpened},
}};

}  // namespace

std::span<const ContractCase> DeviceCases() { return kCases; }

}  // namespace morvane::bridges
