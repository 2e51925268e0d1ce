#include "shell/diagnosis.h"

#include "shell/help.h"
#include "support/fake_desktop.h"
#include "support/fakes.h"
#include "support/scripted_bridge.h"
#include "support/user_home.h"

namespace morvane::shell {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// A diagnosis of a desk whose user's home is its folder.
struct DiagnosisDesk : test::TestDesk {
  test::UserHome Home{Folder.Path()};
  test::ScriptedBridge Bridge{Clock};
  machine::Machine TheMachine{Random, Bridge};
  test::FakeDesktop Around;
  Help TheHelp{Prog, TheMachine, Around, {"usb:17", {{"Qt", "6.4.2"}}}};

  std::string Copied() {
    TheHelp.CopyDiagnosis();
    return Around.Copied;
  }
};

TEST(Diagnosis, HasVersionsSystemMachineSettingsAndLog) {
  DiagnosisDesk desk;
  desk.Store.Set(kThreshold, "3");
  desk.TheMachine.Version.FirmwareMajor = 2;
  desk.TheMachine.Version.FirmwareMinor = 0x90;
  desk.TheMachine.SerialNumber = 4711;
  desk.Prog.Log.WriteLine("  Seedm: F23F1E626B8B5E8D04812DF2");
  desk.Prog.Log.WriteTime(" Exit: ");
  const std::string text = desk.Copied();
  EXPECT_THAT(text, HasSubstr("Diagnosis of 2026-03-03 3:04:05 PM\n"
                              "Morvane: 1.0 with Sort 1.0  with Poker 1.5 \n"
                              "Qt: 6.4.2\n"
                              "System: paper\n"
                              "Machine: usb:17, not in use now\n"
                              "Firmware: 2.90, hardware 00000000, S/N 4711\n"
                              "Link: no trouble\n"));
  EXPECT_THAT(text, HasSubstr("\nThreshold = 3\n"));
  EXPECT_THAT(text, HasSubstr("\n Exit: 3:04:05 PM\n"));
  EXPECT_THAT(text, Not(HasSubstr("F23F1E")));
  EXPECT_EQ(desk.Ui.Statuses.back(), "Diagnosis copied to the clipboard");
}

TEST(Diagnosis, HasNoSettingThatSeedsDealsOrNamesFiles) {
  DiagnosisDesk desk;
  desk.Store.Set(kSeedm, "5EED5EED");
  desk.Store.Set(kSolverResult, "0A0B0C");
  desk.Store.Set(kRecentFiles, "L/srv/secret.pbn");
  const std::string text = desk.Copied();
  for (const char* part : {"5EED5EED", "0A0B0C", "secret"}) EXPECT_THAT(text, Not(HasSubstr(part)));
}

TEST(Diagnosis, HasAWaveForTheHome) {
  DiagnosisDesk desk;
  const std::string text = desk.Copied();
  EXPECT_THAT(text, HasSubstr("\nData folder: ~"));
  EXPECT_THAT(text, Not(HasSubstr(desk.Folder.Path())));
}

TEST(Diagnosis, HasTheKeyOfTheRegistryWhereThatHasTheSettings) {
  DiagnosisDesk desk;
  Program keyed{
      {desk.Ui, desk.Loop, desk.Clock, desk.Store, desk.Random, desk.Speaker, desk.ThePrinter},
      {desk.Folder.Path(), desk.Folder / "data", "", "HKEY_CURRENT_USER\\Software\\morvane.exe"}};
  Help(keyed, desk.TheMachine, desk.Around, {"simulated", {}}).CopyDiagnosis();
  const std::string& text = desk.Around.Copied;
  EXPECT_THAT(text, HasSubstr("\nSettings: HKEY_CURRENT_USER\\Software\\morvane.exe\n"));
  EXPECT_THAT(text, Not(HasSubstr("Settings file:")));
}

TEST(Diagnosis, HasOneShortLineForWhateverASettingHolds) {
  DiagnosisDesk desk;
  desk.Store.Set(kThreshold, "3\nSeed\tz\xC5\x82 " + std::string(100, 'x'));
  EXPECT_THAT(desk.Copied(), HasSubstr("\nThreshold = 3?Seed?z?? " + std::string(29, 'x') + "\n"));
}

TEST(Diagnosis, HasTheTroubleOfTheLink) {
  DiagnosisDesk desk;
  desk.TheMachine.Link.CommErrorCount = 2;
  desk.TheMachine.Link.ReadFailed = true;
  EXPECT_THAT(desk.Copied(), HasSubstr("\nLink: 2 bad replies in a row; the last read was short"));
}

TEST(Diagnosis, HasTheLastThirtyLinesOfTheLog) {
  DiagnosisDesk desk;
  for (int n = 1; n <= 40; ++n) {
    desk.Prog.Log.WriteLine("History records: " + std::to_string(n));
    desk.Prog.Log.WriteLine("   001 : AT62.J73.Q84.K95 K95.AT62.J73.Q84 ");
  }
  const std::string text = desk.Copied();
  EXPECT_THAT(text, HasSubstr("tell of no deal\nHistory records: 11\nHistory records: 12\n"));
  EXPECT_TRUE(text.ends_with("\nHistory records: 40\n"));
}

TEST(Diagnosis, SaysThatTheMachineHasNotAnswered) {
  DiagnosisDesk desk;
  EXPECT_THAT(desk.Copied(), HasSubstr("\nFirmware: the machine has not answered in this run\n"));
}

}  // namespace
}  // namespace morvane::shell
