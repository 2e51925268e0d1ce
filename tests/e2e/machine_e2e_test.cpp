#include <csignal>
#include <filesystem>

#include "bridges/scripted_peer.h"
#include "e2e/machine_fixture.h"

// The simulated machine as a program of its own, at the other end of a pseudo-terminal. Each run
// costs two seconds before the first contact.

namespace morvane::e2e {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST_F(MachineEndToEnd, ABoardIsDealtThroughItAndAnotherByTheNextProgram) {
  SetFile("set.pbn", 1, 1);
  const auto machine = Start({"--machine", "simulated,speed=0,serial=12"});
  const std::string named = Named(*machine);
  EXPECT_THAT(named, StartsWith("serial:/dev/pts/"));
  for (int run = 1; run <= 2; ++run) {
    const Outcome outcome = Deal(named);
    EXPECT_EQ(outcome.Status, 0) << outcome.Err;
    EXPECT_THAT(outcome.Out, EndsWith("\n1 of 1 boards dealt.\n"));
  }
  EXPECT_EQ(CountLines("  S/N:12 Dealt:0 Firmware:2.90"), 1);
  EXPECT_EQ(CountLines("  S/N:12 Dealt:1 Firmware:2.90"), 1) << "it is the same machine";
  EXPECT_EQ(CountLines("  001 : 1,0 0,0,0,0 OK"), 2);
}

TEST_F(MachineEndToEnd, AtTheWiresPaceTheBoardIsDealtToo) {
  SetFile("set.pbn", 1, 1);
  const auto machine = Start({"--machine", "simulated,speed=100", "--pace", "wire"});
  EXPECT_EQ(Deal(Named(*machine)).Status, 0);
  EXPECT_EQ(CountLines("  001 : 1,0 0,0,0,0 OK"), 1);
}

TEST_F(MachineEndToEnd, AfterAProgramWasKilledTheNextOneIsServed) {
  SetFile("set.pbn", 1, 1);
  const auto machine = Start({"--machine", "simulated,speed=1"});
  const std::string named = Named(*machine);
  Process killed(Whole({"--machine", named, "deal", "set.pbn", "--auto"}), Around());
  ASSERT_TRUE(killed.Until([&] { return CountLines("  S/N:") == 1; }));
  killed.Kill();
  Process next(Whole({"--machine", named, "deal", "set.pbn", "--auto"}), Around());
  EXPECT_TRUE(next.Until([&] { return CountLines("  S/N:") == 2; })) << next.Err();
}

TEST_F(MachineEndToEnd, EndSignalsEndItAndTakeItsLinkAway) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const auto machine = Start({"--link", "machine"});
    EXPECT_EQ(Named(*machine), "serial:" + (folder / "machine")) << "as other programs take it";
    EXPECT_TRUE(std::filesystem::is_character_file(folder / "machine"));
    machine->Signal(signal);
    const Outcome outcome = machine->Finish();
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Err, "");
    EXPECT_FALSE(std::filesystem::is_symlink(folder / "machine"));
  }
}

TEST_F(MachineEndToEnd, OneThatWasKilledLeavesItsLinkToTheNext) {
  const std::string link = folder / "machine";
  for (int start = 1; start <= 3; ++start) {
    const auto machine = Start({"--link", "machine"});
    EXPECT_EQ(Named(*machine), "serial:" + link);
    EXPECT_TRUE(std::filesystem::is_character_file(link));
    machine->Kill();
    EXPECT_THAT(std::filesystem::read_symlink(link).string(), StartsWith("/dev/pts/"));
    // A test beside this one may come by that terminal's number; there is none of this one.
    std::filesystem::remove(link);
    std::filesystem::create_symlink("/dev/pts/1048576", link);
  }
}

TEST_F(MachineEndToEnd, TheLastWordNeedsNoLineEnd) {
  test::WriteContent(folder / "words", "state\nquit");
  const Outcome outcome = Start({}, folder / "words")->Finish();
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_THAT(outcome.Out, EndsWith("\nidle\n"));
}

TEST_F(MachineEndToEnd, WithoutStandardFilesTheLineIsNoneOfThem) {
  Process shell({"-c", ProgramNamed("morvane-machine") +
                           " --link machine <&- >&- 2>&- &\n"
                           "while [ ! -e machine ]; do sleep 0.05; done\n"
                           "for file in 0 1 2; do readlink /proc/$!/fd/$file; done\n"
                           "kill $!; wait $!; echo ended $?"},
                {.Folder = folder.Path(), .Program = "/bin/sh"});
  EXPECT_EQ(shell.Finish().Out, "/dev/null\n/dev/null\n/dev/null\nended 0\n");
}

TEST_F(MachineEndToEnd, WhoReadsTheFirstLineOnlyDoesNotEndIt) {
  test::WriteContent(folder / "words", "state\nstate\nquit\n");
  Process machine({"-c", "{ sleep 1; cat words; } | { " + ProgramNamed("morvane-machine") +
                             " --link machine; echo ended $? >&2; } | head -n 1"},
                  {.Folder = folder.Path(), .Program = "/bin/sh"});
  const Outcome outcome = machine.Finish();
  EXPECT_EQ(outcome.Err, "ended 0\n");
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "machine"));
}

TEST_F(MachineEndToEnd, ANameThatCannotBeToldIsAFailure) {
  Process machine({"-c", "exec " + ProgramNamed("morvane-machine") + " --link machine > /dev/full"},
                  {.Folder = folder.Path(), .Program = "/bin/sh"});
  const Outcome outcome = machine.Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, "morvane-machine: standard output cannot be written\n");
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "machine"));
}

TEST_F(MachineEndToEnd, ThePedalIsTypedAtItsTerminal) {
  SetFile("set.pbn", 1, 1);
  const bridges::ScriptedPeer keys;
  const bridges::ScriptedPeer operatorsTerminal;
  const auto machine = Start({"--machine", "simulated,speed=0"}, keys.Path());
  const std::string named = Named(*machine);
  Process deal(Whole({"--machine", named, "deal", "set.pbn"}),
               {folder.Path(), operatorsTerminal.Path()});
  ASSERT_TRUE(deal.Until([&] { return CountLines("  S/N:") == 1; }));
  // Again and again, for the first may come before the program polls.
  deal.Until([&] {
    keys.Send({'p', 'e', 'd', 'a', 'l', '\n'});
    return CountLines("  001 :") == 1;
  });
  EXPECT_EQ(deal.Finish().Status, 0);
  EXPECT_EQ(CountLines("  001 : 1,0 0,0,0,0 OK"), 1);
  keys.Send({'q', 'u', 'i', 't', '\n'});
  const Outcome outcome = machine->Finish();
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_THAT(outcome.Out, HasSubstr("\nhelp lists what you can do here.\n"));
  EXPECT_THAT(outcome.Out, HasSubstr("\nThe pedal was pressed.\n"));
}

TEST_F(MachineEndToEnd, WrongUsageIsToldBeforeAnythingIsMade) {
  const auto expect = [this](const std::vector<std::string>& words, const std::string& error) {
    const Outcome outcome = Start(words)->Finish();
    EXPECT_EQ(outcome.Status, 2);
    EXPECT_EQ(outcome.Out, "");
    EXPECT_EQ(outcome.Err, "morvane-machine: " + error + "\n");
  };
  expect({"--pace", "slow"}, "--pace: not \"slow\"\nTry 'morvane-machine --help'.");
  expect({"--machine", "usb"}, "\"usb\" is no simulated machine");
  expect({"--machine", "simulated,pack=none.pbn", "--link", "x"},
         "simulated machine: pack \"none.pbn\": No such file or directory");
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "x"));
}

TEST_F(MachineEndToEnd, AFileInThePlaceOfTheLinkStays) {
  SetFile("set.pbn", 1, 1);
  const std::string before = test::Content(folder / "set.pbn");
  const Outcome outcome = Start({"--link", "set.pbn"})->Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, "morvane-machine: --link set.pbn: File exists\n");
  EXPECT_EQ(test::Content(folder / "set.pbn"), before);
}

TEST_F(MachineEndToEnd, ABadPackIsWrongUsageOfTheOtherProgramsToo) {
  SetFile("set.pbn", 1, 1);
  const Outcome outcome = Deal("simulated,pack=none.pbn");
  EXPECT_EQ(outcome.Status, 2);
  EXPECT_EQ(outcome.Err,
            "morvane-cli: simulated machine: pack \"none.pbn\": No such file or directory\n");
  EXPECT_EQ(LogPath(), "") << "nothing was touched";
}

TEST_F(MachineEndToEnd, AStoreThatKeepsNothingIsToldOnce) {
  const std::string trouble = "store=" + folder.Path() + " keeps nothing: Is a directory\n";
  const auto machine = Start({"--machine", "simulated,speed=0,store=" + folder.Path()});
  SetFile("set.pbn", 1, 1);
  EXPECT_EQ(Deal(Named(*machine)).Err, "") << "the machine's own affair";
  machine->Signal(SIGTERM);
  EXPECT_EQ(machine->Finish().Err, "morvane-machine: " + trouble);
  const Outcome dealt = Deal("simulated,speed=0,store=" + folder.Path());
  EXPECT_EQ(dealt.Status, 0);
  EXPECT_THAT(dealt.Err, EndsWith("morvane-cli: " + trouble));
}

}  // namespace
}  // namespace morvane::e2e
