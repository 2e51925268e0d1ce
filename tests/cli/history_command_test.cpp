#include "cli/cli_desk.h"

namespace morvane::cli {
namespace {

struct HistoryDesk : CliDesk {
  HistoryDesk() { test::WriteContent(In, SuitDeals(3, 4)); }
  ExitStatus History(bool list) {
    HistoryOptions request;
    request.List = list;
    return Run(request);
  }
};

TEST(HistoryCommand, SaysHowFullTheHistoryIs) {
  HistoryDesk desk;
  EXPECT_EQ(desk.History(false), kDone);
  EXPECT_EQ(desk.Screen.Output, "History: 0 entries, 0 boards, 0 of 20000 records in use\n");
}

TEST(HistoryCommand, ListsTheFilesThatWereLoadedAndSaved) {
  HistoryDesk desk;
  ConvertOptions convert;
  convert.In = {desk.In};
  convert.Out = desk.Folder / "Żółw.pbn";
  ASSERT_EQ(desk.Run(convert), kDone);
  EXPECT_EQ(desk.History(true), kDone);
  // Ż and ł have no place in the file's character set.
  EXPECT_EQ(desk.Screen.Output,
            "Record  Name                                       Boards\n"
            "     1  in                                              2\n"
            "     6  ?ó?w                                            2\n"
            "History: 2 entries, 4 boards, 11 of 20000 records in use\n");
}

#ifndef _WIN32  // there no name has such characters
TEST(HistoryCommand, ANameCannotCommandTheTerminal) {
  HistoryDesk desk;
  ConvertOptions convert;
  convert.In = {desk.In};
  convert.Out = desk.Folder / "a\x1B[2J\xC2\x9D\x7F.pbn";
  ASSERT_EQ(desk.Run(convert), kDone);
  EXPECT_EQ(desk.History(true), kDone);
  EXPECT_NE(desk.Screen.Output.find("     6  a?[2J??  "), std::string::npos) << desk.Screen.Output;
}
#endif

TEST(HistoryCommand, FailsWhereThereIsNoHistory) {
  HistoryDesk desk;
  test::WriteContent(desk.Folder / "Morvane_Data", "a file in its place");
  EXPECT_EQ(desk.History(true), kFailed);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_NE(desk.Screen.Errors.find("Cannot access or create Morvane_Data directory"),
            std::string::npos);
}

/// A system source whose bytes 3, 7, 11, ... are 0x10, 0x20, ... 0xF0, 0x10, ...: of each place of
/// the mouse, what is left of it in the pool after the next start.
class CountedStarts final : public Entropy {
 public:
  Answer SystemRandom(std::span<std::uint8_t> bytes) override {
    for (std::uint8_t& byte : bytes) byte = 0;
    if (bytes.size() != 4) return {true, std::nullopt};  // the first pool
    bytes[3] = static_cast<std::uint8_t>(++Starts * 16);
    return {true, std::nullopt};
  }
  void Seed(std::uint64_t /*seed*/) override {}
  double Random() override { return 0; }
  int Starts = 0;
};

TEST(ConsolePool, DoesNotWearDownHoweverManyCommandsShareIt) {
  constexpr int kStarts = 125;
  CliDesk desk;
  CountedStarts source;
  ConsoleUi ui(desk.Screen, source, false);
  for (int start = 1; start <= kStarts; ++start) {
    Program program({ui, desk.Loop, desk.Clock, desk.Store, source, desk.Speaker, desk.ThePrinter},
                    desk.Prog.Paths);
    Workplace place{program,        ui,
                    desk.Screen,    desk.Machine,
                    desk.Processes, machine::MachineKind::kSimulated,
                    &desk.Machine};
    EXPECT_EQ(RunJob(place, "", [](Job& job) { return ShowHistory(job, {}); }), kDone);
  }
  // A start loses the pool's oldest digit and the three newest, and Y and X of the mouse come
  // behind the other 124. So of each start the first digit of Y stays.
  std::string expected;
  for (int start = 1; start <= kStarts; ++start) expected += "0123456789ABCDEF"[start % 16];
  EXPECT_EQ(desk.Store.Get(kSeedm).substr(0, 125), expected);
}

}  // namespace
}  // namespace morvane::cli
