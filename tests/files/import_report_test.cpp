#include "files/import_report.h"

#include <gtest/gtest.h>

#include "text/box_text.h"

namespace morvane::files {
namespace {

TEST(ImportReport, OfACleanFileIsOneLine) {
  ImportReport report;
  report.Games = report.Taken = 24;
  EXPECT_EQ(ReportText(report), "      Boards imported: 24      ");
}

TEST(ImportReport, NamesWhatWasPassedOverAndNoted) {
  ImportReport report;
  report.Games = 4;
  report.Taken = 2;
  report.Repeated = 1;
  report.PassedOver.Add("Line 3: one");
  report.Notes.Add("Line 1: two");
  report.Notes.Add("Line 9: three");
  EXPECT_EQ(WithoutPadding(ReportText(report)),
            "Boards imported: 2\nRepeated boards, taken once: 1\n\nBoards passed over: 1\n"
            "Line 3: one\n\nNotes: 2\nLine 1: two\nLine 9: three");
}

TEST(ImportReport, CutsALongListWithACount) {
  ImportReport report;
  report.Taken = 1;
  for (int i = 1; i <= 22; ++i) report.PassedOver.Add("Line " + std::to_string(i));
  EXPECT_EQ(WithoutPadding(ReportText(report)),
            "Boards imported: 1\n\nBoards passed over: 22\nLine 1\nLine 2\nLine 3\nLine 4\nLine 5\n"
            "Line 6\nLine 7\nLine 8\nLine 9\nLine 10\nand 12 more");
}

TEST(ImportReport, WithoutABoardSaysWhetherThereWereAny) {
  ImportReport report;
  EXPECT_EQ(ReportText(report), "      This file holds no board      ");
  report.IsPbn = false;
  EXPECT_EQ(ReportText(report), "      This is no PBN file      ");
  report.IsPbn = true;
  report.Games = 1;
  report.PassedOver.Add("Line 1: x");
  EXPECT_EQ(WithoutPadding(ReportText(report)),
            "No board of this file can be imported\n\nBoards passed over: 1\nLine 1: x");
}

TEST(ImportReport, ShowsNoControlCharacters) {
  ImportReport report;
  report.Taken = 1;
  report.Notes.Add(std::string("a\r\nb\tc") + '\0' + "\x7F\xC3\xA9");
  EXPECT_EQ(WithoutPadding(ReportText(report)),
            "Boards imported: 1\n\nNotes: 1\na?\?b?c?\?\xC3\xA9");
}

}  // namespace
}  // namespace morvane::files
