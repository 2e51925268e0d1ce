#include "print/hand_record_desk.h"
#include "support/file_size_limit.h"

// The runs of the printing dialog.

namespace morvane::print {
namespace {

using Box = HandRecordBox;
using Option = HandRecordOption;
using test::FakePrinter;
using test::FakeUi;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// It makes no copies by itself.
class TwicePrinter final : public Printer {
 public:
  [[nodiscard]] std::string DeviceName() const override { return {}; }
  std::optional<int> Setup(int /*copies*/) override { return std::nullopt; }
  [[nodiscard]] std::optional<RuntimeError> Print(const PrintJob& /*job*/,
                                                  const Draw& draw) override {
    test::RecordingCanvas canvas;
    draw(canvas);
    draw(canvas);
    return std::nullopt;
  }
  void Preview(const PrintJob&, const Draw&, const std::vector<PreviewAction>&) override {}
  [[nodiscard]] std::string Pdf(const PrintJob& /*job*/, const Draw& /*draw*/) override {
    return {};
  }
};

TEST(HandRecordRun, PrintsTheBoardsOfTheRangeWithTheCopies) {
  HandRecordDesk desk;
  desk.TypeRange("6", "8");
  desk.Type(Box::kCopies, "12");
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.ThePrinter.Jobs, ElementsAre(FakePrinter::Job{"Club evening", 12}));
  EXPECT_THAT(desk.Drawn(), ElementsAre("6", "7", "8"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Lines(), ElementsAre("  Print parameters: 11111,  1,2,0,6,8,12",
                                        "   Header: Club evening", "   Print hands to: Office"));
}

TEST(HandRecordRun, AnEmptyCopiesBoxIsOneCopy) {
  HandRecordDesk desk;
  desk.Type(Box::kCopies, "");
  desk.Type(Box::kHeader, "");
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.ThePrinter.Jobs, ElementsAre(FakePrinter::Job{"Hand records", 1}));
}

TEST(HandRecordRun, HidesTheFramesMovesTheBarAndShowsThemAgain) {
  HandRecordDesk desk;
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.View.Printing, ElementsAre(true, false));
  EXPECT_THAT(desk.View.Progress, ElementsAre(1, 2, 3, 4, 5));
  EXPECT_EQ(desk.Dialog.BoardsInAll(), 5);
  EXPECT_EQ(desk.Ui.Statuses.back(), "Printing");
}

TEST(HandRecordRun, TheBarStartsAnewWhenThePagesAreDrawnAgain) {
  PrintDesk desk;
  TwicePrinter printer;
  Program program({desk.Ui, desk.Loop, desk.Clock, desk.Store, desk.Random, desk.Speaker, printer},
                  desk.Prog.Paths);
  program.Set = desk.Prog.Set;
  HandRecord dialog(program, {});
  FakeHandRecordView view(dialog);
  dialog.ShowOn(&view);
  dialog.cmdPrint();
  EXPECT_THAT(view.Progress, ElementsAre(1, 2, 3, 4, 5, 1, 2, 3, 4, 5));
}

TEST(HandRecordRun, LetsTheWindowsLiveBehindEachBoard) {
  HandRecordDesk desk;
  int events = 0;
  desk.View.OnProgress = [&] { desk.Loop.Post([&events] { ++events; }); };
  std::vector<int> seen;
  desk.Loop.OnPump = [&] { seen.push_back(desk.Dialog.BoardsDone()); };
  desk.Dialog.cmdPrint();
  EXPECT_EQ(events, 5);
  EXPECT_THAT(seen, ElementsAre(0, 1, 2, 3, 4, 5, 5));
}

TEST(HandRecordRun, NothingElseCanBeDoneMeanwhile) {
  HandRecordDesk desk;
  desk.View.OnProgress = [&] {
    desk.Dialog.cmdPrint();
    desk.Dialog.cmdPreview();
    desk.Dialog.cmdPdf();
    desk.Dialog.cmdPrinterSetup();
    desk.Dialog.cmdExit();
  };
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.ThePrinter.Jobs, SizeIs(1));
  EXPECT_THAT(desk.ThePrinter.SetupsFrom, IsEmpty());
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_FALSE(desk.Dialog.Closed());
  desk.Dialog.cmdExit();
  EXPECT_TRUE(desk.Dialog.Closed());
}

TEST(HandRecordRun, WhatWasPressedMeanwhileDoesNothingAfterwards) {
  HandRecordDesk desk;
  desk.View.OnProgress = [&] {
    if (desk.Dialog.BoardsDone() < 5) return;
    // The last pump of the boards lets the first one through, which leaves another one behind.
    desk.Loop.Post([&] { desk.Loop.Post([&] { desk.Dialog.cmdPrint(); }); });
  };
  desk.Dialog.cmdPrint();
  desk.Loop.Pump();
  EXPECT_THAT(desk.ThePrinter.Jobs, SizeIs(1));
}

TEST(HandRecordRun, OptionsChangedMeanwhileAreThoseOfTheNextRun) {
  HandRecordDesk desk;
  desk.View.OnProgress = [&] {
    desk.TypeRange("5", "5");
    desk.Dialog.Choose(Option::kPerPage, 0);
  };
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.Drawn(), SizeIs(5));
}

TEST(HandRecordRun, AFailureIsToldAndTheFramesAreShownAgain) {
  HandRecordDesk desk;
  desk.ThePrinter.Failure = RuntimeError{28, "The printer is on fire"};
  desk.Dialog.cmdPrint();
  EXPECT_THAT(
      desk.Ui.Boxes,
      ElementsAre(FakeUi::Box{"      Error: 28 during printing - The printer is on fire      \r\n"
                              "      Print aborted!      ",
                              kOkCritical, "Printing Error"}));
  EXPECT_THAT(desk.View.Printing, ElementsAre(true, false));
  EXPECT_FALSE(desk.Dialog.Printing());
  desk.ThePrinter.Failure.reset();
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.ThePrinter.Jobs, SizeIs(2)) << "it can be tried again";
}

TEST(HandRecordRun, ProgramThatQuitsEndsItWithoutABox) {
  HandRecordDesk desk;
  desk.ThePrinter.Failure = RuntimeError{1, "aborted"};
  desk.View.OnProgress = [&] {
    if (desk.Dialog.BoardsDone() == 2) desk.Loop.Quit();
  };
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.View.Progress, ElementsAre(1, 2));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_FALSE(desk.Dialog.Printing());
}

TEST(HandRecordRun, ARequestFromOutsideWaitsForItsEnd) {
  HandRecordDesk desk;
  desk.Prog.Link = {LinkRequest::kDownload, "new.hex"};
  desk.View.OnProgress = [&] { desk.Loop.WaitMs(10 * HandRecord::kTimer1Ms); };
  desk.Ui.OnBox = [&] { EXPECT_FALSE(desk.Dialog.Printing()); };
  desk.Ui.Answers = {kYes};
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  desk.Loop.WaitMs(HandRecord::kTimer1Ms);
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{Fill(desk.Prog.Texts.Msg091, "***", "new.hex"),
                                      kYesNoExclamationNo, "Download New Firmware"}));
  EXPECT_THAT(desk.Downloads, ElementsAre("new.hex"));
  desk.Loop.WaitMs(10 * HandRecord::kTimer1Ms);
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
}

TEST(HandRecordRun, ARequestFromOutsideCanBeRefused) {
  HandRecordDesk desk;
  desk.Prog.Link = {LinkRequest::kDownload, "new.hex"};
  desk.Ui.Answers = {kNo};
  desk.Loop.WaitMs(HandRecord::kTimer1Ms);
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_THAT(desk.Downloads, IsEmpty());
  EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kNone);
}

TEST(HandRecordRun, AFileToLoadIsLeftToTheMainWindow) {
  HandRecordDesk desk;
  desk.Prog.Link = {LinkRequest::kLoad, "set.pbn"};
  desk.Loop.WaitMs(10 * HandRecord::kTimer1Ms);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kLoad);
}

TEST(HandRecordRun, ScoreCardsAreLoggedByThePrinterAlone) {
  HandRecordDesk desk;
  desk.Dialog.Choose(Option::kMode, 1);
  desk.Dialog.Choose(Option::kPrintNS, 1);
  desk.Type(Box::kHeader, "");
  desk.Type(Box::kCopies, "2");
  desk.TypeRange("6", "7");
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.ThePrinter.Jobs, ElementsAre(FakePrinter::Job{"Score cards", 2}));
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages, SizeIs(2)) << "an even number starts on the right";
  EXPECT_THAT(desk.Lines(), ElementsAre("  Print parameters: 11111,  1,3,0,6,7,2",
                                        "   Print score cards to: Office"));
}

TEST(HandRecordRun, ATextIsWrittenToAFile) {
  HandRecordDesk desk;
  const std::string path = desk.Folder / "hands.txt";
  desk.Ui.Files = {path};
  desk.Dialog.Choose(Option::kMode, 2);
  desk.Dialog.cmdPrint();
  EXPECT_TRUE(test::Content(path).starts_with(" \r\nSession: Club evening  "));
  EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
  EXPECT_THAT(desk.View.Progress, SizeIs(5));
  EXPECT_THAT(desk.View.Printing, ElementsAre(false, true, false));
  EXPECT_THAT(desk.Lines(), ElementsAre("  Print parameters: 11111,  1,2,0,5,9,1",
                                        "   Header: Club evening", "   Print hands to: " + path));
  EXPECT_EQ(desk.Ui.Statuses.back(), "Printing");
}

TEST(HandRecordRun, ATextHasNoPages) {
  HandRecordDesk desk;
  desk.Dialog.Choose(Option::kMode, 2);
  desk.Dialog.cmdPreview();
  desk.Dialog.cmdPdf();
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages.front().Texts, IsEmpty());
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
}

TEST(HandRecordPdf, IsWrittenWhereTheOperatorSays) {
  HandRecordDesk desk;
  const std::string path = desk.Folder / "evening.pdf";
  desk.Ui.Files = {path};
  desk.Store.Set(kInitDirectory, "/sets");
  desk.Dialog.cmdPdf();
  EXPECT_EQ(test::Content(path), "PDF of Club evening, pages: 1");
  ASSERT_THAT(desk.Ui.FileRequests, SizeIs(1));
  const FileRequest& request = desk.Ui.FileRequests.front();
  EXPECT_EQ(request.Title, "Save as PDF");
  EXPECT_EQ(request.Filter, "PDF (*.pdf)|*.pdf");
  EXPECT_EQ(request.Directory, "/sets");
  EXPECT_TRUE(request.Saving);
  EXPECT_THAT(desk.View.Progress, SizeIs(5));
  EXPECT_THAT(desk.Lines(), ElementsAre("  Print parameters: 11111,  1,2,0,5,9,1",
                                        "   Header: Club evening", "   Print hands to: " + path));
}

TEST(HandRecordPdf, ThatIsCancelledIsNoFailure) {
  HandRecordDesk desk;
  desk.Dialog.cmdPdf();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.View.Printing.back(), false);
  EXPECT_THAT(desk.View.Progress, IsEmpty());
}

TEST(HandRecordPdf, OfANameWithoutAnExtensionGetsIt) {
  HandRecordDesk desk;
  desk.Ui.Files = {desk.Folder / "evening"};
  desk.Dialog.cmdPdf();
  EXPECT_EQ(test::Content(desk.Folder / "evening.pdf"), "PDF of Club evening, pages: 1");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(HandRecordPdf, OfADateGetsItToo) {
  HandRecordDesk desk;
  desk.Ui.Files = {desk.Folder / "22.11.2026", desk.Folder / "evening.PDF"};
  desk.Dialog.cmdPdf();
  desk.Dialog.cmdPdf();
  EXPECT_EQ(test::Content(desk.Folder / "22.11.2026.pdf"), "PDF of Club evening, pages: 1");
  EXPECT_TRUE(std::filesystem::exists(desk.Folder / "evening.PDF")) << "as it was named";
}

TEST(HandRecordPdf, DoesNotReplaceAFileThatTheOperatorDidNotName) {
  HandRecordDesk desk;
  const std::string path = desk.Folder / "evening.pdf";
  test::WriteContent(path, "old");
  desk.Ui.Files = {desk.Folder / "evening", desk.Folder / "evening"};
  desk.Ui.Answers = {kNo, kYes};
  desk.Dialog.cmdPdf();
  EXPECT_EQ(test::Content(path), "old");
  desk.Dialog.cmdPdf();
  EXPECT_EQ(test::Content(path), "PDF of Club evening, pages: 1");
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(2));
}

#ifndef _WIN32  // no limit for files, no device that is full
TEST(HandRecordPdf, OnAFullDiskIsToldAndTheOldOneStays) {
  HandRecordDesk desk;
  const std::string path = desk.Folder / "evening.pdf";
  test::WriteContent(path, "old");
  desk.Ui.Files = {path};
  {
    const test::FileSizeLimit full(1);
    desk.Dialog.cmdPdf();
  }
  const RuntimeError error = RuntimeError::OfNumber(EFBIG);
  EXPECT_THAT(desk.Ui.Boxes, Contains(FakeUi::Box{"      Error: " + std::to_string(error.Number) +
                                                      " during printing - " + error.Description +
                                                      "      \r\n      Print aborted!      ",
                                                  kOkCritical, "Printing Error"}));
  EXPECT_EQ(test::Content(path), "old");
  EXPECT_FALSE(desk.Dialog.Printing());
}
#endif

TEST(HandRecordPdf, WithoutFontsIsNotWritten) {
  HandRecordDesk desk;
  const std::string path = desk.Folder / "evening.pdf";
  desk.Ui.Files = {path};
  desk.ThePrinter.HasFonts = false;
  desk.Dialog.cmdPdf();
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(
      desk.Ui.Boxes[0].Text,
      "      Error: 2 during printing - There are no fonts      \r\n      Print aborted!      ");
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(HandRecordPdf, IsNotWrittenWhenTheProgramQuits) {
  HandRecordDesk desk;
  const std::string path = desk.Folder / "evening.pdf";
  test::WriteContent(path, "old");
  desk.Ui.Files = {path};
  desk.View.OnProgress = [&] { desk.Loop.Quit(); };
  desk.Dialog.cmdPdf();
  EXPECT_EQ(test::Content(path), "old");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(HandRecordPreview, ShowsThePagesWithoutARun) {
  HandRecordDesk desk;
  desk.TypeRange("5", "6");
  desk.ThePrinter.OnPreview = [&](const std::vector<PreviewAction>& actions) {
    EXPECT_THAT(desk.Drawn(), ElementsAre("5", "6"));
    ASSERT_THAT(actions, SizeIs(2));
    EXPECT_EQ(actions[0].Caption, "&Print");
    EXPECT_EQ(actions[1].Caption, "&Save as PDF...");
    EXPECT_FALSE(desk.Dialog.Printing());
    desk.Dialog.cmdExit();
  };
  desk.Dialog.cmdPreview();
  EXPECT_THAT(desk.View.Printing, IsEmpty());
  EXPECT_THAT(desk.View.Progress, IsEmpty());
  EXPECT_THAT(desk.Lines(), IsEmpty());
  EXPECT_FALSE(desk.Dialog.Closed()) << "not under the preview";
}

TEST(HandRecordPreview, PrintsAndSavesWhatItShows) {
  HandRecordDesk desk;
  desk.TypeRange("5", "6");
  desk.Ui.Files = {desk.Folder / "evening.pdf"};
  desk.ThePrinter.OnPreview = [&](const std::vector<PreviewAction>& actions) {
    actions[0].Do();
    actions[1].Do();
  };
  desk.Dialog.cmdPreview();
  EXPECT_THAT(desk.ThePrinter.Jobs, SizeIs(1));
  EXPECT_EQ(test::Content(desk.Folder / "evening.pdf"), "PDF of Club evening, pages: 1");
  EXPECT_THAT(desk.View.Progress, ElementsAre(1, 2, 1, 2));
  EXPECT_THAT(desk.View.Printing, ElementsAre(true, false, true, false));
}

TEST(HandRecordPreview, StartsNoRunWithinARun) {
  HandRecordDesk desk;
  desk.ThePrinter.OnPreview = [&](const std::vector<PreviewAction>& actions) {
    desk.View.OnProgress = [&] {
      actions[0].Do();
      actions[1].Do();
    };
    actions[0].Do();
  };
  desk.Dialog.cmdPreview();
  EXPECT_THAT(desk.ThePrinter.Jobs, SizeIs(1));
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
}

TEST(HandRecordPreview, AsksNoFirmwareQuestionOverThePages) {
  HandRecordDesk desk;
  desk.Prog.Link = {LinkRequest::kDownload, "new.hex"};
  desk.ThePrinter.OnPreview = [&](const std::vector<PreviewAction>&) {
    desk.Loop.WaitMs(10 * HandRecord::kTimer1Ms);
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  };
  desk.Dialog.cmdPreview();
}

}  // namespace
}  // namespace morvane::print
