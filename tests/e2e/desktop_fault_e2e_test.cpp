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
            .Variables = {ForWindows() ? "QT_QPA_PLATFORM=windows" : "QT_QPA_PLATFORM=xcb", name_,
                          variable, "ASAN_OPTIONS=handle_segv=0:detect_leaks=0"}};
  }
  Outcome Xdotool(const std::vector<std::string>& words) {
    return Process(words,
                   {.Folder = folder.Path(), .Program = "/usr/bin/xdotool", .Variables = {name_}})
        .Finish();
  }
  /// Presses the keys in the window with that title until `done`: a key that comes before the
  /// window has the keyboard is lost, so that they are such as may come twice.
  void Press(Process& program, const std::string& title, const std::vector<std::string>& keys,
             const std::function<bool()>& done) {
    EXPECT_TRUE(program.Until([&] {
      if (!done()) PressOnce(title, keys);
      return done();
    })) << title;
  }
  void PressOnce(const std::string& title, const std::vector<std::string>& keys) {
    if (Xdotool({"search", "--onlyvisible", "--name", title, "windowfocus"}).Status != 0) return;
    std::vector<std::string> words{"key"};
    words.insert(words.end(), keys.begin(), keys.end());
    Xdotool(words);
  }
  /// Until the copy of what is unsaved has the event's name.
  void ChangeTheName(Process& program) {
    Press(program, "Main Menu", {"ctrl+a", "x"}, [this] { return KeptName() == "x"; });
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
    Press(next, "Unsaved Board Set", {"alt+y"},
          [&] { return CountLines(" Unsaved Board Set of ", ": loaded") > ends; });
    EXPECT_EQ(CountLines(" Unexpected end of the program that began "), ++ends);
    next.Signal(SIGTERM);
    EXPECT_EQ(next.Finish().Status, 0);
    EXPECT_EQ(KeptName(), "x");
    EXPECT_FALSE(HasMark());
  }
}

TEST_F(DesktopFault, AKilledProgramWithoutASetIsToldOnce) {
  int starts = 0;
  for (const int number : {SIGKILL, EndSignals().front(), EndSignals().front()}) {
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
  Press(program, "Main Menu", {"ctrl+a", "x", "x", "alt+l", "d"},
        [this] { return CountLines(" Exit: ") == 1; });
  EXPECT_EQ(CountLines(" Unexpected error: the system has no name"), 1);
  EXPECT_EQ(KeptName(), "xx");
  EXPECT_TRUE(HasMark()) << "the next start says that it was unexpected";
  EXPECT_FALSE(program.Until([this] {
    PressOnce("^Morvane$", {"Return"});
    return false;
  })) << "until it has ended";
  EXPECT_EQ(program.Finish().Status, 4);
}

}  // namespace
}  // namespace morvane::e2e
