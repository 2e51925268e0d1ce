#include "maintenance/service_link.h"

namespace morvane::maintenance {

void ServiceLink::Fail(const std::string& text) {
  linkFailed_ = true;
  machine_.MachineState = machine::Machine::kNotConnected;
  program_.ShowMessage(text, kOkCritical, "Communication Error");
  recover_();
}

void ServiceLink::Settle() { program_.Loop.WaitMs(kSettleMs); }

}  // namespace morvane::maintenance
