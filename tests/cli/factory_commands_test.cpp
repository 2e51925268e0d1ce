#include <gmock/gmock.h>

#include <filesystem>

#include "cli/cli_desk.h"
#include "cli/request.h"
#include "platform/files.h"

// The commands that make the files of a firmware build: firmware-file, boot-c and txt-hex.

namespace morvane::cli {
namespace {

using ::testing::StartsWith;

struct FactoryDesk : CliDesk {
  explicit FactoryDesk(bool yes = false, bool overwrite = false)
      : CliDesk(yes, AtSpeed(0), overwrite) {
    test::WriteContent(What.Code, "ABCDEFGHI");
    test::WriteContent(What.Bitstream, std::string(54981, 'B'));
    test::WriteContent(Boot.In, "AB");
    test::WriteContent(Text.In, "@0100\n01 02\nq\n");
  }
  const FirmwareFileOptions What{Folder / "code.dsp", Folder / "logic.bit", Folder / "new.adc"};
  const BootCOptions Boot{Folder / "boot.adb", Folder / "boot.c"};
  const TxtHexOptions Text{Folder / "main.txt"};
  const std::string Hex = Folder / "main.hex";
};

std::string ErrorOf(std::vector<std::string> words) {
  return TakeRequest({"", std::move(words), {}}).Error;
}

TEST(FirmwareFileCommand, PutsCodeAndBitstreamTogether) {
  FactoryDesk desk;
  EXPECT_EQ(desk.Run(desk.What), kDone);
  const std::string file = test::Content(desk.What.Out);
  EXPECT_EQ(file.size(), 16U + 9U + 54981U);
  EXPECT_EQ(file.substr(16, 10), "ABCDEFGHIB");
  EXPECT_EQ(desk.Screen.Output + desk.Screen.Errors, "");
}

TEST(FirmwareFileCommand, NamesTheFileOfAWrongSize) {
  FactoryDesk desk;
  test::WriteContent(desk.What.Bitstream, std::string(54980, 'B'));
  EXPECT_EQ(desk.Run(desk.What), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Bitstream: " + desk.What.Bitstream + ": File size error\n");
  EXPECT_FALSE(std::filesystem::exists(desk.What.Out));
  desk.Screen.Errors.clear();
  test::WriteContent(desk.What.Code, "8 bytes.");
  EXPECT_EQ(desk.Run(desk.What), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "DSP code: " + desk.What.Code + ": File size error\n");
}

TEST(FirmwareFileCommand, NamesTheFileThatIsNotThere) {
  FactoryDesk desk;
  std::filesystem::remove(desk.What.Code);
  EXPECT_EQ(desk.Run(desk.What), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "DSP code: " + desk.What.Code +
                ": Error: 2 - No such file or directory\nLoad operation aborted\n");
}

TEST(FirmwareFileCommand, NamesTheFileThatCannotBeWritten) {
  FactoryDesk desk;
  const std::string out = desk.Folder / "nowhere/new.adc";
  EXPECT_EQ(desk.Run(FirmwareFileOptions{desk.What.Code, desk.What.Bitstream, out}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Morvane code: " + out +
                                    ": Error: 2 - No such file or directory\n"
                                    "Save operation aborted\n");
}

TEST(FirmwareFileCommand, AFileThatExistsIsReplacedOnlyWhenThatIsAsked) {
  FactoryDesk desk(true);
  test::WriteContent(desk.What.Out, "mine");
  EXPECT_EQ(desk.Run(desk.What), kFailed) << "--yes replaces no file";
  EXPECT_EQ(desk.Screen.Errors, "Morvane code: " + desk.What.Out +
                                    " exists already. Replace it?\nThere is nobody to ask; "
                                    "--overwrite would replace it.\nNot replaced.\n");
  EXPECT_EQ(test::Content(desk.What.Out), "mine");
  FactoryDesk forced(false, true);
  test::WriteContent(forced.What.Out, "mine");
  EXPECT_EQ(forced.Run(forced.What), kDone);
  EXPECT_EQ(test::Content(forced.What.Out).size(), 16U + 9U + 54981U);
}

TEST(FirmwareFileCommand, WhatItIsMadeOfIsNeverReplaced) {
  FactoryDesk desk(false, true);
  const auto& code = desk.What.Code;
  EXPECT_EQ(desk.Run(FirmwareFileOptions{code, desk.What.Bitstream, code}), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Morvane code: " + code +
                ": This would replace a file that it is made of\nSave operation aborted\n");
  EXPECT_EQ(test::Content(code), "ABCDEFGHI");
}

TEST(BootCCommand, WritesTheSourceAndSaysSo) {
  FactoryDesk desk;
  EXPECT_EQ(desk.Run(desk.Boot), kDone);
  EXPECT_EQ(desk.Screen.Errors, "boot.c: " + desk.Boot.Out + ": boot.c written OK\n");
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_THAT(test::Content(desk.Boot.Out),
              StartsWith("const unsigned char boot[] = {\r\n0x41,0x42,0xFF,"));
}

TEST(BootCCommand, ACodeThatIsTooLargeIsTold) {
  FactoryDesk desk;
  test::WriteContent(desk.Boot.In, std::string(8193, 'A'));
  EXPECT_EQ(desk.Run(desk.Boot), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Boot code: " + desk.Boot.In + ": File size error\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Boot.Out));
}

TEST(BootCCommand, AFileThatExistsIsReplacedOnAYesAtTheTerminal) {
  FactoryDesk desk;
  test::WriteContent(desk.Boot.Out, "mine");
  desk.Screen.Person = true;
  desk.Screen.Lines = {"n"};
  EXPECT_EQ(desk.Run(desk.Boot), kFailed);
  EXPECT_EQ(test::Content(desk.Boot.Out), "mine");
  desk.Screen.Lines = {"y"};
  EXPECT_EQ(desk.Run(desk.Boot), kDone);
  EXPECT_NE(test::Content(desk.Boot.Out), "mine");
}

TEST(TxtHexCommand, WritesOneFileBesideItsOwn) {
  FactoryDesk desk;
  EXPECT_EQ(desk.Run(desk.Text), kDone);
  // 2 + 1 + 1 + 2 = 6
  EXPECT_EQ(test::Content(desk.Hex), ":020100000102FA\r\n:00000001FF\r\n");
  EXPECT_EQ(desk.Screen.Errors, "Intel HEX: " + desk.Hex + ": Done\n");
}

TEST(TxtHexCommand, NamesTheFileAndTheLineOfAFault) {
  FactoryDesk desk;
  test::WriteContent(desk.Text.In, "@0100\n01 02\n");
  EXPECT_EQ(desk.Run(desk.Text), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Text hex: " + desk.Text.In +
                ": Line 3: the line with \"q\" behind the data is missing\nNothing is written\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Hex));
}

TEST(TxtHexCommand, AFileThatExistsIsReplacedOnlyWhenThatIsAsked) {
  FactoryDesk desk(true);
  test::WriteContent(desk.Hex, "mine");
  EXPECT_EQ(desk.Run(desk.Text), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Intel HEX: " + desk.Hex +
                                    " exists already. Replace it?\nThere is nobody to ask; "
                                    "--overwrite would replace it.\nNot replaced.\n");
  EXPECT_EQ(test::Content(desk.Hex), "mine");
  FactoryDesk forced(false, true);
  test::WriteContent(forced.Hex, "mine");
  EXPECT_EQ(forced.Run(forced.Text), kDone);
  EXPECT_EQ(test::Content(forced.Hex).substr(0, 5), ":0201");
}

TEST(FactoryCommands, ANameOfABoardSetForWhatTheyMakeIsWrongUsage) {
  const std::string error = AbsolutePath("/a.pbn") + " is a board set by its name";
  EXPECT_EQ(ErrorOf({"firmware-file", "/code.dsp", "/logic.bit", "/a.pbn"}), error);
  EXPECT_EQ(ErrorOf({"boot-c", "/boot.adb", "/a.pbn"}), error);
  EXPECT_EQ(ErrorOf({"firmware-file", "/code.dsp", "/logic.bit", "/a.adc"}), "");
  EXPECT_EQ(ErrorOf({"boot-c", "/boot.adb", "/a.c"}), "");
}

TEST(FactoryCommands, AllTheirFilesAreNamed) {
  for (std::vector<std::string> words :
       {std::vector<std::string>{"firmware-file", "/code.dsp", "/logic.bit"},
        {"boot-c", "/boot.adb"},
        {"txt-hex"},
        {"txt-hex", "/a.txt", "/b.txt"}}) {
    const std::string name = words.front();
    EXPECT_EQ(ErrorOf(words), name + ": wrong number of files");
  }
}

}  // namespace
}  // namespace morvane::cli
