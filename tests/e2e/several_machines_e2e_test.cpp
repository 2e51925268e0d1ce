#include <csignal>
#include <filesystem>

#include "e2e/machine_fixture.h"

// Several simulated machines in one program, each with a client of its own.

namespace morvane::e2e {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class SeveralMachinesEndToEnd : public MachineEndToEnd {
 protected:
  void SetUp() override { SetFile("set.pbn", 1, 2); }
  std::unique_ptr<Process> StartDealing(const std::string& machine) {
    return std::make_unique<Process>(Whole({"--machine", machine, "deal", "set.pbn", "--auto"}),
                                     Around());
  }
  bool Contact(Process& client, const std::string& serial) {
    return client.Until([&] { return CountLines("  S/N:" + serial + " ") == 1; });
  }
};

TEST_F(SeveralMachinesEndToEnd, TwoClientsDealAtOnce) {
  const auto machines = Start({"--machine", "simulated,speed=100,serial=1", "--machine",
                               "simulated,speed=100,serial=2", "--pace", "fast"});
  const auto named = NamedOf(*machines, 2);
  EXPECT_THAT(named, ::testing::Each(StartsWith("serial:/dev/pts/")));
  const auto first = StartDealing(named[0]);
  const auto second = StartDealing(named[1]);
  EXPECT_THAT(first->Finish().Out, EndsWith("\n2 of 2 boards dealt.\n"));
  EXPECT_THAT(second->Finish().Out, EndsWith("\n2 of 2 boards dealt.\n"));
  EXPECT_EQ(CountLines("  S/N:1 Dealt:0"), 1);
  EXPECT_EQ(CountLines("  S/N:2 Dealt:0"), 1);
  EXPECT_EQ(CountLines("  002 : 1,0 0,0,0,0 OK"), 2);
}

TEST_F(SeveralMachinesEndToEnd, AClientThatIsKilledDisturbsTheOtherOneNot) {
  const auto machines = Start({"--machine", "simulated,speed=1,serial=1", "--machine",
                               "simulated,speed=20,serial=2", "--pace", "fast"});
  const auto named = NamedOf(*machines, 2);
  const auto first = StartDealing(named[0]);
  ASSERT_TRUE(Contact(*first, "1")) << first->Err();
  const auto second = StartDealing(named[1]);
  ASSERT_TRUE(Contact(*second, "2")) << second->Err();
  first->Kill();
  const Outcome outcome = second->Finish();
  EXPECT_EQ(outcome.Status, 0) << outcome.Err;
  EXPECT_EQ(CountLines("  002 : 1,0 0,0,0,0 OK"), 1);
  const auto next = StartDealing(named[0]);
  EXPECT_TRUE(next->Until([&] { return CountLines("  S/N:1 ") == 2; })) << next->Err();
}

TEST_F(SeveralMachinesEndToEnd, WordsGoToTheOneThatTheyNameAndQuitEndsAll) {
  test::WriteContent(folder / "words", "pedal\n2 off\nstate\nquit\n");
  const auto machines =
      Start({"--link", "one", "--machine", "simulated", "--machine", "simulated", "--link", "two"},
            folder / "words");
  const Outcome outcome = machines->Finish();
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Out, "serial:" + (folder / "one") + "\nserial:" + (folder / "two") +
                             "\nWhich machine? Its number goes in front, such as 1 pedal.\n"
                             "The power is off.\n1: idle\n2: off\n");
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "one"));
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "two"));
}

TEST_F(SeveralMachinesEndToEnd, ASignalEndsAllAndTakesEachLinkAway) {
  const auto machines =
      Start({"--link", "one", "--machine", "simulated", "--machine", "simulated", "--link", "two"});
  NamedOf(*machines, 2);
  EXPECT_TRUE(std::filesystem::is_character_file(folder / "two"));
  machines->Signal(SIGTERM);
  EXPECT_EQ(machines->Finish().Status, 0);
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "one"));
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "two"));
}

TEST_F(SeveralMachinesEndToEnd, OneThatCannotBeHadLeavesNothingOfTheOthers) {
  const auto expect = [this](const std::vector<std::string>& words, int status,
                             const std::string& error) {
    const Outcome outcome = Start(words)->Finish();
    EXPECT_EQ(outcome.Status, status);
    EXPECT_EQ(outcome.Out, "");
    EXPECT_EQ(outcome.Err, "morvane-machine: " + error + "\n");
    EXPECT_FALSE(std::filesystem::is_symlink(folder / "one"));
  };
  expect({"--link", "one", "--machine", "simulated", "--machine", "simulated", "--link", "set.pbn"},
         1, "--link set.pbn: File exists");
  expect({"--link", "one", "--machine", "simulated", "--machine", "simulated", "--link", "one"}, 1,
         "--link one: File exists");
  expect({"--link", "one", "--machine", "simulated", "--machine", "usb"}, 2,
         "\"usb\" is no simulated machine");
  expect({"--link", "one", "--machine", "simulated,store=s", "--machine", "simulated,store=./s"}, 2,
         "store=./s: for two machines");
}

TEST_F(SeveralMachinesEndToEnd, EachWritesATraceOfItsOwn) {
  const auto machines =
      Start({"--machine", "simulated,speed=0,serial=1", "--trace", "one.trace", "--machine",
             "simulated,speed=0,serial=2", "--trace", "two.trace", "--trace-without-hands"});
  const auto named = NamedOf(*machines, 2);
  EXPECT_EQ(StartDealing(named[1])->Finish().Status, 0);
  machines->Signal(SIGTERM);
  EXPECT_EQ(machines->Finish().Err, "");
  EXPECT_FALSE(std::filesystem::exists(folder / "one.trace")) << "nobody asked it anything";
  const std::string busy = test::Content(folder / "two.trace");
  EXPECT_THAT(busy, HasSubstr(" WriteLatch 0 handle=1 mask=1 value=1\n"));
  EXPECT_THAT(busy, HasSubstr(" Write 0 handle=1 written=136 bytes="));
  EXPECT_THAT(busy, HasSubstr(" Read 0 handle=1 asked=8 bytes="));
  EXPECT_THAT(busy, EndsWith(" Close 0 handle=1\n# end\n"));
}

TEST_F(SeveralMachinesEndToEnd, ATraceThatCannotBeWrittenIsToldAtOnce) {
  test::WriteContent(folder / "mine", "my words\n");
  const Outcome outcome = Start({"--link", "one", "--trace", "mine"})->Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(outcome.Err,
            "morvane-machine: mine: there is a file of this name, and it is no trace\n");
  EXPECT_EQ(test::Content(folder / "mine"), "my words\n");
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "one"));
}

}  // namespace
}  // namespace morvane::e2e
