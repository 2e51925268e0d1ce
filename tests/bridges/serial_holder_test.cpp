#include "bridges/usb/serial_holder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "support/fakes.h"
#include "support/holding_program.h"

namespace morvane::bridges {
namespace {

using test::HoldingProgram;

class SerialHolder : public testing::Test {
 protected:
  SerialHolder() { std::filesystem::create_directory(folder_ / "dev"); }
  test::TempFolder folder_;
  const std::string path_ = folder_ / "dev/device";  // devices stand in a folder of this name
};

TEST_F(SerialHolder, TheProgramThatHasAFileOpenIsNamed) {
  test::WriteContent(path_, "");
  EXPECT_EQ(ProgramHolding(path_), std::nullopt);
  {
    const HoldingProgram other(path_);
    EXPECT_EQ(ProgramHolding(path_), "sleep");
  }
  EXPECT_EQ(ProgramHolding(path_), std::nullopt);
}

TEST_F(SerialHolder, ItDoesNotMatterByWhichPath) {
  test::WriteContent(path_, "");
  const std::string link = folder_ / "link";
  ASSERT_EQ(symlink(path_.c_str(), link.c_str()), 0);
  const HoldingProgram other(link);
  EXPECT_EQ(ProgramHolding(path_), "sleep");
  EXPECT_EQ(ProgramHolding(link), "sleep");
}

TEST_F(SerialHolder, AnotherFileIsNot) {
  test::WriteContent(path_, "");
  test::WriteContent(folder_ / "other", "");
  const HoldingProgram other(folder_ / "other");
  EXPECT_EQ(ProgramHolding(path_), std::nullopt);
}

TEST_F(SerialHolder, ThisProgramItselfDoesNotCount) {
  test::WriteContent(path_, "");
  const int own = open(path_.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_GE(own, 0);
  EXPECT_EQ(ProgramHolding(path_), std::nullopt);
  close(own);
}

TEST_F(SerialHolder, NobodyHoldsWhatIsNotThere) { EXPECT_EQ(ProgramHolding(path_), std::nullopt); }

/// A serial device under two names: the slave of a pseudo-terminal, and a node made for it.
class SerialNodes : public SerialHolder {
 protected:
  void SetUp() override {
    terminal_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(terminal_, 0);
    ASSERT_EQ(grantpt(terminal_), 0);
    ASSERT_EQ(unlockpt(terminal_), 0);
  }
  void TearDown() override { close(terminal_); }

  [[nodiscard]] std::string Slave() const { return ptsname(terminal_); }
  /// Only the administrator makes nodes.
  bool MakeNode(unsigned above) {
    struct stat slave {};
    EXPECT_EQ(stat(Slave().c_str(), &slave), 0);
    const dev_t device = makedev(major(slave.st_rdev), minor(slave.st_rdev) + above);
    return mknod(path_.c_str(), S_IFCHR | S_IRUSR | S_IWUSR, device) == 0;
  }
  int terminal_ = -1;
};

TEST_F(SerialNodes, ADeviceIsTheSameBehindANodeMadeAnew) {
  if (!MakeNode(0)) GTEST_SKIP() << "this user makes no nodes";
  const HoldingProgram other(Slave());
  EXPECT_EQ(ProgramHolding(path_), "sleep");
}

TEST_F(SerialNodes, AnotherDeviceIsAnother) {
  if (!MakeNode(1000)) GTEST_SKIP() << "this user makes no nodes";
  const HoldingProgram other(Slave());
  EXPECT_EQ(ProgramHolding(path_), std::nullopt);
}

}  // namespace
}  // namespace morvane::bridges
