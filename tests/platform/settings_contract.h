#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/settings.h"
#include "program/setting_keys.h"

// What holds for every settings store. A store says how by a `Desk`, which has it to itself: `Open`
// gives a store on what all of the desk's stores share.

namespace morvane::test {

inline constexpr SettingKey kText{"Setup", "Text", "the default"};
inline constexpr SettingKey kOther{"Init_settings", "Other", "none"};

/// Texts that a store might take for its own signs, or fold.
inline std::vector<std::string> AnyTexts() {
  return {"",
          " ",
          "  both ends  ",
          "\ttab\t",
          "a=b",
          "=",
          "; no comment",
          "# nor this",
          "a ; b",
          "\"",
          "\"\"",
          "\"in quotes\"",
          "\"half",
          "half\"",
          "[Setup]",
          "[x",
          "C:\\Bridge\\new\\",
          "C:\\ends in a blank\\ ",
          "<<<END",
          "two\nlines",
          "two\r\nlines\r\n",
          "back\\slash\nline",
          "żółć ♠♥♦♣",
          " ü ",
          "%PATH%",
          "\xFF\xFE not UTF-8",
          std::string("a\0b", 3),
          std::string("ends in\0", 8),
          "/disk/\x1B[1m\x01\x7F",
          "\x1F",
          std::string(128, 'F'),
          std::string(100000, 'x')};
}

template <class Desk>
class SettingsContract : public testing::Test {
 protected:
  Desk desk_;
};

TYPED_TEST_SUITE_P(SettingsContract);

TYPED_TEST_P(SettingsContract, AKeyThatWasNeverWrittenYieldsItsDefault) {
  EXPECT_EQ(this->desk_.Open().Get(kText), "the default");
}

TYPED_TEST_P(SettingsContract, AnEmptyValueIsNotTheDefault) {
  auto store = this->desk_.Open();
  EXPECT_TRUE(store.Set(kText, ""));
  EXPECT_EQ(store.Get(kText), "");
}

TYPED_TEST_P(SettingsContract, AKeyWithBlanksInItsNameIsFoundAgain) {
  auto store = this->desk_.Open();
  EXPECT_TRUE(store.Set(kServiceFileId, "12"));
  EXPECT_EQ(store.Get(kServiceFileId), "12");
}

TYPED_TEST_P(SettingsContract, OneNameInTwoSectionsIsTwoSettings) {
  auto store = this->desk_.Open();
  const SettingKey same{"Init_settings", "Text", ""};
  EXPECT_TRUE(store.Set(kText, "a"));
  EXPECT_TRUE(store.Set(same, "b"));
  EXPECT_EQ(store.Get(kText), "a");
  EXPECT_EQ(store.Get(same), "b");
}

TYPED_TEST_P(SettingsContract, AnyTextComesBackAsItWasAndStaysThroughOtherWrites) {
  auto store = this->desk_.Open();
  for (const std::string& text : AnyTexts()) {
    EXPECT_TRUE(store.Set(kText, text));
    EXPECT_EQ(store.Get(kText), text);
    EXPECT_TRUE(store.Set(kOther, "1"));
    EXPECT_TRUE(store.Set(kOther, "2"));
    EXPECT_EQ(store.Get(kText), text);
    EXPECT_EQ(store.Get(kOther), "2");
  }
}

TYPED_TEST_P(SettingsContract, TwoStoresSeeEachOther) {
  auto store = this->desk_.Open();
  auto solver = this->desk_.Open();
  EXPECT_TRUE(store.Set(kSolverDone, "00"));
  EXPECT_TRUE(solver.Set(kSolverResult, "12345"));
  EXPECT_TRUE(store.Set(kSolverBreak, "1"));
  EXPECT_EQ(store.Get(kSolverResult), "12345");
  EXPECT_EQ(solver.Get(kSolverBreak), "1");
  EXPECT_EQ(solver.Get(kSolverDone), "00");
}

REGISTER_TYPED_TEST_SUITE_P(SettingsContract, AKeyThatWasNeverWrittenYieldsItsDefault,
                            AnEmptyValueIsNotTheDefault, AKeyWithBlanksInItsNameIsFoundAgain,
                            OneNameInTwoSectionsIsTwoSettings,
                            AnyTextComesBackAsItWasAndStaysThroughOtherWrites,
                            TwoStoresSeeEachOther);

}  // namespace morvane::test
