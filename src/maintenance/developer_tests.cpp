#include "maintenance/developer_tests.h"

#include "wire/service_commands.h"

namespace morvane::maintenance {

void DeveloperTests::Test() {
  if (!TestText.empty()) return;
  host_.AtMachine([this] {
    if (const auto reply = link_.Ask(wire::TestCommand{})) TestText = wire::DiagnosisText(*reply);
  });
}

void DeveloperTests::Test_write() {
  host_.AtMachine([this] {
    link_.Write(wire::TestWriteCommand{static_cast<std::uint8_t>(Test6.Value()),
                                       static_cast<std::uint8_t>(Test7.Value())});
  });
}

}  // namespace morvane::maintenance
