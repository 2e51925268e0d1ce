#include "cli/registry.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <sstream>

#include "cli/request.h"

namespace morvane::cli {
namespace {

using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

/// A command line of the command with as many files as it takes.
CommandWords Called(const Command& command) {
  CommandWords given;
  std::istringstream name{std::string(command.Name)};
  for (std::string word; name >> word;) given.Words.push_back(word);
  for (const Operand& operand : command.Operands) {
    if (operand.Is == Operand::Kind::kFile) given.Words.emplace_back("/a");
  }
  return given;
}

TEST(Registry, EachNameCallsItsOwnCommand) {
  ASSERT_THAT(Commands(), Not(IsEmpty()));
  for (const Command* command : Commands()) {
    EXPECT_EQ(FindCommand(command->Name), command);
    const Request request = TakeRequest(Called(*command));
    EXPECT_EQ(request.Error, "");
    EXPECT_EQ(request.Asked, command);
  }
}

TEST(Registry, NamesAreUnique) {
  std::set<std::string_view> names;
  for (const Command* command : Commands()) {
    EXPECT_THAT(command->Name, Not(IsEmpty()));
    EXPECT_TRUE(names.insert(command->Name).second) << command->Name;
  }
}

TEST(Registry, WhatIsNotInItIsNoCommand) {
  for (const char* name : {"", "Deal", "dea", "deal ", "deals"}) {
    EXPECT_EQ(FindCommand(name), nullptr) << name;
  }
}

TEST(Registry, ANameOfTwoWordsCallsItsCommandByBoth) {
  const Command* const command = FindCommand("poker show");
  ASSERT_NE(command, nullptr);
  EXPECT_EQ(WordsOfName(*command), 2U);
  EXPECT_EQ(WordsOfName(*FindCommand("show")), 1U);
  const std::vector<std::string> words{"poker", "show", "/a"};
  EXPECT_EQ(CommandOf(words), command);
  for (const std::vector<std::string>& others :
       {std::vector<std::string>{}, {"poker"}, {"poker", "/a"}, {"poker show"}, {"show poker"}}) {
    EXPECT_EQ(CommandOf(others), nullptr);
  }
}

TEST(Registry, AFirstWordWithoutItsSecondIsToldWhichThereAre) {
  const std::string known =
      "; there is poker new, poker show, poker deal, poker read, "
      "poker print";
  const std::vector<std::string> one{"poker"};
  EXPECT_EQ(UnknownCommand(one), "unknown command: poker" + known);
  const std::vector<std::string> two{"poker", "nosuch"};
  EXPECT_EQ(UnknownCommand(two), "unknown command: poker nosuch" + known);
  const std::vector<std::string> other{"nosuch", "new"};
  EXPECT_EQ(UnknownCommand(other), "unknown command: nosuch");
}

TEST(Registry, ACommandHasEachOptionOnceAndNoneOfThoseOfEveryCommand) {
  for (const Command* command : Commands()) {
    std::set<std::string_view> names{"help"};
    for (const Option& option : CommonOptions()) names.insert(option.Name);
    for (const Option& option : command->Options) {
      EXPECT_TRUE(names.insert(option.Name).second) << command->Name << " --" << option.Name;
    }
  }
}

// The parser sees the options before it knows the command.
TEST(Registry, AnOptionTakesAValueInEveryCommandOrInNone) {
  std::map<std::string_view, bool> takesValue;
  for (const Command* command : Commands()) {
    for (const Option& option : command->Options) {
      const bool takes = !option.Value.empty();
      EXPECT_EQ(takesValue.try_emplace(option.Name, takes).first->second, takes) << option.Name;
    }
  }
}

TEST(Registry, EachCommandReadsEachOfItsValues) {
  for (const Command* command : Commands()) {
    for (const Option& option : command->Options) {
      const bool any =
          option.Value == "TEXT" || option.Value == "FILE" || option.Value == "OUT.png";
      if (option.Value.empty() || any) continue;
      CommandWords given = Called(*command);
      given.Options = {{std::string(option.Name), "?"}};
      EXPECT_THAT(TakeRequest(given).Error,
                  StartsWith("--" + std::string(option.Name) + " ?: wanted "));
    }
  }
}

TEST(Registry, ACommandRefusesTheOptionsOfTheOthers) {
  for (const Command* command : Commands()) {
    std::set<std::string_view> own;
    for (const Option& option : command->Options) own.insert(option.Name);
    for (const Command* other : Commands()) {
      for (const Option& option : other->Options) {
        if (own.contains(option.Name)) continue;
        CommandWords given = Called(*command);
        given.Options = {{std::string(option.Name), ""}};
        EXPECT_EQ(
            TakeRequest(given).Error,
            "--" + std::string(option.Name) + " does not belong to " + std::string(command->Name));
      }
    }
  }
}

TEST(Registry, EveryCommandTakesTheCommonOptions) {
  for (const Command* command : Commands()) {
    for (const Option& option : CommonOptions()) {
      CommandWords given = Called(*command);
      given.Options = {{std::string(option.Name), "x"}};
      EXPECT_EQ(TakeRequest(given).Error, "") << command->Name << " --" << option.Name;
    }
  }
}

}  // namespace
}  // namespace morvane::cli
