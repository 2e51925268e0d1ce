#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "e2e/e2e_fixture.h"
#include "support/pdf_reader.h"

// What the commands of paper write, read back by another program.

namespace morvane::e2e {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class PrintEndToEnd : public EndToEnd {
 protected:
  /// Without a display, in a country that `variables` may change.
  Surroundings Bare(const std::vector<std::string>& variables) {
    Surroundings around = Around();
    around.Variables = variables;  // the first of a name counts
    around.Variables.insert(around.Variables.end(),
                            {"DISPLAY=", "WAYLAND_DISPLAY=", "QT_QPA_PLATFORM="});
    return around;
  }
  Outcome RunWith(const std::vector<std::string>& variables,
                  const std::vector<std::string>& words) {
    return Process(Whole(words), Bare(variables)).Finish();
  }
  const std::string set_ = SetFile("evening.pbn", 1, 640);
  const std::string pdf_ = folder / "evening.pdf";
};

TEST_F(PrintEndToEnd, SixHundredAndFortyBoardsWithoutADisplay) {
  const Outcome outcome =
      RunWith({}, {"print", set_, pdf_, "--no-analysis", "--stats", "--header", "Final"});
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Out + outcome.Err, "");
  const test::PdfReader pdf(pdf_);
  EXPECT_EQ(pdf.Pages(), 54 + 1);  // 12 a page
  EXPECT_EQ(pdf.Title(), "Final");
  EXPECT_THAT(pdf.PageSize(), HasSubstr("A4"));
  EXPECT_THAT(pdf.Text(1), HasSubstr("Final"));
  EXPECT_THAT(pdf.Text(54), HasSubstr("Board: 637 "));
  EXPECT_THAT(pdf.Text(54), HasSubstr("Board: 640 "));
  EXPECT_THAT(pdf.Text(54), HasSubstr("AKQJT98765432"));
  EXPECT_THAT(pdf.Text(54), Not(HasSubstr("Board: 636 ")));
  EXPECT_THAT(pdf.Text(55), HasSubstr("Hands Statistics:"));
}

TEST_F(PrintEndToEnd, TheLogTellsOfIt) {
  ASSERT_EQ(RunWith({}, {"print", set_, pdf_, "--no-analysis"}).Status, 0);
  EXPECT_EQ(CountLines("  Print parameters: 11101,  1,2,0,1,640,1"), 1);
  EXPECT_EQ(CountLines("   Print hands to: " + pdf_), 1);
}

TEST_F(PrintEndToEnd, ThePaperIsTheCountrysUnlessOneIsNamed) {
  const auto sizeWith = [this](const std::vector<std::string>& variables,
                               std::vector<std::string> options) {
    std::vector<std::string> words{"--overwrite",   "print", set_, pdf_,
                                   "--no-analysis", "--to",  "2"};
    words.insert(words.end(), options.begin(), options.end());
    EXPECT_EQ(RunWith(variables, words).Status, 0);
    return test::PdfReader(pdf_).PageSize();
  };
  const std::string american = "LC_ALL=en_US.UTF-8";
  EXPECT_THAT(sizeWith({american}, {}), HasSubstr("(letter)"));
  EXPECT_THAT(sizeWith({american}, {"--paper", "a4"}), HasSubstr("(A4)"));
  EXPECT_THAT(sizeWith({}, {}), HasSubstr("(A4)"));
  EXPECT_THAT(sizeWith({}, {"--paper", "letter"}), HasSubstr("(letter)"));
}

TEST_F(PrintEndToEnd, ScoreCardsStandTwoAPage) {
  ASSERT_EQ(RunWith({}, {"print", set_, pdf_, "--no-analysis", "--score-cards", "--from", "2",
                         "--to", "5"})
                .Status,
            0);
  EXPECT_EQ(test::PdfReader(pdf_).Pages(), 3);  // 2; 3 and 4; 5
}

TEST_F(PrintEndToEnd, WithoutFontsThereIsAnErrorInPlaceOfEmptyPages) {
  test::WriteContent(folder / "fonts.conf", "<fontconfig></fontconfig>");
  const Outcome outcome = RunWith({"FONTCONFIG_FILE=" + (folder / "fonts.conf")},
                                  {"print", set_, pdf_, "--no-analysis"});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, "Printing Error: " + pdf_ +
                             ": Error: 2 during printing - There are no fonts\nPrint aborted!\n");
  EXPECT_FALSE(std::filesystem::exists(pdf_));
}

TEST_F(PrintEndToEnd, WordsThatQtKnowsAreWrongUsageAsForAnyCommand) {
  for (const char* word : {"--reverse", "-platform", "--qwindowtitle"}) {
    const Outcome outcome = RunWith({}, {"print", set_, pdf_, "--no-analysis", word, "xcb"});
    EXPECT_EQ(outcome.Status, 2) << word;
    EXPECT_THAT(outcome.Err, StartsWith("morvane-cli: Unknown option")) << word;
    EXPECT_FALSE(std::filesystem::exists(pdf_)) << word;
  }
}

TEST_F(PrintEndToEnd, ATitleMayLookLikeAWordThatQtKnows) {
  ASSERT_EQ(
      RunWith({}, {"print", set_, pdf_, "--no-analysis", "--to", "1", "--header", "--reverse"})
          .Status,
      0);
  EXPECT_EQ(test::PdfReader(pdf_).Title(), "--reverse");
}

TEST_F(PrintEndToEnd, TheHandsAsText) {
  const std::string txt = folder / "evening.txt";
  const Outcome outcome = RunWith({}, {"text", set_, txt, "--no-analysis", "--from", "640"});
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Out + outcome.Err, "");
  EXPECT_THAT(test::Content(txt), HasSubstr("\r\nBD:640        S-AKQJT98765432   Dlr: W\r\n"));
  EXPECT_EQ(RunWith({}, {"text", set_, "/dev/full", "--no-analysis"}).Status, 1);
}

TEST_F(PrintEndToEnd, AFullDiskIsToldOf) {
  const Outcome outcome = RunWith({}, {"print", set_, "/dev/full", "--no-analysis"});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err,
            "Printing Error: /dev/full: Error: 28 during printing - No space left on device\n"
            "Print aborted!\n");
}

TEST_F(PrintEndToEnd, APipeTakesThePages) {
  const Outcome outcome = RunWith({}, {"print", set_, "/dev/stdout", "--no-analysis", "--to", "1"});
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, "");
  EXPECT_THAT(outcome.Out, StartsWith("%PDF-1."));
}

TEST_F(PrintEndToEnd, AReaderThatGoesIsToldOfOnce) {
  const std::string fifo = folder / "fifo";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  const int reader = open(fifo.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(reader, 0);
  Process program(Whole({"print", set_, fifo, "--no-analysis"}), Bare({}));
  pollfd waiting{reader, POLLIN, 0};
  constexpr int kAMinute = 60'000;
  EXPECT_EQ(poll(&waiting, 1, kAMinute), 1);
  close(reader);  // more comes than a pipe holds
  const Outcome outcome = program.Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, "Printing Error: " + fifo +
                             ": Error: 32 during printing - Broken pipe\nPrint aborted!\n");
}

TEST_F(PrintEndToEnd, TheSetIsNeverOverwritten) {
  const std::string before = test::Content(set_);
  EXPECT_EQ(RunWith({}, {"--overwrite", "print", set_, set_, "--no-analysis"}).Status, 2);
  std::filesystem::create_symlink(set_, pdf_);
  const Outcome outcome = RunWith({}, {"--overwrite", "print", set_, pdf_, "--no-analysis"});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, pdf_ + " is the set itself.\n");
  EXPECT_EQ(test::Content(set_), before);
}

}  // namespace
}  // namespace morvane::e2e
