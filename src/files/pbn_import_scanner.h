#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace morvane::files {

/// `text` with LF for every line end (CR LF, CR, LF, and the CR CR LF that a CR LF becomes when it
/// is written once too often), and with ' ' for every other character below it: so whatever reads
/// the text knows one line end and one blank.
[[nodiscard]] std::string PlainText(std::string text);

/// What is not as PBN wants it, and the line (from 1) where it begins.
struct PbnFlaw {
  enum class Kind {
    kNoQuote,        ///< a value without its closing quote: it ends with its line
    kNoBracket,      ///< no "]" behind a value
    kNoOpening,      ///< a value and its "]", but no "[": skipped like other text
    kSurplus,        ///< text between a value and its "]", which is skipped
    kBareValue,      ///< a value without quotes
    kOpenComment,    ///< a "{" without "}": the comment ends with its line
    kTagsInComment,  ///< a comment in which lines begin with a tag
  };
  Kind What = Kind::kNoQuote;
  int Line = 0;

  bool operator==(const PbnFlaw&) const = default;
};

/// One tag pair, and what stands behind it up to the next.
struct PbnTagPair {
  std::string Name;   ///< as written
  std::string Value;  ///< without quotes and escapes; a line end within is a blank
  /// Without comments, in lines; cut behind `kLongestSection` bytes. Only of the tag whose sections
  /// the scanner was asked for.
  std::string Section;
  int Line = 0;                  ///< of its "[", from 1
  bool BehindBlankLine = false;  ///< a line of blanks stands between it and the tag before
  std::vector<PbnFlaw> Flaws;    ///< in it and in its section; the first few

  static constexpr std::size_t kLongestSection = 16384;
  static constexpr std::size_t kMostFlaws = 16;
};

/// Reads the tags of a PBN text one after the other, over comments and faults, in one pass.
class PbnImportScanner {
 public:
  /// `text` is a `PlainText` and outlives the scanner. Sections are kept of the tag `withSection`,
  /// in upper case.
  PbnImportScanner(std::string_view text, std::string_view withSection);

  /// Reads the next tag; false when there is none.
  bool Next(PbnTagPair& tag);

 private:
  [[nodiscard]] bool AtEnd() const { return at_ >= text_.size(); }
  [[nodiscard]] std::size_t EndOfLine(std::size_t at) const;
  [[nodiscard]] std::size_t BehindBlanks(std::size_t at) const;
  [[nodiscard]] bool MayBeginTag(std::size_t at) const;
  [[nodiscard]] bool LineBeginsTag(std::size_t at) const;
  [[nodiscard]] bool Closes(std::size_t quote) const;
  [[nodiscard]] bool NextIsBracket() const;

  void PassLineEnd();
  void PassLineEndWithin();
  bool SkipComment(PbnTagPair& tag);
  void SkipBraces(PbnTagPair& tag);
  void SkipGap(PbnTagPair& tag);
  void ToBracket(PbnTagPair& tag, bool keepSection);
  void PassQuotes(PbnTagPair& tag);
  void PassText();

  bool ReadName(PbnTagPair& tag);
  void ReadRest(PbnTagPair& tag);
  bool ReadQuoted(PbnTagPair& tag);
  void RecoverQuoted(PbnTagPair& tag);
  void ReadBare(PbnTagPair& tag);
  void ReadBracket(PbnTagPair& tag);

  std::string_view text_;
  std::string_view withSection_;
  std::size_t at_ = 0;
  int line_ = 1;
  std::size_t lastBrace_;  ///< the last "}"; npos without one
  /// A value that began in front of it was not closed up to here, so none that begins later and in
  /// front of it is.
  std::size_t openUntil_ = 0;
  bool lineHasText_ = false;  ///< the line at `at_`, in front of it
  bool blankLine_ = false;    ///< a line of blanks since the last tag
};

}  // namespace morvane::files
