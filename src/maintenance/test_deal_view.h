#pragma once

#include "machine/error_dialog.h"

namespace morvane::maintenance {

/// What a test deal needs of its window. Everything shown is read from `TestDeal`; `ShowState` says
/// that it changed.
class TestDealView : public machine::FaultView {};

}  // namespace morvane::maintenance
