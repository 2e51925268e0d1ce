#include "bridges/contract/contract_suite.h"

namespace morvane::bridges {

std::vector<ContractCase> EveryContractCase() {
  std::vector<ContractCase> all;
  for (const auto& cases : {DeviceCases(), HandleCases(), ExchangeCases()}) {
    all.insert(all.end(), cases.begin(), cases.end());
  }
  return all;
}

std::string NameOfHolding(const testing::TestParamInfo<UsbXpressContract::ParamType>& holding) {
  const auto& [bridge, what] = holding.param;
  return std::string(bridge.Name) + "_" + what.Name;
}

TEST_P(UsbXpressContract, Holds) {
  const auto& [bridge, what] = GetParam();
  bridge.Hold(what);
}

}  // namespace morvane::bridges
