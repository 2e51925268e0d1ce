#include "shell/handed_on.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <vector>

#include "platform/files.h"
#include "support/fakes.h"
#include "support/user_home.h"

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;

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
                " Machine: simulated"}),
      ElementsAre("---", "Start ", "History records: 12", " File-New: 3:04:05 PM",
                  " File-Save: 3:09:41: PM", " File-Import: 3:04:05 PM", " Edit: 3:04:05 PM",
                  " Maintenance: 3:04:05 PM", " Exit: 3:04:05 PM", " USB Initialization Error: 6:3",
                  "  S/N:17 Dealt:40 Firmware:2.90", " Machine: simulated"));
}

TEST(LogLines, OfFilesGiveTheEndingOfTheName) {
  EXPECT_THAT(HandedOn({"  Load: /home/anna/final of the cup.pbn", "  Save: noending",
                        "  Import: C:\\sets.old\\a.PBN"}),
              ElementsAre("  Load: *.pbn", "  Save: *", "  Import: *.pbn"));
}

TEST(LogLines, OfFilesGiveNoEndingThatMayBeAName) {
  EXPECT_THAT(HandedOn({"  Save: final Mrs. Jones", "  Load: /media/anna/cup.Smith-Jones",
                        "   Firmware file open: /media/anna/DM_290.adc"}),
              ElementsAre("  Save: *", "  Load: *", "   Firmware file open: *.adc"));
}

TEST(LogLines, OfAnUnexpectedEndGiveThePlaceInTheCode) {
  EXPECT_THAT(
      HandedOn({" Unexpected end of the program that began 2026-03-02 7:00:00 PM",
                " Unexpected error: vector::_M_range_check: __n (which is 7)",
                " Unexpected error: filesystem error: cannot rename [/home/anna/cup::1.pbn]",
                " Unexpected error: stoi"}),
      ElementsAre(" Unexpected end of the program", " Unexpected error: vector::_M_range_check:",
                  " Unexpected error: ", " Unexpected error: "));
}

TEST(LogLines, OfAnUnsavedSetSayWhatBecameOfIt) {
  EXPECT_THAT(HandedOn({" Unsaved Board Set of 2026-03-03 3:04:05 PM: loaded",
                        " Unsaved Board Set of 2026-03-03 3:04:05 PM: left"}),
              ElementsAre(" Unsaved Board Set of 2026-03-03 3:04:05 PM: loaded",
                          " Unsaved Board Set of 2026-03-03 3:04:05 PM: left"));
}

TEST(LogLines, OfTheServiceAreHandedOnWhereTheyTellOfTheMachine) {
  EXPECT_THAT(
      HandedOn({"   Firmware downloaded OK", "   Firmware download not completed: cancelled",
                "   AutoSetup Failed for Standard", "   Board Switch Calibration: 120,101",
                "   Test Deal  58 expected: AS"}),
      ElementsAre("   Firmware downloaded OK", "   Firmware download not completed: cancelled",
                  "   AutoSetup Failed for Standard", "   Board Switch Calibration: 120,101"));
}

TEST(LogLines, OfARunOfPokerNameDealAndRun) {
  EXPECT_THAT(HandedOn({"  Poker: Deal 3, run 1 OK", "  Poker: Deal 1, run 2 62",
                        "  Poker: Deal 2, read OK"}),
              ElementsAre("  Poker: Deal 3, run 1 OK", "  Poker: Deal 1, run 2 62",
                          "  Poker: Deal 2, read OK"));
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

TEST(LogLines, OfABoxHaveNoPathInThem) {
  EXPECT_THAT(
      HandedOn({"    History Error: Error during saving history file : Application Path: "
                "/media/anna/the club : Error: 28, No space left on device",
                "    Guide: The guide is not installed. : Its page would be: /opt/x/stops.html",
                "    Unsaved Board Set: The copy cannot be read. : File Name: C:\\Anna\\U.txt",
                "    Trace: final of Jones.trace: No space left on device",
                "    Read Error: This function cannot be used while analysis is running"}),
      ElementsAre("    History Error: Error during saving history file : Application Path: * : "
                  "Error: 28, No space left on device",
                  "    Guide: The guide is not installed. : Its page would be: *",
                  "    Unsaved Board Set: The copy cannot be read. : File Name: *", "    Trace: ",
                  "    Read Error: This function cannot be used while analysis is running"));
}

TEST(WithoutPaths, DevicesAndFractionsAreNone) {
  EXPECT_EQ(WithoutPaths("the device /dev/ttyUSB0 is held; 12/32 at 3 / 4"),
            "the device /dev/ttyUSB0 is held; 12/32 at 3 / 4");
  EXPECT_EQ(WithoutPaths("/dev/ttyUSB0 and /srv/a b : /c"), "/dev/ttyUSB0 and * : *");
  EXPECT_EQ(WithoutPaths("FILE=/srv/a"), "FILE=*");
}

TEST(MachineToHandOn, HasItsFormButNoNameOfAFile) {
  EXPECT_EQ(MachineToHandOn("usb"), "usb");
  EXPECT_EQ(MachineToHandOn("usb:17"), "usb:17");
  EXPECT_EQ(MachineToHandOn("serial:/dev/ttyUSB0"), "serial:/dev/ttyUSB0");
  EXPECT_EQ(MachineToHandOn("serial:/tmp/anna"), "serial:*");
  EXPECT_EQ(MachineToHandOn("replay:/media/anna/final.trace"), "replay:*");
  EXPECT_EQ(MachineToHandOn("simulated,speed=0,flashed"), "simulated,speed=0,flashed");
  EXPECT_EQ(MachineToHandOn("simulated,speed=0,pack=/media/anna,store=b.pbn"),
            "simulated,speed=0,pack=*");
}

/// A user "ann", whose home is reached by a link too.
class PlaceInHome : public ::testing::Test {
 protected:
  test::TempFolder folder_;
  test::UserHome home_{folder_ / "home/ann"};
};

TEST_F(PlaceInHome, IsToldFromThereOn) {
#ifdef _WIN32
  EXPECT_EQ(PlaceToHandOn(folder_ / "home/ann/.config/x.ini"), "~\\.config\\x.ini");
#else
  EXPECT_EQ(PlaceToHandOn(folder_ / "home/ann/.config/x.ini"), "~/.config/x.ini");
#endif
  EXPECT_EQ(PlaceToHandOn(folder_ / "home/ann"), "~");
}

TEST_F(PlaceInHome, IsNotTheHomeOfAnotherUserWhoseNameGoesOn) {
  EXPECT_EQ(PlaceToHandOn(folder_ / "home/anna/data"), "outside the home folder");
}

#ifndef _WIN32  // links take rights that a user lacks
TEST_F(PlaceInHome, MayBeNamedWithoutTheLinkThatTheHomeIs) {
  std::filesystem::create_directories(PathOfUtf8(folder_ / "disk/ann"));
  std::filesystem::create_directory_symlink(folder_ / "disk", folder_ / "home");
  EXPECT_EQ(PlaceToHandOn(folder_ / "disk/ann/data"), "~/data");
}
#endif

}  // namespace
}  // namespace morvane::shell
