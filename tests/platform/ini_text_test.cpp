#include "platform/ini_text.h"

#include <random>

#include "program/setting_keys.h"
#include "support/fakes.h"

namespace morvane {
namespace {

constexpr SettingKey kText{"Setup", "Text", "the default"};

std::string ValueIn(std::string_view content, const SettingKey& key) {
  return IniValue(content, key).value_or(std::string(key.Default));
}

/// `content` with a value set; fails the test where that cannot be.
std::string With(std::string_view content, const SettingKey& key, std::string_view value) {
  const auto changed = WithIniValue(content, key, value);
  EXPECT_TRUE(changed);
  return changed.value_or("");
}

TEST(IniText, ALostLineYieldsItsDefaultAndTheOthersSurviveAWrite) {
  using namespace std::string_literals;
  std::string content =
      "[Setup]\nNew_FirstBoard = 3\nNew_LastBoard = 4\0\0\0\nno value\n= no key\n"
      "\xFF\xFE\x01\nGenerator = 1\n\0\0\0\0[Init_settings]\nInit_format = PBN\n"s;
  EXPECT_EQ(ValueIn(content, kNewFirstBoard), "3");
  EXPECT_EQ(ValueIn(content, kNewLastBoard), "32");
  EXPECT_EQ(ValueIn(content, kGenerator), "1");
  EXPECT_EQ(ValueIn(content, kInitFormat), "PBN");
  content = With(content, kNewLastBoard, "5");
  EXPECT_EQ(ValueIn(content, kNewFirstBoard), "3");
  EXPECT_EQ(ValueIn(content, kNewLastBoard), "5");
  EXPECT_EQ(ValueIn(content, kGenerator), "1");
  EXPECT_EQ(ValueIn(content, kInitFormat), "PBN");
}

TEST(IniText, TheKeysOfALostSectionYieldTheirDefaults) {
  using namespace std::string_literals;
  for (const std::string& line : {"[Init_settings"s, "[Init\0settings]"s, " [Init_"s}) {
    std::string content = "[Setup]\nGenerator = 1\n" + line + "\nInit_format = PBN\n";
    EXPECT_EQ(ValueIn(content, kInitFormat), "BRI");
    EXPECT_EQ(ValueIn(content, kGenerator), "1");
    content = With(With(content, kGenerator, "0"), kInitFormat, "DUP");
    EXPECT_EQ(ValueIn(content, kInitFormat), "DUP");
    EXPECT_EQ(ValueIn(content, kGenerator), "0");
  }
}

TEST(IniText, AnyBytesAreReadWithoutHarmAndDoNotGrow) {
  std::mt19937 random(1);
  constexpr std::string_view kSigns("[]=;#\"\\ \t\r\n\0\xEF\xBB\xBF<aS", 18);
  for (int file = 0; file < 100; ++file) {
    std::string content(random() % 400, ' ');
    for (char& byte : content) {
      byte = random() % 4 == 0 ? static_cast<char>(random()) : kSigns[random() % kSigns.size()];
    }
    EXPECT_EQ(ValueIn(content, kText), "the default");
    for (int n = 1; n < 5; ++n) {
      content = With(content, kText, std::to_string(n));
      ASSERT_EQ(ValueIn(content, kText), std::to_string(n));
    }
    const std::string settled = content;
    for (int n = 5; n < 10; ++n) content = With(content, kText, std::to_string(n));
    ASSERT_EQ(ValueIn(content, kText), "9");
    EXPECT_EQ(content.size(), settled.size()) << file;
  }
}

}  // namespace
}  // namespace morvane
