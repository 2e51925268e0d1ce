#pragma once

#include <string>
#include <tuple>
#include <vector>

#include "bridges/contract/contract.h"

namespace morvane::bridges {

/// A kind of bridge, and how a case is held there.
struct ContractBridge {
  const char* Name;
  void (*Hold)(const ContractCase& what);
};

template <class Desk>
void HoldAt(const ContractCase& what) {
  Desk desk;
  what.Hold(desk);
}

/// Each case at each bridge: a program of tests makes its instance of it with its bridges and
/// `EveryContractCase`.
class UsbXpressContract : public testing::TestWithParam<std::tuple<ContractBridge, ContractCase>> {
};

[[nodiscard]] std::vector<ContractCase> EveryContractCase();
[[nodiscard]] std::string NameOfHolding(
    const testing::TestParamInfo<UsbXpressContract::ParamType>& holding);

}  // namespace morvane::bridges
