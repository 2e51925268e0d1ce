#include "cli/usage.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>
#include <vector>

#include "cli/registry.h"
#include "cli/request.h"

namespace morvane::cli {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

Request HelpWith(std::vector<std::string> words) {
  CommandWords given;
  given.Words = std::move(words);
  given.Words.insert(given.Words.begin(), "help");
  return TakeRequest(given);
}

TEST(UsagePage, HasEveryCommandWithAllThatItTakes) {
  EXPECT_THAT(
      UsagePage(),
      StartsWith("Usage: morvane-cli [--data DIR] [--settings FILE] [--machine M] [--trace FILE]\n"
                 "                   [--trace-without-hands] [--yes] [--overwrite] COMMAND ...\n"
                 "\n"
                 "  generate OUT [--first N] [--last N] [--generator bigdeal|morvane] [--empty]\n"
                 "               [--shapes on|off] [--inner on|off] [--history on|off]\n"
                 "               [--seedr HEX40 --seedo HEX40] [--lfsr HEX32]\n"
                 "  convert IN... OUT [--to FORMAT] [--first N] [--import] [--history on|off]\n"
                 "  show IN [--board N] [--import]\n"
                 "  stats IN [--import]\n"
                 "  analyze IN OUT [--solver dds|df] [--board N] [--import]\n"
                 "  print IN OUT.pdf [--from N] [--to N] [--per-page 10|12|15|18] [--score-cards]\n"
                 "                   [--no-analysis] [--no-hcp] [--no-colour] [--stats]\n"
                 "                   [--header TEXT] [--ten T|10] [--national 0..6]\n"
                 "                   [--paper a4|letter] [--ns-offset N] [--import]\n"
                 "  text IN OUT.txt [--from N] [--to N] [--no-analysis] [--header TEXT]\n"
                 "                  [--ten T|10] [--national 0..6] [--import]\n"
                 "  deal IN [--from N] [--to N] [--copies N] [--auto] [--import]\n"
                 "  read OUT [--first N] [--last N] [--mode 1|2] [--auto]\n"
                 "  sort [--auto]\n"
                 "  poker new OUT.pkr [--deals N] [--empty] [--event TEXT] [--site TEXT]\n"
                 "                    [--date TEXT]\n"
                 "  poker show IN.pkr [--deal N]\n"
                 "  poker deal IN.pkr [--from N] [--to N] [--auto]\n"
                 "  poker read OUT.pkr [--deals N] [--auto]\n"
                 "  poker print IN.pkr OUT.pdf [--paper a4|letter]\n"
                 "  maintain info\n"
                 "  maintain watch [--polls N]\n"
                 "  maintain parameters [--index standard|jumbo|small] [--set NAME=VALUE]\n"
                 "                      [--from FILE]\n"
                 "  maintain picture OUT.png [--index standard|jumbo|small]\n"
                 "  maintain recognise [--labels OUT.png] [--index standard|jumbo|small]\n"
                 "                     [--national 0..6] [--type 0|1] [--font 0|1|2]\n"
                 "  maintain auto-setup [--index standard|jumbo|small]\n"
                 "  maintain calibrate\n"
                 "  maintain test-deal [--index standard|jumbo|small]\n"
                 "  maintain service-file\n"
                 "  maintain firmware FILE.adc\n"
                 "  maintain record [--serial N] [--hardware N] [--date YYYY-MM-DD]\n"
                 "                  [--boards-dealt N] [--clear-errors]\n"
                 "  service-file IN.txt [--picture OUT.png] [--labels OUT.png]\n"
                 "                      [--index standard|jumbo|small]\n"
                 "  firmware-file CODE.dsp BIT OUT.adc\n"
                 "  boot-c BOOT.adb OUT.c\n"
                 "  txt-hex IN.txt\n"
                 "  history [--list]\n"
                 "  audit LOG [--sha256 HEX64]\n"
                 "  help [COMMAND]\n"
                 "\n"));
}

TEST(UsagePage, FitsATerminal) {
  for (const std::string& line : LinesOf(UsagePage())) EXPECT_LE(line.size(), 80U) << line;
}

TEST(UsagePage, HasEveryCommandOfTheRegistry) {
  const auto lines = LinesOf(UsagePage());
  for (const Command* command : Commands()) {
    EXPECT_THAT(lines, Contains(StartsWith("  " + std::string(command->Name))));
  }
}

#ifdef _WIN32
#define MORVANE_USB_MACHINES "usb (where none is named), "
#else
#define MORVANE_USB_MACHINES                                \
  "usb (where none is named), usb:SERIAL, usb:VVVV:PPPP,\n" \
  "           serial:PATH, "
#endif

TEST(UsagePage, HasTheMachinesTheFormatsAndWhatTheExitStatusSays) {
  EXPECT_THAT(
      UsagePage(),
      EndsWith("\n"
               "Machines:  " MORVANE_USB_MACHINES "replay:FILE,\n"
               "           simulated[,speed=1,firmware=2.90,boot=1.20,hardware=0x7F,\n"
               "           serial=4711,noise=0,seed=N,fault=BOARD:CARD:CODE,\n"
               "           deck=shuffled,swap=A:B,packs=4,carry=right,\n"
               "           answers-writes=0,index=standard,letters=0,ideal=X/Y,\n"
               "           symbol=WxH,suit=WxH,card=ST,misread=none,focus-marker=1,\n"
               "           board=N,board-switch=101/120,flash=BLOCK:STATUS,erase=0,\n"
               "           store=FILE,pack=FILE]\n"
               "Set files: .pbn .bri .dge .dup .all .bre .csv\n"
               "\n"
               "generate shows the SHA-256 of the deals that it has made: publish it before\n"
               "play, and the log afterwards.\n"
               "\n"
               "print and text write OUT as it is named, whatever its ending, but for one of a\n"
               "set file; they need no display.\n"
               "\n"
               "read saves what it has read also when it is stopped, or the link is lost.\n"
               "\n"
               "poker read saves what it has read also when it is stopped, or the link is lost.\n"
               "\n"
               "maintain parameters > FILE keeps a machine's parameters before a change, and\n"
               "maintain parameters --from FILE brings them back.\n"
               "\n"
               "audit deals the sets of a log again from their seeds, compares every board, and\n"
               "shows the SHA-256 of each, with the times before it and the files it was to be\n"
               "saved in. With --sha256, one must have that one. The exit status is 0 only when\n"
               "all is the same.\n"
               "\n"
               "The exit status is 0 when it is done, 1 when it was refused or failed, 2 for\n"
               "wrong usage, and 3 when it is done, but not wholly: the log or the history was\n"
               "not written, an import passed boards over, cards read were not recognised, a\n"
               "service file is damaged, a trace was not written or not played to its end.\n"
               "\n"
               "'morvane-cli help COMMAND' says what the options of a command mean, and\n"
               "'morvane-cli --version' which version this is.\n"));
}

TEST(CommandHelp, OfDeal) {
  EXPECT_EQ(CommandHelp(*FindCommand("deal")),
            "Usage: morvane-cli deal IN [--from N] [--to N] [--copies N] [--auto] [--import]\n"
            "\n"
            "Deals the boards of a set on the machine and shows how each of them went.\n"
            "\n"
            "  IN          the set to deal\n"
            "  --from N    the first board to deal\n"
            "  --to N      the last board to deal\n"
            "  --copies N  how often each board is dealt, 99 times at most\n"
            "  --auto      start each board at once, without its pedal or board slot\n"
            "  --import    take PBN as other programs write it, and report\n"
            "\n"
            "Every command takes these too:\n"
            "  --data DIR             the folder of logs and history\n"
            "  --settings FILE        the settings store\n"
            "  --machine M            the way to the machine; --help has its forms\n"
            "  --trace FILE           note all that passes over the link\n"
            "  --trace-without-hands  but not who has which card\n"
            "  --yes                  answer Yes to every question, but replace no file\n"
            "  --overwrite            replace a file without asking\n");
}

TEST(CommandHelp, OfGenerateGoesOverSeveralLinesAndEndsWithItsNote) {
  const std::string help = CommandHelp(*FindCommand("generate"));
  EXPECT_THAT(help, StartsWith("Usage: morvane-cli generate OUT [--first N] [--last N]\n"
                               "                                [--generator bigdeal|morvane] "));
  EXPECT_THAT(help, HasSubstr("\n  --generator bigdeal|morvane  the number or the shuffling "
                              "generator\n"));
  EXPECT_THAT(help, HasSubstr("\n\ngenerate shows the SHA-256 of the deals that it has made: "));
}

TEST(CommandHelp, OfEachCommandHasALineForEachOfItsWordsAndOptions) {
  for (const Command* command : Commands()) {
    const std::string help = CommandHelp(*command);
    const auto lines = LinesOf(help);
    const std::string name(command->Name);
    EXPECT_THAT(help, StartsWith("Usage: morvane-cli " + name));
    EXPECT_THAT(command->Summary, Not(IsEmpty()));
    for (const Operand& operand : command->Operands) {
      EXPECT_THAT(operand.Means, Not(IsEmpty()));
      EXPECT_THAT(lines, Contains(StartsWith("  " + std::string(operand.Word) + " ")));
    }
    for (const Option& option : command->Options) {
      EXPECT_THAT(option.Means, Not(IsEmpty()));
      EXPECT_THAT(lines, Contains(StartsWith("  --" + std::string(option.Name) + " "))) << name;
    }
  }
}

TEST(CommandHelp, NoLineIsTooWideOrEndsWithABlank) {
  for (const Command* command : Commands()) {
    for (const std::string& line : LinesOf(CommandHelp(*command))) {
      EXPECT_LE(line.size(), 80U) << line;
      EXPECT_THAT(line, Not(EndsWith(" ")));
    }
  }
}

TEST(HelpCommand, TellsOfEachCommand) {
  for (const Command* command : Commands()) {
    std::istringstream name{std::string(command->Name)};
    std::vector<std::string> words;
    for (std::string word; name >> word;) words.push_back(word);
    const Request request = HelpWith(words);
    EXPECT_EQ(request.What.Text, CommandHelp(*command));
    EXPECT_EQ(request.Error, "");
  }
}

TEST(HelpCommand, WithoutACommandItIsTheUsagePage) {
  EXPECT_EQ(HelpWith({}).What.Text, UsagePage());
}

TEST(HelpCommand, OfAnUnknownCommandIsWrongUsage) {
  const Request request = HelpWith({"nosuch"});
  EXPECT_EQ(request.Error, "unknown command: nosuch");
  EXPECT_EQ(request.What.Text, "");
}

TEST(HelpCommand, TellsOfOneCommandOnly) {
  EXPECT_EQ(HelpWith({"show", "print"}).Error, "help: wrong number of commands");
  EXPECT_EQ(HelpWith({"poker", "show", "print"}).Error, "help: wrong number of commands");
}

}  // namespace
}  // namespace morvane::cli
