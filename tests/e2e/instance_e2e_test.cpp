#include <csignal>
#include <filesystem>
#include <memory>

#include "e2e/e2e_fixture.h"

// The desktop program as processes, on no display: one runs, the others call it.

namespace morvane::e2e {
namespace {

namespace fs = std::filesystem;

class InstanceEndToEnd : public EndToEnd {
 protected:
  InstanceEndToEnd() {
    fs::create_directory(sockets);
    fs::permissions(sockets, fs::perms::owner_all);
  }
  const std::string sockets = folder / "run";

  std::unique_ptr<Process> Start(const std::vector<std::string>& arguments,
                                 const std::string& workingFolder) {
    Surroundings around{.Folder = workingFolder, .Program = ProgramNamed("morvane")};
    around.Variables = {"QT_QPA_PLATFORM=offscreen", "XDG_RUNTIME_DIR=" + sockets};
    return std::make_unique<Process>(arguments, around);
  }
  std::unique_ptr<Process> Start(const std::vector<std::string>& words = {}) {
    return Start(Whole(words), folder.Path());
  }
  /// Waits until `process` has brought the log to so many lines with that start.
  void ExpectLines(Process& process, const std::string& start, int count) {
    EXPECT_TRUE(process.Until([&] { return CountLines(start) >= count; })) << start << "\n"
                                                                           << process.Err();
    EXPECT_EQ(CountLines(start), count) << start;
  }
  /// Waits until `process` has brought up so many windows: this platform complains of each.
  static void ExpectWindows(Process& process, int count) {
    const auto windows = [&] {
      const std::string complaint = "propagateSizeHints";
      int found = 0;
      for (std::size_t at = 0; (at = process.Err().find(complaint, at)) != std::string::npos; ++at)
        ++found;
      return found;
    };
    EXPECT_TRUE(process.Until([&] { return windows() >= count; })) << process.Err();
  }
  static void ExpectSilentEnd(Process& process) {
    const Outcome outcome = process.Finish();
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Out, "");
    EXPECT_EQ(outcome.Err, "");
  }
};

TEST_F(InstanceEndToEnd, ASecondStartHandsItsFileToTheRunningProgramAndEnds) {
  fs::create_directory(folder / "elsewhere");
  SetFile("elsewhere/evening.pbn", 5, 6);
  const auto first = Start();
  ExpectLines(*first, "   Start up parameters: ", 1);
  const auto second =
      Start({"--data", folder / "other", "--settings", "../settings.ini", "evening.pbn"},
            folder / "elsewhere");
  ExpectSilentEnd(*second);
  ExpectLines(*first, "  Load: " + (folder / "elsewhere/evening.pbn"), 1);
  ExpectLines(*first, "   006 : ", 1);
  EXPECT_EQ(CountLines("---"), 1);
  EXPECT_FALSE(fs::exists(folder / "other"));
  EXPECT_FALSE(fs::exists(folder / "elsewhere/.config"));
}

TEST_F(InstanceEndToEnd, ASecondStartWithoutAFileIsToldAndEnds) {
  const auto first = Start();
  ExpectLines(*first, "   Start up parameters: ", 1);
  const auto second = Start();
  ExpectWindows(*second, 1);
  second->Signal(SIGTERM);  // the box answers itself
  EXPECT_EQ(second->Finish().Status, 1);
  EXPECT_EQ(CountLines("---"), 1);
  SetFile("evening.pbn", 1, 1);
  ExpectSilentEnd(*Start({"evening.pbn"}));
  ExpectLines(*first, "  Load: " + (folder / "evening.pbn"), 1);
}

TEST_F(InstanceEndToEnd, ASecondStartHandsItsFirmwareFileOverInAnyCase) {
  const auto first = Start();
  ExpectLines(*first, "   Start up parameters: ", 1);
  ExpectSilentEnd(*Start({"new firmware.Adc"}));
  ExpectWindows(*first, 2);  // the main window, and the box that refuses it
  EXPECT_EQ(CountLines("  Load: "), 0);
}

TEST_F(InstanceEndToEnd, WhatComesWhileABoxIsOpenIsNotLoadedUnderIt) {
  SetFile("evening.pbn", 1, 1);
  SetFile("late.pbn", 1, 1);
  const auto first = Start();
  ExpectLines(*first, "   Start up parameters: ", 1);
  ExpectSilentEnd(*Start({"firmware.adc"}));
  ExpectWindows(*first, 2);  // the main window, and the box that refuses it
  // The box stays; the program takes each request, keeps the first one for later and drops others.
  ExpectSilentEnd(*Start({"evening.pbn"}));
  ExpectSilentEnd(*Start({"late.pbn"}));
  EXPECT_EQ(CountLines("  Load: "), 0);
  first->Signal(SIGTERM);
  EXPECT_EQ(first->Finish().Status, 0);
  EXPECT_EQ(CountLines("  Load: "), 0) << "nor while the program ends";
}

TEST_F(InstanceEndToEnd, OneAfterTheOtherIsTakenByTheSameProgram) {
  const auto first = Start();
  ExpectLines(*first, "   Start up parameters: ", 1);
  for (const std::string name : {"a.pbn", "b.pbn", "c.pbn"}) {
    SetFile(name, 1, 1);
    ExpectSilentEnd(*Start({name}));
    ExpectLines(*first, "  Load: " + (folder / name), 1);
  }
}

TEST_F(InstanceEndToEnd, OfTwoStartsAtOnceOneRunsAndLoadsBothFiles) {
  SetFile("a.pbn", 1, 1);
  SetFile("b.pbn", 2, 2);
  const auto a = Start({"a.pbn"});
  const auto b = Start({"b.pbn"});
  const bool both = a->Until([&] { return CountLines("  Load: ") >= 2; }) ||
                    b->Until([&] { return CountLines("  Load: ") >= 2; });
  EXPECT_TRUE(both) << a->Err() << b->Err();
  EXPECT_EQ(CountLines("  Load: ", "/a.pbn"), 1);
  EXPECT_EQ(CountLines("  Load: ", "/b.pbn"), 1);
  EXPECT_EQ(CountLines("---"), 1);
}

TEST_F(InstanceEndToEnd, AnotherSettingsStoreIsAnotherProgramBeside) {
  const auto first = Start();
  ExpectLines(*first, "   Start up parameters: ", 1);
  SetFile("evening.pbn", 1, 1);
  const auto other =
      Start({"--data", data, "--settings", folder / "other.ini", "evening.pbn"}, folder.Path());
  ExpectLines(*other, "   Start up parameters: ", 2);
  ExpectLines(*other, "  Load: " + (folder / "evening.pbn"), 1);
  SetFile("late.pbn", 1, 1);
  ExpectSilentEnd(*Start({"late.pbn"}));
  ExpectLines(*first, "  Load: " + (folder / "late.pbn"), 1);
  EXPECT_EQ(CountLines("---"), 2);
}

TEST_F(InstanceEndToEnd, AfterAProgramWasKilledTheNextStartRuns) {
  const auto first = Start();
  ExpectLines(*first, "   Start up parameters: ", 1);
  first->Kill();
  EXPECT_EQ(fs::is_empty(sockets), ForWindows()) << "a socket stays behind, a pipe goes";
  const auto next = Start();
  ExpectLines(*next, "   Start up parameters: ", 2);
  SetFile("evening.pbn", 1, 1);
  ExpectSilentEnd(*Start({"evening.pbn"}));
  ExpectLines(*next, "  Load: " + (folder / "evening.pbn"), 1);
}

TEST_F(InstanceEndToEnd, TheCommandLineRunsBesideTheDesktop) {
  const auto desktop = Start();
  ExpectLines(*desktop, "   Start up parameters: ", 1);
  EXPECT_EQ(Run({"generate", "evening.pbn", "--last", "2"}).Status, 0);
  EXPECT_EQ(CountLines("---"), 2);
}

}  // namespace
}  // namespace morvane::e2e
