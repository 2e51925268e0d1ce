#include "bridges/trace/replay_bridge.h"

#include "bridges/replay_desk.h"
#include "machine/open_link.h"

namespace morvane::bridges {
namespace {

using test::Short;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class ReplayBridgeTest : public ReplayDesk {
 protected:
  std::uint32_t number = 0;
  UsbXpress::Handle handle = UsbXpress::Handle{3};

  /// Opens the link; the operator tries again so often.
  bool OpenLink(int tries = 0) {
    machine->Link.UsbHandle = machine::MachineLink::kClosed;
    desk.Ui.Answers.assign(static_cast<std::size_t>(tries), kOk);
    desk.Ui.Default = kCancel;
    return machine::OpenLink(desk.Prog, machine->Link, 200);
  }
};

TEST_F(ReplayBridgeTest, TheLinkOpensAsItDid) {
  Play(WrittenTrace().Opening().Poll().End());
  EXPECT_TRUE(OpenLink());
  EXPECT_EQ(machine->Link.UsbHandle, 7);
  EXPECT_EQ(machine->Link.UsbProductString, "4711S");
  EXPECT_EQ(machine->Link.UsbDllVersionHigh, 0x30001U);
  EXPECT_EQ(machine->Link.UsbDriverVersionHigh, 0x30003U);
  EXPECT_TRUE(desk.Ui.Boxes.empty());
  EXPECT_EQ(Polled(), 0);
}

TEST_F(ReplayBridgeTest, EachOperationTakesAsLongAsThen) {
  Play(WrittenTrace().Opening().Poll().End());
  OpenLink();
  EXPECT_EQ(desk.Clock.Elapsed(), microseconds(9000)) << "nine operations of a millisecond";
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(desk.Clock.Elapsed(), microseconds(11000));
}

TEST_F(ReplayBridgeTest, NobodyWaitsAgainForAProgramThatWasHeld) {
  WrittenTrace trace;
  trace.Line("0.000000 3600.000000 SetTimeouts 0 read=200 write=200");
  Play(trace.End());
  EXPECT_EQ(bridge->SetTimeouts(200, 200), UsbXpress::kSuccess);
  EXPECT_EQ(desk.Clock.Elapsed(), std::chrono::seconds(10));
}

TEST_F(ReplayBridgeTest, AnOpeningThatFailedFailsWithItsStatusAndItsWords) {
  WrittenTrace trace;
  trace.Add(Operation::kGetDllVersion, {0x30001, 0})
      .Add(Operation::kGetDriverVersion, {0x30003, 0});
  trace.Add(Operation::kGetNumDevices, {0}, {}, UsbXpress::kDeviceIoFailed);
  const std::string words = "Another program has it.\nEnd that.";
  trace.Add(Operation::kAdvice, {}, {words.begin(), words.end()});
  Play(trace.Opening().End());
  EXPECT_TRUE(OpenLink(1));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_THAT(desk.Ui.Boxes[0].Text, HasSubstr("(Error: 8.1)"));
  EXPECT_THAT(desk.Ui.Boxes[0].Text, HasSubstr("Another program has it.\r\nEnd that."));
  EXPECT_EQ(bridge->Advice(), "") << "it was about the opening before";
}

TEST_F(ReplayBridgeTest, AnOpeningThatIsTriedOftenerThanThenFindsTheEnd) {
  WrittenTrace trace;
  trace.Add(Operation::kGetDllVersion, {0x30001, 0})
      .Add(Operation::kGetDriverVersion, {0x30003, 0});
  Play(trace.Add(Operation::kGetNumDevices, {0}, {}, UsbXpress::kDeviceNotFound).End());
  EXPECT_FALSE(OpenLink(1));
  ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_THAT(desk.Ui.Boxes[0].Text, HasSubstr("(Error: 255.1)"));
  EXPECT_THAT(desk.Ui.Boxes[1].Text, HasSubstr("The trace ends here"));
}

TEST_F(ReplayBridgeTest, AReadIsAsShortAsItWas) {
  WrittenTrace trace;
  trace.Add(Operation::kRead, {7, 8}, {1, 2, 3}, UsbXpress::kReadTimedOut);
  Play(trace.End());
  std::array<std::uint8_t, 8> bytes{};
  EXPECT_EQ(bridge->Read(7, bytes, number), UsbXpress::kReadTimedOut);
  EXPECT_EQ(number, 3U);
  EXPECT_THAT(bytes, ElementsAre(1, 2, 3, 0, 0, 0, 0, 0));
}

TEST_F(ReplayBridgeTest, AWriteTakesAsManyBytesAsItDid) {
  Play(WrittenTrace().Add(Operation::kWrite, {7, 2}, {1, 2, 3}, UsbXpress::kWriteTimedOut).End());
  const std::array<std::uint8_t, 3> bytes{1, 2, 3};
  EXPECT_EQ(bridge->Write(7, bytes, number), UsbXpress::kWriteTimedOut);
  EXPECT_EQ(number, 2U);
}

TEST_F(ReplayBridgeTest, BehindADifferenceTheDeviceIsGone) {
  Play(WrittenTrace().Opening().Poll().End());
  ASSERT_TRUE(OpenLink());
  EXPECT_EQ(bridge->WriteLatch(7, 1, 1), UsbXpress::kInvalidHandle) << "the trace has none";
  const auto before = desk.Clock.Elapsed();
  std::array<std::uint8_t, 8> bytes{};
  number = 9;
  EXPECT_EQ(bridge->Read(7, bytes, number), UsbXpress::kInvalidHandle);
  EXPECT_EQ(number, 0U);
  number = 9;
  EXPECT_EQ(bridge->Write(7, bytes, number), UsbXpress::kInvalidHandle);
  EXPECT_EQ(number, 0U);
  EXPECT_EQ(bridge->SetBaudRate(7, 115200), UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge->SetLineControl(7, 0x800), UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge->FlushBuffers(7, 1, 1), UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge->Close(7), UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge->SetTimeouts(200, 200), UsbXpress::kSuccess);
  EXPECT_EQ(bridge->GetNumDevices(number), UsbXpress::kDeviceNotFound);
  UsbXpress::ProductString text{};
  EXPECT_EQ(bridge->GetProductString(0, text, 0), UsbXpress::kDeviceNotFound);
  EXPECT_EQ(bridge->Open(0, handle), UsbXpress::kDeviceNotFound);
  EXPECT_EQ(handle, 3);
  EXPECT_EQ(desk.Clock.Elapsed(), before) << "nothing of it takes time";
}

TEST_F(ReplayBridgeTest, AnOpeningBehindADifferenceTellsTheDifference) {
  Play(WrittenTrace().Opening().Exchange(Short({0x1A}), Short({0x1A, 2, 0x90})).End());
  ASSERT_TRUE(OpenLink());
  machine->Link.MachineLatchOn();
  EXPECT_FALSE(OpenLink());
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U) << "no driver update is asked for";
  EXPECT_THAT(desk.Ui.Boxes[0].Text, HasSubstr("(Error: 255.1)"));
  EXPECT_THAT(desk.Ui.Boxes[0].Text,
              HasSubstr("line 15\r\nThe program does something else than the trace has."));
  EXPECT_THAT(desk.Ui.Boxes[0].Text, Not(HasSubstr("WriteLatch"))) << "frames are no advice";
}

/// Opens, polls twice, asks the version and leaves.
void Visit(test::TestDesk& program, machine::Machine& machine) {
  machine.Link.UsbHandle = machine::MachineLink::kClosed;
  if (!machine::OpenLink(program.Prog, machine.Link, 200)) return;
  machine.Link.MachineLatchOn();
  for (int poll = 0; poll < 2; ++poll) machine.Exchange(machine.Poll());
  if (!machine.Lost()) machine.VersionProbe();
  machine.Link.MachineLatchOff();
  machine.Link.CloseLink();
}

TEST_F(ReplayBridgeTest, CutBehindAnyLineItEndsInWords) {
  WrittenTrace trace;
  trace.Opening().Add(Operation::kWriteLatch, {7, 1, 1}).Poll().Poll();
  trace.Exchange(Short({0x1A}), Short({0x1A, 2, 0x90})).Leaving();
  const std::string whole = trace.Text();
  std::size_t line = 1;
  for (std::size_t end = whole.find('\n'); end < whole.size(); end = whole.find('\n', end + 1)) {
    if (line++ < 5) continue;  // the head
    PlayText(whole.substr(0, end + 1));
    desk.Ui.Default = kCancel;
    desk.Ui.Boxes.clear();
    Visit(desk, *machine);
    const bool isWhole = end + 1 == whole.size();
    EXPECT_EQ(Trouble().empty(), isWhole) << "line " << line - 1;
    EXPECT_TRUE(isWhole || Trouble().starts_with("The trace ends here")) << "line " << line - 1;
  }
  EXPECT_EQ(line, 23U) << "4 of the head and 18 operations";
}

}  // namespace
}  // namespace morvane::bridges
