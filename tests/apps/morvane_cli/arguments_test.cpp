#include "morvane_cli/arguments.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "cli/audit_command.h"
#include "cli/convert_command.h"
#include "cli/deal_command.h"
#include "cli/generate_command.h"
#include "cli/history_command.h"
#include "cli/maintain_parameters_command.h"
#include "cli/maintain_recognise_command.h"
#include "cli/show_command.h"
#include "platform/files.h"

namespace morvane {
namespace {

using ::testing::HasSubstr;

Arguments Parsed(const QStringList& words) { return ParseArguments(QStringList{"cli"} + words); }

/// What `Read` makes of the command line, whose command is `name`.
template <auto Read>
auto Taken(const char* name, const QStringList& words) {
  const Arguments arguments = Parsed(QStringList{name} + words);
  EXPECT_EQ(arguments.Error, "");
  EXPECT_EQ(arguments.Request.Asked->Name, name);
  cli::OptionReader given(std::span(arguments.Given.Words).subspan(1), arguments.Given.Options);
  auto options = Read(given);
  EXPECT_EQ(given.Error(), "");
  return options;
}
cli::GenerateOptions Generate(const QStringList& words) {
  return Taken<cli::ReadGenerateOptions>("generate", words);
}
cli::ConvertOptions Convert(const QStringList& words) {
  return Taken<cli::ReadConvertOptions>("convert", words);
}
cli::ShowOptions Show(const QStringList& words) {
  return Taken<cli::ReadShowOptions>("show", words);
}
cli::DealOptions Deal(const QStringList& words) {
  return Taken<cli::ReadDealOptions>("deal", words);
}

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
    ::testing::Values(
        WrongUsage{{}, "no command"}, WrongUsage{{"--yes"}, "no command"},
        WrongUsage{{"make", "a.pbn"}, "unknown command: make"},
        WrongUsage{{"Deal", "a.pbn"}, "unknown command: Deal"},
        WrongUsage{{"generate"}, "generate: wrong number of files"},
        WrongUsage{{"generate", "a", "b"}, "generate: wrong number of files"},
        WrongUsage{{"convert", "a"}, "convert: wrong number of files"},
        WrongUsage{{"convert", "a", "b", "c"},
                   "convert: several files need --to FORMAT and a folder"},
        WrongUsage{{"convert", "--to", "pbn", "a"}, "convert: wrong number of files"},
        WrongUsage{{"show"}, "show: wrong number of files"},
        WrongUsage{{"deal", "a", "b"}, "deal: wrong number of files"},
        WrongUsage{{"audit"}, "audit: wrong number of files"},
        WrongUsage{{"audit", "a", "b"}, "audit: wrong number of files"},
        WrongUsage{{"history", "a"}, "history: wrong number of files"},
        WrongUsage{{"help", "nosuch"}, "unknown command: nosuch"},
        WrongUsage{{"maintain"},
                   "unknown command: maintain; there is maintain info, maintain watch, "
                   "maintain parameters, maintain picture, maintain recognise, "
                   "maintain auto-setup, maintain calibrate, maintain test-deal, "
                   "maintain service-file, maintain firmware, maintain record"},
        WrongUsage{{"help", ""}, "unknown command: "},
        WrongUsage{{"help", "deal", "show"}, "help: wrong number of commands"},
        WrongUsage{{"poker", "print", "a"}, "poker print: wrong number of files"},
        WrongUsage{{"poker", "show", "a", "--deals", "1"}, "--deals does not belong to poker show"},
        WrongUsage{{"help", "deal", "--from", "1"}, "--from does not belong to help"}));

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
        WrongUsage{{"generate", "a", "--import"}, "--import does not belong to generate"},
        WrongUsage{{"show", "a", "--to", "pbn"}, "--to does not belong to show"},
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
        WrongUsage{{"convert", "a", "b", "--to", "txt"},
                   "--to txt: wanted pbn, bri, dge, dup, all, bre or csv"},
        WrongUsage{{"convert", "a", "b", "--history", "no"}, "--history no: wanted on or off"},
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

/// A `maintain parameters` with one change that cannot be.
WrongUsage Change(const QString& change, const std::string& error) {
  return {{"maintain", "parameters", "--set", change}, "--set: " + error};
}
const std::string kByte = " takes a number from 0 to 255, without leading zeros";
const std::string kPercent = " takes a number from 10 to 90, without leading zeros";

INSTANTIATE_TEST_SUITE_P(
    Parameters, WrongUsageTest,
    ::testing::Values(
        Change("pos_x=007", "pos_x" + kByte), Change("pos_x=", "pos_x" + kByte),
        Change("pos_x=256", "pos_x" + kByte), Change("pos_x=-1", "pos_x" + kByte),
        Change("pos_x= 1", "pos_x" + kByte), Change("pos_x=1=1", "pos_x" + kByte),
        Change("pos_x=18446744073709551617", "pos_x" + kByte),
        Change("pos_y=0", "pos_y takes a number from 1 to 255, without leading zeros"),
        Change("Bold_th_txt=9", "Bold_th_txt" + kPercent),
        Change("Fine_th1_txt=91", "Fine_th1_txt" + kPercent),
        Change("Ignore_box=2", "Ignore_box takes 0 or 1"),
        Change("Use_Board=on", "Use_Board takes 0 or 1"),
        Change("Pos_x=1", "there is no parameter Pos_x"), Change("=1", "there is no parameter "),
        Change("param_ID=1", "param_ID is never written"),
        Change("CardIndex=Small", "CardIndex is chosen with --index"),
        WrongUsage{{"maintain", "parameters", "--set", "pos_x=1", "--set", "pos_x=1"},
                   "--set: pos_x stands there twice"},
        WrongUsage{{"maintain", "parameters", "--set", "pos_x"}, "--set pos_x: wanted NAME=VALUE"},
        WrongUsage{{"maintain", "parameters", "--set", "pos_x=1", "--from", "a"},
                   "--set and --from do not go together"},
        WrongUsage{{"maintain", "parameters", "--from", ""}, "--from: a file without a name"},
        WrongUsage{{"maintain", "parameters", "--index", "large"},
                   "--index large: wanted standard, jumbo or small"},
        WrongUsage{{"maintain", "watch", "--polls", "0"}, "--polls 0: wanted a number above 0"},
        WrongUsage{{"maintain", "info", "--polls", "1"},
                   "--polls does not belong to maintain info"},
        WrongUsage{{"maintain", "picture"}, "maintain picture: wrong number of files"},
        WrongUsage{{"maintain", "picture", "/a.pbn"},
                   AbsolutePath("/a.pbn") + " is a board set by its name"},
        WrongUsage{{"maintain", "picture", "a", "--index", "3"},
                   "--index 3: wanted standard, jumbo or small"},
        WrongUsage{{"maintain", "recognise", "--labels", ""}, "--labels: a file without a name"},
        WrongUsage{{"maintain", "recognise", "--labels", "/a.csv"},
                   AbsolutePath("/a.csv") + " is a board set by its name"},
        WrongUsage{{"maintain", "recognise", "--national", "7"},
                   "--national 7: wanted 0, 1, 2, 3, 4, 5 or 6"},
        WrongUsage{{"maintain", "recognise", "--type", "2"}, "--type 2: wanted 0 or 1"},
        WrongUsage{{"maintain", "recognise", "--font", "bold"}, "--font bold: wanted 0, 1 or 2"},
        WrongUsage{{"maintain", "auto-setup", "--font", "1"},
                   "--font does not belong to maintain auto-setup"}));

INSTANTIATE_TEST_SUITE_P(
    Record, WrongUsageTest,
    ::testing::Values(WrongUsage{{"maintain", "record", "--serial", "65536"},
                                 "--serial 65536: wanted a number from 0 to 65535"},
                      WrongUsage{{"maintain", "record", "--serial=-1"},
                                 "--serial -1: wanted a number from 0 to 65535"},
                      WrongUsage{{"maintain", "record", "--hardware", "32"},
                                 "--hardware 32: wanted a number from 0 to 31"},
                      WrongUsage{{"maintain", "record", "--hardware", "0x1F"},
                                 "--hardware 0x1F: wanted a number from 0 to 31"},
                      WrongUsage{{"maintain", "record", "--boards-dealt", "4294967296"},
                                 "--boards-dealt 4294967296: wanted a number from 0 to 4294967295"},
                      WrongUsage{{"maintain", "record", "--boards-dealt", ""},
                                 "--boards-dealt : wanted a number from 0 to 4294967295"},
                      WrongUsage{{"maintain", "record", "--date", "2026-02-31"},
                                 "--date 2026-02-31: wanted a day as 2026-03-09"},
                      WrongUsage{{"maintain", "record", "--date", "1900-02-29"},
                                 "--date 1900-02-29: wanted a day as 2026-03-09"},
                      WrongUsage{{"maintain", "record", "--date", "2026-13-01"},
                                 "--date 2026-13-01: wanted a day as 2026-03-09"},
                      WrongUsage{{"maintain", "record", "--date", "2026-3-9"},
                                 "--date 2026-3-9: wanted a day as 2026-03-09"},
                      WrongUsage{{"maintain", "record", "--date", "09.03.2026"},
                                 "--date 09.03.2026: wanted a day as 2026-03-09"},
                      WrongUsage{{"maintain", "record", "--date", "2026-03-00"},
                                 "--date 2026-03-00: wanted a day as 2026-03-09"}));

TEST(Arguments, TheLimitsOfTheRecordAreTaken) {
  for (const auto& [option, value] :
       std::vector<std::pair<const char*, const char*>>{{"--serial", "0"},
                                                        {"--serial", "65535"},
                                                        {"--hardware", "31"},
                                                        {"--boards-dealt", "4294967295"},
                                                        {"--date", "2024-02-29"},
                                                        {"--date", "0000-12-31"}}) {
    EXPECT_EQ(Parsed({"maintain", "record", option, value}).Error, "") << option << value;
  }
}

TEST(Arguments, TheLimitsOfAParameterAreTaken) {
  for (const char* const change :
       {"pos_x=0", "pos_x=255", "pos_y=1", "Bold_th1_txt=10", "Fine_th_txt=90",
        "Reco_option_txt=255", "Board_Sen=0", "Ignore_flip=1"}) {
    EXPECT_EQ(Parsed({"maintain", "parameters", "--set", change}).Error, "") << change;
  }
}

TEST(Arguments, OfTwoWrongValuesOneIsTold) {
  EXPECT_EQ(Parsed({"deal", "a", "--to", "x", "--from", "y"}).Error,
            "--from y: wanted a number above 0");
}

TEST(Arguments, WithoutOptionsNothingIsSet) {
  const Arguments arguments = Parsed({"deal", "/sets/a.pbn"});
  EXPECT_EQ(arguments.Error, "");
  EXPECT_EQ(arguments.Help, "");
  EXPECT_EQ(arguments.Data, "");
  EXPECT_EQ(arguments.Settings, "");
  EXPECT_EQ(arguments.Machine, "usb");
  EXPECT_FALSE(arguments.Yes || arguments.Overwrite);
}

TEST(Arguments, WithoutOptionsACommandHasNone) {
  const cli::DealOptions deal = Deal({"/sets/a.pbn"});
  EXPECT_EQ(deal.In, AbsolutePath("/sets/a.pbn"));
  EXPECT_FALSE(deal.Yes || deal.Auto || deal.From || deal.To || deal.Copies);
  const cli::GenerateOptions generate = Generate({"/a"});
  EXPECT_FALSE(generate.First || generate.Last || generate.Generator || generate.Empty);
  EXPECT_FALSE(generate.Seedr || generate.Seedo || generate.Lfsr);
  EXPECT_FALSE(generate.Shapes || generate.Inner || generate.History);
  EXPECT_FALSE(Show({"/a"}).Board);
  EXPECT_FALSE(Taken<cli::ReadHistoryOptions>("history", {}).List);
  EXPECT_FALSE(Taken<cli::ReadAuditOptions>("audit", {"/a"}).Sha256);
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
    EXPECT_TRUE(arguments.Yes);
    EXPECT_EQ(arguments.Given.Words, (std::vector<std::string>{"show", "/a"}));
  }
}

TEST(Arguments, DealTakesItsOptions) {
  const cli::DealOptions what =
      Deal({"/a.pbn", "--from", "2", "--to", "640", "--copies", "99", "--auto", "--yes"});
  EXPECT_EQ(what.From, 2);
  EXPECT_EQ(what.To, 640);
  EXPECT_EQ(what.Copies, 99);
  EXPECT_TRUE(what.Auto);
  EXPECT_TRUE(what.Yes);
}

TEST(Arguments, OverwriteBelongsToEveryCommand) {
  EXPECT_TRUE(Parsed({"generate", "/a", "--overwrite"}).Overwrite);
  EXPECT_TRUE(Parsed({"--overwrite", "convert", "/a", "/b"}).Overwrite);
  EXPECT_FALSE(Parsed({"--yes", "convert", "/a", "/b"}).Overwrite);
}

TEST(Arguments, EveryCommandThatReadsASetMayImport) {
  EXPECT_TRUE(Show({"/a.pbn", "--import"}).Import);
  EXPECT_FALSE(Show({"/a.pbn"}).Import);
  EXPECT_TRUE(Deal({"/a.pbn", "--import"}).Import);
  EXPECT_FALSE(Deal({"/a.pbn"}).Import);
}

TEST(Arguments, ConvertTakesSeveralFilesIntoAFolder) {
  const cli::ConvertOptions what =
      Convert({"/a.pbn", "/b.bri", "/sets", "--to", "CSV", "--history", "off"});
  EXPECT_EQ(what.In, (std::vector<std::string>{AbsolutePath("/a.pbn"), AbsolutePath("/b.bri")}));
  EXPECT_EQ(what.Out, AbsolutePath("/sets"));
  EXPECT_EQ(what.To, "csv");
  EXPECT_FALSE(what.History);
  EXPECT_EQ(Parsed({"convert", "/a", "", "/sets", "--to", "pbn"}).Error,
            "convert: a file without a name");
}

TEST(Arguments, ConvertMayImport) {
  const cli::ConvertOptions what = Convert({"--import", "/a.pbn", "/b.pbn"});
  EXPECT_TRUE(what.Import);
  EXPECT_EQ(what.In, std::vector<std::string>{AbsolutePath("/a.pbn")});
  EXPECT_EQ(what.Out, AbsolutePath("/b.pbn"));
  EXPECT_FALSE(Convert({"/a.pbn", "/b.pbn"}).Import);
}

TEST(Arguments, ShowTakesItsBoard) { EXPECT_EQ(Show({"/a", "--board", "7"}).Board, 7); }

TEST(Arguments, ANumberMayHaveBlanksAroundItAndAPlusSign) {
  for (const char* number : {" 7", "7 ", "+7", "007"}) {
    EXPECT_EQ(Show({"/a", "--board", number}).Board, 7) << number;
  }
  for (const char* none : {"+", "++7", "+-7", "7 8", " ", "0x7"}) {
    EXPECT_EQ(Parsed({"show", "/a", "--board", none}).Error,
              "--board " + std::string(none) + ": wanted a number above 0");
  }
}

TEST(Arguments, OfAnOptionGivenTwiceTheLastCounts) {
  EXPECT_EQ(Show({"/a", "--board", "7", "--board", "8"}).Board, 8);
}

TEST(Arguments, EachOfSeveralValuesOfAnOptionIsTakenInOrder) {
  const Arguments arguments =
      Parsed({"maintain", "parameters", "--set", "pos_x=1", "--index", "jumbo", "--set=pos_y=2"});
  EXPECT_EQ(arguments.Error, "");
  cli::OptionReader given({}, arguments.Given.Options);
  const cli::MaintainParametersOptions options = cli::ReadMaintainParametersOptions(given);
  EXPECT_EQ(options.Set, (cli::ParameterChanges{{"pos_x", "1"}, {"pos_y", "2"}}));
  EXPECT_EQ(options.Index, 1);
}

TEST(Arguments, WhereAParametersFileIsRelativeItIsMadeAbsolute) {
  const Arguments arguments = Parsed({"maintain", "parameters", "--from", "b.txt"});
  cli::OptionReader given({}, arguments.Given.Options);
  EXPECT_EQ(cli::ReadMaintainParametersOptions(given).From,
            (std::filesystem::current_path() / "b.txt").string());
}

TEST(Arguments, TheCardFamilyOfARecognitionIsTaken) {
  const Arguments arguments = Parsed({"maintain", "recognise", "--national", "6", "--type", "1",
                                      "--font", "2", "--index", "small", "--labels", "l.png"});
  cli::OptionReader given({}, arguments.Given.Options);
  const cli::MaintainRecogniseOptions options = cli::ReadMaintainRecogniseOptions(given);
  EXPECT_EQ(options.National, 6);
  EXPECT_EQ(options.CardType, 1);
  EXPECT_EQ(options.Threshold, 2);
  EXPECT_EQ(options.Index, 2);
  EXPECT_EQ(options.Labels, (std::filesystem::current_path() / "l.png").string());
}

TEST(Arguments, TheFirstOptionThatDoesNotBelongIsTold) {
  EXPECT_EQ(Parsed({"show", "--yes", "--to", "1", "--from", "x"}).Error,
            "--to does not belong to show");
}

TEST(Arguments, TheLineForTheLogIsAsItWasGiven) {
  EXPECT_EQ(Parsed({"show", "/my \"set\".pbn", "--board", "7"}).Given.Raw,
            "show /my \"set\".pbn --board 7");
}

TEST(Arguments, AuditTakesALog) {
  const cli::AuditOptions what =
      Taken<cli::ReadAuditOptions>("audit", {"/data/Log_2026_3.txt", "--sha256", QString(64, 'A')});
  EXPECT_EQ(what.Log, AbsolutePath("/data/Log_2026_3.txt"));
  EXPECT_EQ(what.Sha256, std::string(64, 'A'));
}

TEST(Arguments, ConvertTakesTwoFiles) {
  const cli::ConvertOptions what = Convert({"/a.pbn", "/b.pbn"});
  EXPECT_EQ(what.In, std::vector<std::string>{AbsolutePath("/a.pbn")});
  EXPECT_EQ(what.Out, AbsolutePath("/b.pbn"));
  EXPECT_FALSE(what.First || what.To);
  EXPECT_TRUE(what.History);
  EXPECT_EQ(Convert({"/a.bri", "/b.pbn", "--first", "17"}).First, "17");
}

TEST(Arguments, GenerateTakesItsOptions) {
  const cli::GenerateOptions what =
      Generate({"/a.pbn", "--first", "3", "--last", "8", "--generator", "bigdeal", "--shapes", "on",
                "--inner", "off", "--history", "on", "--seedr", kSeed40, "--seedo", kSeed40});
  EXPECT_EQ(what.Out, AbsolutePath("/a.pbn"));
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
  EXPECT_TRUE(Generate({"/a.pbn", "--empty"}).Empty);
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
  EXPECT_EQ(Generate({"/a.pbn", "--last", "999"}).Last, "999");
}

TEST(Arguments, NothingNamedIsWrongUsage) {
  EXPECT_EQ(Parsed({"show", ""}).Error, "show: a file without a name");
  EXPECT_EQ(Parsed({"--data=", "show", "/a"}).Error, "--data: nothing named");
  EXPECT_EQ(Parsed({"--settings=", "show", "/a"}).Error, "--settings: nothing named");
}

TEST(Arguments, TheRegistersStateGoesWithItsOwnGenerator) {
  for (const QStringList& words :
       {QStringList{"/a", "--lfsr", kState32},
        QStringList{"/a", "--lfsr", kState32, "--generator", "morvane"}}) {
    EXPECT_EQ(Generate(words).Lfsr, std::string(32, 'a'));
  }
}

TEST(Arguments, FilesAreMadeAbsolute) {
  const std::string here = std::filesystem::current_path().string();
  EXPECT_EQ(Convert({"a.pbn", "sub/../b.pbn"}).In.front(), JoinPath(here, "a.pbn"));
#ifdef _WIN32
  const std::string behind = "b.pbn";  // the system itself goes by the text
#else
  const std::string behind = "sub/../b.pbn";  // "sub" may be a link, and ".." then another folder
#endif
  EXPECT_EQ(Convert({"a.pbn", "sub/../b.pbn"}).Out, JoinPath(here, behind));
}

TEST(Arguments, BehindTwoDashesAFileMayBeginWithThem) {
  EXPECT_EQ(Show({"--", "--set.pbn"}).In,
            JoinPath(std::filesystem::current_path().string(), "--set.pbn"));
}

TEST(Arguments, HelpGoesBeforeEverythingButAnUnknownOption) {
  for (const QStringList& words :
       {QStringList{"--help"}, QStringList{"-h"}, QStringList{"make", "a", "b", "--help"}}) {
    const Arguments arguments = Parsed(words);
    EXPECT_EQ(arguments.Error, "");
    EXPECT_THAT(arguments.Help, HasSubstr("Usage: morvane-cli "));
    for (const char* command :
         {"generate OUT", "convert IN... OUT", "show IN", "deal IN", "audit LOG"}) {
      EXPECT_THAT(arguments.Help, HasSubstr(command));
    }
  }
  EXPECT_EQ(Parsed({"--help", "--fast"}).Error, "Unknown option 'fast'.");
  EXPECT_EQ(Parsed({"deal", "--help", "--fast"}).Help, "");
}

TEST(Arguments, HelpBesideACommandIsAboutThatOne) {
  for (const char* option : {"-h", "--help"}) {
    EXPECT_EQ(Parsed({"deal", option}).Help, Parsed({"help", "deal"}).Help);
    EXPECT_EQ(Parsed({option, "show", "a.pbn", "--board", "x"}).Help,
              Parsed({"help", "show"}).Help);
  }
}

TEST(Arguments, TheVersionIsTheNameAndItsNumber) {
  for (const QStringList& words : {QStringList{"--version"}, QStringList{"deal", "--version"}}) {
    EXPECT_EQ(Parsed(words).Help, "morvane-cli 1.0\n");
    EXPECT_EQ(Parsed(words).Error, "");
  }
}

TEST(Arguments, HelpTellsOfACommandAndAsksForNothingElse) {
  for (const QStringList& words :
       {QStringList{"help", "deal"}, QStringList{"--data", "d", "--settings=s", "--machine",
                                                 "toaster", "--yes", "help", "deal"}}) {
    const Arguments arguments = Parsed(words);
    EXPECT_EQ(arguments.Error, "");
    EXPECT_THAT(arguments.Help, ::testing::StartsWith("Usage: morvane-cli deal IN [--from N]"));
    EXPECT_FALSE(arguments.Request.What.Work);
  }
  EXPECT_EQ(Parsed({"help"}).Help, Parsed({"--help"}).Help);
}

}  // namespace
}  // namespace morvane
