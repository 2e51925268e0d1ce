// What loading costs: a set of 640 boards in every format, files that grow, and files that were
// made to be hard. Each hard file is loaded by a process of its own, whose memory the system tells.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/timing.h"
#include "files/format_table.h"
#include "files/import_set.h"
#include "files/load_number.h"
#include "files/load_set.h"
#include "files/save_set.h"
#include "platform/files.h"
#include "support/fakes.h"

namespace {

using namespace morvane;
using bench::Milliseconds;

constexpr int kRuns = 7;
constexpr double kWantedMilliseconds = 10;
constexpr double kWantedGrowth = 1.5;
constexpr std::size_t kHardMegabytes = 100;
constexpr double kWantedSeconds = 8;
constexpr double kWantedFileSizes = 6;

/// The operator takes the numbers that are offered.
class OfferedNumbers final : public files::NumberDialog {
 public:
  void ShowLoadNumber(files::LoadNumber& dialog) override { dialog.Command1(); }
};

/// A program whose operator says yes to everything; it logs, and keeps no history.
struct Desk : test::TestDesk {
  Desk() {
    Prog.ServiceLevel = 1;
    Ui.Default = kYes;
  }
  bool Load(const std::string& path) {
    OfferedNumbers numbers;
    return files::LoadFile(Prog, History, numbers, path);
  }
  bool Import(const std::string& path) {
    return files::ImportFile(Prog, History, path).has_value();
  }
};

using Command = bool (Desk::*)(const std::string& path);

struct Way {
  const char* Name;
  Command Take;
};
constexpr std::array<Way, 2> kWays{{{"Load", &Desk::Load}, {"Import", &Desk::Import}}};

/// A line end is the least that any reader has to look for.
double CountingLineEnds(const std::string& path) {
  return Milliseconds(kRuns, [&] {
    std::string bytes;
    if (ReadFile(path, bytes)) std::abort();
    volatile auto lines = std::count(bytes.begin(), bytes.end(), '\n');
    static_cast<void>(lines);
  });
}

std::string FullSetFile(Desk& desk, const std::string& extension) {
  std::string path = desk.Folder / ("set." + extension);
  test::FillSet(desk.Prog.Set, 1, kMaxBoards);
  if (extension == "txt") {
    desk.Prog.Log.Boards(desk.Prog.Set, 1, kMaxBoards, true);
    std::filesystem::copy_file(desk.Prog.Log.Path(), path);
    return path;
  }
  if (!files::SaveFile(desk.Prog, desk.History, path)) std::abort();
  return path;
}

/// Whether 640 boards come from a file of every format in the time that they may take.
bool LoadEveryFormat() {
  std::printf("A file of %d boards, read and its boards logged (wanted: under %.0f ms):\n",
              kMaxBoards, kWantedMilliseconds);
  bool quick = true;
  for (const char* extension : {"bri", "dge", "dup", "all", "bre", "csv", "pbn", "txt"}) {
    Desk desk;
    const std::string path = FullSetFile(desk, extension);
    bool right = true;
    const double taken = Milliseconds(kRuns, [&] { right = desk.Load(path) && right; });
    right = right && desk.Prog.Set.Count() == kMaxBoards;
    std::printf("  .%-4s %7ju bytes  %7.2f ms, counting its line ends %.2f ms%s\n", extension,
                static_cast<std::uintmax_t>(std::filesystem::file_size(path)), taken,
                CountingLineEnds(path), right ? "" : "  WRONG");
    quick = quick && right && taken < kWantedMilliseconds;
  }
  return quick;
}

/// The 640 boards as `tables` tables played them: every game again with its own tags and comments.
std::string PlayedBy(int tables, const std::string& games) {
  std::string text;
  for (int table = 1; table <= tables; ++table) {
    text += "% table " + std::to_string(table) + "\n" + games;
  }
  return text;
}

/// Whether twice the file takes twice the time.
bool GrowInStep() {
  bool inStep = true;
  for (const Way& way : kWays) {
    std::printf("%s of a PBN file that grows:\n", way.Name);
    double first = 0;
    for (int tables = 8; tables <= 128; tables *= 2) {
      Desk desk;
      const std::string path = FullSetFile(desk, "pbn");
      const std::string text = PlayedBy(tables, test::Content(path));
      test::WriteContent(path, text);
      bool right = true;
      const double taken = Milliseconds(kRuns, [&] { right = (desk.*way.Take)(path) && right; });
      right = right && desk.Prog.Set.Count() == kMaxBoards;
      const double megabytes = static_cast<double>(text.size()) / 1e6;
      const double each = taken / megabytes;
      if (first == 0) first = each;
      std::printf("  %6.1f MB  %8.1f ms  %5.2f ms a MB%s\n", megabytes, taken, each,
                  right ? "" : "  WRONG");
      inStep = inStep && right && each < first * kWantedGrowth;
    }
    std::printf("  wanted of each: under %.1f times the first one's ms a MB\n", kWantedGrowth);
  }
  return inStep;
}

/// A file of `kHardMegabytes`: a beginning, and then the same again and again.
struct HardFile {
  const char* What;
  const char* Extension;
  Command Take;
  std::string_view Start;
  std::string_view Again;
};
constexpr HardFile kHardFiles[] = {
    {"Load, one line of [", "pbn", &Desk::Load, "", "["},
    {"Load, one line of tags", "pbn", &Desk::Load, "", "[Event \"x\"]"},
    {"Load, one tag without end", "pbn", &Desk::Load, "[Event \"", "x"},
    {"Load, empty lines", "pbn", &Desk::Load, "", "\n"},
    {"Load, the same board", "pbn", &Desk::Load, "", "[Board \"1\"]\n"},
    {"Import, one line of [", "pbn", &Desk::Import, "", "["},
    {"Import, one line of tags", "pbn", &Desk::Import, "", "[Event \"x\"]"},
    {"Import, one tag without end", "pbn", &Desk::Import, "[Event \"", "x"},
    {"Import, one comment without end", "pbn", &Desk::Import, "{", "{"},
    {"Import, empty lines", "pbn", &Desk::Import, "", "\n"},
    {"Import, values without end", "pbn", &Desk::Import, "", "x[a\"\\\"\n"},
    {"Import, games that repeat a deal", "pbn", &Desk::Import,
     "[Deal \"##N:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432\"]\n",
     "[Board \"1\"]\n"},
    {"Import, other encoding", "pbn", &Desk::Import, "", "\x80"},
    {"Import, games without deal", "pbn", &Desk::Import, "", "[Board \"1\"]\n\n"},
    {"BRI, digits", "bri", &Desk::Load, "", "01"},
    {"DUP, zero bytes", "dup", &Desk::Load, "", std::string_view("\0", 1)},
    {"DEAL305, zeros", "all", &Desk::Load, "", "0"},
    {"BRE, one line of hands", "bre", &Desk::Load, "a\nb\nc\n", "\x06\x03\x04\x05"},
    {"BRE, empty boards", "bre", &Desk::Load, "a\nb\nc\n",
     "\x06\x03\x04\x05\x06\x03\x04\x05\x06\x03\x04\x05\x06\x03\x04\x05\n"},
    {"CSV, one line of suits", "csv", &Desk::Load, "\"", "\",\""},
    {"CSV, empty lines", "csv", &Desk::Load, "", "\n"},
    {"LOG, one line of blanks", "txt", &Desk::Load, "", " "},
    {"LOG, the same board", "txt", &Desk::Load, "",
     "   001 : AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432 \n"},
};

void WriteHardFile(const std::string& path, const HardFile& hard) {
  std::string block;
  while (block.size() < 100'000) block += hard.Again;
  std::string bytes(hard.Start);
  while (bytes.size() < kHardMegabytes * 1'000'000) bytes += block;
  test::WriteContent(path, bytes);
}

/// Runs `work` in a process of its own: seconds, and megabytes beyond what an idle one takes.
struct Cost {
  double Seconds = 0;
  double Megabytes = 0;
  bool Ended = false;
};
Cost InAProcess(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child < 0) std::abort();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child) std::abort();
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  return {taken.count(), static_cast<double>(usage.ru_maxrss) / 1000,
          WIFEXITED(status) && WEXITSTATUS(status) == 0};
}

/// Whether no file of this size takes long or much memory.
bool TakeHardFiles() {
  std::printf("Files of %zu MB (wanted: under %.0f s and %.0f times the file in memory):\n",
              kHardMegabytes, kWantedSeconds, kWantedFileSizes);
  const double idle = InAProcess([] {}).Megabytes;
  bool held = true;
  for (const HardFile& hard : kHardFiles) {
    Desk desk;
    const std::string path = desk.Folder / ("hard." + std::string(hard.Extension));
    const Cost writing = InAProcess([&] { WriteHardFile(path, hard); });
    const Cost cost = InAProcess([&] { (desk.*hard.Take)(path); });
    const double megabytes = cost.Megabytes - idle;
    std::printf("  %-32s %6.2f s  %6.0f MB%s\n", hard.What, cost.Seconds, megabytes,
                writing.Ended && cost.Ended ? "" : "  DIED");
    held = held && writing.Ended && cost.Ended && cost.Seconds < kWantedSeconds &&
           megabytes < kWantedFileSizes * static_cast<double>(kHardMegabytes);
  }
  return held;
}

}  // namespace

int main() {
  const bool quick = LoadEveryFormat();
  const bool inStep = GrowInStep();
  const bool held = TakeHardFiles();
  return quick && inStep && held ? 0 : 1;
}
