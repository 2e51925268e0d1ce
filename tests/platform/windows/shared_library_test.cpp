#include "platform/shared_library.h"

#include <windows.h>

#include <filesystem>

#include "platform/files.h"
#include "support/fakes.h"

namespace morvane::test {
namespace {

using IdOfProcess = DWORD(WINAPI*)();

TEST(SharedLibrary, ALibraryOfTheSystemsIsFoundByItsBareName) {
  const SharedLibrary library("kernel32.dll");
  ASSERT_TRUE(library.IsLoaded()) << library.Trouble();
  const auto id = reinterpret_cast<IdOfProcess>(library.Find("GetCurrentProcessId"));
  ASSERT_NE(id, nullptr);
  EXPECT_EQ(id(), GetCurrentProcessId());
  EXPECT_EQ(library.Find("FunctionOfNobody"), nullptr);
}

TEST(SharedLibrary, ABareNameIsNotLookedForInTheWorkingDirectory) {
  const TempFolder folder;
  std::filesystem::copy_file(MORVANE_USB_LIBRARY, folder / "here.dll");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  EXPECT_FALSE(SharedLibrary("here.dll").IsLoaded());
  EXPECT_TRUE(SharedLibrary(folder / "here.dll").IsLoaded()) << "it is one all the same";
  std::filesystem::current_path(before);
}

TEST(SharedLibrary, WhatIsNotThereOrNoLibraryOfThisKindIsTold) {
  const TempFolder folder;
  const SharedLibrary missing(folder / "none.dll");
  EXPECT_FALSE(missing.IsLoaded());
  EXPECT_EQ(missing.Trouble(), "it, or a library that it needs, is not there");
  EXPECT_EQ(missing.Find("strlen"), nullptr);
  WriteContent(folder / "text.dll", "no library at all, but some words");
  const SharedLibrary text(folder / "text.dll");
  EXPECT_FALSE(text.IsLoaded());
  EXPECT_EQ(text.Trouble(), "it is not one for 64 bits, or damaged");
}

TEST(SharedLibrary, APathOfAnyAlphabetIsLoadedAndLetGoWithItsObject) {
  const TempFolder folder;
  const std::string path = folder / "żółć.dll";
  const auto name = PathOfUtf8(path);
  std::filesystem::copy_file(MORVANE_USB_LIBRARY, name);
  {
    const SharedLibrary library(path);
    ASSERT_TRUE(library.IsLoaded()) << library.Trouble();
    EXPECT_NE(GetModuleHandleW(name.c_str()), nullptr);
  }
  EXPECT_EQ(GetModuleHandleW(name.c_str()), nullptr);
}

}  // namespace
}  // namespace morvane::test
