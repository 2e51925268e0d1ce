#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "files/format_table.h"
#include "files/import_set.h"
#include "files/load_desk.h"
#include "program/log_record.h"
#include "text/text.h"
#include "text/text_lines.h"

namespace morvane::files {
namespace {

namespace fs = std::filesystem;

// Every file under tests/data goes through the commands that its expectation names;
// tests/data/README.md tells how one is written.

constexpr std::string_view kExpectation = ".expected";
constexpr std::string_view kHeading = "== ";

std::string Corpus() { return MORVANE_TEST_DATA; }

/// The files under tests/data for which `wanted` holds, as paths below it.
template <typename Wanted>
std::vector<std::string> FilesOf(Wanted wanted) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(Corpus())) {
    const std::string name = fs::relative(entry.path(), Corpus()).generic_string();
    // What stands in no folder is about the corpus.
    if (entry.is_regular_file() && name.find('/') != std::string::npos && wanted(name)) {
      names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> BoardFiles() {
  return FilesOf([](const std::string& name) { return !name.ends_with(kExpectation); });
}

/// What an operator does with a file, as the heading has it, and what comes of it.
struct Scenario {
  std::string Doing;
  std::string Outcome;
};

std::vector<Scenario> ScenariosOf(const std::string& name) {
  const std::string text = test::Content(Corpus() + "/" + name + std::string(kExpectation));
  std::vector<Scenario> scenarios;
  Lines lines(text);
  for (std::string_view line; lines.Next(line);) {
    if (line.starts_with(kHeading)) {
      scenarios.push_back({std::string(line.substr(kHeading.size())), ""});
    } else if (!scenarios.empty() && !line.empty()) {
      scenarios.back().Outcome.append(line).append("\n");
    } else {
      EXPECT_TRUE(line.empty() || line.starts_with("# ")) << name << ": " << line;
    }
  }
  return scenarios;
}

/// An operator who does what a heading says: "Load" or "Import", "Load, first board 17", or "Load,
/// answers No Yes" for the questions in their order.
class Operator : public test::TestDesk {
 public:
  Operator(const Scenario& scenario, const std::string& path) {
    Prog.ServiceLevel = 1;  // which loads logs
    const std::string_view doing = scenario.Doing;
    const std::size_t comma = doing.find(", ");
    if (comma != std::string_view::npos) Prepare(doing.substr(comma + 2));
    if (doing.substr(0, comma) == "Import") {
      taken_ = ImportFile(Prog, History, path).has_value();
    } else {
      EXPECT_EQ(doing.substr(0, comma), "Load");
      taken_ = LoadFile(Prog, History, numbers_, path);
    }
    EXPECT_TRUE(Ui.Answers.empty()) << "fewer questions than answers";
  }

  [[nodiscard]] std::string Outcome() const {
    const BoardSet& set = Prog.Set;
    std::string text = !taken_ ? "refused\n" : set.Exists() ? "" : "taken without boards\n";
    if (set.Exists()) {
      text =
          "boards " + std::to_string(set.FirstBoard) + "-" + std::to_string(set.LastBoard) + "\n";
    }
    if (numbers_.Shown > 0) text += "the numbers were asked for\n";
    AddText(text, "event", set.EventName);
    AddText(text, "site", set.EventSite);
    AddText(text, "date", set.EventDate);
    for (int n = 1; n <= set.LastBoard; ++n) {
      if (n >= set.FirstBoard && set.At(n) != Board{}) AddBoard(text, set.At(n), n);
    }
    for (const test::FakeUi::Box& box : Ui.Boxes) AddBox(text, box);
    return text;
  }

 private:
  void Prepare(std::string_view how) {
    constexpr std::string_view kFirst = "first board ";
    constexpr std::string_view kAnswers = "answers";
    if (how.starts_with(kFirst)) {
      numbers_.Answer = [typed = std::string(how.substr(kFirst.size()))](LoadNumber& dialog) {
        dialog.ChangeFirstBoard({typed, static_cast<int>(typed.size())});
        dialog.Command1();
      };
      return;
    }
    ASSERT_TRUE(how.starts_with(kAnswers)) << how;
    for (how.remove_prefix(kAnswers.size()); !how.empty();) {
      how.remove_prefix(1);
      const std::string_view word = how.substr(0, how.find(' '));
      EXPECT_TRUE(word == "Yes" || word == "No" || word == "Cancel") << word;
      Ui.Answers.push_back(word == "Yes" ? kYes : word == "No" ? kNo : kCancel);
      how.remove_prefix(word.size());
    }
  }

  static void AddText(std::string& text, const std::string& caption, const std::string& value) {
    if (!value.empty()) text.append(caption).append(" \"").append(Visible(value)).append("\"\n");
  }

  /// A board as the log has it, between its dealer and what else there is to say.
  static void AddBoard(std::string& text, const Board& board, int n) {
    EXPECT_EQ(board.Number, n);
    text.append(ThreeDigits(n)).append(" ").append(1, "-NESW"[board.Dealer]).append(" ");
    text.append(board.Vul == 0 ? "-" : VulName[board.Vul]).append(" ");
    text.append(FormatBoardForLog(board, false));
    constexpr std::array<const char*, 3> kStatus{"empty", "incomplete", ""};
    text.append(kStatus[board.Status]);
    if (text.ends_with(' ')) text.pop_back();
    text += '\n';
    if (board.Tricks == Board{}.Tricks) return;
    text += "    tricks";
    for (std::size_t i = 0; i < 20; ++i) {
      if (i % 5 == 0) text.append({' ', "NESW"[i / 5], ' '});
      text += std::to_string(board.Tricks[i]);
    }
    text += '\n';
  }

  static std::string BoxKind(int flags) {
    switch (flags) {
      case kOkCritical:
        return "critical";
      case kOkExclamation:
        return "exclamation";
      case kOkInformation:
        return "information";
      case kYesNoCancelInformation:
        return "Yes No Cancel";
      default:
        return std::to_string(flags);
    }
  }

  /// A box line by line between bars, which show its padding.
  static void AddBox(std::string& text, const test::FakeUi::Box& box) {
    text.append("box \"").append(box.Title).append("\" ").append(BoxKind(box.Flags));
    std::string_view rest = box.Text;
    for (std::size_t end = 0; end != std::string_view::npos;) {
      end = rest.find(kCrLf);
      text.append("\n|").append(Visible(rest.substr(0, end))).append("|");
      if (end != std::string_view::npos) rest.remove_prefix(end + kCrLf.size());
    }
    text += '\n';
  }

  /// `text` with its control characters as \xNN.
  static std::string Visible(std::string_view text) {
    std::string visible;
    for (const char c : text) {
      const auto byte = static_cast<std::uint8_t>(c);
      visible += byte < ' ' ? "\\x" + Hex2(byte) : std::string(1, c);
    }
    return visible;
  }

  FakeNumbers numbers_;
  bool taken_ = false;
};

class BoardFileCorpusTest : public ::testing::TestWithParam<std::string> {};

TEST_P(BoardFileCorpusTest, EachCommandMakesOfItWhatIsExpected) {
  const std::vector<Scenario> scenarios = ScenariosOf(GetParam());
  ASSERT_FALSE(scenarios.empty());
  for (const Scenario& scenario : scenarios) {
    const Operator person(scenario, Corpus() + "/" + GetParam());
    EXPECT_EQ(person.Outcome(), scenario.Outcome) << scenario.Doing;
  }
}

std::string TestName(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Each, BoardFileCorpusTest, ::testing::ValuesIn(BoardFiles()), TestName);

TEST(BoardFileCorpus, EveryFileTellsWhatLoadMakesOfItAndPbnWhatImportDoes) {
  for (const std::string& name : BoardFiles()) {
    std::set<std::string> commands;
    for (const Scenario& scenario : ScenariosOf(name)) {
      commands.insert(scenario.Doing.substr(0, scenario.Doing.find(',')));
    }
    EXPECT_TRUE(commands.contains("Load")) << name;
    EXPECT_EQ(commands.contains("Import"), ExtensionOf(name) == "PBN") << name;
  }
}

TEST(BoardFileCorpus, EveryExpectationHasItsFile) {
  for (const std::string& name :
       FilesOf([](const std::string& each) { return each.ends_with(kExpectation); })) {
    const std::string file = name.substr(0, name.size() - kExpectation.size());
    EXPECT_TRUE(fs::is_regular_file(Corpus() + "/" + file)) << name;
  }
}

TEST(BoardFileCorpus, EveryFormatHasFilesThatLoadAndFilesThatAreRefused) {
  for (const char* extension : {"BRI", "DGE", "DUP", "ALL", "BRE", "CSV", "PBN", "TXT"}) {
    int taken = 0;
    int refused = 0;
    for (const std::string& name : BoardFiles()) {
      if (ExtensionOf(name) != extension) continue;
      for (const Scenario& scenario : ScenariosOf(name)) {
        ++(scenario.Outcome.starts_with("boards ") ? taken : refused);
      }
    }
    EXPECT_GE(taken, 3) << extension;
    EXPECT_GE(refused, 3) << extension;
  }
}

}  // namespace
}  // namespace morvane::files
