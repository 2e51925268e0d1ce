#pragma once

#include <string>

#include "maintenance/console_host.h"
#include "maintenance/service_link.h"
#include "maintenance/value_box.h"

namespace morvane::maintenance {

/// What only the machine's developers try.
class DeveloperTests {
 public:
  DeveloperTests(ServiceLink& link, ConsoleHost& host) : link_(link), host_(host) {}

  std::string TestText;
  ValueBox Test6;
  ValueBox Test7;

  /// Fills an empty `TestText` with the machine's diagnosis.
  void Test();
  /// Sends the numbers in `Test6` and `Test7`.
  void Test_write();

 private:
  ServiceLink& link_;
  ConsoleHost& host_;
};

}  // namespace morvane::maintenance
