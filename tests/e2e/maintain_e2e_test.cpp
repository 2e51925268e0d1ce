#include <chrono>
#include <csignal>

#include "bridges/scripted_peer.h"
#include "e2e/maintain_fixture.h"
#include "maintenance/paper_flash.h"

// The service console of the command line, with the simulated machine as another program at the
// other end of a pseudo-terminal. Each run costs two seconds before the first contact.

namespace morvane::e2e {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST_F(MaintainEndToEnd, InfoShowsTheMachineAtTheOtherEnd) {
  const Outcome outcome = Maintain(Start(",serial=12,firmware=2.44"), {"info"});
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, InProgram());
  EXPECT_THAT(outcome.Out, StartsWith("Serial_number: 12\n"));
  EXPECT_THAT(outcome.Out, HasSubstr("\nSoft_ver: 2.44\n"));
  EXPECT_THAT(outcome.Out, HasSubstr("\nMotor_speed_4: 0\n"));
  EXPECT_THAT(outcome.Out, EndsWith("\nReco_option_txt: 0\n"));
  EXPECT_EQ(CountLines("   Basic info: 12,0,"), 1);
  EXPECT_EQ(CountLines(" Maintenance: "), 1);
}

TEST_F(MaintainEndToEnd, ParametersAreKeptWrittenAndBroughtBack) {
  std::string named = Start();
  const Outcome kept = Maintain(named, {"parameters", "--index", "jumbo"});
  EXPECT_EQ(kept.Status, 0);
  test::WriteContent(folder / "backup.txt", kept.Out);
  auto words =
      On(named, {"parameters", "--index", "jumbo", "--set", "pos_x=1", "--set", "Fine_th_txt=90"});
  words.insert(words.begin(), "--yes");
  const Outcome written = Process(words, Around()).Finish();
  EXPECT_EQ(written.Status, 0) << written.Err;
  EXPECT_THAT(written.Out, HasSubstr("\npos_x: 1\n"));
  // The machine keeps them without power.
  SwitchOff();
  named = Start();
  EXPECT_EQ(Maintain(named, {"parameters", "--index", "jumbo"}).Out, written.Out);
  words = On(named, {"parameters", "--from", "backup.txt"});
  words.insert(words.begin(), "--yes");
  const Outcome back = Process(words, Around()).Finish();
  EXPECT_EQ(back.Status, 0) << back.Err;
  EXPECT_EQ(back.Out, kept.Out);
  EXPECT_EQ(CountLines("   Parameters update: 11,22,"), 1) << "the index, then pos_x";
  EXPECT_EQ(CountLines("   Parameters update: 162,22,"), 1);
}

TEST_F(MaintainEndToEnd, AFirmwareIsLoadedOverTheLineAndAMachineThatIsStartedAgainHasIt) {
  std::string code(400, '\x01');
  code[0x10] = '\x02';
  code[0x11] = '\x86';
  test::WriteContent(folder / "new.adc", maintenance::FileOf(code, std::string(300, 'b')));
  const Outcome loaded = Maintain(Start(), {"firmware", "new.adc"});
  EXPECT_EQ(loaded.Status, 0) << loaded.Err;
  EXPECT_EQ(loaded.Out, "Soft_ver: 2.86\n");
  SwitchOff();
  EXPECT_THAT(Maintain(Start(), {"info"}).Out, HasSubstr("\nSoft_ver: 2.86\n"));
}

TEST_F(MaintainEndToEnd, ADownloadThatIsKilledLeavesAMachineThatCanBeLoaded) {
  const std::string named = Start();
  const std::string half(60000, 'x');
  test::WriteContent(folder / "large.adc", maintenance::FileOf(half, half));
  Process killed(On(named, {"firmware", "large.adc"}), Around());
  ASSERT_TRUE(
      killed.Until([&] { return killed.Err().find("In the machine: 2.90") != std::string::npos; }));
  // The start goes out behind that line, and the whole takes twelve seconds.
  const auto told = std::chrono::steady_clock::now();
  ASSERT_TRUE(killed.Until(
      [&] { return std::chrono::steady_clock::now() - told > std::chrono::seconds(2); }));
  killed.Signal(SIGKILL);
  killed.Finish();
  const Outcome info = Maintain(named, {"info"});
  EXPECT_THAT(info.Err, HasSubstr("The machine holds no firmware"));
  test::WriteContent(folder / "new.adc",
                     maintenance::FileOf(maintenance::CodeOf(2, 0x86), std::string(300, 'b')));
  EXPECT_EQ(Maintain(named, {"firmware", "new.adc"}).Out, "Soft_ver: 2.86\n");
}

TEST_F(MaintainEndToEnd, ARecordIsWrittenWithItsBitsAndKeptWithoutPower) {
  auto words = On(Start(",hardware=0x65"), {"record", "--serial", "77", "--hardware", "3", "--date",
                                            "2026-03-09", "--boards-dealt", "12"});
  words.insert(words.begin(), "--yes");
  const Outcome written = Process(words, Around()).Finish();
  EXPECT_EQ(written.Status, 0) << written.Err;
  SwitchOff();
  const Outcome kept = Maintain(Start(), {"record"});
  EXPECT_EQ(kept.Out, written.Out);
  EXPECT_THAT(kept.Out, HasSubstr("Adv_SerialNumber: 77\n"));
  EXPECT_THAT(kept.Out, HasSubstr("Curr_HID: 99\n")) << "0x63: bits 5 and 6 have stayed";
  EXPECT_THAT(kept.Out, HasSubstr("Boards_dealt: 12\n"));
}

TEST_F(MaintainEndToEnd, WithNobodyToAskNothingIsWritten) {
  const std::string named = Start();
  const Outcome outcome = Maintain(named, {"parameters", "--set", "pos_x=1"});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_THAT(outcome.Err, EndsWith("There is nobody to ask; --yes would answer Yes.\n"));
  EXPECT_THAT(outcome.Out, HasSubstr("\npos_x: 60\n"));
}

TEST_F(MaintainEndToEnd, AnInterruptEndsWatchWellAndLeavesTheLineToTheNext) {
  const std::string named = Start();
  for (const int number : EndSignals()) {
    Process watch(On(named, {"watch"}), Around());
    ASSERT_TRUE(watch.Until([&] { return watch.Out().ends_with('\n'); })) << watch.Err();
    watch.Signal(number);
    const Outcome outcome = watch.Finish();
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Err, InProgram());
    EXPECT_THAT(outcome.Out, StartsWith("Photo1: "));
    EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
  }
}

TEST_F(MaintainEndToEnd, AnInterruptBeforeTheFirstContactEndsWatchAtOnce) {
  Process watch(On(Start(), {"watch"}), Around());
  ASSERT_TRUE(watch.Until([&] { return CountLines(" Maintenance: ") == 1; }));
  watch.Signal(SIGINT);
  const Outcome outcome = watch.Finish();
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Out, "");
}

TEST_F(MaintainEndToEnd, AMachineThatGoesInTheMiddleIsTold) {
  Process watch(On(Start(), {"watch"}), Around());
  ASSERT_TRUE(watch.Until([&] { return watch.Out().ends_with('\n'); })) << watch.Err();
  machine->Kill();
  const Outcome outcome = watch.Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err,
            "Communication Error: Lost Communication with Morvane  -  Maintenance Aborted!\n");
  EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
}

TEST_F(MaintainEndToEnd, WatchWhoseReaderHasGoneEnds) {
  const bridges::ScriptedPeer keys;
  const std::string named = Start("", keys.Path());
  Process shell(
      {"-c", ProgramNamed("morvane-cli") + " --data data --settings settings.ini --machine " +
                 named + " maintain watch | head -n 3"},
      {.Folder = folder.Path(), .Program = "/bin/sh"});
  ASSERT_TRUE(shell.Until([&] { return shell.Out().find("Photo3: ") != std::string::npos; }));
  // The next line that it writes has nowhere to go.
  shell.Until([&] {
    keys.Send({'c', 'o', 'v', 'e', 'r', '\n'});
    return CountLines(" Exit: ") == 1;
  });
  EXPECT_EQ(shell.Finish().Err, "");
  EXPECT_EQ(CountLines(" Exit: "), 1);
}

}  // namespace
}  // namespace morvane::e2e
