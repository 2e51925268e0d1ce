#include "maintenance/download_command.h"

#include "maintenance/console_desk.h"
#include "maintenance/paper_flash.h"
#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FakeUi;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Le;
using ::testing::Not;
using ::testing::SizeIs;

/// The button `Download` of the whole console, at a machine whose flash is on paper.
class Download : public ConsoleDesk {
 protected:
  PaperFlash flash;
  std::string path = desk.Folder / "new.adc";

  void SetUp() override {
    ConsoleDesk::SetUp();
    Damage = [this](const Bytes& plain, const Bytes& wire) {
      const Bytes reply = flash.ReplyTo(plain);
      return reply.empty() ? wire : reply;
    };
    test::WriteContent(path, FileOf(CodeOf(2, 0x83, 240), std::string(200, 'b')));
  }
  /// Picks that file, or none.
  void Press(const std::optional<std::string>& picked) {
    desk.Ui.Files = {picked};
    bridge.Sent.clear();
    bridge.Calls.clear();
    console->Download();
  }
  [[nodiscard]] std::vector<std::string> Titles() const {
    std::vector<std::string> titles;
    for (const FakeUi::Box& box : desk.Ui.Boxes) titles.push_back(box.Title);
    return titles;
  }
  /// The box that refuses a file with these bytes; nothing was sent.
  FakeUi::Box RefusalOf(const std::string& bytes) {
    test::WriteContent(path, bytes);
    desk.Ui.Boxes.clear();
    Press(path);
    EXPECT_THAT(flash.Heard, IsEmpty());
    EXPECT_EQ(view.Downloads, 0);
    if (desk.Ui.Boxes.size() != 1) return {};
    return desk.Ui.Boxes[0];
  }
};

TEST_F(Download, SaysOkAndMeetsTheMachineAnew) {
  Start();
  Press(path);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1, 2, 0x201, 0x200, 0));
  EXPECT_THAT(desk.Ui.FileRequests, SizeIs(1));
  EXPECT_EQ(desk.Ui.FileRequests[0].Filter, "Morvane firmware file (*.adc)|*.adc");
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{"      New Firmware downloaded OK      ",
                                                     kOkInformation, "Firmware download"}));
  EXPECT_THAT(LinesWith("   Firmware "),
              ElementsAre("   Firmware file open: " + path, "   Firmware downloaded OK",
                          "    Firmware download: New Firmware downloaded OK"));
  EXPECT_EQ(console->TheIdentity().Soft_ver, "");
  EXPECT_FALSE(console->Controls().MachineKnown);
  EXPECT_FALSE(console->Controls().Download);
  desk.Loop.WaitMs(Maintenance::kFirstContactMs);
  EXPECT_EQ(console->TheIdentity().Soft_ver, "2.83");
  EXPECT_TRUE(console->Controls().MachineKnown);
  Poll();
  EXPECT_EQ(view.Closes, 0);
}

TEST_F(Download, TheLinkIsSlowForTheTransferAndTheLatchDropsBehindIt) {
  Start();
  Press(path);
  EXPECT_THAT(bridge.Calls, ElementsAre("SetTimeouts 2000 2000", "SetTimeouts 200 200",
                                        "WriteLatch 1 0", "WriteLatch 1 1"));
}

TEST_F(Download, HalfASecondPassesWhileTheMachineStarts) {
  Start();
  std::vector<std::int64_t> at;
  desk.Ui.OnBox = [&] { at.push_back(desk.Clock.Elapsed().count()); };
  Press(path);
  const auto wait = desk.Clock.Elapsed().count() - at.at(0);
  EXPECT_THAT(wait, AllOf(Ge(500000), Le(510000))) << "microseconds";
}

TEST_F(Download, WithoutAFileNothingHappens) {
  Start();
  Press(std::nullopt);
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(LinesWith("Firmware file"), IsEmpty());
  EXPECT_THAT(bridge.Calls, ElementsAre("SetTimeouts 2000 2000", "SetTimeouts 200 200"));
  EXPECT_TRUE(console->Controls().MachineKnown);
  Poll();
}

TEST_F(Download, AFileThatIsNoneIsRefusedInItsWords) {
  Start();
  const FakeUi::Box refused{desk.Prog.Texts.Msg059, kOkCritical, "Download Error"};
  EXPECT_EQ(RefusalOf(std::string(8, '\0')), refused);
  EXPECT_EQ(RefusalOf(""), refused);
  EXPECT_EQ(RefusalOf(std::string(131051, '\0')), refused);
  const std::string good = FileOf(CodeOf(2, 0x90), "abc");
  EXPECT_EQ(RefusalOf(good + "d"), refused);
  EXPECT_EQ(RefusalOf(good.substr(0, good.size() - 1)), refused);
  Poll();
  EXPECT_TRUE(console->Controls().MachineKnown) << "and the console goes on";
}

TEST_F(Download, TheLargestFileIsTakenAndOneByteMoreIsNot) {
  Start();
  const std::string half = CodeOf(2, 0x83, 65517);
  EXPECT_EQ(RefusalOf(FileOf(half, half + "x")).Text, desk.Prog.Texts.Msg059);
  EXPECT_EQ(RefusalOf(std::string(9, '\0')).Text, desk.Prog.Texts.Msg059);
  test::WriteContent(path, FileOf(half, half));
  Press(path);
  EXPECT_THAT(flash.Heard, SizeIs(1 + 2 * 511 + 2));
}

TEST_F(Download, AFileThatCannotBeReadIsTold) {
  Start();
  Press(desk.Folder / "none.adc");
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Download Error");
  EXPECT_THAT(desk.Ui.Boxes[0].Text, HasSubstr("No such file or directory"));
  EXPECT_THAT(desk.Ui.Boxes[0].Text, HasSubstr("none.adc"));
  EXPECT_THAT(flash.Heard, IsEmpty());
}

TEST_F(Download, AMachineWithVideoSettingsNeeds280) {
  for (const auto& [major, minor, fits] : {std::tuple(2, 0x7F, false), std::tuple(2, 0x80, true),
                                           std::tuple(1, 0x90, false), std::tuple(3, 0x00, true)}) {
    Start("hardware=0x20");
    flash.Heard.clear();
    desk.Ui.Boxes.clear();
    test::WriteContent(path, FileOf(CodeOf(major, minor), "abc"));
    Press(path);
    EXPECT_THAT(
        desk.Ui.Boxes,
        ElementsAre(fits ? FakeUi::Box{desk.Prog.Texts.Msg057, kOkInformation, "Firmware download"}
                         : FakeUi::Box{desk.Prog.Texts.Msg118, kOkCritical, "Firmware download"}));
    EXPECT_EQ(flash.Heard.empty(), !fits);
  }
}

TEST_F(Download, WhatTheMachineNeedsIsNotForgottenBehindADownloadThatWasBrokenOff) {
  Start("hardware=0x20");
  view.OnDownload = [this] {
    if (view.Firmware->FramesCount() == 1) view.Firmware->Cancel();
  };
  Press(path);
  desk.Loop.WaitMs(Maintenance::kFirstContactMs);
  EXPECT_FALSE(console->Controls().MachineKnown);
  flash.Heard.clear();
  test::WriteContent(path, FileOf(CodeOf(2, 0x7F), "abc"));
  Press(path);
  EXPECT_EQ(desk.Ui.Boxes.back().Text, desk.Prog.Texts.Msg118);
  EXPECT_THAT(flash.Heard, IsEmpty());
}

TEST_F(Download, AMachineWithoutThemTakesAnOlderOne) {
  Start("hardware=0x5F");
  test::WriteContent(path, FileOf(CodeOf(2, 0x7F), "abc"));
  Press(path);
  EXPECT_THAT(Titles(), ElementsAre("Firmware download"));
  EXPECT_THAT(flash.Heard, Not(IsEmpty()));
}

TEST_F(Download, AMachineWithoutFirmwareCanBeLoaded) {
  Start("boot=0.00");
  EXPECT_TRUE(console->Controls().Download);
  Press(path);
  EXPECT_THAT(LinesWith("   Firmware downloaded OK"), SizeIs(1));
}

TEST_F(Download, BeforeTheMachineHasAnsweredThereIsNone) {
  Open();
  console->Download(path);
  EXPECT_THAT(flash.Heard, IsEmpty());
  EXPECT_THAT(LinesWith("Firmware file"), IsEmpty());
}

TEST_F(Download, WhatFailedOrWasCancelledIsNotCalledOkAndTheMachineIsMetAnew) {
  Start();
  flash.Status = {{2, 1}};
  Press(path);
  EXPECT_THAT(Titles(), ElementsAre("Download Error"));
  EXPECT_EQ(console->TheIdentity().Soft_ver, "");
  desk.Loop.WaitMs(Maintenance::kFirstContactMs);
  EXPECT_NE(console->TheIdentity().Soft_ver, "");
  EXPECT_FALSE(console->Controls().MachineKnown) << "it holds no firmware";
  EXPECT_TRUE(console->Controls().Download);

  flash.Status = {};
  view.OnDownload = [this] {
    if (view.Firmware->FramesCount() == 1) view.Firmware->Cancel();
  };
  Press(path);
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(console->TheIdentity().Soft_ver, "");
  EXPECT_THAT(LinesWith("Firmware downloaded OK"), IsEmpty());
}

TEST_F(Download, AnUnknownEndIsToldAsUnknown) {
  Start();
  flash.Status = {{0, 4}};
  Press(path);
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{
                                 "      It is not known what firmware the machine holds now:      "
                                 "\r\n      the last answer was 4      ",
                                 kOkExclamation, "Firmware download"}));
}

TEST_F(Download, AMachineThatIsSilentBehindItIsALostLink) {
  Start();
  desk.Ui.OnBox = [this] {
    desk.Ui.OnBox = nullptr;
    Deaf = [](const Bytes&) { return true; };
  };
  Press(path);
  desk.Loop.WaitMs(Maintenance::kFirstContactMs + 3000);
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Ui.Boxes[1].Text, desk.Prog.Texts.Msg047);
  EXPECT_EQ(view.Closes, 1);
}

TEST_F(Download, EditsThatWereNotWrittenGoAndTheLogSaysSo) {
  Start();
  Type(Parameter::pos_x, "33");
  Press(path);
  desk.Loop.WaitMs(Maintenance::kFirstContactMs);
  EXPECT_EQ(Text(Parameter::pos_x), "60");
  EXPECT_THAT(LinesWith("Parameters that were not written are read again"), SizeIs(1));
}

TEST_F(Download, NothingIsPolledMeanwhile) {
  Start();
  view.OnDownload = [this] { desk.Loop.WaitMs(200); };
  desk.Ui.OnBox = [this] { desk.Loop.WaitMs(200); };
  Press(path);
  std::vector<int> codes;
  for (const Bytes& frame : bridge.Sent) codes.push_back(frame[0]);
  EXPECT_THAT(codes, ElementsAre(41, 170, 170, 170, 170, 170));
}

TEST_F(Download, ALostLinkClosesTheConsole) {
  Start();
  Deaf = [](const Bytes& plain) { return plain[0] == 170; };
  Damage = nullptr;
  Press(path);
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{desk.Prog.Texts.Msg055, kOkCritical, "Communication Error"}));
  EXPECT_EQ(view.Closes, 1);
  EXPECT_TRUE(console->Closed());
  EXPECT_EQ(bridge.Calls.back(), "Close");
  EXPECT_THAT(bridge.Calls, Contains("WriteLatch 1 0")) << "the machine starts what it holds";
  EXPECT_EQ(view.Firmware, nullptr) << "its window goes, too";
}

TEST_F(Download, AProgramThatQuitsCancelsItAndMeetsNothingAnew) {
  Start();
  view.OnDownload = [this] {
    if (view.Firmware->FramesCount() == 1) desk.Loop.Quit();
  };
  Press(path);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(bridge.Calls, Not(Contains("WriteLatch 1 1")));
}

TEST_F(Download, AProgramThatQuitsInTheFirstContactSendsNothingOfIt) {
  OnFrame = [this](const Bytes& plain) {
    if (plain[0] == 0x1A) desk.Loop.Quit();
  };
  Open("", path);
  desk.Loop.WaitMs(Maintenance::kFirstContactMs);
  desk.Loop.Restart();
  desk.Loop.WaitMs(Maintenance::kFirstContactMs);
  EXPECT_THAT(flash.Heard, IsEmpty());
}

TEST_F(Download, WhoWantsToLeaveMeanwhileLeavesBehindIt) {
  Start();
  view.OnDownload = [this] {
    if (view.Firmware->FramesCount() == 1) console->Exit();
  };
  Press(path);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1));
  EXPECT_EQ(view.Closes, 1);
}

// From outside.

TEST_F(Download, ARequestIsTakenUpInThePlaceOfAPoll) {
  Start();
  bridge.Sent.clear();
  desk.Prog.Link = {LinkRequest::kDownload, path};
  desk.Loop.WaitMs(Maintenance::kPollMs);
  EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kNone);
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_THAT(bridge.Sent, SizeIs(6)) << "the download alone";
  EXPECT_THAT(Titles(), ElementsAre("Firmware download")) << "in the console it is the operator's";
  desk.Loop.WaitMs(Maintenance::kFirstContactMs);
  Poll();
  EXPECT_EQ(view.Closes, 0) << "and the console stays";
}

TEST_F(Download, ARequestInTheMiddleOfAPollWaitsForItsEnd) {
  Start();
  OnFrame = [this](const Bytes& plain) {
    if (plain[0] == 0x17) desk.Prog.Link = {LinkRequest::kDownload, path};
    OnFrame = nullptr;
  };
  Poll();
  EXPECT_THAT(flash.Heard, IsEmpty());
  desk.Loop.WaitMs(Maintenance::kPollMs);
  EXPECT_THAT(flash.Heard, SizeIs(6));
}

TEST_F(Download, ARequestBehindABoxWaitsUntilTheBoxIsAnswered) {
  Start();
  desk.Ui.Answers = {kNo};
  desk.Ui.OnBox = [this] {
    desk.Ui.OnBox = nullptr;
    desk.Prog.Link = {LinkRequest::kDownload, path};
    desk.Loop.WaitMs(3 * Maintenance::kPollMs);
    EXPECT_THAT(flash.Heard, IsEmpty());
  };
  console->save_param();
  desk.Loop.WaitMs(Maintenance::kPollMs);
  EXPECT_THAT(flash.Heard, SizeIs(6));
}

TEST_F(Download, ARequestDuringAnotherWaitsUntilTheMachineIsMetAnew) {
  Start();
  view.OnDownload = [this] { desk.Prog.Link = {LinkRequest::kDownload, path}; };
  Press(path);
  view.OnDownload = nullptr;
  EXPECT_THAT(flash.Heard, SizeIs(6));
  desk.Loop.WaitMs(Maintenance::kFirstContactMs + Maintenance::kPollMs);
  EXPECT_THAT(flash.Heard, SizeIs(12));
}

TEST_F(Download, AConsoleThatIsOpenedForItDownloadsWithoutAWordAndLeaves) {
  Open("", path);
  desk.Loop.WaitMs(Maintenance::kFirstContactMs + 10);
  EXPECT_THAT(flash.Heard, ElementsAre(-1, 1, 2, 0x201, 0x200, 0));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_THAT(LinesWith("Firmware downloaded OK"), IsEmpty());
  EXPECT_THAT(LinesWith("Firmware download completed for another program"), SizeIs(1));
  EXPECT_THAT(LinesWith("Firmware file open"), SizeIs(1));
  desk.Loop.WaitMs(3000);
  EXPECT_EQ(view.Closes, 1);
  EXPECT_EQ(bridge.Calls.back(), "Close");
}

TEST_F(Download, AConsoleThatWasOpenedForAFileThatIsRefusedLeavesToo) {
  test::WriteContent(path, "no firmware at all");
  Open("", path);
  desk.Loop.WaitMs(Maintenance::kFirstContactMs + 3000);
  EXPECT_THAT(Titles(), ElementsAre("Download Error"));
  EXPECT_THAT(flash.Heard, IsEmpty());
  EXPECT_EQ(view.Closes, 1);
}

TEST_F(Download, AConsoleThatWasOpenedForItLoadsAMachineWithoutFirmware) {
  Open("boot=0.00", path);
  desk.Loop.WaitMs(Maintenance::kFirstContactMs + 3000);
  EXPECT_THAT(flash.Heard, SizeIs(6));
  EXPECT_EQ(view.Closes, 1);
}

}  // namespace
}  // namespace morvane::maintenance
