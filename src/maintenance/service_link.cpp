#include "maintenance/service_link.h"

namespace morvane::maintenance {

void ServiceLink::Fail() {
  if (linkFailed_) return;
  linkFailed_ = true;
  machine_.MachineState = machine::Machine::kNotConnected;
  program_.ShowMessage(program_.Texts.Msg055, kOkCritical, "Communication Error");
  recover_();
}

void ServiceLink::Settle() { program_.Loop.WaitMs(kSettleMs); }

}  // namespace morvane::maintenance
