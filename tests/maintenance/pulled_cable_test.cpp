#include "maintenance/console_desk.h"
#include "maintenance/paper_flash.h"

// The cable is pulled in the middle of a download.

namespace morvane::maintenance {
namespace {

using test::Bytes;

class PulledCable : public ConsoleDesk {
 protected:
  std::string path = desk.Folder / "new.adc";
  int sent = 0;           ///< frames of the download
  int pulledBehind = -1;  ///< that many of them; -1: never
  bool answerLost = false;

  void SetUp() override {
    ConsoleDesk::SetUp();
    // The start, code 1 and 2, the bitstream's 1, both headers.
    test::WriteContent(path, FileOf(CodeOf(2, 0x83, 240), std::string(200, 'b')));
    Deaf = [this](const Bytes& plain) {
      const bool isDownload = plain[0] == 41 || plain[0] == 170;
      return pulledBehind >= 0 && (sent += isDownload ? 1 : 0) > pulledBehind;
    };
    Damage = [this](const Bytes&, const Bytes& wire) {
      return answerLost && sent == pulledBehind ? Bytes{} : wire;
    };
  }
  /// The console opens anew.
  void PlugInAgain() {
    pulledBehind = -1;
    machine.Link.UsbHandle = 7;
    console.emplace(desk.Prog, machine, *pictures);
    console->Open(view);
    desk.Loop.WaitMs(Maintenance::kFirstContactMs);
  }
  void PullBehind(int frames) {
    desk.Ui.Boxes.clear();
    Start("firmware=2.90");
    sent = 0;
    pulledBehind = frames;
    console->Download(path);
  }
};

constexpr int kFrames = 6;

TEST_F(PulledCable, BehindNoFrameDoesTheMachineStartHalfAFirmwareAndASecondDownloadSucceeds) {
  for (answerLost = false;; answerLost = true) {
    for (int frames = answerLost ? 1 : 0; frames < kFrames; ++frames) {
      SCOPED_TRACE(std::to_string(frames) + (answerLost ? ", its answer lost" : ""));
      PullBehind(frames);
      ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
      EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg055);
      EXPECT_TRUE(console->Closed());
      PlugInAgain();
      EXPECT_TRUE(console->Controls().Download);
      EXPECT_EQ(console->Controls().MachineKnown, frames == 0) << "untouched, or nothing to start";
      console->Download(path);
      desk.Loop.WaitMs(Maintenance::kFirstContactMs);
      EXPECT_TRUE(console->Controls().MachineKnown);
      EXPECT_EQ(console->TheIdentity().Soft_ver, "2.83");
    }
    if (answerLost) break;
  }
}

TEST_F(PulledCable, BehindTheLastFrameItIsNotKnownAndTheMachineHasIt) {
  answerLost = true;
  PullBehind(kFrames);
  EXPECT_EQ(desk.LogLines().back(),
            "   Firmware download: not known what the machine holds: the link was lost");
  PlugInAgain();
  EXPECT_EQ(console->TheIdentity().Soft_ver, "2.83");
}

}  // namespace
}  // namespace morvane::maintenance
