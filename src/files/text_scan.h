#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "platform/runtime_error.h"

namespace morvane::files {

/// What a token is, and what a character starts. Kinds above these are their users' own: such a
/// character is a token by itself.
enum TokenKind : std::int16_t {
  kTokNone = 0,
  kTokEof = 1,
  kTokEol = 2,
  kTokBad = 3,  ///< a character without a class
  kTokSpace = 4,
  kTokComment = 5,
  kTokComStart = 6,  ///< opens a comment of any number of lines
  kTokComEnd = 7,    ///< closes it
  kTokSeparator = 8,
  kTokNumber = 9,
  kTokString = 10,
  kTokIdentifier = 11,
  kTokKeyword = 12,
  kTokBody = 13,  ///< no token: for `DefineToken`, the characters that continue an identifier
};

struct Token {
  std::int16_t Kind = kTokBad;
  std::string Text;  ///< without the quotes of a string; as looked up where it is an identifier
  /// As its first character or its keyword has it, 0 where an open comment goes on. A character
  /// without a class and an end have that of the spaces skipped before them, -1 without any.
  std::int32_t Value = -1;
  std::string Raw;  ///< the very characters of the source; empty for the end of a text

  bool operator==(const Token&) const = default;
};

/// Cuts a text or a file into tokens, by tables of what each character starts. Texts are UTF-8; the
/// tables hold whole characters.
///
/// A file is opened by the first `GetToken` that runs out of text. When that fails, `GetToken`
/// gives `kTokEof` and `FileFailure` says why.
class TextScan {
 public:
  bool UpshiftIdentifiers = false;  ///< to upper case, before they are looked up as keywords
  bool ReturnSpaces = false;        ///< as tokens; otherwise they only separate
  bool ReturnLineEnds = false;  ///< as tokens, at the end of each text; `InitPbnScan` turns it on

  /// Makes `text` the one to scan, from its start. An open comment stays open.
  void SetCurrentText(std::string text);
  /// The file that follows the current text, line by line; none when empty.
  void SetInputFileName(std::string name);
  /// What went wrong with the file named last.
  [[nodiscard]] const std::optional<RuntimeError>& FileFailure() const { return fileFailure_; }

  // Nothing ever writes these three: required.
  [[nodiscard]] std::int32_t CurrentLineNo() const { return 0; }
  [[nodiscard]] std::int32_t LastErrorNo() const { return 0; }
  [[nodiscard]] std::string LastErrorText() const { return {}; }

  /// Makes `keyword`, trimmed, a keyword or gives it another value. The value that it then has: 0
  /// becomes its number in order of definition, from 1. An empty one is not stored.
  std::int32_t AddKeyword(std::string_view keyword, std::int32_t value);
  void ClearKeywords() { keywords_.clear(); }

  /// Empties the table of characters and those that continue an identifier; ends an open comment.
  void ClearTokens();
  /// `DefineToken` for each of `characters`.
  void DefineCharacterSet(std::string_view characters, std::int16_t kind, std::int32_t value);
  /// Says what one character starts, and the value of that token. More characters than one change
  /// nothing, except for `kTokBody`.
  void DefineToken(std::string_view text, std::int16_t kind, std::int32_t value);
  /// The tables of a PBN file; the current text is scanned from its start.
  void InitPbnScan();

  /// The next token; `kTokEof` when there is none, until another text or file is given.
  [[nodiscard]] Token GetToken();

  /// The name of a kind; "Token" and four digits for one that has none of its own.
  [[nodiscard]] static std::string TokenName(std::int16_t kind);

 private:
  // Tokens of several characters have no table: no operation could fill one.
  struct CharacterClass {
    std::int16_t Kind = kTokBad;
    std::int32_t Value = 0;
  };
  struct Keyword {
    std::int32_t Number = 0;  ///< in order of definition, from 1
    std::int32_t Value = 0;
  };

  [[nodiscard]] std::string_view Present() const;
  [[nodiscard]] const CharacterClass* ClassOf(std::string_view character) const;
  [[nodiscard]] std::int16_t KindOf(std::string_view character) const;
  [[nodiscard]] std::size_t LineEndFrom(std::size_t at) const;
  bool ScanCharacter(Token& token);
  bool ScanEnd(Token& token);
  void ScanIdentifier(Token& token);
  std::string ScanString(std::string_view quote);
  void SkipComment();
  template <typename Condition>
  void SkipWhile(Condition condition);
  void OpenFile();
  void ReadLine();

  std::map<std::string, CharacterClass, std::less<>> characters_;
  std::set<std::string, std::less<>> identifierBody_;
  std::map<std::string, Keyword, std::less<>> keywords_;

  std::string text_;
  std::size_t start_ = 0;     ///< of the present token
  std::size_t position_ = 0;  ///< of the next character
  std::size_t lineEnd_ = 0;   ///< of the line that a character of kind 2 or a new text began
  bool lineEndPending_ = false;
  bool inComment_ = false;
  /// Quotes that nothing in the rest of the text closes, so that it is searched but once for each.
  std::set<std::string, std::less<>> unclosed_;

  std::string inputFileName_;
  bool openPending_ = false;
  bool fileOpen_ = false;
  std::deque<std::string> fileLines_;  ///< of the open file, still to come
  std::optional<RuntimeError> fileFailure_;
};

}  // namespace morvane::files
