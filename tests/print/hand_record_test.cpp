#include "print/hand_record.h"

#include "print/hand_record_desk.h"

// Options, boxes and checks of the printing dialog.

namespace morvane::print {
namespace {

using Box = HandRecordBox;
using Option = HandRecordOption;
using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(HandRecord, StartsWithTheWholeSetAndTheEvent) {
  const HandRecordDesk desk;
  EXPECT_EQ(desk.Dialog.Text(Box::kFromBoard), "5");
  EXPECT_EQ(desk.Dialog.Text(Box::kToBoard), "9");
  EXPECT_EQ(desk.Dialog.Text(Box::kCopies), "1");
  EXPECT_EQ(desk.Dialog.Text(Box::kNsOffset), "1");
  EXPECT_EQ(desk.Dialog.Text(Box::kHeader), "Club evening");
  EXPECT_FALSE(desk.Dialog.Closed());
  EXPECT_FALSE(desk.Dialog.Printing());
}

TEST(HandRecord, ALongEventNameIsNotCut) {
  PrintDesk desk;
  desk.Prog.Set.EventName = std::string(500, 'x');
  EXPECT_EQ(HandRecord(desk.Prog, {}).Text(Box::kHeader).size(), 500U);
}

TEST(HandRecord, ChoosesTheDefaultsWhereNothingIsStored) {
  test::TestDesk desk;
  test::FillSet(desk.Prog.Set, 1, 1);
  const HandRecord dialog(desk.Prog, {});
  EXPECT_EQ(dialog.Chosen(Option::kMode), 0);
  EXPECT_EQ(dialog.Chosen(Option::kPerPage), 0) << "none";
  EXPECT_EQ(dialog.Chosen(Option::kColour), 1);
  EXPECT_EQ(dialog.Chosen(Option::kAnalysis), 1);
  EXPECT_EQ(dialog.Chosen(Option::kHcp), 1);
  EXPECT_EQ(dialog.Chosen(Option::kStatistics), 1);
  EXPECT_EQ(dialog.Chosen(Option::kTen), 1);
  EXPECT_EQ(dialog.Chosen(Option::kNational), 0);
  EXPECT_EQ(dialog.Chosen(Option::kPrintBoards), 1);
  EXPECT_EQ(dialog.Chosen(Option::kPrintNS), 0);
}

struct StoredOption {
  Option Which;
  int Value;
  SettingKey Key;
  const char* Stored;
};

TEST(HandRecord, StoresEachOptionAtOnceAndFindsItAgain) {
  const StoredOption kOptions[] = {
      {Option::kMode, 1, kPrintMode, "1"},
      {Option::kPerPage, 4, kPrintPerPage, "4"},
      {Option::kColour, 0, kPrintColor, "0"},
      {Option::kAnalysis, 0, kPrintAnalyze, "0"},
      {Option::kHcp, 0, kPrintHcp, "0"},
      {Option::kStatistics, 3, kPrintStat, "3"},
      {Option::kTen, 2, kPrintTen, "2"},
      {Option::kNational, 6, kNational, "6"},
      {Option::kPrintNS, 1, kPrintScoreCardMode, "3"},
      {Option::kPrintBoards, 0, kPrintScoreCardMode, "1"},
  };
  HandRecordDesk desk;
  for (const StoredOption& each : kOptions) {
    const std::size_t shown = desk.View.Printing.size();
    desk.Dialog.Choose(each.Which, each.Value);
    EXPECT_EQ(desk.Store.Get(each.Key), each.Stored) << each.Key.Name;
    EXPECT_EQ(desk.Dialog.Chosen(each.Which), each.Value) << each.Key.Name;
    EXPECT_EQ(desk.View.Printing.size(), shown + 1) << each.Key.Name;
  }
  const HandRecord again(desk.Prog, {});
  for (const StoredOption& each : kOptions) {
    EXPECT_EQ(again.Chosen(each.Which), each.Value) << each.Key.Name;
  }
}

TEST(HandRecord, AStoreThatCannotBeWrittenIsToldOnceAndTheOptionHolds) {
  HandRecordDesk desk;
  desk.Store.Writable = false;
  desk.Dialog.Choose(Option::kTen, 2);
  desk.Dialog.Choose(Option::kHcp, 0);
  EXPECT_EQ(desk.Dialog.Chosen(Option::kTen), 2);
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
}

TEST(HandRecord, NumberBoxesTakeDigitsOnly) {
  HandRecordDesk desk;
  for (const Box box : {Box::kFromBoard, Box::kToBoard, Box::kCopies, Box::kNsOffset}) {
    desk.Type(box, "12");
    EXPECT_EQ(desk.Dialog.Change(box, {"12a", 3}).Text, "12");
    EXPECT_EQ(desk.Dialog.Change(box, {"0", 1}).Text, "12") << "no leading zero";
    EXPECT_EQ(desk.Dialog.Text(box), "12");
    EXPECT_EQ(desk.Dialog.Change(box, {"", 0}).Text, "") << "may be empty meanwhile";
  }
}

TEST(HandRecord, NumberBoxesHaveTheirLimits) {
  HandRecordDesk desk;
  const auto takes = [&desk](Box box, const char* text) {
    return desk.Dialog.Change(box, {text, 0}).Text == text;
  };
  EXPECT_TRUE(takes(Box::kFromBoard, "999")) << "the check tells it";
  EXPECT_FALSE(takes(Box::kFromBoard, "1000"));
  EXPECT_TRUE(takes(Box::kCopies, "999"));
  EXPECT_FALSE(takes(Box::kCopies, "1000"));
  EXPECT_TRUE(takes(Box::kNsOffset, "984")) << "the last of 16 rows is 999";
  EXPECT_FALSE(takes(Box::kNsOffset, "985"));
}

TEST(HandRecord, TheHeaderTakesAnything) {
  HandRecordDesk desk;
  const std::string text = "Süd-Ost 0 \u2660 " + std::string(300, 'x');
  EXPECT_EQ(desk.Dialog.Change(Box::kHeader, {text, 0}).Text, text);
  EXPECT_EQ(desk.Dialog.Text(Box::kHeader), text);
}

TEST(HandRecord, WhatAModeDoesNotUseDoesNotMatter) {
  HandRecordDesk desk;
  const auto matters = [&desk] {
    std::string all;
    for (int i = 0; i <= static_cast<int>(Option::kPrintNS); ++i) {
      all += desk.Dialog.Matters(static_cast<Option>(i)) ? '1' : '0';
    }
    all += ' ';
    for (int i = 0; i <= static_cast<int>(Box::kHeader); ++i) {
      all += desk.Dialog.Matters(static_cast<Box>(i)) ? '1' : '0';
    }
    return all;
  };
  // Mode, layout, colour, analysis, HCP, statistics, ten, country, boards, pairs; from, to,
  // copies, first pair, header.
  EXPECT_EQ(matters(), "1111111100 11101");
  desk.Dialog.Choose(Option::kMode, 1);
  EXPECT_EQ(matters(), "1011101111 11100");
  desk.Dialog.Choose(Option::kPrintNS, 1);
  EXPECT_EQ(matters(), "1011101111 11110");
  desk.Dialog.Choose(Option::kMode, 2);
  EXPECT_EQ(matters(), "1001001100 11001");
}

TEST(HandRecord, WithoutALayoutHandRecordsCannotBePrinted) {
  HandRecordDesk desk;
  desk.Dialog.Choose(Option::kPerPage, 0);
  EXPECT_FALSE(desk.Dialog.CanPrint());
  desk.Dialog.cmdPrint();
  desk.Dialog.cmdPreview();
  desk.Dialog.cmdPdf();
  EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_THAT(desk.Lines(), IsEmpty());
  desk.Dialog.Choose(Option::kMode, 1);
  EXPECT_TRUE(desk.Dialog.CanPrint()) << "score cards have none";
  desk.Dialog.Choose(Option::kMode, 2);
  EXPECT_TRUE(desk.Dialog.CanPrint()) << "nor has a text";
  desk.Dialog.Choose(Option::kMode, 0);
  EXPECT_FALSE(desk.Dialog.CanPrint());
  desk.Dialog.Choose(Option::kPerPage, 3);
  EXPECT_TRUE(desk.Dialog.CanPrint());
}

struct Refusal {
  const char* From;
  const char* To;
  std::string Text;
  Box Back;
};

class HandRecordRefusals : public ::testing::TestWithParam<Refusal> {};

TEST_P(HandRecordRefusals, AreToldAndLeadBackToTheBox) {
  HandRecordDesk desk;
  desk.Type(Box::kFromBoard, GetParam().From);
  desk.Type(Box::kToBoard, GetParam().To);
  for (void (HandRecord::*command)() :
       {&HandRecord::cmdPrint, &HandRecord::cmdPreview, &HandRecord::cmdPdf}) {
    desk.Ui.Boxes.clear();
    desk.Ui.Statuses.clear();
    desk.View.Corrected.clear();
    (desk.Dialog.*command)();
    EXPECT_THAT(desk.Ui.Boxes,
                ElementsAre(FakeUi::Box{GetParam().Text, kOkCritical, "Printing Parameter Error"}));
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Printing Parameter Error"));
    EXPECT_THAT(desk.View.Corrected, ElementsAre(GetParam().Back));
  }
  EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages.front().Texts, IsEmpty());
  EXPECT_THAT(desk.View.Printing, IsEmpty()) << "no run";
}

const std::string kFromWrong =
    "      \"From Board\" value is incorrect      \r\n"
    "      This value must be in range of <First Board - Last Board>      \r\n\r\n"
    "      Please correct this value.      ";
const std::string kToWrong =
    "      \"To Board\" value is incorrect      \r\n"
    "      This value must be in range of <First Board - Last Board>      \r\n\r\n"
    "      Please correct this value.      ";
const std::string kOrderWrong =
    "      \"To Board\" value must be equal or higher than the \"From Board\" value     \r\n\r\n"
    "      Please correct these values.      ";

INSTANTIATE_TEST_SUITE_P(Ranges, HandRecordRefusals,
                         ::testing::Values(Refusal{"4", "9", kFromWrong, Box::kFromBoard},
                                           Refusal{"10", "9", kFromWrong, Box::kFromBoard},
                                           Refusal{"", "9", kFromWrong, Box::kFromBoard},
                                           Refusal{"4", "10", kFromWrong, Box::kFromBoard},
                                           Refusal{"5", "10", kToWrong, Box::kToBoard},
                                           Refusal{"6", "4", kToWrong, Box::kToBoard},
                                           Refusal{"5", "", kToWrong, Box::kToBoard},
                                           Refusal{"8", "7", kOrderWrong, Box::kToBoard}));

const std::string kNotAnalysed =
    "      Printing analysis is selected but some boards have not been analyzed      \r\n"
    "      Do you want to print anyway?     ";

TEST(HandRecord, AsksBeforeItPrintsABoardThatWasNotAnalysed) {
  HandRecordDesk desk;
  desk.Prog.Set.At(7).Tricks[0] = 0;
  desk.Ui.Answers = {kNo};
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{kNotAnalysed, kYesNoExclamation, "Printing"}));
  EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
  desk.Ui.Answers = {kYes};
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.Drawn(), ElementsAre("5", "6", "7", "8", "9"));
  EXPECT_THAT(desk.ThePrinter.Drawn.Pages.front().Fills, SizeIs(4)) << "tables: board 7 has none";
}

TEST(HandRecord, AsksInEachMode) {
  HandRecordDesk desk;
  desk.Prog.Set.At(9).Tricks[0] = 0;
  for (const int mode : {0, 1, 2}) {
    desk.Ui.Answers = {kNo};
    desk.Dialog.Choose(Option::kMode, mode);
    desk.Dialog.cmdPrint();
  }
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(3));
}

TEST(HandRecord, DoesNotAskOfBoardsThatAreNotPrinted) {
  HandRecordDesk desk;
  desk.Prog.Set.At(7).Tricks[0] = 0;
  desk.TypeRange("8", "9");
  desk.Dialog.cmdPrint();
  desk.TypeRange("5", "9");
  desk.Dialog.Choose(Option::kAnalysis, 0);
  desk.Dialog.cmdPrint();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.ThePrinter.Jobs, SizeIs(2));
}

TEST(HandRecord, TheSetupStartsWithTheCopiesAndBringsThemBack) {
  HandRecordDesk desk;
  desk.Type(Box::kCopies, "3");
  desk.ThePrinter.Confirmed = 7;
  desk.Dialog.cmdPrinterSetup();
  EXPECT_THAT(desk.ThePrinter.SetupsFrom, ElementsAre(3));
  EXPECT_EQ(desk.Dialog.Text(Box::kCopies), "7");
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Printer Setup", "Printing"));
  EXPECT_THAT(desk.View.Printing, SizeIs(1)) << "the window shows them";
}

TEST(HandRecord, ASetupThatIsCancelledChangesNothing) {
  HandRecordDesk desk;
  desk.Type(Box::kCopies, "");
  desk.Dialog.cmdPrinterSetup();
  EXPECT_THAT(desk.ThePrinter.SetupsFrom, ElementsAre(1)) << "an empty box is one copy";
  EXPECT_EQ(desk.Dialog.Text(Box::kCopies), "");
}

TEST(HandRecord, ASetupThatCannotComeUpIsTold) {
  HandRecordDesk desk;
  desk.ThePrinter.NoSetup = RuntimeError{ENODEV, "There is no printer"};
  desk.Dialog.cmdPrinterSetup();
  EXPECT_THAT(desk.ThePrinter.SetupsFrom, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(test::FakeUi::Box{"      There is no printer      ", 48,
                                                           "Printing Error"}));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Printer Setup", "Printing"));
}

TEST(HandRecord, CopiesOfTheSetupStayWithinTheBox) {
  HandRecordDesk desk;
  desk.ThePrinter.Confirmed = 5000;
  desk.Dialog.cmdPrinterSetup();
  EXPECT_EQ(desk.Dialog.Text(Box::kCopies), "999");
  desk.ThePrinter.Confirmed = 0;
  desk.Dialog.cmdPrinterSetup();
  EXPECT_EQ(desk.Dialog.Text(Box::kCopies), "1");
}

TEST(HandRecord, ClosesOnceAndDoesNothingAfterwards) {
  HandRecordDesk desk;
  desk.Dialog.cmdExit();
  EXPECT_TRUE(desk.Dialog.Closed());
  desk.Dialog.cmdPrint();
  desk.Dialog.cmdPreview();
  desk.Dialog.cmdPdf();
  desk.Dialog.cmdPrinterSetup();
  EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
  EXPECT_THAT(desk.ThePrinter.SetupsFrom, IsEmpty());
}

}  // namespace
}  // namespace morvane::print
