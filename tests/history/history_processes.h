#pragma once

#include <array>
#include <set>
#include <string>

#include "history/history.h"
#include "platform/system_clock.h"
#include "support/fakes.h"

// What several processes on one data folder do, and what must be there afterwards.

namespace morvane::history {

/// The date of the tests, and real time to wait in: the processes do not share a virtual one.
class RealWaits final : public Clock {
 public:
  [[nodiscard]] LocalTime Now() const override { return test::VirtualClock().Now(); }
  [[nodiscard]] std::chrono::microseconds Elapsed() const override { return real_.Elapsed(); }
  void Spend(std::chrono::microseconds time) override { real_.Spend(time); }

 private:
  SystemClock real_;
};

inline constexpr int kProcesses = 4;
inline constexpr int kEntries = 60;

/// The entries go round the ring's end.
inline std::string AlmostFull() {
  std::string ring;
  for (std::size_t n = 1; n <= 19500; ++n) PutRecord(ring, n, BoardRecord(test::SuitBoard(1)));
  PutRecord(ring, 19501, EndRecord());
  return ring;
}

/// What the process of this number does.
inline void AddEntries(Program& program, History& history, int process) {
  test::FillSet(program.Set, process + 1, process + 2);
  for (int n = 1; n <= kEntries; ++n) {
    program.Locks.Renew();  // each is a flow of its own
    history.AddToHistory(program, std::to_string(process) + " " + std::to_string(n));
    program.Log.WriteLine("line " + std::to_string(process) + " " + std::to_string(n));
  }
}

inline void ExpectAllEntries(const test::TestDesk& desk) {
  test::TestDesk reader;
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

/// One entry of the processes that are killed.
inline void FillForEntry(BoardSet& set, int n) { test::FillSet(set, n % 600 + 1, n % 600 + 3); }

/// What the ring of a folder must be after entries 1, 2, ...
struct ExpectedRing {
  HistoryRing Ring;
  const std::string& After(int count) {
    BoardSet set;
    while (Ring.HistoryCount() < count) {
      const int n = Ring.HistoryCount() + 1;
      FillForEntry(set, n);
      Ring.Append(set, "Entry " + std::to_string(n));
    }
    return Ring.Bytes();
  }
};

}  // namespace morvane::history
