// A set analysed by the command line, a process a board, beside the library's own time for the same
// boards in one process: what driver, mailbox and process add to a board.
//   --boards=N    32 unless told otherwise

#include <gmock/gmock.h>

#include <chrono>
#include <cstdio>

#include "bench/dealt_set.h"
#include "bench/options.h"
#include "e2e/process.h"
#include "files/pbn_writer.h"
#include "solver/dds_table.h"
#include "support/fakes.h"

namespace morvane::bench {
namespace {

constexpr double kWantedMs = 150;

template <typename Work>
double Milliseconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

int Run(const Options& options) {
  const auto boards = static_cast<int>(options.Whole("boards").value_or(32));
  const BoardSet set = RandomBoards(boards);
  const double library = Milliseconds([&] {
    for (int n = 1; n <= boards; ++n) static_cast<void>(solver::CalcTable(set.At(n)));
  });
  const test::TempFolder folder;
  test::WriteContent(folder / "set.pbn", files::PbnText(set, "", false));
  int status = -1;
  const double command = Milliseconds([&] {
    e2e::Process process({"--data", folder / "data", "--settings", folder / "settings.ini", "--yes",
                          "analyze", folder / "set.pbn", folder / "out.pbn"},
                         {.Folder = folder.Path()});
    status = process.Finish().Status;
  });
  const double added = (command - library) / boards;
  const bool good = status == 0 && added <= kWantedMs;
  std::printf("%d boards, block 01 02 03 04 05\n", boards);
  std::printf("  %-44s %9.1f ms a board\n", "the library, in one process", library / boards);
  std::printf("  %-44s %9.1f ms a board\n", "analyze, a process a board", command / boards);
  std::printf("  %-44s %9.1f ms a board%s (wanted: at most %.0f)\n", "added", added,
              good ? "" : "  FELL SHORT", kWantedMs);
  return good ? 0 : 1;
}

}  // namespace
}  // namespace morvane::bench

int main(int argc, char** argv) {
  return morvane::bench::Run(morvane::bench::Options(argc, argv, {"boards"}));
}
