#include "platform/console/console_ui.h"

#include "cli/cli_desk.h"
#include "text/box_text.h"

namespace morvane::cli {
namespace {

constexpr const char* kPadded = "      First line      \r\n\r\n      Second line.      \r\n";
constexpr const char* kStripped = "Caption: First line\n\nSecond line.\n";

struct ConsoleDesk {
  explicit ConsoleDesk(bool yes = false, bool person = false, bool overwrite = false)
      : Ui(Screen, Random, yes, overwrite) {
    Screen.Person = person;
  }
  /// The save dialog's answer for a file that is there.
  std::optional<std::string> AskToReplace() {
    test::WriteContent(There, "as it was");
    FileRequest request;
    request.Title = "Caption";
    request.Saving = true;
    Ui.AnswerNextFile(There);
    return Ui.AskFile(request);
  }
  test::TempFolder Folder;
  const std::string There = Folder / "there.pbn";
  int Ask(int flags) { return Ui.MessageBox(kPadded, flags, "Caption"); }
  FakeTerminal Screen;
  test::FakeEntropy Random;
  ConsoleUi Ui;
};

TEST(ConsoleUi, AMessageGoesToStandardErrorWithoutItsPadding) {
  for (const int flags : std::vector<int>{kOkCritical, kOkExclamation, kOkInformation, 0}) {
    ConsoleDesk desk(false, true);
    desk.Screen.Lines = {"not read"};
    EXPECT_EQ(desk.Ask(flags), kOk);
    EXPECT_EQ(desk.Screen.Errors, kStripped);
    EXPECT_EQ(desk.Screen.Output, "");
    EXPECT_EQ(desk.Screen.Lines.size(), 1U);
  }
}

TEST(ConsoleUi, InnerBlanksOfALineStay) {
  ConsoleDesk desk;
  desk.Ui.MessageBox("   Lost  -  Aborted   ", kOkCritical, "Caption");
  EXPECT_EQ(desk.Screen.Errors, "Caption: Lost  -  Aborted\n");
}

TEST(ConsoleUi, WithoutAnybodyToAskTheAnswerIsTheCautiousOne) {
  for (const auto& [flags, answer] : std::map<int, int>{{kYesNoQuestion, kNo},
                                                        {kYesNoExclamation, kNo},
                                                        {kYesNoInformation, kNo},
                                                        {kYesNoSystem, kNo},
                                                        {kYesNoCancelExclamation, kCancel},
                                                        {kOkCancelCritical, kCancel}}) {
    ConsoleDesk desk;
    desk.Screen.Lines = {"y"};
    EXPECT_EQ(desk.Ask(flags), answer) << flags;
    const std::string hint = "There is nobody to ask; --yes would answer Yes.\n";
    EXPECT_EQ(desk.Screen.Errors, kStripped + (flags == kOkCancelCritical ? "" : hint));
    EXPECT_EQ(desk.Screen.Lines.size(), 1U);
  }
}

TEST(ConsoleUi, WhatAFileHasInItCommandsNoTerminal) {
  ConsoleDesk desk;
  desk.Ui.MessageBox(
      "Invalid character: \x1B"
      "c\x7F\a \xC3\x9F\r\nLoad",
      kOkCritical, "Caption");
  EXPECT_EQ(desk.Screen.Errors, "Caption: Invalid character: ?c?? \xC3\x9F\nLoad\n");
}

TEST(ConsoleUi, WithYesEveryQuestionIsAnsweredYesUnasked) {
  for (const int flags :
       std::vector<int>{kYesNoQuestion, kYesNoExclamation, kYesNoCancelExclamation, kYesNoSystem}) {
    ConsoleDesk desk(true, true);
    desk.Screen.Lines = {"n"};
    EXPECT_EQ(desk.Ask(flags), kYes) << flags;
    EXPECT_EQ(desk.Screen.Errors, kStripped);
    EXPECT_EQ(desk.Screen.Lines.size(), 1U);
  }
}

TEST(ConsoleUi, WithYesNothingIsTriedAgainForEver) {
  ConsoleDesk desk(true, true);
  EXPECT_EQ(desk.Ask(kOkCancelCritical), kCancel);
}

struct Answer {
  int Flags;
  std::string Line;
  int Expected;
};

class ConsoleUiAnswerTest : public ::testing::TestWithParam<Answer> {};

TEST_P(ConsoleUiAnswerTest, IsTakenFromTheLine) {
  ConsoleDesk desk(false, true);
  desk.Screen.Lines = {GetParam().Line};
  EXPECT_EQ(desk.Ask(GetParam().Flags), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    Words, ConsoleUiAnswerTest,
    ::testing::Values(Answer{kYesNoExclamation, "y", kYes}, Answer{kYesNoExclamation, "n", kNo},
                      Answer{kYesNoSystem, "y", kYes}, Answer{kYesNoSystem, "n", kNo},
                      Answer{kYesNoCancelExclamation, "Yes", kYes},
                      Answer{kYesNoCancelExclamation, " NO ", kNo},
                      Answer{kYesNoCancelExclamation, "cancel", kCancel},
                      Answer{kOkCancelCritical, "o", kOk}, Answer{kOkCancelCritical, "OK", kOk},
                      Answer{kOkCancelCritical, "c", kCancel}));

INSTANTIATE_TEST_SUITE_P(ThatAreNone, ConsoleUiAnswerTest,
                         ::testing::Values(Answer{kYesNoCancelExclamation, "", kCancel},
                                           Answer{kYesNoCancelExclamation, "ok", kCancel},
                                           Answer{kYesNoCancelExclamation, "1", kCancel},
                                           Answer{kYesNoExclamation, "cancel", kNo},
                                           Answer{kYesNoSystem, "", kNo},
                                           Answer{kOkCancelCritical, "yes", kCancel},
                                           Answer{kOkCancelCritical, "no", kCancel}));

TEST(ConsoleUi, AsksWithTheLettersOfItsButtonsUntilOneIsGiven) {
  const std::string text = kStripped;
  for (const auto& [flags, prompt] :
       std::map<int, std::string>{{kYesNoCancelExclamation, "[y]es, [n]o, [c]ancel? "},
                                  {kYesNoQuestion, "[y]es, [n]o? "},
                                  {kOkCancelCritical, "[o]k, [c]ancel? "}}) {
    ConsoleDesk desk(false, true);
    desk.Screen.Lines = {"", "what", flags == kOkCancelCritical ? "o" : "y", "left"};
    EXPECT_EQ(desk.Ask(flags), flags == kOkCancelCritical ? kOk : kYes);
    EXPECT_EQ(desk.Screen.Errors, text + prompt + prompt + prompt);
    EXPECT_EQ(desk.Screen.Lines.size(), 1U);
  }
}

TEST(ConsoleUi, TheEndOfTheInputIsTheCautiousAnswer) {
  ConsoleDesk desk(false, true);
  EXPECT_EQ(desk.Ask(kYesNoCancelExclamation), kCancel);
  EXPECT_EQ(desk.Ask(kYesNoExclamation), kNo);
  EXPECT_EQ(desk.Ask(kOkCancelCritical), kCancel);
}

TEST(ConsoleUi, AnAnswerKnownBeforehandIsGivenInSilence) {
  for (const bool yes : {false, true}) {
    ConsoleDesk desk(yes, true);
    desk.Ui.AnswerAlways(kPadded, kNo);
    for (int time = 1; time <= 2; ++time) EXPECT_EQ(desk.Ask(kYesNoQuestion), kNo);
    EXPECT_EQ(desk.Screen.Errors, "");
    desk.Screen.Lines = {"y"};
    EXPECT_EQ(desk.Ui.MessageBox("Another?", kYesNoQuestion, "Caption"), kYes);
  }
}

TEST(ConsoleUi, YesReplacesNoFile) {
  ConsoleDesk desk(true);
  EXPECT_EQ(desk.AskToReplace(), std::nullopt);
  EXPECT_EQ(desk.Screen.Errors, "Caption: " + desk.There +
                                    " exists already. Replace it?\nThere is nobody to ask; "
                                    "--overwrite would replace it.\nNot replaced.\n");
}

TEST(ConsoleUi, WithOverwriteAFileIsReplacedUnasked) {
  for (const bool person : {false, true}) {
    ConsoleDesk desk(false, person, true);
    EXPECT_EQ(desk.AskToReplace(), desk.There);
    EXPECT_EQ(desk.Screen.Errors, "");
  }
}

TEST(ConsoleUi, AtTheTerminalAFileIsReplacedOnAYesAlsoBesideTheOption) {
  for (const bool yes : {false, true}) {
    for (const bool replace : {false, true}) {
      ConsoleDesk desk(yes, true);
      desk.Screen.Lines = {replace ? "y" : "n"};
      EXPECT_EQ(desk.AskToReplace().has_value(), replace);
      EXPECT_THAT(desk.Screen.Lines, ::testing::IsEmpty());
    }
  }
}

TEST(ConsoleUi, AConsentThatIsKeptIsNotAskedForAgain) {
  ConsoleDesk desk(false, true);
  desk.Screen.Lines = {"n", "y", "y", "y", "n"};
  desk.Ui.KeepConsent(true);
  EXPECT_EQ(desk.Ask(kYesNoQuestion), kNo);
  EXPECT_EQ(desk.Ask(kYesNoQuestion), kYes) << "a No is no consent";
  EXPECT_EQ(desk.AskToReplace(), desk.There);
  desk.Ui.KeepConsent(false);
  const std::string before = desk.Screen.Errors;
  EXPECT_EQ(desk.Ask(kYesNoQuestion), kYes);
  EXPECT_EQ(desk.AskToReplace(), desk.There);
  EXPECT_EQ(desk.Screen.Errors, before);
  EXPECT_EQ(desk.Ui.MessageBox("Another?", kYesNoQuestion, "Caption"), kYes);
  EXPECT_EQ(desk.Ui.MessageBox("Another?", kYesNoQuestion, "Caption"), kNo) << "and not kept";
  EXPECT_THAT(desk.Screen.Lines, ::testing::IsEmpty()) << "another question is asked";
}

TEST(ConsoleUi, BoxesOfATitleNameTheirFile) {
  ConsoleDesk desk;
  desk.Ui.NameFile("Caption", "/old.pbn");
  desk.Ui.NameFile("Caption", "/set\x1B.pbn");
  desk.Ask(kOkCritical);
  desk.Ui.MessageBox("Text", kOkCritical, "Other");
  EXPECT_EQ(desk.Screen.Errors, "Caption: /set?.pbn: First line\n\nSecond line.\nOther: Text\n");
}

TEST(ConsoleUi, OneFileDialogIsAnsweredAndEveryOtherCancelled) {
  ConsoleDesk desk;
  EXPECT_EQ(desk.Ui.AskFile({}), std::nullopt);
  desk.Ui.AnswerNextFile("/set.pbn");
  EXPECT_EQ(desk.Ui.AskFile({}), "/set.pbn");
  EXPECT_EQ(desk.Ui.AskFile({}), std::nullopt);
}

TEST(ConsoleUi, SeveralFileDialogsAreAnsweredInOrderUntilOtherAnswersComeInTheirPlace) {
  ConsoleDesk desk;
  desk.Ui.AnswerNextFiles({"/a", "/b", "/c"});
  EXPECT_EQ(desk.Ui.AskFile({}), "/a");
  EXPECT_EQ(desk.Ui.AskFile({}), "/b");
  desk.Ui.AnswerNextFile("/set.pbn");
  EXPECT_EQ(desk.Ui.AskFile({}), "/set.pbn");
  EXPECT_EQ(desk.Ui.AskFile({}), std::nullopt);
}

TEST(ConsoleUi, WhereTheMouseWouldBeTheSystemsRandomSourceSays) {
  ConsoleDesk desk;  // whose source gives 1, 2, 3, 4
  const Point at = desk.Ui.Mouse();
  EXPECT_EQ(at.X, 0x0102);
  EXPECT_EQ(at.Y, 0x0304);
  EXPECT_EQ(desk.Screen.Errors, "");
}

TEST(ConsoleUi, ARandomSourceThatFailsIsToldOnce) {
  ConsoleDesk desk;
  desk.Random.Failure = Entropy::Answer{false, std::nullopt};
  for (int n = 0; n < 3; ++n) {
    const Point at = desk.Ui.Mouse();
    EXPECT_EQ(at.X, 0);
    EXPECT_EQ(at.Y, 0);
  }
  EXPECT_EQ(desk.Screen.Errors,
            "The system's random source failed: the random pool gets nothing new.\n");
}

TEST(ConsoleUi, SaysWhatItWaitsFor) {
  ConsoleDesk desk;
  desk.Ui.Waiting("Waiting for another program: settings");
  desk.Ui.Waiting("");
  EXPECT_EQ(desk.Screen.Errors, "Waiting for another program: settings\n");
}

}  // namespace
}  // namespace morvane::cli
