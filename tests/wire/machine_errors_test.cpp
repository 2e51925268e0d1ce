#include "wire/machine_errors.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace morvane::wire {
namespace {

TEST(MachineMessageText, KeepsTheFirmwaresEventNumbers) {
  const std::vector<std::string_view> texts(MachineMessageText.begin(), MachineMessageText.end());
  const std::vector<std::string_view> expected{"",
                                               "S card",
                                               "W card",
                                               "E card",
                                               "N card",
                                               "",
                                               "",
                                               "",
                                               "",
                                               "",
                                               "End of Dealing",
                                               "Pedal Pressed",
                                               "Box Inserted",
                                               "",
                                               "",
                                               "",
                                               "",
                                               "",
                                               "Initialisation OK",
                                               "",
                                               "",
                                               "Extra card in S",
                                               "Extra card in W",
                                               "Extra card in E",
                                               "extra card in N",
                                               "Card did not go to S",
                                               "Card did not go to W",
                                               "Card did not go to E",
                                               "Card did not go to N",
                                               "Break dealing",
                                               "Card jam",
                                               "Card Box removed during dealing",
                                               "Card Box not present, insert",
                                               "Card did not go",
                                               "Read Error",
                                               "Duplicate Card",
                                               "Cover open",
                                               "",
                                               "",
                                               "",
                                               "",
                                               "",
                                               "",
                                               "",
                                               "",
                                               "Error durnig break",
                                               "Cover open"};
  EXPECT_EQ(texts, expected);
}

TEST(MachineErrors, ARunCanGoOnAfterRecognitionAndFeedingOnly) {
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(TextOfError(code).CanGoOn, code >= 25 && code <= 60) << code;
  }
}

}  // namespace
}  // namespace morvane::wire
