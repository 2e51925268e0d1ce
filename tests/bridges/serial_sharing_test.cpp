#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "bridges/serial_desk.h"
#include "support/fakes.h"
#include "support/plain_user.h"

// A device that somebody else has, or that is not this user's.

namespace morvane::bridges {
namespace {

using ::testing::StartsWith;

/// The device as a program that is none of ours has it.
class OtherProgram {
 public:
  explicit OtherProgram(const std::string& path)
      : file_(open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {
    EXPECT_GE(file_, 0);
  }
  ~OtherProgram() { close(file_); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;
  [[nodiscard]] bool Lock() const { return flock(file_, LOCK_EX | LOCK_NB) == 0; }
  [[nodiscard]] bool Barred() const {
    int barred = -1;
    EXPECT_EQ(ioctl(file_, TIOCGEXCL, &barred), 0);
    return barred != 0;
  }

 private:
  int file_;
};

TEST_F(SerialBridgeTest, ASecondOpeningIsRefusedAndLeavesTheFirst) {
  Open(kLongMs);
  UsbXpress::Handle second = kNoHandle;
  EXPECT_EQ(bridge_.Open(0, second), UsbXpress::kInvalidParameter);
  SerialBridge other(peer_.Path());  // another program would meet the same
  EXPECT_EQ(other.Open(0, second), UsbXpress::kDeviceIoFailed);
  EXPECT_EQ(second, kNoHandle);
  EXPECT_EQ(other.Advice(), "Another program has " + peer_.Path() + ".\nClose it and try again.");
  EXPECT_EQ(bridge_.Advice(), "");
  EXPECT_EQ(other.Close(0), UsbXpress::kInvalidHandle);
  peer_.Send(CountedBytes(256));
  EXPECT_EQ(Read(256), CountedBytes(256)) << "every control character passes as before";
}

TEST_F(SerialBridgeTest, ASecondNameOfTheDeviceOpensItNoMore) {
  Open(kLongMs);
  test::TempFolder folder;
  std::filesystem::create_symlink(peer_.Path(), folder / "machine");
  SerialBridge other(folder / "machine");
  UsbXpress::Handle second = kNoHandle;
  EXPECT_EQ(other.Open(0, second), UsbXpress::kDeviceIoFailed);
  EXPECT_EQ(second, kNoHandle);
  peer_.Send(CountedBytes(256));
  EXPECT_EQ(Read(256), CountedBytes(256));
  EXPECT_EQ(bridge_.Close(handle_), UsbXpress::kSuccess);
  EXPECT_EQ(other.Open(0, second), UsbXpress::kSuccess);
}

TEST_F(SerialBridgeTest, ADeviceThatAnotherProgramHoldsIsRefusedUntilItLetsGo) {
  {
    const OtherProgram other(peer_.Path());
    ASSERT_TRUE(other.Lock());
    EXPECT_EQ(bridge_.Open(0, handle_), UsbXpress::kDeviceIoFailed);
    EXPECT_EQ(handle_, kNoHandle);
  }
  EXPECT_EQ(bridge_.Open(0, handle_), UsbXpress::kSuccess);
}

TEST_F(SerialBridgeTest, WhatIsOpenIsHeldAgainstOtherPrograms) {
  const OtherProgram other(peer_.Path());
  Open(5);
  EXPECT_FALSE(other.Lock());
  EXPECT_EQ(bridge_.Close(handle_), UsbXpress::kSuccess);
  EXPECT_TRUE(other.Lock());
}

TEST_F(SerialBridgeTest, APseudoTerminalIsNotBarredForGoodShouldTheProgramDie) {
  const OtherProgram other(peer_.Path());
  Open(5);
  EXPECT_FALSE(other.Barred());
}

TEST_F(SerialBridgeTest, ADeviceThatIsNotThisUsersIsRefused) {
  ASSERT_EQ(chmod(peer_.Path().c_str(), geteuid() == 0 ? S_IRUSR | S_IWUSR : 0), 0);
  const test::PlainUser user;
  ASSERT_TRUE(user.Ok());
  std::uint32_t count = 0;
  EXPECT_EQ(bridge_.GetNumDevices(count), UsbXpress::kSuccess) << "it is there";
  EXPECT_EQ(bridge_.Open(0, handle_), UsbXpress::kDeviceIoFailed);
  EXPECT_EQ(handle_, kNoHandle);
  EXPECT_THAT(bridge_.Advice(), StartsWith("This user may not use " + peer_.Path() +
                                           ".\nThe rule 70-morvane.rules lets in who sits "));
}

TEST(SerialWords, ADeviceThatIsNotThereIsTold) {
  test::TempFolder folder;
  SerialBridge bridge(folder / "none");
  std::uint32_t count = 9;
  EXPECT_EQ(bridge.GetNumDevices(count), UsbXpress::kDeviceNotFound);
  EXPECT_THAT(bridge.Advice(), StartsWith("There is no " + (folder / "none") + ".\n"));
}

TEST(SerialWords, AFileIsNoSerialDevice) {
  test::TempFolder folder;
  test::WriteContent(folder / "deal.pbn", "");
  SerialBridge bridge(folder / "deal.pbn");
  std::uint32_t count = 9;
  EXPECT_EQ(bridge.GetNumDevices(count), UsbXpress::kDeviceNotFound);
  EXPECT_THAT(bridge.Advice(), StartsWith((folder / "deal.pbn") + " is no serial device.\n"));
}

/// A program of its own that has the device open, without a lock.
class Holder {
 public:
  explicit Holder(const std::string& path) : pid_(fork()) {
    if (pid_ != 0) return;
    open(path.c_str(), O_RDWR | O_NOCTTY);
    while (true) pause();
  }
  ~Holder() {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;

 private:
  pid_t pid_;
};

// A device that nobody else has: the system's own serial ones and terminals may be in use.
constexpr const char* kFreeDevice = "/dev/full";

TEST(SerialWords, WhyTheSystemDoesNotOpenADeviceIsTold) {
  SerialBridge bridge(kFreeDevice);
  UsbXpress::Handle handle = kNoHandle;
  EXPECT_EQ(bridge.Open(0, handle), UsbXpress::kDeviceNotFound);
  EXPECT_EQ(handle, kNoHandle);
  EXPECT_THAT(bridge.Advice(),
              StartsWith("/dev/full cannot be opened: Inappropriate ioctl for device.\n"));
}

TEST(SerialWords, AProgramThatHasTheDeviceWithoutALockIsNamed) {
  SerialBridge bridge(kFreeDevice);
  UsbXpress::Handle handle = kNoHandle;
  const Holder other(kFreeDevice);
  while (bridge.Open(0, handle) == UsbXpress::kDeviceNotFound) sched_yield();
  EXPECT_EQ(bridge.Open(0, handle), UsbXpress::kDeviceIoFailed);
  EXPECT_EQ(handle, kNoHandle);
  EXPECT_THAT(bridge.Advice(), StartsWith("Another program (test_bridges) has /dev/full.\n"));
}

TEST_F(SerialBridgeTest, WhatWasSaidOfADeviceIsForgottenWhenItOpens) {
  {
    const OtherProgram other(peer_.Path());
    ASSERT_TRUE(other.Lock());
    EXPECT_EQ(bridge_.Open(0, handle_), UsbXpress::kDeviceIoFailed);
    EXPECT_NE(bridge_.Advice(), "");
  }
  EXPECT_EQ(bridge_.Open(0, handle_), UsbXpress::kSuccess);
  EXPECT_EQ(bridge_.Advice(), "");
}

}  // namespace
}  // namespace morvane::bridges
