#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace morvane::pages {

/// A piece of a text: plain words, words that are typed as they stand, or a word that stands for
/// another.
struct Span {
  enum class Kind { kPlain, kTyped, kStandsFor };
  std::string Words;
  Kind Is = Kind::kPlain;
};
using Text = std::vector<Span>;

inline Span Plain(std::string_view words) { return {std::string(words), Span::Kind::kPlain}; }
inline Span Typed(std::string_view words) { return {std::string(words), Span::Kind::kTyped}; }
inline Span StandsFor(std::string_view word) { return {std::string(word), Span::Kind::kStandsFor}; }

struct Paragraph {
  Text Words;
};

/// How something is called: pieces that stay together at the end of a line.
struct Synopsis {
  std::string Program;
  std::vector<Text> Pieces;
};

struct Definition {
  Text Term;
  Text Means;
};
struct Definitions {
  std::string Of;  ///< what they explain, "Option"
  std::vector<Definition> Rows;
};

/// Lines as they are typed.
struct Example {
  std::vector<std::string> Lines;
};

using Block = std::variant<Paragraph, Synopsis, Definitions, Example>;

struct Section {
  std::string Heading;
  std::vector<Block> Blocks;
};

/// A page of the manual, of section 1.
struct Page {
  std::string Name;
  std::string Summary;  ///< one line, without a full stop
  std::vector<Section> Sections;
};

}  // namespace morvane::pages
