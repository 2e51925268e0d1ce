// The data folder as a whole program uses it: who may read it, who is waited for, what is told.

#include <filesystem>

#include "files/load_desk.h"
#include "platform/file_lock.h"
#include "platform/files.h"
#include "platform/ini_settings.h"
#include "shell/shell_desk.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace morvane::shell {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

#ifndef _WIN32

mode_t RightsOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 07777U;
}

#endif

/// A desk with a board file to load.
struct DataDesk : ShellDesk {
  DataDesk() { test::WriteContent(Set, files::kTwoBoards); }
  void Load() {
    Ui.Files = {Set};
    Main.MenuLoad();
  }
  /// How long `work` takes on the virtual clock.
  template <typename Work>
  milliseconds Time(Work work) {
    const auto start = Clock.Elapsed();
    work();
    return std::chrono::duration_cast<milliseconds>(Clock.Elapsed() - start);
  }
  const std::string Set = Folder / "two.pbn";
  const std::string Lock = Prog.Paths.Data + "/morvane.lock";
};

#ifndef _WIN32  // rights as modes

TEST(DataFolder, IsItsUsersAloneWithAllThatAProgramPutsIntoIt) {
  for (const mode_t mask : {0U, 022U, 077U}) {
    const mode_t old = umask(mask);
    DataDesk desk;
    std::filesystem::remove(desk.Prog.Paths.Data);
    desk.Start();
    desk.Load();
    EXPECT_TRUE(desk.Main.Exit());
    umask(old);
    EXPECT_EQ(RightsOf(desk.Prog.Paths.Data), 0700U);
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(desk.Prog.Paths.Data)) {
      names.push_back(entry.path().filename().string());
      EXPECT_EQ(RightsOf(entry.path().string()), 0600U) << entry.path();
    }
    EXPECT_THAT(names, UnorderedElementsAre("Log_2026_3.txt", "history1.dat", "morvane.lock"));
  }
}

TEST(DataFolder, ThatOthersCouldReadIsTightenedAtTheStart) {
  DataDesk desk;
  desk.Start();
  desk.Load();
  ASSERT_EQ(chmod(desk.Prog.Paths.Data.c_str(), 0755), 0);
  for (const auto& entry : std::filesystem::directory_iterator(desk.Prog.Paths.Data)) {
    ASSERT_EQ(chmod(entry.path().c_str(), 0644), 0);
  }
  Shell next(desk.Prog, desk.Bridge, desk.Processes, desk.Desktop, desk.Programs);
  next.StartUp("");
  EXPECT_EQ(RightsOf(desk.Prog.Paths.Data), 0700U);
  for (const auto& entry : std::filesystem::directory_iterator(desk.Prog.Paths.Data)) {
    EXPECT_EQ(RightsOf(entry.path().string()), 0600U) << entry.path();
  }
}

#endif

TEST(DataFolder, AHolderOfItsLockIsWaitedForOnceAFlow) {
  DataDesk desk;
  const auto holder = FileLock::Try(desk.Lock);
  EXPECT_EQ(desk.Time([&] { desk.Main.StartUp(""); }), milliseconds(10'000));
  EXPECT_EQ(desk.LogLines().size(), 4U) << "the log is written all the same";
  EXPECT_EQ(desk.Time([&] { desk.Load(); }), milliseconds(10'000));
  EXPECT_EQ(desk.Time([&] { desk.Load(); }), milliseconds(10'000));
  EXPECT_THAT(desk.Ui.Waits, ElementsAre("Waiting for another program: log and history", "",
                                         "Waiting for another program: log and history", "",
                                         "Waiting for another program: log and history", ""));
  EXPECT_EQ(desk.Time([&] { EXPECT_TRUE(desk.Main.Exit()); }), milliseconds(0));
  EXPECT_EQ(desk.LastLine(), " Exit: 3:04:35 PM");
}

TEST(DataFolder, AHolderOfTheStoresLockIsWaitedForOnceAFlowToo) {
  DataDesk desk;
  IniSettings store(desk.Folder / "morvane.exe.ini");
  Program program(
      {desk.Ui, desk.Loop, desk.Clock, store, desk.Random, desk.Speaker, desk.ThePrinter},
      desk.Prog.Paths);
  Shell shell(program, desk.Bridge, desk.Processes, desk.Desktop, desk.Programs);
  auto holder = FileLock::Try(desk.Folder / "morvane.exe.ini.lock");
  EXPECT_EQ(desk.Time([&] { shell.StartUp(""); }), milliseconds(10'000));
  EXPECT_THAT(desk.Ui.Waits, ElementsAre("Waiting for another program: settings", ""));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U) << "the first pool cannot be stored";
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Settings Error");
  holder.reset();
  EXPECT_TRUE(program.StoreSetting(kNewLastBoard, "36"));
}

TEST(DataFolder, ALogThatFailsIsToldOnceHoweverMuchIsDone) {
  DataDesk desk;
  std::filesystem::create_directory(desk.Prog.Paths.Data + "/Log_2026_3.txt");
  desk.Main.StartUp("");
  desk.Load();
  desk.Load();
  EXPECT_TRUE(desk.Main.Exit());
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{"Error: 21, Is a directory\r\nFile Name: " +
                                                JoinPath(desk.Prog.Paths.Data, "Log_2026_3.txt"),
                                            16, "Log Write Error"}));
}

TEST(DataFolder, ALogThatWasCutInMidLineGoesOnWithALineOfItsOwn) {
  DataDesk desk;
  desk.Start();
  desk.Load();
  const std::string log = desk.Prog.Paths.Data + "/Log_2026_3.txt";
  const auto whole = desk.LogLines();
  ASSERT_THAT(whole.back(), ::testing::StartsWith("   004 : "));
  std::filesystem::resize_file(log, std::filesystem::file_size(log) - 10);  // as a kill leaves it
  EXPECT_TRUE(desk.Main.Exit());
  const auto lines = desk.LogLines();
  ASSERT_EQ(lines.size(), whole.size() + 1);
  EXPECT_EQ(lines.end()[-2], whole.back().substr(0, whole.back().size() - 8));
  EXPECT_EQ(lines.back(), " Exit: 3:04:05 PM");
}

#ifndef _WIN32  // no pipes among files
TEST(DataFolder, APipeInPlaceOfTheLogIsToldAndNotWaitedFor) {
  DataDesk desk;
  ASSERT_EQ(mkfifo((desk.Prog.Paths.Data + "/Log_2026_3.txt").c_str(), 0600), 0);
  desk.Main.StartUp("");
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{"Error: 95, Operation not supported\r\nFile Name: " +
                                                desk.Prog.Paths.Data + "/Log_2026_3.txt",
                                            16, "Log Write Error"}));
  EXPECT_FALSE(desk.Prog.Log.On());
}

#endif

TEST(DataFolder, TheBoxesNameTheFolderInWhichItLies) {
  DataDesk desk;
  const std::string base = desk.Folder / "base";
  test::WriteContent(base, "a file in its place");
  Program program(
      {desk.Ui, desk.Loop, desk.Clock, desk.Store, desk.Random, desk.Speaker, desk.ThePrinter},
      {"/opt/morvane", base + "/Morvane_Data"});
  Shell shell(program, desk.Bridge, desk.Processes, desk.Desktop, desk.Programs);
  shell.StartUp("");
  ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "History Error");
  EXPECT_EQ(desk.Ui.Boxes[1].Title, "Log Error");
  for (const auto& box : desk.Ui.Boxes) {
    EXPECT_THAT(box.Text, ::testing::HasSubstr("      Application Path: " + base + "     \r\n"));
  }
}

TEST(DataFolder, AStoreThatIsNoTextIsPutAsideAtTheStartAndSaidOnce) {
  DataDesk desk;
  const std::string path = desk.Folder / "morvane.exe.ini";
  const std::string damaged(500, '\0');
  test::WriteContent(path, damaged);
  IniSettings store(path);
  Program program(
      {desk.Ui, desk.Loop, desk.Clock, store, desk.Random, desk.Speaker, desk.ThePrinter},
      desk.Prog.Paths);
  Shell shell(program, desk.Bridge, desk.Processes, desk.Desktop, desk.Programs);
  shell.StartUp("");
  EXPECT_TRUE(shell.Exit());
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{
                  "      The settings file was too large or no text, and begins anew      \r\n"
                  "      What it was is now: " +
                      path + ".damaged      ",
                  48, "Settings Error"}));
  EXPECT_EQ(test::Content(path + ".damaged"), damaged);
  EXPECT_EQ(store.Get(kSeedm).size(), 128U);
}

}  // namespace
}  // namespace morvane::shell
