#include "platform/paths.h"

#include <cerrno>
#include <filesystem>

#include "platform/files.h"
#include "platform/user_folders.h"
#include "platform/windows/full_path.h"
#include "support/fakes.h"

namespace morvane::test {
namespace {

struct Rooted {
  const char* Path;
  const char* Root;
  bool Absolute;
};

TEST(Paths, ADriveAndAShareAreRoots) {
  for (const Rooted& each :
       {Rooted{R"(C:\sets\a.pbn)", R"(C:\)", true}, Rooted{"C:/sets", R"(C:\)", true},
        Rooted{"C:a.pbn", "C:", false}, Rooted{R"(\sets)", R"(\)", false},
        Rooted{R"(\\server\share\a.pbn)", R"(\\server\share\)", true},
        Rooted{"//server/share/a.pbn", R"(\\server\share\)", true},
        Rooted{R"(\\?\C:\a.pbn)", R"(\\?\C:\)", true}, Rooted{"a.pbn", "", false},
        Rooted{R"(sets\a.pbn)", "", false}, Rooted{"", "", false}}) {
    EXPECT_EQ(RootOf(each.Path), each.Root) << each.Path;
    EXPECT_EQ(IsAbsolutePath(each.Path), each.Absolute) << each.Path;
  }
}

TEST(Paths, AnAbsolutePathOfAShareStays) {
  EXPECT_EQ(AbsolutePath(R"(\\server\share\sets\a.pbn)"), R"(\\server\share\sets\a.pbn)");
  EXPECT_EQ(AbsolutePath("//server/share/a.pbn"), R"(\\server\share\a.pbn)");
  EXPECT_EQ(AbsolutePath(R"(\\?\C:\sets\a.pbn)"), R"(\\?\C:\sets\a.pbn)");
}

TEST(Paths, AnAbsolutePathHasItsLastNameAsItWasGiven) {
  EXPECT_EQ(AbsolutePath(R"(C:\none\..\a.pbn)"), R"(C:\a.pbn)");
  EXPECT_EQ(AbsolutePath(R"(C:\a.pbn. )"), R"(C:\a.pbn. )");
  EXPECT_EQ(AbsolutePath(R"(C:\a.pbn:x)"), R"(C:\a.pbn:x)");
  EXPECT_EQ(AbsolutePath(""), "");
  EXPECT_EQ(AbsolutePath("NUL"), R"(\\.\NUL)");
}

TEST(Paths, ATruePathKeepsWhatIsNotThere) {
  const TempFolder folder;
  const std::string real = TruePath(folder.Path());
  EXPECT_TRUE(std::filesystem::equivalent(PathOfUtf8(real), PathOfUtf8(folder.Path()))) << real;
  EXPECT_EQ(TruePath(folder / "no" + R"(\..\none\a.pbn)"), real + R"(\none\a.pbn)");
  EXPECT_EQ(TruePath("NUL"), "NUL");
}

TEST(Paths, TheDataOfAProgramOnAShareStandsThere) {
  EXPECT_EQ(DefaultDataFolder(R"(\\server\share\Morvane)"), R"(\\server\share\Morvane_Data)");
}

TEST(Paths, ANameThatTheSystemWouldChangeIsRefused) {
  TempFolder folder;
  WriteContent(folder / "set.pbn", "old");
  for (const char* name : {"set.pbn.", "set.pbn ", "set.pbn:x", "set.pbn::$DATA"}) {
    const auto error = WriteFile(folder / name, "new");
    ASSERT_TRUE(error) << name;
    EXPECT_EQ(error->Number, EINVAL) << name;
    std::string read;
    EXPECT_TRUE(ReadFile(folder / name, read)) << name;
  }
  EXPECT_EQ(Content(folder / "set.pbn"), "old");
}

}  // namespace
}  // namespace morvane::test
