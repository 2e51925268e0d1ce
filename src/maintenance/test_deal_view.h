#pragma once

#include "machine/error_dialog.h"

namespace morvane::maintenance {

/// What a test deal needs of its window. Everything shown is read from `TestDeal`; `ShowState` says
/// that it changed. As it stands here it shows nothing, and a fault is declined.
class TestDealView : public machine::FaultView {
 public:
  void ShowState() override {}
  void ShowError(machine::ErrorDialog& /*dialog*/) override {}
};

}  // namespace morvane::maintenance
