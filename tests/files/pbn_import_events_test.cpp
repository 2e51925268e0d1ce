#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/capability_checks.h"
#include "files/import_event_text.h"
#include "files/pbn_import_desk.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;

TEST(ImportedEvents, AreTheFirstThatAreKnown) {
  const Imported file(
      "[Event \"\"][Site \"?\"][Date \"????.??.\?\?\"][Board \"1\"]\n"
      "[Event \"Cup\"][Site \"-\"][Date \"2026.??.\?\?\"][Board \"2\"]\n"
      "[Event \"Final\"][Site \"Town\"][Date \"2027.01.01\"][Board \"3\"]\n");
  EXPECT_EQ(file.Set->EventName, "Cup");
  EXPECT_EQ(file.Set->EventSite, "Town");
  EXPECT_EQ(file.Set->EventDate, "2026.??.\?\?");
}

TEST(ImportedEvents, TheDateIsThatOfTheEventWhereTheGameHasNone) {
  EXPECT_EQ(Imported("[EventDate \"2026.02.01\"][Board \"1\"]").Set->EventDate, "2026.02.01");
  EXPECT_EQ(Imported("[EventDate \"2026.02.01\"][Date \"?\"][Board \"1\"]").Set->EventDate,
            "2026.02.01");
  EXPECT_EQ(Imported("[EventDate \"2026.02.01\"][Date \"2026.02.03\"][Board \"1\"]").Set->EventDate,
            "2026.02.03");
}

TEST(ImportedEvents, OtherTagsThatBeginLikeThemAreNotMeant) {
  EXPECT_EQ(Imported("[EventSponsor \"Bank\"][Board \"1\"]").Set->EventName, "");
}

TEST(ImportedEvents, WhatWasReplacedOrCutIsTold) {
  const Imported file("[Event \"[A]\"]\n[Site \"" + std::string(201, 'x') + "\"]\n[Board \"1\"]" +
                      kDeal);
  EXPECT_EQ(file.Set->EventName, "(A)");
  EXPECT_EQ(file.Set->EventSite, std::string(200, 'x'));
  EXPECT_THAT(file.Report.Notes.First,
              ElementsAre("Line 1: characters of the event name that cannot be saved were replaced",
                          "Line 2: the event site was cut to 200 characters"));
}

TEST(ImportedEventText, KeepsWhatCanBeSaved) {
  const EventText text = MakeEventText("Caf\xC3\xA9 (3rd) #4 'x', 5/6!");
  EXPECT_EQ(text.Text, "Caf\xC3\xA9 (3rd) #4 'x', 5/6!");
  EXPECT_FALSE(text.Replaced);
  EXPECT_FALSE(text.Cut);
}

TEST(ImportedEventText, ReplacesWhatPbnHasAUseFor) {
  const EventText text = MakeEventText("[a]{b}\"c\";d\\e 50%");
  EXPECT_EQ(text.Text, "(a)(b)'c',d/e 50pct");
  EXPECT_TRUE(text.Replaced);
  BoardSet set;
  set.EventName = text.Text;
  EXPECT_FALSE(HasPbnForbiddenChars(set));
}

TEST(ImportedEventText, ControlCharactersBecomeBlanks) {
  EXPECT_EQ(MakeEventText(std::string("a\tb\nc\x7F") + '\0' + "d").Text, "a b c  d");
}

TEST(ImportedEventText, MarksOfRepetitionInFrontAreTakenOff) {
  const EventText text = MakeEventText("###1 Pairs");
  EXPECT_EQ(text.Text, "1 Pairs");
  EXPECT_TRUE(text.Replaced);
}

TEST(ImportedEventText, MarksBehindWhatBecomesABlankAreTakenOffToo) {
  EXPECT_EQ(MakeEventText("# \t#\x01##1 Pairs #2").Text, "1 Pairs #2");
}

TEST(ImportedEventText, Has200CharactersAtMostNotBytes) {
  std::string letters;
  for (int i = 0; i < 200; ++i) letters += "\xC5\x81";
  EXPECT_EQ(MakeEventText(letters).Text, letters);
  EXPECT_FALSE(MakeEventText(letters).Cut);
  EXPECT_EQ(MakeEventText(letters + "x").Text, letters);
  EXPECT_TRUE(MakeEventText(letters + "x").Cut);
}

TEST(ImportedEventText, WhatTakesThreeCharactersMustFitWhole) {
  const EventText text = MakeEventText(std::string(198, 'x') + "%");
  EXPECT_EQ(text.Text, std::string(198, 'x'));
  EXPECT_TRUE(text.Cut);
}

TEST(ImportedEventText, ACutThatLeavesABlankAtTheEndTakesItAway) {
  EXPECT_EQ(MakeEventText(std::string(199, 'x') + " yz").Text, std::string(199, 'x'));
}

TEST(ImportedEventText, ANameOfNothingButMarksIsEmptyAndTheNextGamesCounts) {
  const Imported file("[Event \"####\"][Board \"1\"]" + std::string(kDeal) +
                      "[Event \"Cup\"][Board \"2\"]" + kDeal);
  EXPECT_EQ(file.Set->EventName, "Cup");
}

}  // namespace
}  // namespace morvane::files
