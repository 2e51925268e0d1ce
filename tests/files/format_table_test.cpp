#include "files/format_table.h"

#include "files/last_used.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using Numbers = Format::Numbers;

TEST(FormatTable, SaysWhatEachFormatCanHold) {
  struct Row {
    const char* Extension;
    const char* Name;
    bool Events;
    Numbers BoardNumbers;
    bool Incomplete;
  };
  const std::vector<Row> rows = {
      {"BRI", "BRI", false, Numbers::kNone, false},
      {"DGE", "DGE", false, Numbers::kNone, false},
      {"DUP", "DUP", false, Numbers::kFirstAndLast, false},
      {"ALL", "DEAL305", false, Numbers::kNone, false},
      {"BRE", "BRE", true, Numbers::kNone, true},
      {"CSV", "CSV", false, Numbers::kEachBoard, false},
      {"PBN", "PBN", true, Numbers::kEachBoard, true},
      {"TXT", "LOG", false, Numbers::kEachBoard, false},
  };
  for (const Row& row : rows) {
    const Format* const format = FindFormat(row.Extension);
    ASSERT_NE(format, nullptr) << row.Extension;
    EXPECT_EQ(format->Name, row.Name);
    EXPECT_EQ(format->EventTexts, row.Events) << row.Name;
    EXPECT_EQ(format->BoardNumbers, row.BoardNumbers) << row.Name;
    EXPECT_EQ(format->IncompleteBoards, row.Incomplete) << row.Name;
  }
}

TEST(FormatTable, EveryFormatIsReadAndAllButALogAreWritten) {
  for (const char* extension : {"BRI", "DGE", "DUP", "ALL", "BRE", "CSV", "PBN", "TXT"}) {
    EXPECT_NE(FindFormat(extension)->Read, nullptr) << extension;
    EXPECT_EQ(FindFormat(extension)->Write == nullptr, extension == std::string("TXT"));
  }
}

TEST(FormatTable, AnExtensionIsUpperCaseAndWhole) {
  EXPECT_EQ(FindFormat("pbn"), nullptr);
  EXPECT_EQ(FindFormat("PB"), nullptr);
  EXPECT_EQ(FindFormat("PBNX"), nullptr);
  EXPECT_EQ(FindFormat("DEAL305"), nullptr);
  EXPECT_EQ(FindFormat(""), nullptr);
}

TEST(FormatTable, TheExtensionStandsBehindTheLastDot) {
  EXPECT_EQ(ExtensionOf("evening.pbn"), "PBN");
  EXPECT_EQ(ExtensionOf("evening.2026.Pbn"), "PBN");
  EXPECT_EQ(ExtensionOf("evening."), "");
  EXPECT_EQ(ExtensionOf("evening"), "");
  EXPECT_EQ(ExtensionOf(".pbn"), "PBN");
  EXPECT_EQ(ExtensionOf(""), "");
}

TEST(FileDialogs, TheRowsAreTheseAndLogsOnlyWithServiceLevel) {
  const std::string rows =
      "bri (*.bri)|*.bri|dge (*.dge)|*.dge|bre (*.bre)|*.bre|dup (*.dup)|*.dup|pbn (*.pbn)|*.pbn|"
      "DEAL305 (*.all)|*.all|csv (*.csv)|*.csv";
  EXPECT_EQ(SaveFilter(), rows);
  EXPECT_EQ(OpenFilter(0), "All files (*.*)|*.*|" + rows);
  EXPECT_EQ(OpenFilter(1), "All files (*.*)|*.*|" + rows + "|Log (*.txt)|*.txt");
}

TEST(FileDialogs, TheLastFormatPreselectsItsRow) {
  // Rows of the open dialog: 1 all, 2 bri, 3 dge, 4 bre, 5 dup, 6 pbn, 7 all, 8 csv, 9 log; the
  // save dialog has no first row.
  const std::vector<std::string> formats = {"bri", "dge", "bre", "dup", "pbn", "all"};
  for (int i = 0; i < 6; ++i) {
    const std::string& format = formats[static_cast<std::size_t>(i)];
    EXPECT_EQ(OpenFilterIndex(format, 0), i + 2) << format;
    EXPECT_EQ(OpenFilterIndex(format, 1), i + 2) << format;
    EXPECT_EQ(SaveFilterIndex(format), i + 1) << format;
  }
  EXPECT_EQ(SaveFilterIndex("csv"), 7);
}

TEST(FileDialogs, TheSearchIsCaseSensitiveSoTheDefaultIsTheFirstRow) {
  EXPECT_EQ(OpenFilterIndex("BRI", 0), 1);
  EXPECT_EQ(SaveFilterIndex("BRI"), 0);
}

TEST(FileDialogs, CsvLandsOnAllFilesAndTxtOnCsvWhenOpening) {
  EXPECT_EQ(OpenFilterIndex("csv", 0), 1);
  EXPECT_EQ(OpenFilterIndex("csv", 1), 1);
  EXPECT_EQ(OpenFilterIndex("txt", 0), 1);
  EXPECT_EQ(OpenFilterIndex("txt", 1), 8);
}

TEST(LastUsed, AFileLeavesItsExtensionAndItsFolder) {
  test::TestDesk desk;
  RememberFile(desk.Prog, "/events/2026/Evening.PBN");
  EXPECT_EQ(desk.Store.Get(kInitFormat), "pbn");
  EXPECT_EQ(desk.Store.Get(kInitDirectory), "/events/2026/");
  EXPECT_EQ(InitialDirectory(desk.Store), "/events/2026/");
}

TEST(LastUsed, AnEmptyPathLeavesTheFolderAlone) {
  test::TestDesk desk;
  RememberFile(desk.Prog, "");
  EXPECT_EQ(desk.Store.Get(kInitFormat), "");
  EXPECT_FALSE(desk.Store.Has(kInitDirectory));
}

TEST(LastUsed, AStoreThatCannotBeWrittenIsToldOnceForBothSettings) {
  test::TestDesk desk;
  desk.Store.Writable = false;
  RememberFile(desk.Prog, "/events/2026/Evening.PBN");
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Settings Error");
  EXPECT_EQ(desk.Store.Get(kInitFormat), "BRI");
}

#ifndef _WIN32  // it has drives
TEST(LastUsed, WithoutDrivesTheDefaultFolderIsTheUsersOwn) {
  const char* const home = getenv("HOME");
  const std::string before = home == nullptr ? "" : home;
  setenv("HOME", "/home/director", 1);
  EXPECT_EQ(InitialDirectory(test::MemorySettings()), "/home/director");
  unsetenv("HOME");  // the password file tells
  EXPECT_THAT(InitialDirectory(test::MemorySettings()), ::testing::StartsWith("/"));
  if (home != nullptr) setenv("HOME", before.c_str(), 1);
}
#endif

}  // namespace
}  // namespace morvane::files
