#include "morvane_cli/arguments.h"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>

namespace morvane {
namespace {

using ::testing::HasSubstr;

Arguments Parsed(const QStringList& words) { return ParseArguments(QStringList{"cli"} + words); }

const QString kSeed40 = QString(40, '0');
const QString kState32 = QString(32, 'a');

struct WrongUsage {
  QStringList Words;
  std::string Error;
};

class WrongUsageTest : public ::testing::TestWithParam<WrongUsage> {};

TEST_P(WrongUsageTest, IsToldInTheseWords) {
  const Arguments arguments = Parsed(GetParam().Words);
  EXPECT_EQ(arguments.Error, GetParam().Error);
  EXPECT_EQ(arguments.Help, "");
}

INSTANTIATE_TEST_SUITE_P(
    Commands, WrongUsageTest,
    ::testing::Values(WrongUsage{{}, "no command"}, WrongUsage{{"--yes"}, "no command"},
                      WrongUsage{{"make", "a.pbn"}, "unknown command: make"},
                      WrongUsage{{"Deal", "a.pbn"}, "unknown command: Deal"},
                      WrongUsage{{"generate"}, "generate: wrong number of files"},
                      WrongUsage{{"generate", "a", "b"}, "generate: wrong number of files"},
                      WrongUsage{{"convert", "a"}, "convert: wrong number of files"},
                      WrongUsage{{"convert", "a", "b", "c"}, "convert: wrong number of files"},
                      WrongUsage{{"show"}, "show: wrong number of files"},
                      WrongUsage{{"deal", "a", "b"}, "deal: wrong number of files"},
                      WrongUsage{{"audit"}, "audit: wrong number of files"},
                      WrongUsage{{"audit", "a", "b"}, "audit: wrong number of files"}));

INSTANTIATE_TEST_SUITE_P(
    Options, WrongUsageTest,
    ::testing::Values(
        WrongUsage{{"deal", "a", "--fast"}, "Unknown option 'fast'."},
        WrongUsage{{"deal", "a", "--from"}, "Missing value after '--from'."},
        WrongUsage{{"deal", "a", "--auto=on"}, "Unexpected value after '--auto'."},
        WrongUsage{{"show", "a", "--auto"}, "--auto does not belong to show"},
        WrongUsage{{"deal", "a", "--board", "1"}, "--board does not belong to deal"},
        WrongUsage{{"generate", "a", "--from", "1"}, "--from does not belong to generate"},
        WrongUsage{{"convert", "a", "b", "--last", "1"}, "--last does not belong to convert"},
        WrongUsage{{"audit", "a", "--board", "1"}, "--board does not belong to audit"},
        WrongUsage{{"show", "a", "--import"}, "--import does not belong to show"},
        WrongUsage{{"show", "a", "--first", "1"}, "--first does not belong to show"}));

INSTANTIATE_TEST_SUITE_P(
    Values, WrongUsageTest,
    ::testing::Values(
        WrongUsage{{"show", "a", "--board", "0"}, "--board 0: wanted a number above 0"},
        WrongUsage{{"show", "a", "--board=-3"}, "--board -3: wanted a number above 0"},
        WrongUsage{{"show", "a", "--board", "two"}, "--board two: wanted a number above 0"},
        WrongUsage{{"show", "a", "--board", "1.5"}, "--board 1.5: wanted a number above 0"},
        WrongUsage{{"show", "a", "--board="}, "--board : wanted a number above 0"},
        WrongUsage{{"show", "a", "--board", "4294967297"},
                   "--board 4294967297: wanted a number above 0"},
        WrongUsage{{"deal", "a", "--from", "x"}, "--from x: wanted a number above 0"},
        WrongUsage{{"deal", "a", "--to", "x"}, "--to x: wanted a number above 0"},
        WrongUsage{{"deal", "a", "--copies", "0"}, "--copies 0: wanted a number above 0"},
        WrongUsage{{"deal", "a", "--copies", "100"}, "--copies: 99 at most"},
        WrongUsage{{"generate", "a", "--shapes", "yes"}, "--shapes yes: wanted on or off"},
        WrongUsage{{"generate", "a", "--inner", "1"}, "--inner 1: wanted on or off"},
        WrongUsage{{"generate", "a", "--history", "ON"}, "--history ON: wanted on or off"},
        WrongUsage{{"generate", "a", "--generator", "big"},
                   "--generator big: wanted bigdeal or morvane"}));

INSTANTIATE_TEST_SUITE_P(
    Seeds, WrongUsageTest,
    ::testing::Values(
        WrongUsage{{"generate", "a", "--seedr", "12", "--seedo", kSeed40},
                   "--seedr 12: wanted 40 hexadecimal digits"},
        WrongUsage{{"generate", "a", "--seedr", kSeed40, "--seedo", "g" + kSeed40.mid(1)},
                   "--seedo g" + std::string(39, '0') + ": wanted 40 hexadecimal digits"},
        WrongUsage{{"generate", "a", "--lfsr", kState32 + "a"},
                   "--lfsr " + std::string(33, 'a') + ": wanted 32 hexadecimal digits"},
        WrongUsage{{"generate", "a", "--seedr", kSeed40}, "--seedr and --seedo go together"},
        WrongUsage{{"generate", "a", "--seedo", kSeed40}, "--seedr and --seedo go together"},
        WrongUsage{{"generate", "a", "--seedr", kSeed40, "--seedo", kSeed40, "--lfsr", kState32},
                   "--lfsr is a state of the other generator"},
        WrongUsage{{"generate", "a", "--lfsr", kState32, "--generator", "bigdeal"},
                   "--lfsr is a state of the other generator"},
        WrongUsage{
            {"generate", "a", "--seedr", kSeed40, "--seedo", kSeed40, "--generator", "morvane"},
            "--seedr and --seedo are seeds of the other generator"}));

TEST(Arguments, OfTwoWrongValuesOneIsTold) {
  EXPECT_EQ(Parsed({"deal", "a", "--to", "x", "--from", "y"}).Error,
            "--from y: wanted a number above 0");
}

TEST(Arguments, WithoutOptionsNothingIsSet) {
  const Arguments arguments = Parsed({"deal", "/sets/a.pbn"});
  EXPECT_EQ(arguments.Error, "");
  EXPECT_EQ(arguments.Data, "");
  EXPECT_EQ(arguments.Settings, "");
  EXPECT_EQ(arguments.Machine, "simulated");
  const cli::Request& what = arguments.What;
  EXPECT_EQ(what.Command, "deal");
  EXPECT_EQ(what.In, "/sets/a.pbn");
  EXPECT_EQ(what.Out, "");
  EXPECT_FALSE(what.Yes || what.Auto || what.Empty);
  EXPECT_FALSE(what.From || what.To || what.Copies || what.Board);
  EXPECT_FALSE(what.First || what.Last || what.Generator || what.Seedr || what.Seedo || what.Lfsr);
  EXPECT_FALSE(what.Shapes || what.Inner || what.History);
}

TEST(Arguments, TheGlobalOptionsMayStandAnywhere) {
  for (const QStringList& words :
       {QStringList{"--data", "d", "--settings", "s", "--machine", "serial:x", "--yes", "show",
                    "/a"},
        QStringList{"show", "/a", "--yes", "--machine=serial:x", "--settings=s", "--data=d"}}) {
    const Arguments arguments = Parsed(words);
    EXPECT_EQ(arguments.Error, "");
    EXPECT_EQ(arguments.Data, "d");
    EXPECT_EQ(arguments.Settings, "s");
    EXPECT_EQ(arguments.Machine, "serial:x");
    EXPECT_TRUE(arguments.What.Yes);
    EXPECT_EQ(arguments.What.In, "/a");
  }
}

TEST(Arguments, DealTakesItsOptions) {
  const cli::Request what =
      Parsed({"deal", "/a.pbn", "--from", "2", "--to", "640", "--copies", "99", "--auto"}).What;
  EXPECT_EQ(what.From, 2);
  EXPECT_EQ(what.To, 640);
  EXPECT_EQ(what.Copies, 99);
  EXPECT_TRUE(what.Auto);
}

TEST(Arguments, ConvertMayImport) {
  const cli::Request what = Parsed({"convert", "--import", "/a.pbn", "/b.pbn"}).What;
  EXPECT_TRUE(what.Import);
  EXPECT_EQ(what.In, "/a.pbn");
  EXPECT_EQ(what.Out, "/b.pbn");
  EXPECT_FALSE(Parsed({"convert", "/a.pbn", "/b.pbn"}).What.Import);
}

TEST(Arguments, ShowTakesItsBoard) {
  EXPECT_EQ(Parsed({"show", "/a", "--board", "7"}).What.Board, 7);
}

TEST(Arguments, AuditTakesALog) {
  const cli::Request what = Parsed({"audit", "/data/Log_2026_3.txt"}).What;
  EXPECT_EQ(what.Command, "audit");
  EXPECT_EQ(what.In, "/data/Log_2026_3.txt");
  EXPECT_EQ(what.Out, "");
}

TEST(Arguments, ConvertTakesTwoFiles) {
  const cli::Request what = Parsed({"convert", "/a.pbn", "/b.pbn"}).What;
  EXPECT_EQ(what.In, "/a.pbn");
  EXPECT_EQ(what.Out, "/b.pbn");
  EXPECT_FALSE(what.First);
  EXPECT_EQ(Parsed({"convert", "/a.bri", "/b.pbn", "--first", "17"}).What.First, "17");
}

TEST(Arguments, GenerateTakesItsOptions) {
  const Arguments arguments = Parsed({"generate", "/a.pbn", "--first", "3", "--last", "8",
                                      "--generator", "bigdeal", "--shapes", "on", "--inner", "off",
                                      "--history", "on", "--seedr", kSeed40, "--seedo", kSeed40});
  EXPECT_EQ(arguments.Error, "");
  const cli::Request& what = arguments.What;
  EXPECT_EQ(what.Out, "/a.pbn");
  EXPECT_EQ(what.In, "");
  EXPECT_EQ(what.First, "3");
  EXPECT_EQ(what.Last, "8");
  EXPECT_EQ(what.Generator, "bigdeal");
  EXPECT_EQ(what.Shapes, true);
  EXPECT_EQ(what.Inner, false);
  EXPECT_EQ(what.History, true);
  EXPECT_EQ(what.Seedr, std::string(40, '0'));
  EXPECT_EQ(what.Seedo, std::string(40, '0'));
}

TEST(Arguments, AnEmptySetNeedsNoSeeds) {
  EXPECT_TRUE(Parsed({"generate", "/a.pbn", "--empty"}).What.Empty);
  EXPECT_EQ(Parsed({"generate", "/a.pbn", "--empty", "--lfsr", std::string(32, '1').c_str()}).Error,
            "--empty needs no seeds");
}

TEST(Arguments, BoardNumbersAreThoseOfTheirBoxes) {
  for (const char* bad : {"3x", "abc", "1000", "", "-1"}) {
    const QString first = QString("--first=") + bad;
    const std::string error = std::string("--first ") + bad + ": wanted a number up to 999";
    EXPECT_EQ(Parsed({"generate", "/a.pbn", first}).Error, error);
    EXPECT_EQ(Parsed({"convert", "/a.bri", "/b.pbn", first}).Error, error);
  }
  EXPECT_EQ(Parsed({"generate", "/a.pbn", "--last", "999"}).What.Last, "999");
}

TEST(Arguments, NothingNamedIsWrongUsage) {
  EXPECT_EQ(Parsed({"show", ""}).Error, "show: a file without a name");
  EXPECT_EQ(Parsed({"--data=", "show", "/a"}).Error, "--data: nothing named");
  EXPECT_EQ(Parsed({"--settings=", "show", "/a"}).Error, "--settings: nothing named");
}

TEST(Arguments, TheRegistersStateGoesWithItsOwnGenerator) {
  for (const QStringList& words :
       {QStringList{"generate", "/a", "--lfsr", kState32},
        QStringList{"generate", "/a", "--lfsr", kState32, "--generator", "morvane"}}) {
    const Arguments arguments = Parsed(words);
    EXPECT_EQ(arguments.Error, "");
    EXPECT_EQ(arguments.What.Lfsr, std::string(32, 'a'));
  }
}

TEST(Arguments, FilesAreMadeAbsolute) {
  const std::string here = std::filesystem::current_path().string();
  EXPECT_EQ(Parsed({"convert", "a.pbn", "sub/../b.pbn"}).What.In, here + "/a.pbn");
  // Not shortened: "sub" may be a link, and ".." then is another folder.
  EXPECT_EQ(Parsed({"convert", "a.pbn", "sub/../b.pbn"}).What.Out, here + "/sub/../b.pbn");
}

TEST(Arguments, BehindTwoDashesAFileMayBeginWithThem) {
  EXPECT_EQ(Parsed({"show", "--", "--set.pbn"}).What.In,
            std::filesystem::current_path().string() + "/--set.pbn");
}

TEST(Arguments, HelpGoesBeforeEverythingButAnUnknownOption) {
  for (const QStringList& words : {QStringList{"--help"}, QStringList{"deal", "--help"},
                                   QStringList{"make", "a", "b", "--help"}}) {
    const Arguments arguments = Parsed(words);
    EXPECT_EQ(arguments.Error, "");
    EXPECT_THAT(arguments.Help, HasSubstr("Usage: morvane-cli "));
    for (const char* command :
         {"generate OUT", "convert IN OUT", "show IN", "deal IN", "audit LOG"}) {
      EXPECT_THAT(arguments.Help, HasSubstr(command));
    }
  }
  EXPECT_EQ(Parsed({"--help", "--fast"}).Error, "Unknown option 'fast'.");
}

/// Whether "cli" followed by `word` is text.
bool IsText(std::string word) {
  std::string program = "cli";
  std::array<char*, 2> words{program.data(), word.data()};
  return AreText(static_cast<int>(words.size()), words.data());
}

TEST(ProgramArguments, WordsThatAreNoUtf8AreNoText) {
  EXPECT_TRUE(IsText(""));
  EXPECT_TRUE(IsText("caf\xC3\xA9.pbn"));
  EXPECT_TRUE(IsText("\xEF\xBF\xBD.pbn")) << "a name like others";
  EXPECT_FALSE(IsText("caf\xE9.pbn"));
  EXPECT_FALSE(IsText("caf\xC3"));
}

}  // namespace
}  // namespace morvane
