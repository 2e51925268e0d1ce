#include <chrono>

#include "bridges/babble.h"
#include "e2e/e2e_fixture.h"
#include "e2e/paper_peer.h"

// What the program says of a line that is held by another, silent, cut or mad, and how soon. Each
// run costs two seconds before the first contact.

namespace morvane::e2e {
namespace {

using std::chrono::steady_clock;
using ::testing::EndsWith;

constexpr const char* kRefused =
    "USB Initialization Error: Cannot communicate with Morvane      (Error: 8.4)\n"
    "Please check if USB cable is connected to the PC and Morvane.\n"
    "If connection is OK please disconnect USB cable momentarily and reconnect.\n\n"
    "Click OK to retry communication.\n";
std::string InUse(const std::string& path) {
  return std::string(kRefused) + "\nAnother program has " + path + ".\nClose it and try again.\n";
}
constexpr const char* kNoPower =
    "Communication Error: Cannot communicate with Morvane.\n"
    "Please check if power is connected to the machine and try again.\n";
constexpr const char* kLost =
    "Dealing Error: Lost Communication with Morvane  -  Dealing Aborted!\n";

/// The two seconds before the first contact, two exchanges of two tries with 200 ms each, and as
/// much again for a busy computer.
constexpr std::chrono::seconds kContactFails(6);

class LinkEndToEnd : public EndToEnd {
 protected:
  LinkEndToEnd() { SetFile("set.pbn", 1, 1); }
  std::vector<std::string> Deal(const std::string& path) {
    return Whole({"--machine", "serial:" + path, "deal", "set.pbn", "--auto"});
  }
  Outcome DealOver(const std::string& path) { return Process(Deal(path), Around()).Finish(); }
};

TEST_F(LinkEndToEnd, ASecondProgramIsRefusedTheLineAndTheFirstGoesOn) {
  PaperPeer peer;
  peer.Paper.BusyPolls = 3000;
  peer.Serve();
  Process first(Deal(peer.Path()), Around());
  ASSERT_TRUE(first.Until([&] { return CountLines(" Deal: ") == 1; }));
  const auto start = steady_clock::now();
  const Outcome second = DealOver(peer.Path());
  EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(2)) << "there is nothing to wait for";
  EXPECT_EQ(second.Status, 1);
  EXPECT_EQ(second.Err, InUse(peer.Path()));
  EXPECT_EQ(second.Out, "");
  EXPECT_EQ(CountLines(" USB Initialization Error: 8:4"), 1);
  const Outcome outcome = first.Finish();
  peer.Stop();
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, "");
  EXPECT_THAT(outcome.Out, EndsWith("\n1 of 1 boards dealt.\n"));
  EXPECT_EQ(peer.BadChecks, 0);
}

TEST_F(LinkEndToEnd, AProgramThatDiedLeavesTheLineToTheNext) {
  PaperPeer peer;
  peer.Serve();
  {
    Process first(Deal(peer.Path()), Around());
    ASSERT_TRUE(first.Until([&] { return CountLines(" Deal: ") == 1; }));
    first.Kill();
  }
  const Outcome outcome = DealOver(peer.Path());
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, "");
}

TEST_F(LinkEndToEnd, AMachineWithoutPowerIsToldWithinTheTimeOuts) {
  const bridges::ScriptedPeer silent;  // it does not even read
  const auto start = steady_clock::now();
  const Outcome outcome = DealOver(silent.Path());
  EXPECT_LT(steady_clock::now() - start, kContactFails);
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, kNoPower);
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(CountLines("  001 :"), 0);
}

TEST_F(LinkEndToEnd, ALineThatBabblesIsNoMachine) {
  const bridges::ScriptedPeer peer;
  const bridges::Babble babble(peer);
  const auto start = steady_clock::now();
  const Outcome outcome = DealOver(peer.Path());
  EXPECT_LT(steady_clock::now() - start, kContactFails);
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, kNoPower);
}

TEST_F(LinkEndToEnd, AMachineSwitchedOffInTheMiddleOfABoardIsALostLink) {
  PaperPeer peer;
  peer.Paper.BusyPolls = 1'000'000;
  peer.SilentAfter = 30;
  peer.Serve();
  const Outcome outcome = DealOver(peer.Path());
  peer.Stop();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, kLost);
  EXPECT_THAT(outcome.Out, EndsWith(" s   stopped\n\n0 of 1 boards dealt.\n"));
  EXPECT_EQ(peer.Heard.size(), 32U) << "the frame without an answer, and its one repetition";
  EXPECT_EQ(CountLines("  001 : 1,0 0,0,0,0"), 1);
  EXPECT_EQ(CountLines("  001 : ", " OK"), 0);
}

}  // namespace
}  // namespace morvane::e2e
