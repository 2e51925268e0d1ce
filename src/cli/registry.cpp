#include "cli/registry.h"

#include <algorithm>
#include <array>

#include "cli/analyze_command.h"
#include "cli/audit_command.h"
#include "cli/boot_c_command.h"
#include "cli/convert_command.h"
#include "cli/deal_command.h"
#include "cli/firmware_file_command.h"
#include "cli/generate_command.h"
#include "cli/help_command.h"
#include "cli/history_command.h"
#include "cli/maintain_auto_setup_command.h"
#include "cli/maintain_calibrate_command.h"
#include "cli/maintain_firmware_command.h"
#include "cli/maintain_info_command.h"
#include "cli/maintain_parameters_command.h"
#include "cli/maintain_picture_command.h"
#include "cli/maintain_recognise_command.h"
#include "cli/maintain_record_command.h"
#include "cli/maintain_service_file_command.h"
#include "cli/maintain_test_deal_command.h"
#include "cli/maintain_watch_command.h"
#include "cli/poker_deal_command.h"
#include "cli/poker_new_command.h"
#include "cli/poker_print_command.h"
#include "cli/poker_read_command.h"
#include "cli/poker_show_command.h"
#include "cli/print_command.h"
#include "cli/programs.h"
#include "cli/read_command.h"
#include "cli/service_file_command.h"
#include "cli/show_command.h"
#include "cli/sort_command.h"
#include "cli/stats_command.h"
#include "cli/text_command.h"
#include "cli/txt_hex_command.h"

namespace morvane::cli {
namespace {

constexpr std::array<const Command*, 33> kCommands{&kGenerateCommand,
                                                   &kConvertCommand,
                                                   &kShowCommand,
                                                   &kStatsCommand,
                                                   &kAnalyzeCommand,
                                                   &kPrintCommand,
                                                   &kTextCommand,
                                                   &kDealCommand,
                                                   &kReadCommand,
                                                   &kSortCommand,
                                                   &kPokerNewCommand,
                                                   &kPokerShowCommand,
                                                   &kPokerDealCommand,
                                                   &kPokerReadCommand,
                                                   &kPokerPrintCommand,
                                                   &kMaintainInfoCommand,
                                                   &kMaintainWatchCommand,
                                                   &kMaintainParametersCommand,
                                                   &kMaintainPictureCommand,
                                                   &kMaintainRecogniseCommand,
                                                   &kMaintainAutoSetupCommand,
                                                   &kMaintainCalibrateCommand,
                                                   &kMaintainTestDealCommand,
                                                   &kMaintainServiceFileCommand,
                                                   &kMaintainFirmwareCommand,
                                                   &kMaintainRecordCommand,
                                                   &kServiceFileCommand,
                                                   &kFirmwareFileCommand,
                                                   &kBootCCommand,
                                                   &kTxtHexCommand,
                                                   &kHistoryCommand,
                                                   &kAuditCommand,
                                                   &kHelpCommand};

constexpr std::array kCommonOptions{
    kProgramOptions[0],
    kProgramOptions[1],
    kProgramOptions[2],
    kProgramOptions[3],
    kWithoutHandsOption,
    Option{"yes", "", "answer Yes to every question, but replace no file"},
    Option{"overwrite", "", "replace a file without asking"},
};

}  // namespace

std::span<const Command* const> Commands() { return kCommands; }

const Command* FindCommand(std::string_view name) {
  const auto* const found =
      std::find_if(kCommands.begin(), kCommands.end(),
                   [name](const Command* command) { return command->Name == name; });
  return found == kCommands.end() ? nullptr : *found;
}

const Command* CommandOf(std::span<const std::string> words) {
  for (const Command* command : kCommands) {
    const std::size_t count = WordsOfName(*command);
    if (words.size() < count) continue;
    if (command->Name == (count == 1 ? words[0] : words[0] + " " + words[1])) return command;
  }
  return nullptr;
}

std::size_t WordsOfName(const Command& command) {
  return command.Name.find(' ') == std::string_view::npos ? 1 : 2;
}

std::string UnknownCommand(std::span<const std::string> words) {
  std::string known;
  for (const Command* command : kCommands) {
    if (!command->Name.starts_with(words[0] + " ")) continue;
    known += (known.empty() ? "" : ", ") + std::string(command->Name);
  }
  if (known.empty()) return "unknown command: " + words[0];
  return "unknown command: " + words[0] + (words.size() > 1 ? " " + words[1] : "") + "; there is " +
         known;
}

std::span<const Option> CommonOptions() { return kCommonOptions; }

}  // namespace morvane::cli
