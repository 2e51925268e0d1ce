#pragma once

#include "machine/reading_run.h"
#include "machine/run_fixture.h"
#include "machine/sorting_run.h"

namespace morvane::machine {

/// A reading run over the empty boards 1 to 3 on the paper machine, which reads the spades into
/// pocket 1, the hearts into 2, the diamonds into 3 and the clubs into 4.
class ReadFixture : public RunFixture {
 protected:
  ReadingRun reading{desk.Prog, machine, memory, [this] { ++saves; }};
  int saves = 0;

  void SetUp() override {
    RunFixture::SetUp();
    for (int n = 1; n <= 3; ++n) At(n) = NumberedBoard(n);
    for (std::size_t place = 0; place < 52; ++place) {
      paper.Read[place] = static_cast<std::uint8_t>(place / 13 + 1);
    }
  }
  void Contact() { Contact(reading); }
  void Contact(MachineRun& run) {
    run.Open(view);
    desk.Loop.WaitMs(MachineRun::kFirstContactMs);
    bridge.Sent.clear();
    bridge.Calls.clear();
  }
  Board& At(int n) { return desk.Prog.Set.At(n); }
};

/// What the log has of the board that the paper machine reads: North has the clubs, East the
/// diamonds, South the spades and West the hearts.
inline const std::string kReadText =
    "...AKQJT98765432 ..AKQJT98765432. AKQJT98765432... .AKQJT98765432.. ";

class SortFixture : public RunFixture {
 protected:
  SortingRun sorting{desk.Prog, machine, memory};
  void Contact() {
    sorting.Open(view);
    desk.Loop.WaitMs(MachineRun::kFirstContactMs);
    bridge.Sent.clear();
    bridge.Calls.clear();
  }
};

}  // namespace morvane::machine
