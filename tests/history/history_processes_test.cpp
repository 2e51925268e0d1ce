#include "history/history_processes.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <filesystem>
#include <random>

// Several programs on one data folder, and programs that die in the middle.

namespace morvane::history {
namespace {

using test::TestDesk;

/// Starts a process that works on the data folder of `owner`. What the desk of the process leaves
/// on disk goes with the caller's `desk`, however the process ends.
template <typename Work>
pid_t InProcess(TestDesk& desk, const TestDesk& owner, Work work) {
  const pid_t child = fork();
  if (child != 0) return child;
  const std::string& folder = owner.Prog.Paths.Data;
  RealWaits time;
  Program program(
      {desk.Ui, desk.Loop, time, desk.Store, desk.Random, desk.Speaker, desk.ThePrinter},
      {desk.Prog.Paths.Application, folder});
  RuntimeError error;
  if (!desk.History.LoadHistory(program) || !program.Log.Start(folder, error)) _exit(1);
  work(program, desk.History);
  _exit(desk.Ui.Boxes.empty() ? 0 : 1);
}

bool EndedWell(pid_t child) {
  int status = 0;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(SharedHistory, ProcessesThatAddAtOnceLoseNothing) {
  const TestDesk desk;
  test::WriteContent(desk.Prog.Paths.Data + "/history1.dat", AlmostFull());
  TestDesk helper;
  std::vector<pid_t> children;
  for (int process = 0; process < kProcesses; ++process) {
    children.push_back(InProcess(helper, desk, [&](Program& program, History& history) {
      AddEntries(program, history, process);
    }));
  }
  for (const pid_t child : children) EXPECT_TRUE(EndedWell(child));
  ExpectAllEntries(desk);
}

/// Entries `next` and on, until the process is killed; each is told through the pipe when it is
/// there.
[[noreturn]] void AddForEver(Program& program, History& history, int next, int toldThrough) {
  for (int n = next;; ++n) {
    FillForEntry(program.Set, n);
    history.AddToHistory(program, "Entry " + std::to_string(n));
    if (write(toldThrough, &n, sizeof n) != sizeof n) _exit(1);
  }
}

TEST(SharedHistory, AProcessKilledWhileItAddsLeavesEveryEarlierEntry) {
  constexpr int kKills = 300;
  const TestDesk desk;
  TestDesk helper;
  const std::string file = desk.Prog.Paths.Data + "/history1.dat";
  ExpectedRing expected;
  // Six records an entry: the kills go round the ring's end.
  test::WriteContent(file, expected.After(3250));
  std::mt19937 random(7);
  int killedInTheMiddle = 0;
  for (int kill = 0; kill < kKills; ++kill) {
    std::array<int, 2> told{};
    ASSERT_EQ(pipe(told.data()), 0);
    const int next = expected.Ring.HistoryCount() + 1;
    const pid_t child = InProcess(helper, desk, [&](Program& program, History& history) {
      AddForEver(program, history, next, told[1]);
    });
    close(told[1]);
    int last = 0;
    ASSERT_EQ(read(told[0], &last, sizeof last), static_cast<ssize_t>(sizeof last));
    // A moment that no one can foresee, somewhere in the entries that follow.
    std::atomic<std::uint_fast32_t> spin = 0;
    for (const auto moment = random() % 600'000; spin < moment;) ++spin;
    ::kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    while (read(told[0], &last, sizeof last) == static_cast<ssize_t>(sizeof last)) {
    }
    close(told[0]);
    // The last entry told is there; the one that was under way is there whole or not at all.
    const std::string bytes = test::Content(file);
    if (bytes != expected.After(last)) {
      ++killedInTheMiddle;
      ASSERT_TRUE(bytes == expected.After(last + 1)) << "kill " << kill << " behind entry " << last;
    } else if (std::filesystem::exists(file + ".new")) {
      ++killedInTheMiddle;
    }
  }
  EXPECT_GT(killedInTheMiddle, 0) << "no kill fell into the adding of an entry";
}

}  // namespace
}  // namespace morvane::history
