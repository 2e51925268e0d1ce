#include <gmock/gmock.h>

#include <filesystem>

#include "cli/cli_desk.h"
#include "platform/files.h"

// maintain service-file.

namespace morvane::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct Desk : CliDesk {
  explicit Desk(bool yes = true, const simulator::Options& options = AtSpeed(0))
      : CliDesk(yes, options), Yes(yes) {}
  ExitStatus Make() { return Run(MaintainServiceFileOptions{.Yes = Yes}); }
  [[nodiscard]] std::string Path(int id = 1) const {
    return JoinPath(Prog.Paths.Data, "Service_file_4711_2026_3_3__" + std::to_string(id) + ".txt");
  }
  [[nodiscard]] bool Exists(int id = 1) const { return std::filesystem::exists(Path(id)); }
  bool Yes;
};

TEST(MaintainServiceFile, MakesTheFileAndSaysWhere) {
  Desk desk;
  EXPECT_EQ(desk.Make(), kDone);
  EXPECT_EQ(desk.Screen.Output, "Service_file: " + desk.Path() + "\n");
  const std::string bytes = test::Content(desk.Path());
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 414);
  EXPECT_THAT(bytes, StartsWith("Service file 2026-03-03 "));
  EXPECT_THAT(desk.Screen.Errors,
              HasSubstr("Service File: Service File   " + desk.Path() + "   will be created."))
      << "what was agreed to is shown";
}

TEST(MaintainServiceFile, HasANewNumberEachTime) {
  Desk desk;
  EXPECT_EQ(desk.Make(), kDone);
  EXPECT_EQ(desk.Make(), kDone);
  EXPECT_TRUE(desk.Exists(2));
}

TEST(MaintainServiceFile, AsksWhatTheDesktopAsks) {
  Desk desk(/*yes=*/false);
  desk.Screen.Person = true;
  desk.Screen.Lines = {"o"};
  EXPECT_EQ(desk.Make(), kDone);
  EXPECT_TRUE(desk.Exists());
}

TEST(MaintainServiceFile, WithoutAnOkThereIsNone) {
  Desk desk(/*yes=*/false);
  EXPECT_EQ(desk.Make(), kFailed) << "nobody to ask";
  EXPECT_FALSE(desk.Exists());
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_THAT(desk.Screen.Errors, EndsWith("No service file was made.\n"));
  EXPECT_EQ(desk.Store.Get(kServiceFileId), "1");
}

TEST(MaintainServiceFile, AnInterruptLeavesNone) {
  Desk desk;
  desk.Loop.After(2500, [&] { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Make(), kFailed);
  EXPECT_FALSE(desk.Exists());
}

TEST(MaintainServiceFile, AMachineWithoutFirmwareHasNothingToTell) {
  simulator::Options options = AtSpeed(0);
  options.BootMajor = options.BootMinor = 0;
  Desk desk(true, options);
  EXPECT_EQ(desk.Make(), kFailed);
  EXPECT_FALSE(desk.Exists());
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("The machine holds no firmware"));
}

TEST(MaintainServiceFile, ShowsHowFarItHasCome) {
  Desk desk;
  desk.Screen.Progress = true;
  EXPECT_EQ(desk.Make(), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Service file: 5 %"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Service file: 98 %"));
}

}  // namespace
}  // namespace morvane::cli
