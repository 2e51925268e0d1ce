#include "given_words.h"

#include <gtest/gtest.h>

#include <array>

namespace morvane {
namespace {

/// Whether "cli" followed by `word` is text.
bool IsText(std::string word) {
  std::string program = "cli";
  std::array<char*, 2> words{program.data(), word.data()};
  return GivenWordsOf(static_cast<int>(words.size()), words.data()).AreText;
}

TEST(GivenWords, ThatAreNoUtf8AreNoText) {
  EXPECT_TRUE(IsText(""));
  EXPECT_TRUE(IsText("caf\xC3\xA9.pbn"));
  EXPECT_TRUE(IsText("\xEF\xBF\xBD.pbn")) << "a name like others";
  EXPECT_FALSE(IsText("caf\xE9.pbn"));
  EXPECT_FALSE(IsText("caf\xC3"));
}

TEST(GivenWords, AreWordsAloneHere) {
  std::array<char, 4> program{"cli"};
  std::array<char, 9> file{"caf\xC3\xA9 a"};
  std::array<char*, 2> words{program.data(), file.data()};
  const GivenWords given = GivenWordsOf(2, words.data());
  EXPECT_EQ(given.Words, (QStringList{"cli", QString::fromUtf8("caf\xC3\xA9 a")}));
  EXPECT_EQ(given.Typed, std::nullopt);
}

}  // namespace
}  // namespace morvane
