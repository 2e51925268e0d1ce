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

TEST(HistoryCommand, FailsWhereThereIsNoHistory) {
  HistoryDesk desk;
  test::WriteContent(desk.Folder / "Morvane_Data", "a file in its place");
  EXPECT_EQ(desk.History(true), kFailed);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_NE(desk.Screen.Errors.find("Cannot access or create Morvane_Data directory"),
            std::string::npos);
}

}  // namespace
}  // namespace morvane::cli
