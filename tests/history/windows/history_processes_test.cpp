#include "history/history_processes.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <thread>

#include "platform/files.h"
#include "platform/windows/other_process.h"

// Several programs on one data folder, and programs that die in the middle.

namespace morvane::history {
namespace {

using test::OtherProcess;
using test::TestDesk;

/// The data folder and a number, handed on to another process as one text.
std::string Told(const TestDesk& desk, int number) {
  return std::to_string(number) + " " + desk.Prog.Paths.Data;
}

/// Such a process: the data folder as it is told, by real time.
struct Worker {
  Worker() {
    const std::string about = OtherProcess::About();
    const std::size_t space = about.find(' ');
    Number = std::stoi(about.substr(0, space));
    Folder = about.substr(space + 1);
    TheProgram = std::make_unique<Program>(
        Ports{Desk.Ui, Desk.Loop, Time, Desk.Store, Desk.Random, Desk.Speaker, Desk.ThePrinter},
        ProgramPaths{Desk.Prog.Paths.Application, Folder});
    RuntimeError error;
    EXPECT_TRUE(TheHistory.LoadHistory(*TheProgram));
    EXPECT_TRUE(TheProgram->Log.Start(Folder, error));
  }
  int Number = 0;
  std::string Folder;
  TestDesk Desk;
  RealWaits Time;
  std::unique_ptr<Program> TheProgram;
  History TheHistory;
};

TEST(HistoryProcess, DISABLED_Adds) {
  Worker worker;
  AddEntries(*worker.TheProgram, worker.TheHistory, worker.Number);
  EXPECT_TRUE(worker.Desk.Ui.Boxes.empty());
  if (HasFailure()) return;
  test::WriteContent(JoinPath(worker.Folder, "well_" + std::to_string(worker.Number)), "");
}

TEST(SharedHistory, ProcessesThatAddAtOnceLoseNothing) {
  const TestDesk desk;
  test::WriteContent(JoinPath(desk.Prog.Paths.Data, "history1.dat"), AlmostFull());
  std::vector<std::unique_ptr<OtherProcess>> others;
  for (int process = 0; process < kProcesses; ++process) {
    others.push_back(
        std::make_unique<OtherProcess>("HistoryProcess.DISABLED_Adds", Told(desk, process)));
  }
  for (int process = 0; process < kProcesses; ++process) {
    ASSERT_TRUE(others[static_cast<std::size_t>(process)]->Ends());
    EXPECT_TRUE(std::filesystem::exists(
        PathOfUtf8(JoinPath(desk.Prog.Paths.Data, "well_" + std::to_string(process)))));
  }
  ExpectAllEntries(desk);
}

/// Adds entries and ends at a moment that no one can foresee. The last that was there whole stands
/// in "told".
TEST(HistoryProcess, DISABLED_AddsUntilItDies) {
  Worker worker;
  std::filesystem::remove_all(worker.Desk.Folder.Path());  // nobody would do it later
  std::atomic<bool> begun = false;
  const std::string told = JoinPath(worker.Folder, "told");
  std::thread([&begun, moment = std::random_device()() % 30'000'000] {
    while (!begun) std::this_thread::yield();
    std::atomic<std::uint_fast32_t> spin = 0;
    while (spin < moment) ++spin;
    OtherProcess::Die();
  }).detach();
  for (int n = worker.Number;; ++n) {
    FillForEntry(worker.TheProgram->Set, n);
    worker.TheHistory.AddToHistory(*worker.TheProgram, "Entry " + std::to_string(n));
    if (AppendLines(told, std::to_string(n) + "\r\n")) OtherProcess::Die();
    begun = true;
  }
}

/// The last number in "told" that stands there whole.
int LastTold(const std::string& told) {
  const std::size_t end = told.rfind("\r\n");
  const std::size_t before = end == 0 ? std::string::npos : told.rfind('\n', end - 1);
  return std::stoi(told.substr(before == std::string::npos ? 0 : before + 1));
}

TEST(SharedHistory, AProcessKilledWhileItAddsLeavesEveryEarlierEntry) {
  constexpr int kKills = 25;
  const TestDesk desk;
  const std::string file = JoinPath(desk.Prog.Paths.Data, "history1.dat");
  const std::string told = JoinPath(desk.Prog.Paths.Data, "told");
  ExpectedRing expected;
  test::WriteContent(file, expected.After(3250));
  for (int kill = 0; kill < kKills; ++kill) {
    const OtherProcess other("HistoryProcess.DISABLED_AddsUntilItDies",
                             Told(desk, expected.Ring.HistoryCount() + 1));
    ASSERT_TRUE(other.Ends());
    ASSERT_TRUE(std::filesystem::exists(PathOfUtf8(told))) << "it got as far as its first entry";
    const int last = LastTold(test::Content(told));
    std::filesystem::remove(PathOfUtf8(told));
    const std::string bytes = test::Content(file);
    if (bytes == expected.After(last)) continue;
    ASSERT_TRUE(bytes == expected.After(last + 1)) << "kill " << kill << " behind entry " << last;
  }
}

}  // namespace
}  // namespace morvane::history
