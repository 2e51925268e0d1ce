#include <sys/stat.h>

#include <filesystem>

#include "audit/fingerprint.h"
#include "cli/cli_desk.h"

namespace morvane::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string kSeedr = "00112233445566778899AABBCCDDEEFF01234567";
const std::string kSeedo = "89ABCDEF00112233445566778899AABBCCDDEEFF";

/// A desk on which one set is made, and the log is then changed and audited.
struct AuditDesk : CliDesk {
  AuditDesk() : CliDesk(true) {}
  /// What was shown of the set made.
  std::string Generate(const std::string& last, bool shuffling = false, bool empty = false) {
    GenerateOptions request;
    request.Out = Out;
    request.First = "1";
    request.Last = last;
    request.Shapes = true;
    request.Empty = empty;
    if (shuffling) request.Lfsr = std::string(32, '5');
    if (!shuffling && !empty) {
      request.Seedr = kSeedr;
      request.Seedo = kSeedo;
    }
    EXPECT_EQ(Run(request), kDone) << Screen.Errors;
    return std::exchange(Screen.Output, "");
  }
  ExitStatus Audit(const std::string& log) {
    Screen.Output.clear();
    Screen.Errors.clear();
    AuditOptions request;
    request.Log = log;
    return Run(request);
  }
  /// Audits a copy of the log in which one text stands for another.
  ExitStatus AuditChanged(const std::string& text, const std::string& by) {
    std::string log = test::Content(Prog.Log.Path());
    const std::size_t at = log.find(text);
    EXPECT_NE(at, std::string::npos);
    test::WriteContent(Folder / "changed.txt", log.replace(at, text.size(), by));
    return Audit(Folder / "changed.txt");
  }
  /// The first line of the log that starts so.
  [[nodiscard]] std::string Line(const std::string& start) const {
    for (const std::string& line : LogLines()) {
      if (line.starts_with(start)) return line;
    }
    ADD_FAILURE() << start;
    return start;
  }
};

TEST(AuditCommand, ShowsEachSetWithItsSeedsAndFingerprint) {
  AuditDesk desk;
  desk.Generate("2");
  const std::string fingerprint = audit::SetFingerprint(desk.Prog.Set);
  const std::string counts = desk.Line("  Generate: ").substr(26);
  ASSERT_THAT(counts, EndsWith(",0,0"));
  const std::string shapes = counts.substr(0, counts.find(','));
  EXPECT_EQ(desk.Audit(desk.Prog.Log.Path()), kDone);
  EXPECT_EQ(desk.Screen.Output,
            "Line 8: boards 1 to 2, number generator\n"
            "  Made: File-New 3:04:05 PM, last start 2026-03-03 3:04:05 PM\n"
            "  Save: " +
                desk.Out + "\n  Seedr: " + kSeedr + "\n  Seedo: " + kSeedo +
                "   (line 7)\n"
                "  2 of 2 boards are the same.\n"
                "  Rejected: shapes " +
                shapes +
                ", inner similarity 0, history 0\n"
                "  SHA-256: " +
                fingerprint +
                "\n"
                "1 of 1 set is the same.\n");
  EXPECT_EQ(desk.Screen.Errors, "");
}

TEST(AuditCommand, TheFingerprintIsTheOneShownWhenTheSetWasMade) {
  AuditDesk desk;
  const std::string made = desk.Generate("32");
  const std::string fingerprint = made.substr(made.find("SHA-256: "));
  ASSERT_EQ(fingerprint.size(), 9U + 64U + 1U);
  EXPECT_EQ(desk.Audit(desk.Prog.Log.Path()), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("  " + fingerprint));
}

TEST(AuditCommand, OtherSetsAreToldAndNotChecked) {
  AuditDesk desk;
  desk.Generate("3", true);
  const std::string fingerprint = audit::SetFingerprint(desk.Prog.Set);
  AuditDesk second;
  second.Generate("4", false, true);
  AuditDesk third;
  third.Generate("5");
  test::WriteContent(desk.Folder / "all.txt", test::Content(desk.Prog.Log.Path()) +
                                                  test::Content(second.Prog.Log.Path()) +
                                                  test::Content(third.Prog.Log.Path()));
  EXPECT_EQ(desk.Audit(desk.Folder / "all.txt"), kDone);
  const std::string made = "  Made: File-New 3:04:05 PM, last start 2026-03-03 3:04:05 PM\n";
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("boards 1 to 3, shuffling generator\n" + made + "  Save: " + desk.Out +
                        "\n  Not a set of the number generator, not checked.\n"
                        "  SHA-256: " +
                        fingerprint + "\nLine "));
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("boards 1 to 4, left empty\n" + made + "  Save: " + second.Out +
                        "\n  Not a set of the number generator, not checked.\n"
                        "Line "));
  EXPECT_THAT(desk.Screen.Output, EndsWith("\n1 of 1 set is the same.\n"));
}

TEST(AuditCommand, WithoutASetOfTheNumberGeneratorItFails) {
  AuditDesk desk;
  desk.Generate("3", true);
  EXPECT_EQ(desk.Audit(desk.Prog.Log.Path()), kFailed);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("not checked"));
  EXPECT_EQ(desk.Screen.Errors,
            "There is no set of the number generator in the log\n" + desk.Prog.Log.Path() + "\n");
}

TEST(AuditCommand, AChangedBoardIsTold) {
  AuditDesk desk;
  desk.Generate("12");
  const std::string record = desk.Line("   007 : ");
  std::string changed = record;
  std::swap(changed[9], changed[26]);
  ASSERT_NE(changed, record);
  EXPECT_EQ(desk.AuditChanged(record, changed), kFailed);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n  Board 7 differs (line 15): hands\n"
                                            "  11 of 12 boards are the same.\n"));
  EXPECT_THAT(desk.Screen.Output, EndsWith("\n0 of 1 set is the same.\n"));
}

TEST(AuditCommand, EachPartOfARecordThatDiffersIsTold) {
  AuditDesk desk;
  desk.Generate("12");
  const std::string record = desk.Line("   007 : ");
  const std::string other = desk.Line("   002 : ");
  EXPECT_EQ(desk.AuditChanged(record, "   007 : " + other.substr(9)), kFailed);
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("\n  Board 7 differs (line 15): hands, deal number, counter\n"));
}

TEST(AuditCommand, ACounterThatCannotBeIsTold) {
  AuditDesk desk;
  desk.Generate("12");
  const std::string record = desk.Line("   007 : ");
  EXPECT_EQ(desk.AuditChanged(record, record.substr(0, 104) + "80000000"), kFailed);
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("\n  Board 7 differs (line 15): counter (greater than that of any set)\n"));
}

TEST(AuditCommand, MissingDoubledAndForeignBoardsAreTold) {
  AuditDesk desk;
  desk.Generate("12");
  const std::string record = desk.Line("   007 : ");
  EXPECT_EQ(desk.AuditChanged(record + "\r\n", ""), kFailed);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n  Board 7 is missing\n"));
  EXPECT_THAT(desk.Screen.Output, ::testing::Not(HasSubstr("SHA-256")));
  EXPECT_EQ(desk.AuditChanged(record, record + "\r\n" + record), kFailed);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n  Board 7 stands there twice (line 16)\n"));
  const std::string last = desk.Line("   012 : ");
  EXPECT_EQ(desk.AuditChanged(last, last + "\r\n   013" + last.substr(6)), kFailed);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n  Board 13 is not in the range (line 21)\n"));
  EXPECT_EQ(desk.AuditChanged(record + "\r\n" + desk.Line("   008 : "),
                              desk.Line("   008 : ") + "\r\n" + record),
            kFailed);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n  Board 8 is out of order (line 15)\n"));
}

TEST(AuditCommand, AnotherCountOfRejectionsIsTold) {
  AuditDesk desk;
  desk.Generate("12");
  const std::string line = desk.Line("  Generate: ");
  EXPECT_EQ(desk.AuditChanged(line, line.substr(0, line.rfind(',')) + ",7"), kFailed);
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("  12 of 12 boards are the same.\n  Rejected: shapes "));
  EXPECT_THAT(desk.Screen.Output, HasSubstr(", history 7; when dealt again: shapes "));
}

TEST(AuditCommand, SeedsThatAreGoneOrDoNotFitAreTold) {
  AuditDesk desk;
  desk.Generate("3");
  EXPECT_EQ(desk.AuditChanged("  Seedr: " + kSeedr + "\r\n", ""), kFailed);
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("\n  The log has no seeds for it.\n"
                        "  Board 1 differs (line 8): it cannot be dealt again\n"));
  EXPECT_EQ(desk.AuditChanged("  Seedr: 0", "  Seedr: 1"), kFailed);
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("\n  No board has a deal number of these seeds, the latest before it.\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nLine 7: seeds without a set of theirs\n"));
}

TEST(AuditCommand, AGenerateLineThatIsDamagedOrGoneIsTold) {
  AuditDesk desk;
  desk.Generate("3");
  const std::string line = desk.Line("  Generate: ");
  EXPECT_EQ(desk.AuditChanged(line, "  Generate: 1,x"), kFailed);
  EXPECT_THAT(desk.Screen.Output,
              StartsWith("Line 8: a damaged Generate line, 3 records behind it\n"));
  EXPECT_THAT(desk.Screen.Output,
              EndsWith("0 of 1 set is the same; 1 pair of seeds has no set.\n"));
  EXPECT_EQ(desk.AuditChanged(line + "\r\n", ""), kFailed);
  EXPECT_THAT(desk.Screen.Output, StartsWith("Line 8: 3 records without a Generate line\n"));
}

TEST(AuditCommand, BytesOfADamagedLogAreNotShown) {
  AuditDesk desk;
  desk.Generate("3");
  const std::string record = desk.Line("   002 : ");
  std::string changed = record;
  changed.replace(9, 4, "\x1B[2J");
  changed.replace(78, 4, "\x1B[2J");
  EXPECT_EQ(desk.AuditChanged(record, changed), kFailed);
  EXPECT_EQ(desk.Screen.Output.find('\x1B'), std::string::npos);
}

TEST(AuditCommand, TheNameOfAFileInTheLogCommandsNoTerminal) {
  AuditDesk desk;
  desk.Generate("3");
  EXPECT_EQ(desk.AuditChanged("  Save: " + desk.Out, "  Save: /a\x1B[2J\xC2\x9B\x7F.pbn"), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\n  Save: /a?[2J??.pbn\n"));
}

TEST(AuditCommand, ASaveThatFailedIsToldAsThat) {
  AuditDesk desk;
  desk.Generate("3");
  const std::string save = "  Save: " + desk.Out + "\r\n";
  EXPECT_EQ(desk.AuditChanged(save, save + "    Save Error: Error: 28\r\n  Save: /b.pbn\r\n"),
            kDone);
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("\n  Save: " + desk.Out + "   (failed)\n  Save: /b.pbn\n  Seedr: "));
}

TEST(AuditCommand, AFileThatCannotBeReadIsTold) {
  AuditDesk desk;
  EXPECT_EQ(desk.Audit(desk.Folder / "none.txt"), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "The log cannot be read: error 2, No such file or directory\n" +
                                    (desk.Folder / "none.txt") + "\n");
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_EQ(desk.Audit(desk.Folder.Path()), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("error 21, Is a directory\n"));
}

TEST(AuditCommand, StartsAndEndsInTheLogAsOtherCommandsDo) {
  AuditDesk desk;
  test::WriteContent(desk.Folder / "empty.txt", "");
  EXPECT_EQ(desk.Audit(desk.Folder / "empty.txt"), kFailed);
  const auto lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(lines[1], "---");
  EXPECT_EQ(lines[4], " Exit: 3:04:05 PM");
}

TEST(AuditCommand, LeavesTheAuditedFileAsItIs) {
  AuditDesk desk;
  desk.Generate("3");
  std::filesystem::copy(desk.Prog.Log.Path(), desk.Folder / "copy.txt");
  const std::string before = test::Content(desk.Folder / "copy.txt");
  EXPECT_EQ(desk.Audit(desk.Folder / "copy.txt"), kDone);
  EXPECT_EQ(test::Content(desk.Folder / "copy.txt"), before);
}

TEST(AuditCommand, APublishedFingerprintMustBeThatOfASet) {
  AuditDesk desk;
  const std::string shown = desk.Generate("4");
  const std::size_t at = shown.find("SHA-256: ");
  ASSERT_NE(at, std::string::npos);
  AuditOptions request;
  request.Log = desk.Prog.Log.Path();
  request.Sha256 = shown.substr(at + 9, 64);
  EXPECT_EQ(desk.Run(request), kDone) << desk.Screen.Errors;
  request.Sha256->front() = request.Sha256->front() == 'a' ? 'b' : 'a';
  EXPECT_EQ(desk.Run(request), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "No set that is the same has the SHA-256 " + *request.Sha256 +
                                    " in the log\n" + request.Log + "\n");
}

#ifndef _WIN32  // no pipes among files
TEST(AuditCommand, APipeIsAnErrorAndNotWaitedFor) {
  AuditDesk desk;
  ASSERT_EQ(mkfifo((desk.Folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(desk.Audit(desk.Folder / "pipe"), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "The log cannot be read: error 95, Operation not supported\n" +
                                    (desk.Folder / "pipe") + "\n");
}
#endif

TEST(AuditCommand, ThatIsToldToEndFindsNothing) {
  AuditDesk desk;
  desk.Generate("2");
  const std::string log = desk.Prog.Log.Path();
  desk.Loop.Quit();
  EXPECT_EQ(desk.Audit(log), kFailed);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_EQ(desk.Screen.Errors, "Broken off before the end of the log\n" + log + "\n");
}

}  // namespace
}  // namespace morvane::cli
