#include <array>

#include "maintenance/console_desk.h"
#include "support/frame_list.h"

// What goes over the wire at each version of the firmware, from the byte tables.

namespace morvane::maintenance {
namespace {

using test::FramesAre;

/// A version, and how much of the parameters and of the status it has.
struct Version {
  const char* Name;
  int Blocks;    ///< that stand once
  int Statuses;  ///< frames of a poll behind the outputs
};

constexpr std::array kVersions{
    Version{"1.99", 0, 0}, Version{"2.1F", 0, 0}, Version{"2.20", 0, 2}, Version{"2.23", 0, 2},
    Version{"2.24", 0, 3}, Version{"2.25", 0, 3}, Version{"2.26", 0, 4}, Version{"2.36", 0, 4},
    Version{"2.37", 0, 5}, Version{"2.3F", 0, 5}, Version{"2.40", 0, 5}, Version{"2.43", 0, 5},
    Version{"2.44", 1, 5}, Version{"2.65", 1, 5}, Version{"2.66", 1, 5}, Version{"2.69", 1, 5},
    Version{"2.70", 1, 5}, Version{"2.7F", 1, 5}, Version{"2.80", 2, 5}, Version{"3.00", 2, 5}};

/// Bits 3, 5 and 6: none, each alone, all of them and nothing else.
constexpr std::array kHardware{"0x00", "0x08", "0x20", "0x40", "0x68"};

std::vector<std::string> StartOf(const Version& version) {
  std::vector<std::string> frames{"1A .. .. .. .. .. ..", "12 01 00 .. .. .. ..",
                                  "12 02 00 .. .. .. ..", "33 00 00 .. .. .. ..",
                                  "11 01 .. .. .. .. ..", "11 02 .. .. .. .. ..",
                                  "11 03 .. .. .. .. ..", "11 04 .. .. .. .. .."};
  if (version.Blocks > 0) frames.emplace_back("11 09 .. .. .. .. ..");
  if (version.Blocks > 1) frames.emplace_back("11 0E .. .. .. .. ..");
  frames.emplace_back("32 00 00 00 00 00 00");
  frames.emplace_back("23 00 00 00 00 00 00");
  return frames;
}

std::vector<std::string> PollOf(const Version& version) {
  std::vector<std::string> frames{"17 00 00 .. .. .. .."};
  for (int selector = 0; selector < version.Statuses; ++selector) {
    frames.push_back("1B 0" + std::to_string(selector) + " 00 .. .. .. ..");
  }
  return frames;
}

class Gates : public ConsoleDesk {};

TEST_F(Gates, WindowStartAndPollAtEachVersionWhateverTheHardware) {
  for (const Version& version : kVersions) {
    for (const char* const hardware : kHardware) {
      SCOPED_TRACE(std::string(version.Name) + " " + hardware);
      Start(std::string("firmware=") + version.Name + ",hardware=" + hardware);
      EXPECT_TRUE(FramesAre(bridge.Sent, StartOf(version)));
      bridge.Sent.clear();
      Poll();
      EXPECT_TRUE(FramesAre(bridge.Sent, PollOf(version)));
    }
  }
}

TEST_F(Gates, AnUpdateAtEachVersion) {
  for (const Version& version : kVersions) {
    SCOPED_TRACE(version.Name);
    Start(std::string("firmware=") + version.Name);
    Type(Parameter::pos_x, "255");
    bridge.Sent.clear();
    desk.Ui.Answers = {kYes};
    console->save_param();
    std::vector<int> written{1, 2, 4, 3};
    if (version.Blocks > 0) written.insert(written.begin(), 9);
    if (version.Blocks > 1) written.insert(written.begin(), 14);
    EXPECT_EQ(SubCodes(0x13), written);
    EXPECT_EQ(desk.Ui.Boxes.back().Text, desk.Prog.Texts.Msg056);
  }
}

}  // namespace
}  // namespace morvane::maintenance
