#include "maintenance/test_deal_command.h"

namespace morvane::maintenance {

void TestDealCommand::Run() {}

}  // namespace morvane::maintenance
