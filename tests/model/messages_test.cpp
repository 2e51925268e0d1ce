#include "model/messages.h"

#include <gtest/gtest.h>

#include <array>

#include "text/box_text.h"

namespace morvane {
namespace {

constexpr std::array<std::string Messages::*, 125> kEveryText{
    &Messages::Msg001, &Messages::Msg002, &Messages::Msg003, &Messages::Msg004, &Messages::Msg005,
    &Messages::Msg006, &Messages::Msg007, &Messages::Msg008, &Messages::Msg009, &Messages::Msg010,
    &Messages::Msg011, &Messages::Msg012, &Messages::Msg013, &Messages::Msg014, &Messages::Msg015,
    &Messages::Msg016, &Messages::Msg017, &Messages::Msg018, &Messages::Msg019, &Messages::Msg020,
    &Messages::Msg021, &Messages::Msg022, &Messages::Msg023, &Messages::Msg024, &Messages::Msg025,
    &Messages::Msg026, &Messages::Msg027, &Messages::Msg028, &Messages::Msg029, &Messages::Msg030,
    &Messages::Msg031, &Messages::Msg032, &Messages::Msg033, &Messages::Msg034, &Messages::Msg035,
    &Messages::Msg036, &Messages::Msg037, &Messages::Msg038, &Messages::Msg039, &Messages::Msg040,
    &Messages::Msg041, &Messages::Msg042, &Messages::Msg043, &Messages::Msg044, &Messages::Msg045,
    &Messages::Msg046, &Messages::Msg047, &Messages::Msg048, &Messages::Msg049, &Messages::Msg050,
    &Messages::Msg051, &Messages::Msg052, &Messages::Msg053, &Messages::Msg054, &Messages::Msg055,
    &Messages::Msg056, &Messages::Msg057, &Messages::Msg058, &Messages::Msg059, &Messages::Msg060,
    &Messages::Msg061, &Messages::Msg062, &Messages::Msg063, &Messages::Msg064, &Messages::Msg065,
    &Messages::Msg066, &Messages::Msg067, &Messages::Msg068, &Messages::Msg069, &Messages::Msg070,
    &Messages::Msg071, &Messages::Msg072, &Messages::Msg073, &Messages::Msg074, &Messages::Msg075,
    &Messages::Msg076, &Messages::Msg077, &Messages::Msg078, &Messages::Msg079, &Messages::Msg080,
    &Messages::Msg081, &Messages::Msg082, &Messages::Msg083, &Messages::Msg084, &Messages::Msg085,
    &Messages::Msg086, &Messages::Msg087, &Messages::Msg088, &Messages::Msg089, &Messages::Msg090,
    &Messages::Msg091, &Messages::Msg092, &Messages::Msg093, &Messages::Msg094, &Messages::Msg095,
    &Messages::Msg096, &Messages::Msg097, &Messages::Msg098, &Messages::Msg099, &Messages::Msg100,
    &Messages::Msg101, &Messages::Msg102, &Messages::Msg103, &Messages::Msg104, &Messages::Msg105,
    &Messages::Msg106, &Messages::Msg107, &Messages::Msg108, &Messages::Msg109, &Messages::Msg110,
    &Messages::Msg111, &Messages::Msg112, &Messages::Msg113, &Messages::Msg114, &Messages::Msg115,
    &Messages::Msg116, &Messages::Msg117, &Messages::Msg118, &Messages::Msg119, &Messages::Msg120,
    &Messages::Msg121, &Messages::Msg122, &Messages::Msg123, &Messages::Msg124, &Messages::Msg125};
static_assert(sizeof(Messages) == kEveryText.size() * sizeof(std::string));

TEST(Messages, EveryPlaceholderIsReplacedAtOnce) {
  EXPECT_EQ(Fill("*** and ***, not ###", "***", "PBN"), "PBN and PBN, not ###");
  EXPECT_EQ(Fill("***", "***", "******"), "******");
}

TEST(Messages, ATextWithoutPlaceholderPassesUnchanged) {
  EXPECT_EQ(Fill("nothing here", "***", "x"), "nothing here");
}

TEST(Messages, SaveAndLoadErrorsTakeNumberAndDescription) {
  const Messages texts = InitMessages();
  EXPECT_EQ(Fill(Fill(texts.Msg008, "***", "2"), "###", "No such file or directory"),
            "      Error: 2 during load operation - No such file or directory      \r\n"
            "      Load operation aborted!      ");
  EXPECT_EQ(Fill(Fill(texts.Msg007, "***", "28"), "###", "No space left on device"),
            "      Error: 28 during save operation - No space left on device      \r\n"
            "      Save operation aborted!      ");
}

TEST(Messages, EveryTextIsThereAndMakesALogLineWithoutLineBreakOrSixBlanks) {
  const Messages texts = InitMessages();
  int number = 0;
  for (const auto member : kEveryText) {
    ++number;
    EXPECT_FALSE((texts.*member).empty()) << number;
    const std::string line = OneLine(texts.*member);
    EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos) << number << ": " << line;
    EXPECT_EQ(line.find(std::string(6, ' ')), std::string::npos) << number << ": " << line;
  }
}

TEST(Messages, ALogLineLosesLineBreaksAndRunsOfSixBlanksAndKeepsShorterOnes) {
  const Messages texts = InitMessages();
  EXPECT_EQ(
      OneLine(texts.Msg050),
      "Cannot communicate with Morvane(Error: ***) : Please check if USB cable is connected to "
      "the PC and Morvane. : If connection is OK please disconnect USB cable momentarily and "
      "reconnect. :   : Click OK to retry communication.    ");
  EXPECT_EQ(OneLine(texts.Msg013), "File format error: File is empty :  : Load operation aborted!");
}

TEST(Messages, PaddingAndMisspellingsStand) {
  const Messages texts = InitMessages();
  EXPECT_EQ(texts.Msg010,
            "      Unknow file format: ***      \r\n      Save operation aborted!      ");
  EXPECT_EQ(
      texts.Msg033,
      "      In PBN format characters []{};\"% are not allowed in the Event Name, Event Site and "
      "Event Date fields      ");
  EXPECT_EQ(texts.Msg060,
            "      You have succesfully dealt the last board in the set.      \r\n\r\n"
            "      Do you wish to move to the first board?      ");
  EXPECT_EQ(texts.Msg125,
            "      You have entered Calibrate Board Switch function.      \r\n"
            "      Please insert the problem board into the machine.    \r\n\r\n"
            "      Click OK to proceed.     ");
}

TEST(Messages, AddressesStandWhereTheyBelong) {
  const Messages texts = InitMessages();
  EXPECT_EQ(texts.Msg041,
            "      Using Board Number Check requires Firmware version 2.70 or later.      \r\n"
            "      Current Firmware version is ***     \r\n\r\n"
            "      Please update firmware from " +
                std::string(kWebAddress) + " and try again.      \r\n");
  EXPECT_NE(texts.Msg089.find(kServiceMail), std::string::npos);
}

TEST(WithoutPadding, KeepsEmptyLinesInsideAndDropsThemAtTheEnd) {
  EXPECT_EQ(WithoutPadding("      a      \r\n    \r\n      b c   \r\n"), "a\n\nb c");
  EXPECT_EQ(WithoutPadding("plain"), "plain");
  EXPECT_EQ(WithoutPadding(""), "");
}

}  // namespace
}  // namespace morvane
