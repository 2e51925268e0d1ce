#include <csignal>
#include <filesystem>

#include "e2e/e2e_fixture.h"
#include "files/unsaved_set.h"

// The real desktop on a display of its own, typed into, when it comes to grief.

namespace morvane::e2e {
namespace {

class DesktopFault : public EndToEnd {
 protected:
  void SetUp() override {
    ASSERT_TRUE(display_.Until([this] { return display_.Out().ends_with('\n'); }))
        << display_.Err();
    name_ = "DISPLAY=:" + display_.Out().substr(0, display_.Out().size() - 1);
  }

  /// A sanitizer would take the signal for itself, and for leaks what the libraries of the display
  /// keep to their end.
  [[nodiscard]] Surroundings Desktop(const std::string& variable = "NOTHING=") const {
    return {.Folder = folder.Path(),
            .Program = ProgramNamed("morvane"),
            .Variables = {"QT_QPA_PLATFORM=xcb", name_, variable,
                          "ASAN_OPTIONS=handle_segv=0:detect_leaks=0"}};
  }
  Outcome Xdotool(const std::vector<std::string>& words) {
    return Process(words,
                   {.Folder = folder.Path(), .Program = "/usr/bin/xdotool", .Variables = {name_}})
        .Finish();
  }
  /// In the window with that title, when it is there.
  void Press(Process& program, const std::string& title, const std::vector<std::string>& keys) {
    ASSERT_TRUE(program.Until([&] {
      return Xdotool({"search", "--onlyvisible", "--name", title, "windowfocus"}).Status == 0;
    })) << title;
    std::vector<std::string> words{"key"};
    words.insert(words.end(), keys.begin(), keys.end());
    EXPECT_EQ(Xdotool(words).Status, 0);
  }
  /// Until the copy of what is unsaved has the event's name.
  void ChangeTheName(Process& program) {
    Press(program, "Main Menu", {"End", "x"});
    ASSERT_TRUE(program.Until([this] { return KeptName() == "x"; }));
  }
  [[nodiscard]] std::string KeptName() const {
    if (!std::filesystem::exists(Copy())) return "";
    const auto kept = files::ReadUnsavedText(test::Content(Copy()));
    return kept ? kept->Set.EventName : "";
  }
  [[nodiscard]] std::string Copy() const { return data + "/Unsaved_1.txt"; }
  [[nodiscard]] bool HasMark() const { return std::filesystem::exists(Copy() + ".running"); }

 private:
  Process display_{{"-displayfd", "1", "-noreset"},
                   {.Folder = folder.Path(), .Program = "/usr/bin/Xvfb"}};
  std::string name_;
};

TEST_F(DesktopFault, AProgramThatASignalKillsLeavesItsSetToTheNextStart) {
  SetFile("set.pbn", 1, 4);
  int ends = 0;
  for (const int number : {SIGSEGV, SIGABRT, SIGKILL}) {
    std::filesystem::remove(Copy());
    Process program(Whole({"set.pbn"}), Desktop());
    ChangeTheName(program);
    program.Signal(number);
    EXPECT_EQ(program.Finish().Status, -number);

    Process next(Whole({}), Desktop());
    Press(next, "Unsaved Board Set", {"alt+y"});
    ASSERT_TRUE(
        next.Until([&] { return CountLines(" Unsaved Board Set of ", ": loaded") > ends; }));
    EXPECT_EQ(CountLines(" Unexpected end of the program that began "), ++ends);
    next.Signal(SIGTERM);
    EXPECT_EQ(next.Finish().Status, 0);
    EXPECT_EQ(KeptName(), "x");
    EXPECT_FALSE(HasMark());
  }
}

TEST_F(DesktopFault, AKilledProgramWithoutASetIsToldOnce) {
  int starts = 0;
  for (const int number : {SIGKILL, SIGTERM, SIGTERM}) {
    ++starts;
    Process program(Whole({}), Desktop());
    ASSERT_TRUE(program.Until(
        [&] { return CountLines("   Start up parameters: ") == starts && HasMark(); }));
    program.Signal(number);
    program.Finish();
  }
  EXPECT_EQ(CountLines(" Unexpected end of the program that began "), 1);
  EXPECT_EQ(CountLines(" Exit: "), 2);
}

TEST_F(DesktopFault, AnExceptionOfAMenuEntryKeepsTheSetAndIsToldAndEndsTheProgram) {
  SetFile("set.pbn", 1, 4);
  Process program(Whole({"set.pbn"}), Desktop("LD_PRELOAD=" MORVANE_THROWING_SYSTEM));
  ChangeTheName(program);
  Press(program, "Main Menu", {"x", "alt+l", "d"});
  ASSERT_TRUE(program.Until([this] { return CountLines(" Exit: ") == 1; }));
  EXPECT_EQ(CountLines(" Unexpected error: the system has no name"), 1);
  EXPECT_EQ(KeptName(), "xx");
  EXPECT_TRUE(HasMark()) << "the next start says that it was unexpected";
  Press(program, "^Morvane$", {"Return"});
  EXPECT_EQ(program.Finish().Status, 4);
}

}  // namespace
}  // namespace morvane::e2e
