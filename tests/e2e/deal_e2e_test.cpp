#include <algorithm>
#include <chrono>
#include <csignal>

#include "e2e/e2e_fixture.h"
#include "e2e/paper_peer.h"

// The `deal` command as a process. Each run costs two seconds before the first contact.

namespace morvane::e2e {
namespace {

using std::chrono::steady_clock;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr std::chrono::seconds kSoon(3);

const std::string kNoMachine =
    "USB Initialization Error: Cannot communicate with Morvane      (Error: 255.1)\n"
    "Please check if USB cable is connected to the PC and Morvane.\n"
    "If connection is OK please disconnect USB cable momentarily and reconnect.\n\n"
    "Click OK to retry communication.\n\n";

class DealEndToEnd : public EndToEnd {
 protected:
  std::vector<std::string> Deal(const std::string& machine) {
    return Whole({"--machine", machine, "deal", "set.pbn", "--auto"});
  }
};

TEST_F(DealEndToEnd, AGeneratedSetIsDealtWithEveryBoardRight) {
  ASSERT_EQ(Run({"generate", "set.pbn"}).Status, 0);
  const Outcome outcome = Process(Deal("simulated,speed=0"), Around()).Finish();
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, "");
  EXPECT_THAT(outcome.Out, EndsWith("\n32 of 32 boards right.\n"));
  EXPECT_EQ(CountLines("  0", " OK"), 32);
  EXPECT_EQ(CountLines("  S/N:4711 Dealt:0 Firmware:2.90"), 1);
  EXPECT_THAT(outcome.Out, StartsWith("Machine: simulated\n"));
  EXPECT_EQ(CountLines(" Machine: simulated"), 1);
}

TEST_F(DealEndToEnd, AnInterruptBreaksTheBoardAndEndsSoon) {
  SetFile("set.pbn", 1, 2);
  Process process(Deal("simulated,speed=1"), Around());
  ASSERT_TRUE(process.Until([&] { return CountLines("  S/N:") == 1; }));
  // The board starts with the next event; it takes 14.6 s.
  const auto contact = steady_clock::now();
  process.Until([&] { return steady_clock::now() > contact + std::chrono::milliseconds(400); });
  process.Signal(SIGINT);
  const auto interrupted = steady_clock::now();
  const Outcome outcome = process.Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_LT(steady_clock::now() - interrupted, kSoon);
  EXPECT_THAT(outcome.Out, HasSubstr(" s   stopped\n\n0 of 2 boards right.\n"));
  EXPECT_EQ(CountLines("  001 : 1,0 0,0,0,0 57"), 1);
  EXPECT_EQ(CountLines("  0"), 1);
  EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
}

TEST_F(DealEndToEnd, AnInterruptBeforeTheFirstContactEndsAtOnce) {
  SetFile("set.pbn", 1, 1);
  Process process(Deal("simulated,speed=1"), Around());
  ASSERT_TRUE(process.Until([&] { return CountLines(" Deal: ") == 1; }));
  process.Signal(SIGINT);
  EXPECT_EQ(process.Finish().Status, 1);
  EXPECT_EQ(CountLines("  S/N:"), 0);
  EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
}

TEST_F(DealEndToEnd, AMissingDeviceIsTold) {
  SetFile("set.pbn", 1, 1);
  const Outcome outcome = Process(Deal("serial:" + (folder / "nothing")), Around()).Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_THAT(outcome.Err, StartsWith(kNoMachine + "There is no " + (folder / "nothing") + ".\n"));
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(CountLines(" USB Initialization Error: 255:1"), 1);
}

TEST_F(DealEndToEnd, AFileIsNoDevice) {
  SetFile("set.pbn", 1, 1);
  const Outcome outcome = Process(Deal("serial:" + (folder / "set.pbn")), Around()).Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_THAT(outcome.Err,
              StartsWith(kNoMachine + (folder / "set.pbn") + " is no serial device.\n"));
}

TEST_F(DealEndToEnd, AtATerminalTheLinkMayBeTriedAgain) {
  SetFile("set.pbn", 1, 1);
  bridges::ScriptedPeer terminal;
  const std::string prompt = "[o]k, [c]ancel? ";
  const auto asked = [&](const Process& process) {
    const std::string& text = process.Err();
    int times = 0;
    for (std::size_t at = 0; (at = text.find(prompt, at)) != std::string::npos; ++at) ++times;
    return times;
  };
  Process process(Deal("serial:/nothing/here"), {folder.Path(), terminal.Path()});
  ASSERT_TRUE(process.Until([&] { return asked(process) == 1; }));
  EXPECT_THAT(process.Err(), StartsWith(kNoMachine + "There is no /nothing/here.\n"));
  terminal.Send({'o', '\n'});
  ASSERT_TRUE(process.Until([&] { return asked(process) == 2; }));
  terminal.Send({'c', '\n'});
  EXPECT_EQ(process.Finish().Status, 1);
  EXPECT_EQ(CountLines(" USB Initialization Error: 255:1"), 2);
}

TEST_F(DealEndToEnd, AnInterruptIsAnAnswerToAQuestion) {
  SetFile("set.pbn", 1, 1);
  const bridges::ScriptedPeer terminal;
  Process process(Deal("serial:/nothing/here"), {folder.Path(), terminal.Path()});
  ASSERT_TRUE(process.Until([&] { return process.Err().ends_with("[c]ancel? "); }));
  // Again and again, for the first may come before the program waits.
  process.Until([&] {
    process.Signal(SIGINT);
    return false;
  });
  EXPECT_EQ(process.Finish().Status, 1);
  EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
}

TEST_F(DealEndToEnd, AFaultIsAnsweredAtTheTerminalAndTheEndOfTheInputCancels) {
  SetFile("set.pbn", 1, 1);
  const bridges::ScriptedPeer terminal;
  const std::string prompt = "1 Continue  2 Cancel  ? ";
  const std::string first =
      "Duplicate Card Error\nError Code: 54\nBoard 1, card 10 of 52\n" + prompt;
  const std::string second =
      "Card Recognition Error\nError Code: 25\nBoard 1, card 20 of 52\n" + prompt;
  Process process(Deal("simulated,speed=0,fault=1:10:54,fault=1:20:25"),
                  {folder.Path(), terminal.Path()});
  ASSERT_TRUE(process.Until([&] { return process.Err() == first; }));
  terminal.Send({'1', '\n'});
  ASSERT_TRUE(process.Until([&] { return process.Err() == first + second; }));
  constexpr std::uint8_t kControlD = 4;
  terminal.Send({kControlD});
  EXPECT_EQ(process.Finish().Status, 1);
  EXPECT_EQ(CountLines("  001 : 1,0 0,0,0,0 54 25"), 1);
  EXPECT_EQ(CountLines("  001 : ", " OK"), 0);
}

TEST_F(DealEndToEnd, ABoardIsDealtOverASerialLine) {
  SetFile("set.pbn", 1, 1);
  PaperPeer peer;
  peer.Serve();
  const Outcome outcome = Process(Deal("serial:" + peer.Path()), Around()).Finish();
  peer.Stop();
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, "");
  EXPECT_THAT(outcome.Out, StartsWith("Board   1"));
  EXPECT_EQ(CountLines(" Machine:"), 0);
  EXPECT_THAT(outcome.Out, EndsWith("   dealt\n\n1 of 1 boards dealt.\n"));
  EXPECT_EQ(CountLines("  S/N:4711 Dealt:258 Firmware:2.90"), 1);
  EXPECT_EQ(CountLines("  001 : 1,0 0,0,0,0 OK"), 1);

  EXPECT_EQ(peer.BadChecks, 0);
  const auto start = std::find_if(peer.Heard.begin(), peer.Heard.end(),
                                  [](const test::Bytes& frame) { return frame[0] == 0x98; });
  ASSERT_NE(start, peer.Heard.end());
  EXPECT_EQ((*start)[1], 0);
  // Spades to North's pocket 4, hearts to East's 3, diamonds to South's 1, clubs to West's 2.
  const test::Bytes list(start->begin() + 8, start->begin() + 60);
  test::Bytes expected;
  for (const std::uint8_t pocket : test::Bytes{4, 3, 1, 2})
    expected.insert(expected.end(), 13, pocket);
  EXPECT_EQ(list, expected);
}

TEST_F(DealEndToEnd, APlugPulledInTheMiddleOfABoardIsALostLink) {
  SetFile("set.pbn", 1, 1);
  PaperPeer peer;
  peer.Paper.BusyPolls = 1'000'000;
  peer.LeavesAfter = 30;
  peer.Serve();
  const Outcome outcome = Process(Deal("serial:" + peer.Path()), Around()).Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, "Dealing Error: Lost Communication with Morvane  -  Dealing Aborted!\n");
  EXPECT_THAT(outcome.Out, EndsWith(" s   stopped\n\n0 of 1 boards dealt.\n"));
  EXPECT_EQ(CountLines("  001 : 1,0 0,0,0,0"), 1);
  EXPECT_EQ(CountLines("  001 : ", " OK"), 0);
}

}  // namespace
}  // namespace morvane::e2e
