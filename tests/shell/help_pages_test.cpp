#include "shell/help_pages.h"

#include <fstream>
#include <set>
#include <string>

namespace morvane::shell {
namespace {

/// The pages of the guide: the first word of each line that is no comment.
std::set<std::string> PagesOfGuide() {
  std::ifstream file(MORVANE_GUIDE "/pages.txt");
  std::set<std::string> pages;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.front() != '#') pages.insert(line.substr(0, line.find(' ')));
  }
  return pages;
}

TEST(HelpPages, EveryPageIsOneOfTheGuide) {
  const auto pages = PagesOfGuide();
  ASSERT_EQ(pages.count("first-evening"), 1U);
  for (const WindowPage& row : kWindowPages) {
    EXPECT_EQ(pages.count(std::string(row.Page)), 1U) << row.Window;
  }
  for (const BoxPage& row : kBoxPages) {
    EXPECT_EQ(pages.count(std::string(row.Page)), 1U) << row.Caption;
  }
  for (const std::string_view page : {kContentsPage, kErrorCodesPage, kBoxesPage}) {
    EXPECT_EQ(pages.count(std::string(page)), 1U) << page;
  }
}

TEST(HelpPages, ARunsWindowHasThePageOfWhatItDoes) {
  EXPECT_EQ(PageOnWindow("DealinProg", "Morvane - Dealing - Simulated machine"), "dealing");
  EXPECT_EQ(PageOnWindow("DealinProg", "Morvane - Reading"), "reading");
  EXPECT_EQ(PageOnWindow("DealinProg", "Morvane - Sorting"), "reading");
}

TEST(HelpPages, AWindowOfTheToolkitHasNone) { EXPECT_EQ(PageOnWindow("", "Dealing"), ""); }

TEST(HelpPages, ADialogForFilesHasThePageOfWhatTheFileIs) {
  EXPECT_EQ(PageOnWindow("cdOpen", "Load Board Set"), "files");
  EXPECT_EQ(PageOnWindow("cdSave", "Save Board Set"), "files");
  EXPECT_EQ(PageOnWindow("cdSave", "Save as PDF"), "printing");
  EXPECT_EQ(PageOnWindow("cdSave", "Print to the Text File"), "printing");
  EXPECT_EQ(PageOnWindow("PrinterSetup", "Printer Setup"), "printing");
}

TEST(HelpPages, ABoxOfARunTellsOfItsStops) { EXPECT_EQ(PageOnBox("Dealing Error"), "stops"); }

TEST(HelpPages, ABoxOfOneSubjectHasItsPage) {
  EXPECT_EQ(PageOnBox("Reading Error"), "reading");
  EXPECT_EQ(PageOnBox("Sort Error"), "reading");
  EXPECT_EQ(PageOnBox("Printing Parameter Error"), "printing");
  EXPECT_EQ(PageOnBox("Bo Haglund DDS Error"), "analysis");
  EXPECT_EQ(PageOnBox("Preferences Error"), "settings");
}

TEST(HelpPages, AnyOtherBoxIsAmongTheBoxes) {
  EXPECT_EQ(PageOnBox("USB Initialization Error"), "connecting");
  EXPECT_EQ(PageOnBox("Unsaved Board Set"), "trouble");
  EXPECT_EQ(PageOnBox(""), "trouble");
}

}  // namespace
}  // namespace morvane::shell
