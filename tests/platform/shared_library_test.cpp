#include "platform/shared_library.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "support/fakes.h"

namespace morvane {
namespace {

using ::testing::HasSubstr;

using SignatureOfLength = std::size_t (*)(const char* text);

TEST(SharedLibraryTest, ALibraryOfTheSystemsIsFoundByItsBareName) {
  const SharedLibrary library("libc.so.6");
  ASSERT_TRUE(library.IsLoaded()) << library.Trouble();
  EXPECT_EQ(library.Trouble(), "");
  const auto length = reinterpret_cast<SignatureOfLength>(library.Find("strlen"));
  ASSERT_NE(length, nullptr);
  EXPECT_EQ(length("four"), 4U);
}

TEST(SharedLibraryTest, AFunctionThatIsNotThereIsNone) {
  EXPECT_EQ(SharedLibrary("libc.so.6").Find("strlen_of_nobody"), nullptr);
}

TEST(SharedLibraryTest, ABareNameIsNotLookedForInTheWorkingDirectory) {
  const test::TempFolder folder;
  std::filesystem::copy_file(MORVANE_USB_LIBRARY, folder / "libhere.so");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  EXPECT_FALSE(SharedLibrary("libhere.so").IsLoaded());
  EXPECT_TRUE(SharedLibrary("./libhere.so").IsLoaded()) << "it is one all the same";
  std::filesystem::current_path(before);
}

TEST(SharedLibraryTest, WhatIsNotThereIsToldInTheSystemsWords) {
  const SharedLibrary library("/nowhere/libnone.so");
  EXPECT_FALSE(library.IsLoaded());
  EXPECT_EQ(library.Find("strlen"), nullptr);
  EXPECT_THAT(library.Trouble(), HasSubstr("No such file"));
}

TEST(SharedLibraryTest, AFileThatIsNoLibraryIsNotLoaded) {
  const test::TempFolder folder;
  test::WriteContent(folder / "text.so", "no library at all, but some words");
  const SharedLibrary library(folder / "text.so");
  EXPECT_FALSE(library.IsLoaded());
  EXPECT_THAT(library.Trouble(), HasSubstr("text.so"));
}

TEST(SharedLibraryTest, ItIsLetGoWithItsObject) {
  const test::TempFolder folder;
  const std::string path = folder / "libgone.so";
  std::filesystem::copy_file(MORVANE_USB_LIBRARY, path);
  const auto mapped = [&path] {
    return test::Content("/proc/self/maps").find(path) != std::string::npos;
  };
  {
    const SharedLibrary library(path);
    ASSERT_TRUE(library.IsLoaded()) << library.Trouble();
    EXPECT_TRUE(mapped());
  }
  EXPECT_FALSE(mapped());
}

}  // namespace
}  // namespace morvane
