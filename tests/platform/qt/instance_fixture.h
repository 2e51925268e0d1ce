#pragma once

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_instance.h"
#include "support/fakes.h"
#include "support/qt_virtual_time.h"

namespace morvane::test {

/// Several programs in one. Each takes its time from the loop that it is made with: the real one,
/// or a virtual one where a test has to wait.
class InstanceFixture : public ::testing::Test {
 protected:
  InstanceFixture() {
    std::filesystem::create_directory(sockets);
    std::filesystem::permissions(sockets, std::filesystem::perms::owner_all);
    qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(sockets));
  }
  ~InstanceFixture() override { qunsetenv("XDG_RUNTIME_DIR"); }

  TempFolder folder;
  /// A folder of sockets of their own, where the system keeps them in folders.
  const std::string sockets = folder / "run";
  const std::string store = folder / "store.ini";
  QtEventLoop real;
  VirtualClock clock;
  QtVirtualEventLoop virtualTime{clock};
  std::vector<std::string> executed;

  void Listen(QtInstance& instance) {
    instance.Listen([this](std::string_view command) { executed.emplace_back(command); });
  }
  void Run(QtInstance& instance) {
    EXPECT_TRUE(instance.Claim());
    Listen(instance);
  }
  bool HandOver(const std::string& path, const std::string& command) {
    QtInstance second(real, path);
    EXPECT_FALSE(second.Claim());
    return second.HandOver(command);
  }
  /// Whoever calls a running one that takes no command.
  void ExpectGivingUpAfterTwoSeconds() {
    QtInstance first(virtualTime, store);
    EXPECT_TRUE(first.Claim());
    QtInstance second(virtualTime, store);
    EXPECT_FALSE(second.Claim());
    EXPECT_FALSE(second.HandOver("1a"));
    EXPECT_GE(clock.Elapsed(), std::chrono::milliseconds(2000));
    EXPECT_LE(clock.Elapsed(), std::chrono::milliseconds(2100));
  }
};

}  // namespace morvane::test
