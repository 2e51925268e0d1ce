#include "cli/pages/roff.h"

#include "shell/version.h"
#include "text/text.h"

namespace morvane::pages {
namespace {

std::string Escaped(char c) {
  switch (c) {
    case '\\':
      return "\\e";
    case '-':
      return "\\-";
    case '\'':
      return "\\(aq";
    case '`':
      return "\\(ga";
    case '^':
      return "\\(ha";
    case '~':
      return "\\(ti";
    case '"':
      return "\\(dq";
    default:
      return std::string(1, c);
  }
}

/// A line that began so would be an instruction; a quote is escaped anyway.
std::string AtLineStart(const std::string& line) {
  return line.starts_with('.') ? "\\&" + line : line;
}

std::string RoffSpan(const Span& span) {
  std::string words = RoffText(span.Words);
  if (span.Is == Span::Kind::kPlain) return words;
  return (span.Is == Span::Kind::kTyped ? "\\fB" : "\\fI") + words + "\\fR";
}

std::string RoffSpans(const Text& text) {
  std::string result;
  for (const Span& span : text) result += RoffSpan(span);
  return result;
}

std::string Line(const Text& text) { return AtLineStart(RoffSpans(text)) + "\n"; }

/// Its blanks do not end a line.
std::string Unbroken(const std::string& line) {
  std::string result;
  for (const char c : line) result += c == ' ' ? "\\ " : std::string(1, c);
  return result;
}

std::string RoffBlock(const Paragraph& paragraph) { return Line(paragraph.Words); }

/// A piece stays whole.
std::string RoffBlock(const Synopsis& synopsis) {
  std::string text = "\\fB" + Unbroken(RoffText(synopsis.Program)) + "\\fR";
  for (const Text& piece : synopsis.Pieces) text += "\n" + AtLineStart(Unbroken(RoffSpans(piece)));
  return text + "\n";
}

std::string RoffBlock(const Definitions& definitions) {
  std::string text;
  for (const Definition& row : definitions.Rows) text += ".TP\n" + Line(row.Term) + Line(row.Means);
  return text;
}

std::string RoffBlock(const Example& example) {
  std::string text = ".in +4n\n.nf\n";
  for (const std::string& line : example.Lines) text += AtLineStart(RoffText(line)) + "\n";
  return text + ".fi\n.in\n";
}

}  // namespace

std::string RoffText(std::string_view words) {
  std::string text;
  for (const char c : words) text += Escaped(c);
  return text;
}

std::string Roff(const Page& page) {
  std::string text = ".TH " + UpperCase(page.Name) + " 1 \"\" \"Morvane " +
                     std::string(shell::kVersion) + "\" \"Morvane\"\n.nh\n.ad l\n.SH NAME\n" +
                     page.Name + " \\- " + RoffText(page.Summary) + "\n";
  for (const Section& section : page.Sections) {
    text += ".SH " + section.Heading + "\n";
    for (const Block& block : section.Blocks) {
      if (&block != &section.Blocks.front() && !std::holds_alternative<Definitions>(block)) {
        text += ".PP\n";
      }
      text += std::visit([](const auto& each) { return RoffBlock(each); }, block);
    }
  }
  return text;
}

}  // namespace morvane::pages
