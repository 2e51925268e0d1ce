#include <chrono>
#include <csignal>
#include <filesystem>

#include "e2e/e2e_fixture.h"
#include "files/unsaved_set.h"

// The real programs, told by the system to end.

namespace morvane::e2e {
namespace {

using ::testing::StartsWith;

class SignalEndToEnd : public EndToEnd {
 protected:
  [[nodiscard]] Surroundings Desktop() const {
    return {.Folder = folder.Path(),
            .Program = ProgramNamed("morvane"),
            .Variables = {"QT_QPA_PLATFORM=offscreen"}};
  }
  [[nodiscard]] std::vector<std::string> DealOnSimulated() const {
    return Whole({"--machine", "simulated,speed=1", "deal", "set.pbn", "--auto"});
  }
  std::string LeaveACopy() {
    BoardSet set;
    test::FillSet(set, 1, 4);
    std::filesystem::create_directories(data);
    test::WriteContent(data + "/Unsaved_1.txt", files::UnsavedText(set, "then"));
    return data + "/Unsaved_1.txt";
  }
};

TEST_F(SignalEndToEnd, AnIdleDesktopWritesItsExit) {
  int runs = 0;
  for (const int number : EndSignals()) {
    ++runs;
    Process process(Whole({}), Desktop());
    ASSERT_TRUE(process.Until([&] { return CountLines("   Start up parameters: ") == runs; }));
    process.Signal(number);
    EXPECT_EQ(process.Finish().Status, 0);
    EXPECT_EQ(CountLines(" Exit: "), runs);
  }
}

TEST_F(SignalEndToEnd, ADesktopThatAsksAboutAnUnsavedSetLeavesItAsItIs) {
  const std::string copy = LeaveACopy();
  const std::string bytes = test::Content(copy);
  Process process(Whole({}), Desktop());
  ASSERT_TRUE(process.Until([&] { return CountLines("   Start up parameters: ") == 1; }));
  process.Signal(EndSignals().front());
  EXPECT_EQ(process.Finish().Status, 0);
  EXPECT_EQ(CountLines(" Unsaved Board Set of then: left"), 1);
  EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
  EXPECT_EQ(test::Content(copy), bytes);
}

TEST_F(SignalEndToEnd, ABoardUnderWayIsBrokenOffAndLogged) {
  SetFile("set.pbn", 1, 2);
  int runs = 0;
  for (const int number : EndSignals()) {
    ++runs;
    Process process(DealOnSimulated(), Around());
    ASSERT_TRUE(process.Until([&] { return CountLines("  S/N:") == runs; }));
    // The board starts with the next event and takes 14.6 s.
    const auto contact = std::chrono::steady_clock::now();
    process.Until([&] {
      return std::chrono::steady_clock::now() > contact + std::chrono::milliseconds(400);
    });
    process.Signal(number);
    EXPECT_EQ(process.Finish().Status, 1);
    EXPECT_EQ(CountLines("  001 : 1,0 0,0,0,0 57"), runs);
    EXPECT_EQ(CountLines(" Exit: "), runs);
  }
}

TEST_F(SignalEndToEnd, ADesktopWhoseDisplayGoesWritesItsExit) {
  Process display({"-displayfd", "1", "-noreset"},
                  {.Folder = folder.Path(), .Program = "/usr/bin/Xvfb"});
  ASSERT_TRUE(display.Until([&] { return display.Out().ends_with('\n'); })) << display.Err();
  Surroundings around = Desktop();
  around.Variables = {"QT_QPA_PLATFORM=xcb",
                      "DISPLAY=:" + display.Out().substr(0, display.Out().size() - 1)};
  Process process(Whole({}), around);
  ASSERT_TRUE(process.Until([&] { return CountLines("   Start up parameters: ") == 1; }));
  display.Kill();
  EXPECT_EQ(process.Finish().Status, 1);
  EXPECT_EQ(CountLines(" Exit: "), 1);
}

TEST_F(SignalEndToEnd, ASignalThatWasIgnoredStaysSo) {
  SetFile("set.pbn", 1, 1);
  const auto before = std::signal(SIGHUP, SIG_IGN);
  Process process(DealOnSimulated(), Around());
  std::signal(SIGHUP, before);
  ASSERT_TRUE(process.Until([&] { return CountLines("  S/N:") == 1; }));
  process.Signal(SIGHUP);
  const auto then = std::chrono::steady_clock::now();
  process.Until(
      [&] { return std::chrono::steady_clock::now() > then + std::chrono::milliseconds(400); });
  EXPECT_EQ(CountLines(" Exit: "), 0);
  process.Signal(SIGTERM);
  EXPECT_EQ(process.Finish().Status, 1);
  EXPECT_EQ(CountLines(" Exit: "), 1);
}

}  // namespace
}  // namespace morvane::e2e
