#include "shell/diagnosis.h"

#include <cstdlib>

#include "shell/help.h"
#include "support/fake_desktop.h"
#include "support/fakes.h"
#include "support/scripted_bridge.h"

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

/// What is handed on of each line, without those of which nothing is.
std::vector<std::string> HandedOn(const std::vector<std::string>& lines) {
  std::vector<std::string> kept;
  for (const std::string& line : lines) {
    if (std::string text = LogLineToHandOn(line); !text.empty()) kept.push_back(text);
  }
  return kept;
}

TEST(LogLines, OfWhatWasDoneAreHandedOnWithTheirTimes) {
  EXPECT_THAT(
      HandedOn({"---", "Start 2026-03-03 3:04:05 PM", "History records: 12",
                " File-New: 3:04:05 PM", " File-Save: 3:09:41: PM", " File-Import: 3:04:05 PM",
                " Edit: 3:04:05 PM", " Maintenance: 3:04:05 PM", " Exit: 3:04:05 PM",
                " USB Initialization Error: 6:3", "  S/N:17 Dealt:40 Firmware:2.90",
                " Machine: simulated", " Unexpected end of the program before this start"}),
      ElementsAre("---", "Start 2026-03-03 3:04:05 PM", "History records: 12",
                  " File-New: 3:04:05 PM", " File-Save: 3:09:41: PM", " File-Import: 3:04:05 PM",
                  " Edit: 3:04:05 PM", " Maintenance: 3:04:05 PM", " Exit: 3:04:05 PM",
                  " USB Initialization Error: 6:3", "  S/N:17 Dealt:40 Firmware:2.90",
                  " Machine: simulated", " Unexpected end of the program before this start"));
}

TEST(LogLines, OfFilesGiveTheEndingOfTheName) {
  EXPECT_THAT(HandedOn({"  Load: /home/anna/final of the cup.pbn", "  Save: noending",
                        "  Import: C:\\sets.old\\a.PBN"}),
              ElementsAre("  Load: *.pbn", "  Save: *", "  Import: *.PBN"));
}

TEST(LogLines, OfARunGiveWhatTheMachineSaidButNotWhatWasRead) {
  EXPECT_THAT(
      HandedOn({"  001 : 1,0 13,13,13,13 OK", "  001 : 1,0 0,0,0,0 57", "  Sort: 0,0,0,0 OK",
                "  005 : 1,0 13,13,13,13 OK  AKQJT98765432... .AKQJT98765432.. "}),
      ElementsAre("  001 : 1,0 13,13,13,13 OK", "  001 : 1,0 0,0,0,0 57", "  Sort: 0,0,0,0 OK",
                  "  005 : 1,0 13,13,13,13 OK"));
}

TEST(LogLines, OfSeedsDealsAndTheirTestsAreNotHandedOn) {
  EXPECT_THAT(
      HandedOn({"   Start up parameters: 6636,773  1.0 with Sort 1.0  with Poker 1.5   ",
                "  New random bits collected: 48", "  Seedm: F23F1E626B8B5E8D04812DF2",
                "  Seedr: 73CB8D1D126A493B6CB7D1C02E16C06BFD8D79B8",
                "  Seedo: 2ABC0ACBA3C79CC21D79BEB95ED4A8AB13B5B897",
                "  Seed: 0123456789ABCDEF0123456789ABCDEF", "  Generate: 1,32 : 1,1,1 : 2,0,0",
                "   001 : 874.K92.9763.A72 A93.T6.A85.QT984 JT.J84.KQJ2.KJ53 KQ652.AQ753.T4.6  "
                "2024282C888C4D3F6B4A1BC6  00000005",
                "   002 : AT62.J73.Q84.K95 K95.AT62.J73.Q84 Q84.K95.AT62.J73 J73.Q84.K95.AT62 ",
                "   003 : 98765432... ... ... ... ",
                "   Accept: 7  AT62.J73.Q84.K95 K95.AT62.J73.Q84", "    DDS: 1,32 ver: 2.9  14.0s",
                "   Print hands to: /home/anna/hands.txt", "Friday AK.QJ", ""}),
      ElementsAre());
}

TEST(LogLines, OfABoxAreHandedOnWhereItTellsOfNoCards) {
  EXPECT_THAT(
      HandedOn({"    Save Error: Error: 28 during save operation - No space left on device",
                "    Load Error: File format error : Duplicate card 'SA' in line: 7",
                "    Import PBN: Boards imported: 1 : Line 4: the ace is there twice",
                "    Test Deal: The AS was recognised but KS was expected."}),
      ElementsAre("    Save Error: Error: 28 during save operation - No space left on device"));
}

/// A diagnosis of a desk whose user's home is its folder.
struct DiagnosisDesk : test::TestDesk {
  DiagnosisDesk() { setenv("HOME", Folder.Path().c_str(), 1); }
  ~DiagnosisDesk() { setenv("HOME", before_.c_str(), 1); }

  test::ScriptedBridge Bridge{Clock};
  machine::Machine TheMachine{Random, Bridge};
  test::FakeDesktop Around;
  Help TheHelp{Prog, TheMachine, Around, {"usb:17", {{"Qt", "6.4.2"}}}};

  std::string Copied() {
    TheHelp.CopyDiagnosis();
    return Around.Copied;
  }

 private:
  const std::string before_ = std::getenv("HOME") == nullptr ? "" : std::getenv("HOME");
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
                              "Machine: usb:17, not open\n"
                              "Firmware: 2.90, hardware 00000000, S/N 4711\n"
                              "Link: 0 bad replies in a row\n"));
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
  desk.Prog.Log.WriteLine("    Save Error: " + desk.Folder.Path() + "/a.pbn and " +
                          desk.Folder.Path() + "/b.pbn");
  const std::string text = desk.Copied();
  EXPECT_THAT(text, HasSubstr("\n    Save Error: ~/a.pbn and ~/b.pbn\n"));
  EXPECT_THAT(text, Not(HasSubstr(desk.Folder.Path())));
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
