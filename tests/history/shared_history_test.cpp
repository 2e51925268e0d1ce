#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <set>

#include "history/history.h"
#include "platform/system_clock.h"
#include "support/fakes.h"

// Several programs on one data folder, and programs that die in the middle.

namespace morvane::history {
namespace {

using test::SuitBoard;
using test::TestDesk;

/// The date of the tests, and real time to wait in: the processes do not share a virtual one.
class RealWaits final : public Clock {
 public:
  [[nodiscard]] LocalTime Now() const override { return test::VirtualClock().Now(); }
  [[nodiscard]] std::chrono::microseconds Elapsed() const override { return real_.Elapsed(); }
  void Spend(std::chrono::microseconds time) override { real_.Spend(time); }

 private:
  SystemClock real_;
};

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
  constexpr int kProcesses = 4;
  constexpr int kEntries = 60;
  const TestDesk desk;
  // The entries go round the ring's end.
  std::string almostFull;
  for (std::size_t n = 1; n <= 19500; ++n) PutRecord(almostFull, n, BoardRecord(SuitBoard(1)));
  PutRecord(almostFull, 19501, EndRecord());
  test::WriteContent(desk.Prog.Paths.Data + "/history1.dat", almostFull);
  TestDesk helper;
  std::vector<pid_t> children;
  for (int process = 0; process < kProcesses; ++process) {
    children.push_back(InProcess(helper, desk, [&](Program& program, History& history) {
      test::FillSet(program.Set, process + 1, process + 2);
      for (int n = 1; n <= kEntries; ++n) {
        program.Locks.Renew();  // each is a flow of its own
        history.AddToHistory(program, std::to_string(process) + " " + std::to_string(n));
        program.Log.WriteLine("line " + std::to_string(process) + " " + std::to_string(n));
      }
    }));
  }
  for (const pid_t child : children) EXPECT_TRUE(EndedWell(child));

  TestDesk reader;
  Program program({reader.Ui, reader.Loop, reader.Clock, reader.Store, reader.Random,
                   reader.Speaker, reader.ThePrinter},
                  {reader.Prog.Paths.Application, desk.Prog.Paths.Data});
  History history;
  ASSERT_TRUE(history.LoadHistory(program));
  EXPECT_EQ(history.Ring().HistoryUsed(), 20000);
  EXPECT_EQ(history.Ring().HistoryWritePos(), 19501 + kProcesses * kEntries * 5 - 20000);
  std::array<int, kProcesses> last{};
  for (const HistoryEntry& entry : history.Ring().Entries()) {
    const int process = entry.Name[0] - '0';
    const int n = std::stoi(entry.Name.substr(2));
    EXPECT_EQ(n, ++last[static_cast<std::size_t>(process)]) << "in the order of adding";
    EXPECT_EQ(entry.Boards, 2);
    const auto position = static_cast<std::size_t>((entry.Position + 2) % 20000 + 1);
    const HistoryRecord board = RecordAt(history.Ring().Bytes(), position);
    EXPECT_EQ(NumberOfRecord(board), process + 1);
  }
  for (const int n : last) EXPECT_EQ(n, kEntries);

  const auto lines = desk.LogLines();
  EXPECT_EQ(lines.size(), static_cast<std::size_t>(kProcesses * kEntries));
  EXPECT_EQ(std::set<std::string>(lines.begin(), lines.end()).size(), lines.size());
}

TEST(SharedHistory, WhatAnotherProgramAddedIsComparedFromTheNextEntryOn) {
  TestDesk desk;
  History first;
  History second;
  ASSERT_TRUE(first.LoadHistory(desk.Prog));
  ASSERT_TRUE(second.LoadHistory(desk.Prog));
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.Set.At(1) = test::SuitBoard(1);
  first.AddToHistory(desk.Prog, "First");
  test::FillSet(desk.Prog.Set, 2, 2);
  second.AddToHistory(desk.Prog, "Second");
  EXPECT_EQ(second.Ring().HistoryCount(), 2);
  EXPECT_EQ(second.Ring().HistorySimilarity(test::SuitBoard(5)).File, "First");
  EXPECT_EQ(test::Content(desk.Prog.Paths.Data + "/history1.dat"), second.Ring().Bytes());
}

TEST(SharedHistory, AFileThatWasTakenAwayComesBackWhole) {
  TestDesk desk;
  ASSERT_TRUE(desk.History.LoadHistory(desk.Prog));
  test::FillSet(desk.Prog.Set, 1, 2);
  desk.History.AddToHistory(desk.Prog, "One");
  std::filesystem::remove(desk.Prog.Paths.Data + "/history1.dat");
  desk.History.AddToHistory(desk.Prog, "Two");
  EXPECT_EQ(test::Content(desk.Prog.Paths.Data + "/history1.dat"), desk.History.Ring().Bytes());
  History next;
  ASSERT_TRUE(next.LoadHistory(desk.Prog));
  EXPECT_EQ(next.Ring().HistoryCount(), 2);
}

TEST(SharedHistory, AFileThatTwoProgramsLoadAddsOneEntry) {
  TestDesk desk;
  History first;
  History second;
  ASSERT_TRUE(first.LoadHistory(desk.Prog));
  ASSERT_TRUE(second.LoadHistory(desk.Prog));
  test::FillSet(desk.Prog.Set, 1, 1);
  first.AddUnlessKnown(desk.Prog, "Evening");
  second.AddUnlessKnown(desk.Prog, "evening");
  EXPECT_EQ(second.Ring().HistoryCount(), 1);
  EXPECT_EQ(first.Ring().Bytes(), second.Ring().Bytes());
}

TEST(SharedHistory, WithoutTheFoldersLockNothingIsWrittenAndThatIsTold) {
  TestDesk desk;
  ASSERT_TRUE(desk.History.LoadHistory(desk.Prog));
  std::filesystem::remove(desk.Prog.Paths.Data + "/morvane.lock");
  std::filesystem::create_directory(desk.Prog.Paths.Data + "/morvane.lock");
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.History.AddToHistory(desk.Prog, "Evening");
  EXPECT_FALSE(desk.History.HistoryEnabled());
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_THAT(desk.Ui.Boxes[0].Text, ::testing::HasSubstr("      Is a directory\r\n"));
  EXPECT_FALSE(std::filesystem::exists(desk.Prog.Paths.Data + "/history1.dat"));
}

/// Entries `next` and on, until the process is killed; each is told through the pipe when it is
/// there.
[[noreturn]] void AddForEver(Program& program, History& history, int next, int toldThrough) {
  for (int n = next;; ++n) {
    test::FillSet(program.Set, n % 600 + 1, n % 600 + 3);
    history.AddToHistory(program, "Entry " + std::to_string(n));
    if (write(toldThrough, &n, sizeof n) != sizeof n) _exit(1);
  }
}

/// What the ring of a folder must be after entries 1, 2, ...
struct ExpectedRing {
  HistoryRing Ring;
  const std::string& After(int count) {
    BoardSet set;
    while (Ring.HistoryCount() < count) {
      const int n = Ring.HistoryCount() + 1;
      test::FillSet(set, n % 600 + 1, n % 600 + 3);
      Ring.Append(set, "Entry " + std::to_string(n));
    }
    return Ring.Bytes();
  }
};

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
