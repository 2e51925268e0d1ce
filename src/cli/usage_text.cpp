#include "cli/usage_text.h"

#include <algorithm>
#include <utility>

namespace morvane::cli {
namespace {

constexpr std::size_t kWidth = 80;

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    words.emplace_back(text.substr(at, end - at));
    at = end + 1;
  }
  return words;
}

}  // namespace

std::string Wrapped(const std::string& start, std::size_t indent,
                    const std::vector<std::string>& pieces) {
  std::string text;
  std::string line = start;
  for (const std::string& piece : pieces) {
    if (line.size() + 1 + piece.size() <= kWidth) {
      line += " " + piece;
    } else {
      text += line + "\n";
      line = std::string(indent, ' ') + piece;
    }
  }
  return text + line + "\n";
}

std::string Paragraph(std::string_view text) {
  std::vector<std::string> words = WordsOf(text);
  const std::string first = words.front();
  words.erase(words.begin());
  return Wrapped(first, 0, words);
}

std::string TextOf(const Option& option) {
  return "--" + std::string(option.Name) +
         (option.Value.empty() ? "" : " " + std::string(option.Value));
}

std::vector<std::string> Bracketed(std::span<const Option> options) {
  std::vector<std::string> pieces;
  std::string open = "[";
  for (const Option& option : options) {
    open += TextOf(option) + (option.WithNext ? " " : "]");
    if (!option.WithNext) pieces.push_back(std::exchange(open, "["));
  }
  return pieces;
}

std::string TextOf(const Operand& operand) {
  const std::string word = std::string(operand.Word) + (operand.Several ? "..." : "");
  return operand.Is == Operand::Kind::kFile ? word : "[" + word + "]";
}

std::string Table(const std::vector<Row>& rows) {
  std::size_t width = 0;
  for (const Row& row : rows) width = std::max(width, row.What.size());
  std::string text;
  for (const Row& row : rows) {
    const std::string start = "  " + row.What + std::string(width - row.What.size() + 1, ' ');
    text += Wrapped(start, start.size() + 1, WordsOf(row.Means));
  }
  return text;
}

std::vector<Row> RowsOf(std::span<const Operand> operands, std::span<const Option> options) {
  std::vector<Row> rows;
  for (const Operand& operand : operands) {
    rows.push_back({std::string(operand.Word), operand.Means});
  }
  for (const Option& option : options) rows.push_back({TextOf(option), option.Means});
  return rows;
}

}  // namespace morvane::cli
