#include "cli/pages/markdown.h"

namespace morvane::pages {
namespace {

constexpr std::string_view kMarks = "\\`*_[]<>|#~$";

/// All of it typed; a bar would end the cell of a table.
std::string Code(const Text& text) {
  std::string code;
  for (const Span& span : text) {
    for (const char c : span.Words) code += c == '|' ? "\\|" : std::string(1, c);
  }
  return "`" + code + "`";
}

std::string MarkdownSpans(const Text& text) {
  std::string result;
  for (const Span& span : text) {
    result += span.Is == Span::Kind::kPlain ? MarkdownText(span.Words) : Code({span});
  }
  return result;
}

std::string MarkdownBlock(const Paragraph& paragraph) {
  return MarkdownSpans(paragraph.Words) + "\n\n";
}

std::string MarkdownBlock(const Example& example) {
  std::string text;
  for (const std::string& line : example.Lines) text += "    " + line + "\n";
  return text + "\n";
}

/// The lines are as long as they come out at a terminal.
std::string MarkdownBlock(const Synopsis& synopsis) {
  constexpr std::size_t kWidth = 76;
  Example lines{{synopsis.Program}};
  for (const Text& piece : synopsis.Pieces) {
    std::string words;
    for (const Span& span : piece) words += span.Words;
    if (lines.Lines.back().size() + 1 + words.size() > kWidth) {
      lines.Lines.emplace_back(synopsis.Program.size(), ' ');
    }
    lines.Lines.back() += " " + words;
  }
  return MarkdownBlock(lines);
}

std::string MarkdownBlock(const Definitions& definitions) {
  std::string text = "| " + definitions.Of + " | What it means |\n|---|---|\n";
  for (const Definition& row : definitions.Rows) {
    text += "| " + Code(row.Term) + " | " + MarkdownSpans(row.Means) + " |\n";
  }
  return text + "\n";
}

}  // namespace

std::string MarkdownText(std::string_view words) {
  std::string text;
  for (const char c : words) {
    if (kMarks.find(c) != std::string_view::npos) text += '\\';
    text += c;
  }
  return text;
}

std::string Markdown(std::span<const Section> sections) {
  std::string text;
  for (const Section& section : sections) {
    text += "## " + MarkdownText(section.Heading) + "\n\n";
    for (const Block& block : section.Blocks) {
      text += std::visit([](const auto& each) { return MarkdownBlock(each); }, block);
    }
  }
  return text;
}

}  // namespace morvane::pages
