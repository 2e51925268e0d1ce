#include "shell/shell.h"
#include "support/fakes.h"

namespace morvane::shell {
namespace {

struct Case {
  std::string CommandLine;
  std::string StartFile;
  std::string FirmwareFile;
};

class CommandLineTest : public ::testing::TestWithParam<Case> {};

TEST_P(CommandLineTest, NamesItsFile) {
  const StartFiles files = ParseCommandLine(GetParam().CommandLine);
  EXPECT_EQ(files.StartFile, GetParam().StartFile);
  EXPECT_EQ(files.FirmwareFile, GetParam().FirmwareFile);
}

INSTANTIATE_TEST_SUITE_P(WithoutAPairOfQuotes, CommandLineTest,
                         ::testing::Values(Case{"", "", ""}, Case{"evening.pbn", "", ""},
                                           Case{"evening.adc", "", ""},
                                           Case{"\"evening.pbn", "", ""},
                                           Case{"evening.pbn\"", "", ""}, Case{"\"", "", ""},
                                           Case{"\"evening.adc", "", ""}));

INSTANTIATE_TEST_SUITE_P(
    BoardFile, CommandLineTest,
    ::testing::Values(Case{"\"evening.pbn\"", "evening.pbn", ""}, Case{"\"\"", "", ""},
                      Case{"--fast \"a b/evening set.pbn\" more", "a b/evening set.pbn", ""},
                      Case{"\" evening.pbn \"", " evening.pbn ", ""},
                      Case{"\"one.pbn\" \"two.pbn\"", "one.pbn", ""},
                      Case{"\"one.pbn\" \"two.adc\"", "one.pbn", ""},
                      Case{"\"\" \"two.pbn\"", "", ""}, Case{"\"one.pbn\" \"", "one.pbn", ""},
                      Case{"\"evening.adc.pbn\"", "evening.adc.pbn", ""},
                      Case{"\"evening.adc \"", "evening.adc ", ""}, Case{"\"dc\"", "dc", ""},
                      Case{"\"\xC3\xA9t\xC3\xA9.pbn\"", "\xC3\xA9t\xC3\xA9.pbn", ""}));

INSTANTIATE_TEST_SUITE_P(FirmwareFile, CommandLineTest,
                         ::testing::Values(Case{"\"new.adc\"", "", "new.adc"},
                                           Case{"\"NEW.ADC\"", "", "NEW.ADC"},
                                           Case{"\"new.aDc\"", "", "new.aDc"},
                                           Case{"\"adc\"", "", "adc"},
                                           Case{"\"newadc\"", "", "newadc"},
                                           Case{"\"new.adc\" \"evening.pbn\"", "", "new.adc"}));

TEST(VersionText, HasTheServiceWordOfItsLevel) {
  EXPECT_EQ(VersionTextOf(0), "1.0 with Sort 1.0  with Poker 1.5 ");
  EXPECT_EQ(VersionTextOf(1), "1.0 Service  with Sort 1.0  with Poker 1.5 ");
  EXPECT_EQ(VersionTextOf(2), "1.0 Advance Service with Sort 1.0  with Poker 1.5 ");
}

}  // namespace
}  // namespace morvane::shell
