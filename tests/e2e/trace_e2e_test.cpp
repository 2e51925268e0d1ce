#include <gmock/gmock.h>

#include <regex>

#include "e2e/e2e_fixture.h"

// Traces of the real programs, and what those make of them.

namespace morvane::e2e {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class TraceEndToEnd : public EndToEnd {
 protected:
  TraceEndToEnd() { SetFile("set.pbn", 1, 4); }

  const std::string trace = folder / "trace";

  Outcome Deal(const std::vector<std::string>& options, const std::string& machine) {
    std::vector<std::string> words = options;
    words.insert(words.end(), {"--machine", machine, "deal", "set.pbn", "--auto"});
    return Run(words);
  }
  /// A board meets a fault, and bytes change on the line.
  Outcome DealTraced(const std::vector<std::string>& more = {}) {
    std::vector<std::string> options{"--yes", "--trace", trace};
    options.insert(options.end(), more.begin(), more.end());
    return Deal(options, "simulated,speed=0,seed=3,noise=0.0005,fault=2:20:57");
  }
  /// The log without the time of day, and without what tells which machine it was. It is gone then.
  std::vector<std::string> TakeLog() {
    std::vector<std::string> lines;
    for (const std::string& line : LogLines()) {
      if (line.starts_with(" Machine: ") || line.starts_with("   Start up ")) continue;
      lines.push_back(std::regex_replace(line, std::regex(R"(\d+:\d\d:\d\d( [AP]M)?)"), "TIME"));
    }
    std::filesystem::remove_all(data);
    return lines;
  }
};

TEST_F(TraceEndToEnd, ARunWithErrorsIsPlayedBackWithTheSameLogAndTheSameWords) {
  const Outcome first = DealTraced();
  EXPECT_EQ(first.Status, 0) << first.Err;
  EXPECT_THAT(first.Err, HasSubstr("Break Dealing\nError Code: 57\nBoard 2, card 20 of 52\n"));
  const auto log = TakeLog();
  EXPECT_THAT(test::Content(trace), StartsWith("# Morvane link trace 1\n# began "));
  EXPECT_THAT(test::Content(trace), EndsWith("\n# end\n"));

  const Outcome again = Deal({"--yes"}, "replay:" + trace);
  EXPECT_EQ(again.Status, 0);
  EXPECT_EQ(again.Err, first.Err);
  EXPECT_THAT(again.Out, HasSubstr("Machine: replayed\n"));
  EXPECT_EQ(CountLines(" Machine: replayed"), 1);
  EXPECT_EQ(TakeLog(), log);
}

TEST_F(TraceEndToEnd, WithoutTheHandsItIsPlayedBackToo) {
  const Outcome first = DealTraced({"--trace-without-hands"});
  EXPECT_EQ(first.Status, 0) << first.Err;
  const auto log = TakeLog();
  EXPECT_THAT(test::Content(trace), HasSubstr("\n# hands left out\n"));
  SetFile("set.pbn", 1, 4);
  const Outcome again = Deal({"--yes"}, "replay:" + trace);
  EXPECT_EQ(again.Status, 0);
  EXPECT_EQ(again.Err, first.Err);
  EXPECT_EQ(TakeLog(), log);
}

TEST_F(TraceEndToEnd, AnotherSetIsADifferenceThatIsShown) {
  DealTraced();
  TakeLog();
  SetFile("set.pbn", 2, 5);  // another order of the same boards: the first start frame is the same
  test::WriteContent(folder / "set.pbn",
                     "[Board \"1\"]\r\n[Deal \"N:.AKQJT98765432.. AKQJT98765432... "
                     "..AKQJT98765432. ...AKQJT98765432\"]\r\n");
  const Outcome again = Deal({"--yes"}, "replay:" + trace);
  EXPECT_EQ(again.Status, 1);
  EXPECT_THAT(again.Err, HasSubstr("Lost Communication with Morvane"));
  EXPECT_THAT(again.Err, HasSubstr("morvane-cli: "));
  EXPECT_THAT(again.Err, HasSubstr(trace + ", line "));
  EXPECT_THAT(again.Err, HasSubstr("CmdDeal begin"));
}

TEST_F(TraceEndToEnd, OfAProgramThatWasKilledWholeLinesAreLeftAndTheReplaySaysWhereItEnds) {
  {
    Process process(
        Whole({"--trace", trace, "--machine", "simulated,speed=1", "deal", "set.pbn", "--auto"}),
        Around());
    ASSERT_TRUE(process.Until([&] { return CountLines("  S/N:") == 1; }));
    process.Kill();
  }
  EXPECT_THAT(test::Content(trace), EndsWith("\n"));
  EXPECT_THAT(test::Content(trace), ::testing::Not(EndsWith("# end\n")));
  TakeLog();
  const Outcome again = Deal({"--yes"}, "replay:" + trace);
  EXPECT_EQ(again.Status, 1);
  EXPECT_THAT(again.Err, HasSubstr("did not come to its end"));
}

TEST_F(TraceEndToEnd, AGarbledTraceIsRefusedWithItsLineBeforeAnythingIsDone) {
  DealTraced();
  TakeLog();
  std::string text = test::Content(trace);
  const std::size_t at = text.find(" Open ");
  ASSERT_NE(at, std::string::npos);
  text[at + 1] = '?';
  test::WriteContent(trace, text);
  const Outcome again = Deal({"--yes"}, "replay:" + trace);
  EXPECT_EQ(again.Status, 2);
  EXPECT_THAT(again.Err, StartsWith("morvane-cli: " + trace + ", line "));
  EXPECT_EQ(LogPath(), "");
}

TEST_F(TraceEndToEnd, AFileThatIsNoTraceIsNotTouched) {
  const std::string set = test::Content(folder / "set.pbn");
  const Outcome outcome = Deal({"--trace", folder / "set.pbn"}, "simulated,speed=0");
  EXPECT_EQ(outcome.Status, 2);
  EXPECT_THAT(outcome.Err, HasSubstr("set.pbn"));
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(test::Content(folder / "set.pbn"), set);
}

TEST_F(TraceEndToEnd, TwoProgramsDoNotWriteOneTrace) {
  Process first(
      Whole({"--trace", trace, "--machine", "simulated,speed=1", "deal", "set.pbn", "--auto"}),
      Around());
  ASSERT_TRUE(first.Until([&] { return CountLines(" Deal: ") == 1; }));
  const Outcome second = DealTraced();
  EXPECT_EQ(second.Status, 3) << "it has dealt, and there is no trace of it";
  EXPECT_THAT(second.Err, HasSubstr("morvane-cli: " + trace));
  EXPECT_FALSE(std::filesystem::exists(trace + ".1")) << "it was not moved on";
}

TEST_F(TraceEndToEnd, ATraceThatIsThereIsMovedOn) {
  DealTraced();
  const std::string first = test::Content(trace);
  DealTraced();
  EXPECT_EQ(test::Content(trace + ".1"), first);
}

}  // namespace
}  // namespace morvane::e2e
