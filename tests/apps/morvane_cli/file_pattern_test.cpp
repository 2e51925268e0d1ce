#include "morvane_cli/file_pattern.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "platform/files.h"
#include "support/fakes.h"

namespace morvane {
namespace {

using ::testing::ElementsAre;

/// A folder of files, and what fits in it, by name.
class FilePattern : public ::testing::Test {
 protected:
  void Put(std::initializer_list<const char*> names) {
    for (const char* name : names) test::WriteContent(folder / name, "x");
  }
  [[nodiscard]] std::vector<std::string> Fitting(const std::string& pattern) const {
    std::vector<std::string> names;
    for (const std::string& file : FilesThatFit(folder / pattern)) {
      const std::filesystem::path path = PathOfUtf8(file);
      EXPECT_EQ(path.parent_path(), PathOfUtf8(folder.Path()));
      names.push_back(NameOf(path.string()));
    }
    return names;
  }

  const test::TempFolder folder;

 private:
  static std::string NameOf(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
  }
};

TEST_F(FilePattern, AStarStandsForAnyCharactersAndNoneSortedByName) {
  Put({"tue.pbn", "Mon.PBN", "fri.bri", ".pbn", "wed.pbn.old"});
  EXPECT_THAT(Fitting("*.pbn"), ElementsAre(".pbn", "Mon.PBN", "tue.pbn"));
}

TEST_F(FilePattern, AQuestionMarkStandsForOneCharacterOfAnyAlphabet) {
  Put({"a1.pbn", "a12.pbn", "a\xC3\xA4.pbn", "a.pbn"});
  EXPECT_THAT(Fitting("a?.pbn"), ElementsAre("a1.pbn", "a\xC3\xA4.pbn"));
}

TEST_F(FilePattern, WhatElseStandsInANameStandsForItself) {
  Put({"set[1]+(a).pbn", "set1a.pbn", "setXpbn.x"});
  EXPECT_THAT(Fitting("set[1]+(*).pbn"), ElementsAre("set[1]+(a).pbn"));
  EXPECT_THAT(Fitting("set*.pbn"), ElementsAre("set1a.pbn", "set[1]+(a).pbn"));
}

TEST_F(FilePattern, FoldersDoNotFit) {
  std::filesystem::create_directory(PathOfUtf8(folder / "old.pbn"));
  Put({"new.pbn"});
  EXPECT_THAT(Fitting("*.pbn"), ElementsAre("new.pbn"));
}

TEST_F(FilePattern, WhereNothingFitsTheWordStaysAsItIs) {
  Put({"a.pbn"});
  EXPECT_THAT(Fitting("*.bri"), ElementsAre("*.bri"));
  EXPECT_THAT(FilesThatFit(folder / "none/*.pbn"), ElementsAre(folder / "none/*.pbn"));
}

TEST(FilePatternWord, WithoutASignIsNoPattern) {
  EXPECT_THAT(FilesThatFit("no such file.pbn"), ElementsAre("no such file.pbn"));
  EXPECT_THAT(FilesThatFit(""), ElementsAre(""));
}

}  // namespace
}  // namespace morvane
