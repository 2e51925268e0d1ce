#include "maintenance/factory_tools.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "support/fakes.h"
#include "support/file_size_limit.h"
#include "support/plain_user.h"

namespace morvane::maintenance {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using Box = test::FakeUi::Box;
using Files = std::deque<std::optional<std::string>>;

const std::string kText = "@0100\r\n21 46 01 36 01 21 47 01 36 00 7E FE 09 D2 19 01\r\nq\r\n";
const std::string kHex = ":10010000214601360121470136007EFE09D2190140\r\n:00000001FF\r\n";

class FactoryTools : public ::testing::Test {
 protected:
  /// A file of so many bytes in the folder.
  std::string FileOf(const std::string& name, std::size_t size) {
    return FileWith(name, std::string(size, 'A'));
  }
  std::string FileWith(const std::string& name, const std::string& bytes) {
    test::WriteContent(desk.Folder / name, bytes);
    return desk.Folder / name;
  }
  bool RunBoot(const Files& files) {
    desk.Ui.Files = files;
    return Boot(desk.Prog);
  }
  bool RunPrepare(const Files& files) {
    desk.Ui.Files = files;
    return Prepare(desk.Prog);
  }
  bool RunTxtHex(const Files& files) {
    desk.Ui.Files = files;
    return txt_hex(desk.Prog);
  }
  [[nodiscard]] bool IsThere(const std::string& name) const {
    return std::filesystem::exists(desk.Folder / name);
  }
  [[nodiscard]] std::vector<std::string> Filters() const {
    std::vector<std::string> filters;
    for (const FileRequest& request : desk.Ui.FileRequests) {
      filters.push_back((request.Saving ? "save " : "open ") + request.Filter);
    }
    return filters;
  }
  /// The only box so far, of the size of a file.
  void ExpectSizeError(const std::string& title) {
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Box{"File size error", kOkCritical, title}));
    desk.Ui.Boxes.clear();
    desk.Ui.FileRequests.clear();
  }
  test::TestDesk desk;
};

TEST_F(FactoryTools, BootAsksForTheCodeAndThenForTheSource) {
  const std::string out = desk.Folder / "boot.c";
  EXPECT_TRUE(RunBoot({FileOf("boot.adb", 1), out}));
  EXPECT_THAT(Filters(),
              ElementsAre("open Boot code (boot.adb)|boot.adb", "save boot.c (*.c)|*.c"));
  EXPECT_THAT(test::Content(out), StartsWith("const unsigned char boot[] = {\r\n0x41,0xFF,"));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(Box{"      boot.c written OK       ", kOkInformation, "boot.c"}));
}

TEST_F(FactoryTools, BootTakesUpTo8192Bytes) {
  for (const std::size_t size : {0U, 8191U, 8192U}) {
    EXPECT_TRUE(RunBoot({FileOf("boot.adb", size), desk.Folder / "boot.c"})) << size;
  }
  desk.Ui.Boxes.clear();
  desk.Ui.FileRequests.clear();
  for (const std::size_t size : {8193U, 16000U, 16001U}) {
    EXPECT_FALSE(RunBoot({FileOf("boot.adb", size), desk.Folder / "other.c"})) << size;
    EXPECT_EQ(desk.Ui.FileRequests.size(), 1U) << "it is told before anything else is asked";
    ExpectSizeError("Boot code");
  }
  EXPECT_FALSE(IsThere("other.c"));
}

TEST_F(FactoryTools, PrepareAsksForCodeBitstreamAndFirmware) {
  const std::string out = desk.Folder / "new.adc";
  EXPECT_TRUE(RunPrepare({FileOf("code.dsp", 9), FileOf("logic.bit", 54981), out}));
  EXPECT_THAT(Filters(),
              ElementsAre("open DSP code (code.dsp)|code.dsp", "open DSP code (*.bit)|*.bit",
                          "save Morvane code (*.adc)|*.adc"));
  EXPECT_EQ(test::Content(out).size(), 16U + 9U + 54981U);
  EXPECT_THAT(test::Content(out), StartsWith(std::string("\x09\0\0\0\xC5\xD6\0\0", 8)));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(FactoryTools, PrepareTakesACodeOf9To65519Bytes) {
  const std::string bits = FileOf("logic.bit", 54981);
  for (const std::size_t size : {9U, 65519U}) {
    EXPECT_TRUE(RunPrepare({FileOf("code.dsp", size), bits, desk.Folder / "new.adc"})) << size;
    EXPECT_EQ(test::Content(desk.Folder / "new.adc").size(), 16 + size + 54981);
  }
  desk.Ui.FileRequests.clear();
  for (const std::size_t size : {0U, 8U, 65520U, 65536U, 65537U}) {
    EXPECT_FALSE(RunPrepare({FileOf("code.dsp", size), bits, desk.Folder / "other.adc"})) << size;
    EXPECT_EQ(desk.Ui.FileRequests.size(), 1U);
    ExpectSizeError("DSP code");
  }
  EXPECT_FALSE(IsThere("other.adc"));
}

TEST_F(FactoryTools, PrepareTakesABitstreamOf54981BytesAlone) {
  const std::string code = FileOf("code.dsp", 9);
  for (const std::size_t size : {54980U, 54982U}) {
    EXPECT_FALSE(RunPrepare({code, FileOf("logic.bit", size), desk.Folder / "new.adc"})) << size;
    EXPECT_EQ(desk.Ui.FileRequests.size(), 2U);
    ExpectSizeError("Bitstream");
  }
  EXPECT_FALSE(IsThere("new.adc"));
}

TEST_F(FactoryTools, AnOldFirmwareFileThatIsLongerIsReplacedAsAWhole) {
  const std::string out = FileOf("new.adc", 200000);
  EXPECT_TRUE(RunPrepare({FileOf("code.dsp", 9), FileOf("logic.bit", 54981), out}));
  EXPECT_EQ(test::Content(out).size(), 16U + 9U + 54981U);
}

TEST_F(FactoryTools, TxtHexWritesBesideItsFileAndAsksForASecond) {
  EXPECT_TRUE(RunTxtHex({FileWith("x.TXT", kText), FileWith("second.txt", "@0\nq\n")}));
  EXPECT_THAT(Filters(), ElementsAre("open Text hex (*.txt)|*.txt", "open Text hex (*.txt)|*.txt"));
  EXPECT_EQ(test::Content(desk.Folder / "x.hex"), kHex);
  EXPECT_EQ(test::Content(desk.Folder / "second.hex"), ":00000001FF\r\n");
  const Box done{"     Done     ", kOkInformation, "Intel HEX"};
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(done, done));
}

TEST_F(FactoryTools, TxtHexReplacesAnOldResultWithoutAsking) {
  FileWith("main.hex", "old");
  EXPECT_TRUE(RunTxtHex({FileWith("main.txt", kText)}));
  EXPECT_EQ(test::Content(desk.Folder / "main.hex"), kHex);
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
}

TEST_F(FactoryTools, TxtHexTellsTheLineOfAFaultAndLeavesTheOldResult) {
  FileWith("main.hex", "old");
  EXPECT_FALSE(RunTxtHex({FileWith("main.txt", "@0100\r\n0G\r\nq\r\n"), FileWith("b.txt", kText)}));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(Box{"      Line 2: these are no hexadecimal bytes      \r\n"
                              "      Nothing is written      ",
                              kOkCritical, "Text hex"}));
  EXPECT_EQ(test::Content(desk.Folder / "main.hex"), "old");
  EXPECT_FALSE(IsThere("b.hex")) << "it ends there";
}

TEST_F(FactoryTools, AFaultInTheSecondFileLeavesTheFirstResult) {
  EXPECT_TRUE(RunTxtHex({FileWith("a.txt", kText), FileWith("b.txt", "no address")}));
  EXPECT_EQ(test::Content(desk.Folder / "a.hex"), kHex);
  EXPECT_FALSE(IsThere("b.hex"));
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Text hex");
}

TEST_F(FactoryTools, ATextHexFileOfMoreThanAMegabyteIsNone) {
  const std::size_t megabyte = 1U << 20U;
  EXPECT_TRUE(RunTxtHex({FileWith("a.txt", kText + std::string(megabyte - kText.size(), ' '))}));
  desk.Ui.Boxes.clear();
  EXPECT_FALSE(RunTxtHex({FileWith("b.txt", kText + std::string(megabyte, ' '))}));
  ExpectSizeError("Text hex");
}

TEST_F(FactoryTools, ACancelledDialogEndsQuietly) {
  const std::string boot = FileOf("boot.adb", 1);
  const std::string code = FileOf("code.dsp", 9);
  const std::string bits = FileOf("logic.bit", 54981);
  EXPECT_FALSE(RunBoot({std::nullopt, boot}));
  EXPECT_FALSE(RunBoot({boot, std::nullopt}));
  EXPECT_FALSE(RunPrepare({std::nullopt, bits, desk.Folder / "new.adc"}));
  EXPECT_FALSE(RunPrepare({code, std::nullopt, desk.Folder / "new.adc"}));
  EXPECT_FALSE(RunPrepare({code, bits, std::nullopt}));
  EXPECT_FALSE(RunTxtHex({std::nullopt, FileWith("a.txt", kText)}));
  EXPECT_FALSE(IsThere("a.hex"));
  EXPECT_FALSE(IsThere("new.adc"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(FactoryTools, TheSecondTextMayBeLeftOut) {
  EXPECT_TRUE(RunTxtHex({FileWith("a.txt", kText), std::nullopt}));
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.FileRequests.size(), 2U);
}

TEST_F(FactoryTools, AFileThatCannotBeReadIsToldInTheSystemsWords) {
  const std::string text =
      "      Error: 2 - No such file or directory      \r\n      Load operation aborted      ";
  EXPECT_FALSE(RunBoot({desk.Folder / "nowhere"}));
  EXPECT_FALSE(RunPrepare({desk.Folder / "nowhere"}));
  EXPECT_FALSE(RunPrepare({FileOf("code.dsp", 9), desk.Folder / "nowhere"}));
  EXPECT_FALSE(RunTxtHex({desk.Folder / "nowhere"}));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(Box{text, kOkCritical, "Boot code"}, Box{text, kOkCritical, "DSP code"},
                          Box{text, kOkCritical, "Bitstream"}, Box{text, kOkCritical, "Text hex"}));
}

TEST_F(FactoryTools, AFolderThatIsNotThereIsTold) {
  EXPECT_FALSE(RunBoot({FileOf("boot.adb", 1), desk.Folder / "nowhere/boot.c"}));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Box{"      Error: 2 - No such file or directory      \r\n"
                                             "      Save operation aborted      ",
                                             kOkCritical, "boot.c"}));
}

#ifndef _WIN32  // rights are access lists
TEST_F(FactoryTools, AFolderThatMayNotBeWrittenInIsToldUnderTheNameOfTheResult) {
  using std::filesystem::perms;
  const std::string text = FileWith("a.txt", kText);
  std::filesystem::permissions(text, perms(0444));
  std::filesystem::permissions(desk.Folder.Path(), perms(0555));
  {
    const test::PlainUser user;
    ASSERT_TRUE(user.Ok());
    EXPECT_FALSE(RunTxtHex({text}));
  }
  std::filesystem::permissions(desk.Folder.Path(), perms(0755));
  // Behind it comes that the log is not this user's.
  EXPECT_EQ(desk.Ui.Boxes.at(0), (Box{"      Error: 13 - Permission denied      \r\n"
                                      "      Save operation aborted      ",
                                      kOkCritical, "Intel HEX"}));
  EXPECT_FALSE(IsThere("a.hex"));
}
#endif

#ifndef _WIN32  // no limit for files, no device that is full
TEST_F(FactoryTools, AWriteThatFailsHalfwayLeavesTheOldResult) {
  const std::string out = FileWith("new.adc", "old");
  const std::string code = FileOf("code.dsp", 9);
  const std::string bits = FileOf("logic.bit", 54981);
  {
    const test::FileSizeLimit limit(30000);
    EXPECT_FALSE(RunPrepare({code, bits, out}));
  }
  EXPECT_EQ(test::Content(out), "old");
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Box{"      Error: 27 - File too large      \r\n"
                                             "      Save operation aborted      ",
                                             kOkCritical, "Morvane code"}));
}

TEST_F(FactoryTools, AResultNeverReplacesAFileThatItIsMadeOf) {
  const std::string text =
      "      This would replace a file that it is made of      \r\n"
      "      Save operation aborted      ";
  const std::string boot = FileWith("boot.c", "boot code");
  const std::string code = FileOf("code.dsp", 9);
  const std::string bits = FileOf("logic.bit", 54981);
  const std::string linked = desk.Folder / "linked.bit";
  std::filesystem::create_symlink(bits, linked);
  EXPECT_FALSE(RunBoot({boot, boot}));
  EXPECT_FALSE(RunPrepare({code, bits, code}));
  EXPECT_FALSE(RunPrepare({code, bits, linked}));
  EXPECT_FALSE(RunTxtHex({FileWith("main.hex", kText)}));
  EXPECT_THAT(
      desk.Ui.Boxes,
      ElementsAre(Box{text, kOkCritical, "boot.c"}, Box{text, kOkCritical, "Morvane code"},
                  Box{text, kOkCritical, "Morvane code"}, Box{text, kOkCritical, "Intel HEX"}));
  EXPECT_EQ(test::Content(boot), "boot code");
  EXPECT_EQ(test::Content(code).size(), 9U);
  EXPECT_EQ(test::Content(bits).size(), 54981U);
  EXPECT_EQ(test::Content(desk.Folder / "main.hex"), kText);
}
#endif

}  // namespace
}  // namespace morvane::maintenance
