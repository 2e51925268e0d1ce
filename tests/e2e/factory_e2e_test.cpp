#include "e2e/e2e_fixture.h"

// What the factory's commands make, taken by the tools that it is made for.

namespace morvane::e2e {
namespace {

using ::testing::HasSubstr;

class FactoryEndToEnd : public EndToEnd {
 protected:
  /// Another program, in the folder of the files.
  Outcome RunTool(const std::string& program, const std::vector<std::string>& words) {
    return Process(words, {.Folder = folder.Path(), .Program = program}).Finish();
  }
  /// Compiles `boot.c` with a main that tells of it.
  std::string ToldByC() {
    test::WriteContent(
        folder / "main.c",
        "#include <stdio.h>\n#include \"boot.c\"\nint main(void) {\n"
        "  unsigned long sum = 0;\n"
        "  for (unsigned i = 0; i < sizeof boot; ++i) sum += boot[i];\n"
        "  printf(\"%u entries, sum %lu, %02x %02x\\n\", (unsigned)sizeof boot, sum,\n"
        "         boot[0], boot[1]);\n  return 0;\n}\n");
    const Outcome made = RunTool("/usr/bin/cc", {"-Wall", "-Werror", "main.c", "-o", "main"});
    EXPECT_EQ(made.Status, 0) << made.Err;
    return RunTool(folder / "main", {}).Out;
  }
};

TEST_F(FactoryEndToEnd, ACCompilerTakesTheBootSourceWithItsEntries) {
  test::WriteContent(folder / "boot.adb", "\x80\x0A");
  const Outcome outcome = Run({"boot-c", "boot.adb", "boot.c"});
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, "boot.c: " + (folder / "boot.c") + ": boot.c written OK\n");
  // 128 + 10 + 8190 x 255
  EXPECT_EQ(ToldByC(), "8192 entries, sum 2088588, 80 0a\n");
}

TEST_F(FactoryEndToEnd, ABootCodeOf8192BytesIsTheWholeSource) {
  test::WriteContent(folder / "boot.adb", std::string(8192, '\x03'));
  EXPECT_EQ(Run({"boot-c", "boot.adb", "boot.c"}).Status, 0);
  EXPECT_EQ(ToldByC(), "8192 entries, sum 24576, 03 03\n");
}

TEST_F(FactoryEndToEnd, AnotherReaderOfIntelHexFindsTheBytesOfTheText) {
  std::string text = "@FE00\r\n";
  for (int line = 0; line < 31; ++line)
    text += "00 FF 80 7F 11 22 33 44 55 66 77 88 99 AA BB CC\r\n";
  test::WriteContent(folder / "main.txt", text + "01 02 03\r\nq\r\n");
  EXPECT_EQ(Run({"txt-hex", "main.txt"}).Status, 0);
  const Outcome read =
      RunTool("/usr/bin/objcopy", {"-I", "ihex", "-O", "binary", "main.hex", "main.bin"});
  EXPECT_EQ(read.Status, 0) << read.Err;
  std::string bytes;
  for (int line = 0; line < 31; ++line) {
    bytes += std::string("\0\xFF\x80\x7F\x11\x22\x33\x44\x55\x66\x77\x88\x99\xAA\xBB\xCC", 16);
  }
  EXPECT_EQ(test::Content(folder / "main.bin"), bytes + "\x01\x02\x03");
}

TEST_F(FactoryEndToEnd, AFirmwareFileHoldsBothPieces) {
  test::WriteContent(folder / "code.dsp", std::string(20, '\x01'));
  test::WriteContent(folder / "logic.bit", std::string(54981, '\x02'));
  EXPECT_EQ(Run({"firmware-file", "code.dsp", "logic.bit", "new.adc"}).Status, 0);
  const std::string size("\xC5\xD6\0\0", 4);
  EXPECT_EQ(test::Content(folder / "new.adc"), std::string("\x14\0\0\0", 4) + size + size + size +
                                                   std::string(20, '\x01') +
                                                   std::string(54981, '\x02'));
}

TEST_F(FactoryEndToEnd, WhatIsMadeIsLoadedStartsAndShowsItsVersion) {
  std::string code(20, '\x01');
  code[0x10] = '\x02';
  code[0x11] = '\x85';
  test::WriteContent(folder / "code.dsp", code);
  test::WriteContent(folder / "logic.bit", std::string(54981, '\x02'));
  EXPECT_EQ(Run({"firmware-file", "code.dsp", "logic.bit", "new.adc"}).Status, 0);
  const std::string machine = "simulated,speed=0,boot=0.00,store=" + (folder / "store");
  const Outcome loaded = Run({"--machine", machine, "maintain", "firmware", "new.adc"});
  EXPECT_EQ(loaded.Status, 0) << loaded.Err;
  EXPECT_EQ(loaded.Out, "Soft_ver: 2.85\n");
  const Outcome info = Run({"--machine", machine, "maintain", "info"});
  EXPECT_THAT(info.Out, HasSubstr("\nSoft_ver: 2.85\n")) << "and so it is when it is started again";
  EXPECT_EQ(CountLines("   Firmware downloaded OK"), 1);
}

TEST_F(FactoryEndToEnd, WhatCannotBeDoneEndsWith1AndWrongUsageWith2) {
  test::WriteContent(folder / "boot.adb", std::string(8193, 'A'));
  const Outcome refused = Run({"boot-c", "boot.adb", "boot.c"});
  EXPECT_EQ(refused.Status, 1);
  EXPECT_EQ(refused.Err, "Boot code: " + (folder / "boot.adb") + ": File size error\n");
  EXPECT_EQ(Run({"boot-c", "boot.adb"}).Status, 2);
}

}  // namespace
}  // namespace morvane::e2e
