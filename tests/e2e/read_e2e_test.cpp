#include <csignal>

#include "e2e/e2e_fixture.h"

// The `read` and `sort` commands as processes. Each run costs two seconds before the first contact.

namespace morvane::e2e {
namespace {

using ::testing::EndsWith;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr const char* kDuplicate = "Duplicate Card Error\nError Code: 54\nBoard 2, card 10 of 52\n";

class ReadEndToEnd : public EndToEnd {
 protected:
  void SetUp() override {
    ASSERT_EQ(Run({"generate", "set.pbn", "--first", "1", "--last", "3"}).Status, 0);
  }
  /// The arguments of a read of boards 1 to 3 on a machine that has those of set.pbn.
  std::vector<std::string> Read(const std::string& machine, const std::vector<std::string>& more) {
    std::vector<std::string> words{"--machine", "simulated," + machine + ",pack=set.pbn",
                                   "read",      "back.pbn",
                                   "--first",   "1",
                                   "--last",    "3",
                                   "--auto"};
    words.insert(words.end(), more.begin(), more.end());
    return Whole(words);
  }
  Outcome ReadOn(const std::string& machine, const std::vector<std::string>& more) {
    return Process(Read(machine, more), Around()).Finish();
  }
  /// What the file says of its boards, and nothing else.
  std::vector<std::string> Boards(const std::string& name) {
    std::vector<std::string> boards;
    const std::string text = test::Content(folder / name);
    for (std::size_t at = 0, end = 0; (end = text.find("\r\n", at)) != std::string::npos;) {
      const std::string line = text.substr(at, end - at);
      for (const char* tag : {"[Board ", "[Dealer ", "[Vulnerable ", "[Deal "}) {
        if (line.starts_with(tag)) boards.push_back(line);
      }
      at = end + 2;
    }
    return boards;
  }
};

TEST_F(ReadEndToEnd, TheBoardsOfAFileAreReadBackInBothModes) {
  const auto dealt = Boards("set.pbn");
  ASSERT_THAT(dealt, SizeIs(3 * 4));
  for (const char* mode : {"1", "2"}) {
    const Outcome outcome = ReadOn("speed=0", {"--mode", mode, "--overwrite"});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Err, "");
    EXPECT_THAT(outcome.Out,
                EndsWith("\n3 of 3 boards read, saved in " + (folder / "back.pbn") + ".\n"));
    EXPECT_EQ(Boards("back.pbn"), dealt);
    std::filesystem::remove(folder / "back.pbn");
  }
  EXPECT_EQ(CountLines(" Read: "), 2);
  EXPECT_EQ(CountLines("  002 : 1,0 0,0,0,0 OK  "), 2);
}

TEST_F(ReadEndToEnd, AFaultThatIsContinuedChangesNoBoard) {
  const Outcome outcome = ReadOn("speed=0,fault=2:10:54", {"--yes"});
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, kDuplicate);
  EXPECT_EQ(CountLines("  002 : 1,0 0,0,0,0 54 OK  "), 1);
  EXPECT_EQ(Boards("back.pbn"), Boards("set.pbn"));
}

TEST_F(ReadEndToEnd, AnInterruptBreaksTheBoardAndKeepsThoseBefore) {
  Process process(Read("speed=8", {}), Around());
  ASSERT_TRUE(process.Until([&] { return CountLines("  001 : ") == 1; }));
  process.Signal(SIGINT);
  const Outcome outcome = process.Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, "");
  EXPECT_THAT(outcome.Out,
              EndsWith("\n1 of 3 boards read, saved in " + (folder / "back.pbn") + ".\n"));
  const auto read = Boards("back.pbn");
  const auto dealt = Boards("set.pbn");
  ASSERT_GE(read.size(), 4U);
  EXPECT_EQ(std::vector<std::string>(read.begin(), read.begin() + 4),
            std::vector<std::string>(dealt.begin(), dealt.begin() + 4));
  EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
}

TEST_F(ReadEndToEnd, WhoStopsListeningStopsTheReadAndWhatWasReadIsKept) {
  std::string command = ProgramNamed("morvane-cli");
  for (const std::string& word : Read("speed=8", {})) command += " '" + word + "'";
  Process process({"-c", command + " | head -n 2"},
                  {.Folder = folder.Path(), .Program = "/bin/sh"});
  const Outcome outcome = process.Finish();
  EXPECT_THAT(outcome.Out, StartsWith("Machine: simulated\nBoard   1 "));
  EXPECT_EQ(outcome.Err, "");
  const auto read = Boards("back.pbn");
  const auto dealt = Boards("set.pbn");
  ASSERT_GE(read.size(), 2U * 4);
  EXPECT_EQ(std::vector<std::string>(read.begin(), read.begin() + 2 * 4),
            std::vector<std::string>(dealt.begin(), dealt.begin() + 2 * 4));
  EXPECT_EQ(CountLines("  003 : 1,0 0,0,0,0 OK"), 0) << "nobody waits for it";
  EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
}

TEST_F(ReadEndToEnd, AFileThatIsThereIsNotReplacedUnasked) {
  test::WriteContent(folder / "back.pbn", "x");
  const Outcome outcome = ReadOn("speed=0", {"--yes"});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Out, "") << "told before the machine is driven";
  EXPECT_EQ(test::Content(folder / "back.pbn"), "x");
}

TEST_F(ReadEndToEnd, ASortShowsThePockets) {
  const Outcome outcome = Run({"--machine", "simulated,speed=0", "sort", "--auto"});
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, "");
  EXPECT_THAT(outcome.Out, StartsWith("Machine: simulated\nSort  "));
  EXPECT_THAT(outcome.Out, EndsWith(" s  OK   N 52  E 52  S 52  W 52\n"));
  EXPECT_EQ(CountLines("  Sort: 0,0,0,0 OK"), 1);
}

TEST_F(ReadEndToEnd, EachSaysThatTheMachineIsMissing) {
  for (const char* command : {"read", "sort"}) {
    std::vector<std::string> words{"--machine", "serial:/nothing/here", command};
    if (std::string(command) == "read") words.emplace_back("back.pbn");
    words.emplace_back("--auto");
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_THAT(outcome.Err, StartsWith("USB Initialization Error: Cannot communicate with Morvane "
                                        "     (Error: 255.1)\n"));
    EXPECT_EQ(outcome.Out, "");
    EXPECT_FALSE(std::filesystem::exists(folder / "back.pbn"));
  }
}

TEST_F(ReadEndToEnd, WrongUsageTouchesNothing) {
  std::filesystem::remove_all(data);
  EXPECT_EQ(Run({"read", "back.pbn", "--mode", "3"}).Status, 2);
  EXPECT_EQ(Run({"read"}).Status, 2);
  EXPECT_EQ(Run({"sort", "back.pbn"}).Status, 2);
  EXPECT_FALSE(std::filesystem::exists(data));
}

}  // namespace
}  // namespace morvane::e2e
