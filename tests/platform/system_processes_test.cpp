#include "platform/system_processes.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "support/fakes.h"

// Real processes, shell scripts that leave what they find in files.

namespace morvane {
namespace {

class SystemProcessesTest : public ::testing::Test {
 protected:
  std::string Script(const std::string& body) {
    test::WriteContent(folder / "script", "#!/bin/sh\ncd '" + folder.Path() + "'\n" + body + "\n");
    chmod((folder / "script").c_str(), 0755);
    return folder / "script";
  }
  /// Empty while there is no such file.
  [[nodiscard]] std::string Found() const {
    return std::filesystem::exists(folder / "found") ? test::Content(folder / "found") : "";
  }
  /// Writes to the pipe `gate`, once somebody reads there.
  void OpenGate() { std::ofstream(folder / "gate") << "go\n"; }
  /// False after half a minute.
  template <typename Condition>
  static bool Until(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition()) {
      if (std::chrono::steady_clock::now() > end) return false;
    }
    return true;
  }
  /// Whoever reads there yet ends too.
  void TearDown() override {
    const int gate = open((folder / "gate").c_str(), O_WRONLY | O_NONBLOCK);
    if (gate >= 0) close(gate);
  }
  static bool Ends(ChildProcess& child) {
    return Until([&child] { return !child.Lives(); });
  }

  test::TempFolder folder;
  SystemProcesses processes;
};

TEST_F(SystemProcessesTest, ArgumentsArriveAsTheyWereGiven) {
  const StartedProcess started =
      processes.Start({Script("for a in \"$@\"; do echo \"<$a>\"; done >found"),
                       {"NSA", "a b", "", "\"'$HOME*"},
                       {}});
  ASSERT_TRUE(started.Child);
  EXPECT_FALSE(started.Error);
  ASSERT_TRUE(Ends(*started.Child));
  EXPECT_EQ(Found(), "<NSA>\n<a b>\n<>\n<\"'$HOME*>\n");
}

TEST_F(SystemProcessesTest, VariablesComeOnTopOfOurOwn) {
  setenv("MORVANE_SETTINGS", "/ours.ini", 1);
  setenv("MORVANE_TEST_OURS", "kept", 1);
  const StartedProcess started =
      processes.Start({Script("env | grep '^MORVANE_SETTINGS=\\|^MORVANE_TEST_' | sort >found"),
                       {},
                       {"MORVANE_SETTINGS=/a b/the store.ini"}});
  unsetenv("MORVANE_SETTINGS");
  unsetenv("MORVANE_TEST_OURS");
  ASSERT_TRUE(started.Child);
  ASSERT_TRUE(Ends(*started.Child));
  EXPECT_EQ(Found(), "MORVANE_SETTINGS=/a b/the store.ini\nMORVANE_TEST_OURS=kept\n");
}

/// It reads and writes nothing at the terminal, and an interrupt there, which goes to a group of
/// processes, is not for it.
TEST_F(SystemProcessesTest, ItIsHidden) {
  const StartedProcess started =
      processes.Start({Script("lines=$(for n in 0 1 2; do readlink /proc/$$/fd/$n; done\n"
                              "cut -d ' ' -f 1,5 /proc/$$/stat)\necho \"$lines\" >found"),
                       {},
                       {}});
  ASSERT_TRUE(started.Child);
  ASSERT_TRUE(Ends(*started.Child));
  const std::string found = Found();
  EXPECT_THAT(found, ::testing::StartsWith("/dev/null\n/dev/null\n/dev/null\n"));
  const std::string ids = found.substr(30);  // of the process and of its group
  const std::string process = ids.substr(0, ids.find(' '));
  EXPECT_EQ(ids, process + " " + process + "\n");
}

TEST_F(SystemProcessesTest, ItHoldsNoFileOfOurs) {
  test::WriteContent(folder / "ours", "");
  const int ours = open((folder / "ours").c_str(), O_RDONLY);  // stays open over a start of others
  ASSERT_GE(ours, 0);
  const StartedProcess started =
      processes.Start({Script("held=$(readlink /proc/$$/fd/*)\necho \"$held\" >found"), {}, {}});
  close(ours);
  ASSERT_TRUE(started.Child);
  ASSERT_TRUE(Ends(*started.Child));
  EXPECT_THAT(Found(), ::testing::HasSubstr("/dev/null\n"));
  EXPECT_THAT(Found(), ::testing::Not(::testing::HasSubstr("/ours")));
}

TEST_F(SystemProcessesTest, ItLivesUntilItEnds) {
  ASSERT_EQ(mkfifo((folder / "gate").c_str(), 0600), 0);
  const StartedProcess started = processes.Start({Script("read line <gate"), {}, {}});
  ASSERT_TRUE(started.Child);
  EXPECT_TRUE(started.Child->Lives());
  OpenGate();
  EXPECT_TRUE(Ends(*started.Child));
  EXPECT_FALSE(started.Child->Lives());
}

TEST_F(SystemProcessesTest, ItGoesOnWithoutUs) {
  ASSERT_EQ(mkfifo((folder / "gate").c_str(), 0600), 0);
  { const auto started = processes.Start({Script("read line <gate; echo $line >found"), {}, {}}); }
  OpenGate();
  EXPECT_TRUE(Until([this] { return Found() == "go\n"; }));
}

/// Nobody has asked whether it lives, and nothing of it is left to be waited for.
TEST_F(SystemProcessesTest, NothingStaysOfOneThatHasEnded) {
  const StartedProcess started =
      processes.Start({Script("echo $$ >lines; mv lines found"), {}, {}});
  ASSERT_TRUE(started.Child);
  ASSERT_TRUE(Until([this] { return !Found().empty(); }));
  const auto process = static_cast<id_t>(std::stoi(Found()));
  EXPECT_TRUE(Until([process] {
    siginfo_t ended{};
    return waitid(P_PID, process, &ended, WEXITED | WNOHANG | WNOWAIT) != 0 && errno == ECHILD;
  }));
}

TEST_F(SystemProcessesTest, AProgramThatIsMissingIsAnError) {
  const StartedProcess started = processes.Start({folder / "none", {}, {}});
  EXPECT_FALSE(started.Child);
  ASSERT_TRUE(started.Error);
  EXPECT_EQ(started.Error->Number, ENOENT);
  EXPECT_EQ(started.Error->Description, "No such file or directory");
}

TEST_F(SystemProcessesTest, AFileThatIsNoProgramIsAnError) {
  test::WriteContent(folder / "text", "no program");
  const StartedProcess started = processes.Start({folder / "text", {}, {}});
  EXPECT_FALSE(started.Child);
  ASSERT_TRUE(started.Error);
  EXPECT_EQ(started.Error->Number, EACCES);
}

}  // namespace
}  // namespace morvane
