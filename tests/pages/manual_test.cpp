#include "cli/pages/manual.h"

#include <gmock/gmock.h>

#include <map>

#include "cli/pages/markdown.h"
#include "cli/pages/page_files.h"
#include "cli/pages/roff.h"
#include "cli/programs.h"
#include "cli/registry.h"

namespace morvane::pages {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Key;
using ::testing::Not;
using ::testing::StartsWith;

/// The files by their names.
std::map<std::string, std::string> Made() {
  std::map<std::string, std::string> made;
  for (const PageFile& file : PageFiles()) made[file.Path] = file.Bytes;
  return made;
}

TEST(RoffText, NothingIsAnInstruction) {
  EXPECT_EQ(RoffText("--set a\\b 'c' \"d\""), "\\-\\-set a\\eb \\(aqc\\(aq \\(dqd\\(dq");
  EXPECT_EQ(RoffText("~ ^ `"), "\\(ti \\(ha \\(ga");
  EXPECT_EQ(RoffText("10♠"), "10♠");
}

TEST(Roff, ALineThatBeginsWithADotIsText) {
  const Page page{"p", "s", {{"EXAMPLES", {Example{{".pbn", "'q"}}, Paragraph{{Plain(".x")}}}}}};
  const std::string text = Roff(page);
  EXPECT_THAT(text, HasSubstr("\n\\&.pbn\n\\(aqq\n"));
  EXPECT_THAT(text, HasSubstr(".PP\n\\&.x\n"));
}

TEST(Roff, APageBeginsWithItsNameForTheListOfPages) {
  EXPECT_EQ(Roff({"morvane-cli-x", "does it", {}}),
            ".TH MORVANE-CLI-X 1 \"\" \"Morvane 1.0\" \"Morvane\"\n.nh\n.ad l\n"
            ".SH NAME\nmorvane-cli-x \\- does it\n");
}

TEST(Roff, WhatIsTypedIsBoldAndWhatStandsForAnotherWordIsNot) {
  const Page page{
      "p",
      "s",
      {{"OPTIONS",
        {Definitions{"Option",
                     {{{Typed("--to"), Plain(" "), StandsFor("N")}, {Plain("last")}}}}}}}};
  EXPECT_THAT(Roff(page), HasSubstr(".TP\n\\fB\\-\\-to\\fR \\fIN\\fR\nlast\n"));
}

TEST(MarkdownText, NothingIsAMark) {
  EXPECT_EQ(MarkdownText("Board_Sen > *FILE*"), "Board\\_Sen \\> \\*FILE\\*");
  EXPECT_EQ(MarkdownText("a|b `c` [d] <e>"), "a\\|b \\`c\\` \\[d\\] \\<e\\>");
}

TEST(Markdown, ABarDoesNotEndACell) {
  const std::vector<Section> sections{
      {"deal",
       {Definitions{"Option", {{{Typed("--ten"), Plain(" "), Typed("T|10")}, {Plain("a|b")}}}}}}};
  EXPECT_EQ(Markdown(sections),
            "## deal\n\n| Option | What it means |\n|---|---|\n"
            "| `--ten T\\|10` | a\\|b |\n\n");
}

TEST(Manual, EachProgramAndEachCommandHasAPage) {
  const auto made = Made();
  for (const char* name : {"morvane", "morvane-cli", "morvane-machine", "morvane-cli-generate",
                           "morvane-cli-poker-show", "morvane-cli-maintain-auto-setup"}) {
    EXPECT_THAT(made, Contains(Key("man1/" + std::string(name) + ".1")));
  }
  EXPECT_EQ(Manual().size(), cli::Commands().size() + 3);
}

TEST(Manual, APageOfACommandHasAllThatTheCommandTakes) {
  for (const cli::Command* command : cli::Commands()) {
    const std::string page = Roff(PageOf(*command));
    for (const cli::Option& option : command->Options) {
      const std::string term = ".TP\n\\fB\\-\\-" + RoffText(option.Name) + "\\fR";
      EXPECT_THAT(page, HasSubstr(term)) << command->Name;
      EXPECT_THAT(page, HasSubstr("\n" + RoffText(option.Means) + "\n")) << command->Name;
    }
    for (const cli::Operand& operand : command->Operands) {
      EXPECT_THAT(page, HasSubstr(".TP\n\\fI" + RoffText(operand.Word) + "\\fR\n"));
    }
    EXPECT_THAT(page, HasSubstr("\n" + RoffText(command->Summary) + "\n"));
    EXPECT_THAT(page, HasSubstr(RoffText(command->Note)));
  }
}

TEST(Manual, ThePageOfOneCommandByHand) {
  const std::string page = Roff(PageOf(*cli::FindCommand("poker print")));
  EXPECT_THAT(
      page,
      StartsWith(".TH MORVANE-CLI-POKER-PRINT 1 \"\" \"Morvane 1.0\" \"Morvane\"\n.nh\n.ad l\n"
                 ".SH NAME\n"
                 "morvane-cli-poker-print \\- prints the list of a poker order into "
                 "a PDF file\n"
                 ".SH SYNOPSIS\n"
                 "\\fBmorvane\\-cli\\ poker\\ print\\fR\n"
                 "\\fIIN.pkr\\fR\n\\fIOUT.pdf\\fR\n"
                 "[\\fB\\-\\-paper\\fR\\ \\fBa4\\fR|\\fBletter\\fR]\n"));
  EXPECT_THAT(page, HasSubstr("\\fBmorvane\\-cli\\-poker\\-read\\fR(1)"));
  EXPECT_THAT(page, Not(HasSubstr("\\fBmorvane\\-cli\\-poker\\-print\\fR(1)")));
}

TEST(Manual, ThePagesOfProgramsHaveTheirOptions) {
  const auto made = Made();
  for (const cli::ProgramWords* words : {&cli::DesktopWords(), &cli::ServingWords()}) {
    const std::string page = made.at("man1/" + std::string(words->Name) + ".1");
    for (const cli::Option& option : words->Options) {
      EXPECT_THAT(page, HasSubstr(".TP\n\\fB\\-\\-" + RoffText(option.Name) + "\\fR"));
    }
  }
  const std::string& page = made.at("man1/morvane-machine.1");
  EXPECT_THAT(page, HasSubstr(".TP\n\\fBboard\\-switch=\\fR\n"));
  EXPECT_THAT(page, HasSubstr(".TP\n\\fBcarry\\fR \\fIWAY\\fR\n"
                              "how the piles are carried next: right, swapped, dropped, "
                              "exchanged, turned, north or nothing\n"));
}

TEST(Manual, TheConsoleListsItsCommandsAndTheFormsOfAMachine) {
  const std::string page = Made().at("man1/morvane-cli.1");
  for (const cli::Command* command : cli::Commands()) {
    EXPECT_THAT(page, HasSubstr(".TP\n\\fB" + RoffText(command->Name) + "\\fR\n"));
  }
  EXPECT_THAT(page, HasSubstr(".TP\n\\fBusb:\\fR\\fIVVVV:PPPP\\fR\n"));
  EXPECT_THAT(page, HasSubstr("XDG_CONFIG_HOME"));
}

TEST(Manual, TheFormsOfAMachineAreSoughtInThePageThatHasThem) {
  const auto made = Made();
  for (const char* page : {"man1/morvane.1", "man1/morvane-cli.1"}) {
    EXPECT_THAT(made.at(page), HasSubstr("\nthe way to the machine; see MACHINES below\n")) << page;
  }
  EXPECT_THAT(made.at("man1/morvane-cli-deal.1"), HasSubstr("\nthe way to the machine\n"));
  EXPECT_THAT(made.at("command-reference.md"),
              HasSubstr("| the way to the machine; see The machine below |"));
  for (const auto& [path, bytes] : made) {
    if (path.starts_with("man1/") || path.ends_with(".md")) {
      EXPECT_THAT(bytes, Not(HasSubstr("has its forms"))) << path;
    }
  }
}

TEST(Manual, TheConsoleIsAlsoCalledToTellOfItself) {
  const std::string page = Made().at("man1/morvane-cli.1");
  const std::string synopsis = page.substr(0, page.find(".SH DESCRIPTION"));
  EXPECT_TRUE(
      synopsis.ends_with("\n.PP\n\\fBmorvane\\-cli\\fR \\fB\\-\\-help\\fR|\\fB\\-\\-version\\fR\n"))
      << synopsis;
}

TEST(Manual, TheServingProgramNamesTheFilesThatItsMachinesRead) {
  EXPECT_THAT(Made().at("man1/morvane-machine.1"), HasSubstr("\\fBmorvane\\-files\\fR(5)\n"));
}

TEST(CommandReference, HasASectionForEachCommandWithItsOptions) {
  const std::string text = Made().at("command-reference.md");
  EXPECT_THAT(text, StartsWith("# Command reference\n"));
  for (const cli::Command* command : cli::Commands()) {
    const std::size_t at = text.find("\n## " + std::string(command->Name) + "\n");
    ASSERT_NE(at, std::string::npos) << command->Name;
    const std::string section = text.substr(at, text.find("\n## ", at + 1) - at);
    EXPECT_THAT(section, HasSubstr("\n    morvane-cli " + std::string(command->Name)));
    for (const cli::Option& option : command->Options) {
      EXPECT_THAT(section, HasSubstr("\n| `--" + std::string(option.Name))) << command->Name;
    }
    for (const cli::Operand& operand : command->Operands) {
      EXPECT_THAT(section, HasSubstr("\n| `" + std::string(operand.Word) + "` |"));
    }
  }
}

}  // namespace
}  // namespace morvane::pages
