#include "model/messages.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

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

TEST(Messages, ALogLineHasNoPaddingAndNoLineBreak) {
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

}  // namespace
}  // namespace morvane
