#include "morvane/arguments.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "shell/shell.h"

namespace morvane {
namespace {

TEST(DesktopArguments, WithoutAnyTheDefaultsStand) {
  const Arguments arguments = ParseArguments({"morvane"});
  EXPECT_EQ(arguments.Machine, "usb");
  EXPECT_EQ(arguments.Data + arguments.Settings + arguments.CommandLine + arguments.Error, "");
}

TEST(DesktopArguments, OptionsStandBeforeOrBehindThePath) {
  for (const QStringList& words : {QStringList{"morvane", "--machine", "serial:/dev/x", "--data",
                                               "d", "--settings=s.ini", "/a/b.pbn"},
                                   QStringList{"morvane", "/a/b.pbn", "--machine=serial:/dev/x",
                                               "--data=d", "--settings", "s.ini"}}) {
    const Arguments arguments = ParseArguments(words);
    EXPECT_EQ(arguments.Machine, "serial:/dev/x");
    EXPECT_EQ(arguments.Data, "d");
    EXPECT_EQ(arguments.Settings, "s.ini");
    EXPECT_THAT(arguments.CommandLine, ::testing::StartsWith("\"/a/b.pbn\" --"));
    EXPECT_EQ(shell::ParseCommandLine(arguments.CommandLine).StartFile, "/a/b.pbn");
    EXPECT_EQ(arguments.Error, "");
  }
}

TEST(DesktopArguments, ThePathIsMadeAbsoluteAndStartUpFindsIt) {
  const Arguments arguments = ParseArguments({"morvane", "my evening.pbn"});
  const std::string path = (std::filesystem::current_path() / "my evening.pbn").string();
  EXPECT_EQ(shell::ParseCommandLine(arguments.CommandLine).StartFile, path);
}

TEST(DesktopArguments, AFirmwareFileIsMadeAbsoluteToo) {
  const Arguments arguments = ParseArguments({"morvane", "../New.Adc"});
  const std::string path = (std::filesystem::current_path() / "../New.Adc").string();
  EXPECT_EQ(shell::ParseCommandLine(arguments.CommandLine).FirmwareFile, path);
}

TEST(DesktopArguments, WrongUsageIsTold) {
  EXPECT_EQ(ParseArguments({"morvane", "a", "b"}).Error, "more than one file");
  EXPECT_NE(ParseArguments({"morvane", "--nonsense"}).Error, "");
  EXPECT_NE(ParseArguments({"morvane", "--machine"}).Error, "") << "a value is missing";
  for (const char* name : {"data", "settings", "machine", "trace"}) {
    const std::string option = std::string("--") + name;
    EXPECT_EQ(ParseArguments({"morvane", QString::fromStdString(option + "=")}).Error,
              option + ": nothing named");
  }
}

TEST(DesktopArguments, ATraceIsNamedAndMayLeaveTheHandsOut) {
  EXPECT_EQ(ParseArguments({"morvane"}).Trace, "");
  const Arguments whole = ParseArguments({"morvane", "--trace", "run.txt"});
  EXPECT_EQ(whole.Trace, "run.txt");
  EXPECT_FALSE(whole.TraceWithoutHands);
  EXPECT_TRUE(
      ParseArguments({"morvane", "--trace-without-hands", "--trace=run.txt"}).TraceWithoutHands);
  EXPECT_EQ(ParseArguments({"morvane", "--trace-without-hands"}).Error,
            "--trace-without-hands needs --trace FILE");
}

TEST(DesktopArguments, HelpIsUsageAndNothingElse) {
  for (const char* word : {"--help", "-h", "help"}) {
    const Arguments arguments = ParseArguments({"morvane", word});
    EXPECT_THAT(arguments.Help, ::testing::StartsWith("Usage: morvane ")) << word;
    EXPECT_THAT(arguments.Help, ::testing::HasSubstr("\nMachines:  usb (where none is named), "));
    EXPECT_EQ(arguments.Error + arguments.CommandLine, "");
  }
}

TEST(DesktopArguments, AFileMayBeCalledHelpWhereverElse) {
  for (const char* word : {"./help", "help.pbn"}) {
    EXPECT_EQ(ParseArguments({"morvane", word}).Help, "") << word;
  }
}

TEST(DesktopArguments, TheVersionIsTheNameAndItsNumber) {
  EXPECT_EQ(ParseArguments({"morvane", "--version"}).Help, "morvane 1.0\n");
}

}  // namespace
}  // namespace morvane
