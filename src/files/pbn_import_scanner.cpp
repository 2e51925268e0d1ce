#include "files/pbn_import_scanner.h"

#include <algorithm>
#include <utility>

#include "text/text.h"

namespace morvane::files {
namespace {

using Flaw = PbnFlaw::Kind;

// What the scanner tells apart, where each ends, and whether line ends may stand within:
//
//   {comment}             behind the next "}"; with its line where no "}" follows         yes
//   ;comment              with its line                                                   no
//   %line                 (its sign stands in the first column) with its line             no
//   between parts of tags blanks and comments, in front of anything else                  yes
//   name                  in front of the first that is no letter, digit or "_"           no
//   "value"               behind the quote that closes it; with its line where none does  yes
//   value without quotes  with its "]", in front of a "[", or with its line               no
//   text behind a value   with its "]"; it is a section where none follows on its line    no
//   section of a tag      in front of the next "[" that may begin a tag                   yes
//   "text" of a section   behind the next quote; without one on its line it is none       no
//
// Whatever fails to be read is looked at twice at most, so that the time grows with the text.

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsNameCharacter(char c) { return IsLetter(c) || (c >= '0' && c <= '9') || c == '_'; }

void AddFlaw(PbnTagPair& tag, Flaw what, int line) {
  if (tag.Flaws.size() < PbnTagPair::kMostFlaws) tag.Flaws.push_back({what, line});
}

void AddToSection(PbnTagPair& tag, std::string_view piece) {
  tag.Section += piece.substr(0, PbnTagPair::kLongestSection - tag.Section.size());
}

/// Whether an escape stands at `at`: a backslash in front of a quote or another backslash. Any
/// other backslash is a character like others.
bool IsEscape(std::string_view text, std::size_t at) {
  return text[at] == '\\' && at + 1 < text.size() && (text[at + 1] == '"' || text[at + 1] == '\\');
}

std::string WithoutEscapes(std::string_view raw) {
  std::string value;
  for (std::size_t i = 0; i < raw.size(); ++i) {
    if (IsEscape(raw, i)) ++i;
    value += raw[i];
  }
  return value;
}

std::string_view TrimEnd(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace

std::string PlainText(std::string text) {
  std::size_t to = 0;
  for (std::size_t from = 0; from < text.size(); ++from) {
    char c = text[from];
    if (c == '\r') {
      const std::string_view rest = std::string_view(text).substr(from + 1, 2);
      from += rest.starts_with('\n') ? 1 : rest == "\r\n" ? 2 : 0;
      c = '\n';
    }
    if (c != '\n' && static_cast<unsigned char>(c) < ' ') c = ' ';
    text[to++] = c;
  }
  text.resize(to);
  return text;
}

PbnImportScanner::PbnImportScanner(std::string_view text, std::string_view withSection)
    : text_(text), withSection_(withSection), lastBrace_(text.rfind('}')) {}

bool PbnImportScanner::Next(PbnTagPair& tag) {
  tag = PbnTagPair{};
  do {
    ToBracket(tag, false);
    if (AtEnd()) return false;
  } while (!ReadName(tag));
  tag.BehindBlankLine = blankLine_;
  ReadRest(tag);
  lineHasText_ = true;
  ToBracket(tag, tag.Name.size() == withSection_.size() && UpperCase(tag.Name) == withSection_);
  return true;
}

std::size_t PbnImportScanner::EndOfLine(std::size_t at) const {
  return std::min(text_.find('\n', at), text_.size());
}

/// The place of the first character from `at` on that is no blank; a line end is none.
std::size_t PbnImportScanner::BehindBlanks(std::size_t at) const {
  return std::min(text_.find_first_not_of(' ', at), text_.size());
}

/// Whether a tag may begin at `at`. Text in brackets that does not begin with a letter is none.
bool PbnImportScanner::MayBeginTag(std::size_t at) const {
  if (at >= text_.size() || text_[at] != '[') return false;
  at = BehindBlanks(at + 1);
  if (at >= text_.size()) return false;
  const char c = text_[at];
  return IsLetter(c) || c == '\n' || c == '{' || c == ';';
}

bool PbnImportScanner::LineBeginsTag(std::size_t at) const { return MayBeginTag(BehindBlanks(at)); }

/// Whether the quote ends its value: it does unless another quote follows in front of the bracket,
/// as in [Event "The "Big" Game"].
bool PbnImportScanner::Closes(std::size_t quote) const {
  std::size_t next = BehindBlanks(quote + 1);
  if (next >= text_.size()) return true;
  if (std::string_view("[{;").find(text_[next]) != std::string_view::npos) return true;
  next = text_.find_first_of("\"]\n", next);
  return next == std::string_view::npos || text_[next] != '"';
}

/// Whether the next character on this line but for blanks is a closing bracket.
bool PbnImportScanner::NextIsBracket() const {
  const std::size_t next = BehindBlanks(at_);
  return next < text_.size() && text_[next] == ']';
}

/// The only way over a line end.
void PbnImportScanner::PassLineEnd() {
  blankLine_ = blankLine_ || !lineHasText_;
  lineHasText_ = false;
  ++at_;
  ++line_;
}

/// The same within a comment or a value, where no line is one of blanks.
void PbnImportScanner::PassLineEndWithin() {
  lineHasText_ = true;
  PassLineEnd();
}

/// Skips the comment or the escaped line at this place, if there is one.
bool PbnImportScanner::SkipComment(PbnTagPair& tag) {
  const char c = text_[at_];
  const bool lineStart = at_ == 0 || text_[at_ - 1] == '\n';
  if (c != '{' && c != ';' && !(c == '%' && lineStart)) return false;
  if (c == '{') {
    SkipBraces(tag);
  } else {
    at_ = EndOfLine(at_);
  }
  lineHasText_ = true;
  return true;
}

void PbnImportScanner::SkipBraces(PbnTagPair& tag) {
  const int start = line_;
  if (lastBrace_ == std::string_view::npos || lastBrace_ < at_) {
    AddFlaw(tag, Flaw::kOpenComment, start);
    at_ = EndOfLine(at_);
    return;
  }
  bool hidesTags = false;
  for (;;) {
    at_ = text_.find_first_of("}\n", at_);
    if (text_[at_] == '}') break;
    PassLineEndWithin();
    hidesTags = hidesTags || LineBeginsTag(at_);
  }
  ++at_;
  if (hidesTags) AddFlaw(tag, Flaw::kTagsInComment, start);
}

/// Skips what may stand between the parts of a tag.
void PbnImportScanner::SkipGap(PbnTagPair& tag) {
  while (!AtEnd()) {
    if (text_[at_] == '\n') {
      PassLineEnd();
    } else if (text_[at_] == ' ') {
      ++at_;
    } else if (!SkipComment(tag)) {
      return;
    }
  }
}

/// Goes on to the next bracket that may begin a tag; what stands in front of it, comments left out,
/// is the section.
void PbnImportScanner::ToBracket(PbnTagPair& tag, bool keepSection) {
  while (!AtEnd() && !MayBeginTag(at_)) {
    if (SkipComment(tag)) continue;
    const std::size_t start = at_;
    if (text_[at_] == '\n') {
      PassLineEnd();
    } else if (text_[at_] == '"') {
      PassQuotes(tag);
    } else {
      PassText();
    }
    if (keepSection) AddToSection(tag, text_.substr(start, at_ - start));
  }
}

/// A bracket within quotes is text, if the quotes are closed on their line.
void PbnImportScanner::PassQuotes(PbnTagPair& tag) {
  lineHasText_ = true;
  ++at_;
  const std::size_t close = text_.find_first_of("\"\n", at_);
  if (close == std::string_view::npos || text_[close] != '"') return;
  at_ = close + 1;
  if (NextIsBracket()) AddFlaw(tag, Flaw::kNoOpening, line_);
}

/// Goes on to the next character that may be more than text.
void PbnImportScanner::PassText() {
  const std::size_t end = std::min(text_.find_first_of("[{;%\"\n", at_ + 1), text_.size());
  lineHasText_ = lineHasText_ || BehindBlanks(at_) < end;
  at_ = end;
}

/// Reads the bracket and the name. False: this is no tag.
bool PbnImportScanner::ReadName(PbnTagPair& tag) {
  tag.Line = line_;
  ++at_;
  lineHasText_ = true;
  SkipGap(tag);
  if (AtEnd() || !IsLetter(text_[at_])) return false;
  const std::size_t start = at_;
  while (!AtEnd() && IsNameCharacter(text_[at_])) ++at_;
  tag.Name = text_.substr(start, at_ - start);
  return true;
}

void PbnImportScanner::ReadRest(PbnTagPair& tag) {
  SkipGap(tag);
  blankLine_ = false;
  if (AtEnd() || text_[at_] != '"') return ReadBare(tag);
  if (!ReadQuoted(tag)) return RecoverQuoted(tag);
  ReadBracket(tag);
}

/// Reads a value from its quote on. False, and nothing is read: the value is not closed before the
/// next line that begins a tag, or its line ends with a bracket.
bool PbnImportScanner::ReadQuoted(PbnTagPair& tag) {
  if (at_ < openUntil_) return false;
  const std::size_t start = at_;
  const int startLine = line_;
  std::string value;
  char last = 0;  // no blank
  ++at_;
  while (!AtEnd()) {
    if (text_[at_] == '\n') {
      if (last == ']' || LineBeginsTag(at_ + 1)) break;
      PassLineEndWithin();
      value += ' ';
      continue;
    }
    if (text_[at_] == '"' && Closes(at_)) {
      ++at_;
      lineHasText_ = true;
      tag.Value = std::move(value);
      return true;
    }
    if (IsEscape(text_, at_)) ++at_;
    const char c = text_[at_++];
    if (c != ' ') last = c;
    value += c;
  }
  openUntil_ = at_;
  at_ = start;
  line_ = startLine;
  return false;
}

/// Takes the rest of the line for the value.
void PbnImportScanner::RecoverQuoted(PbnTagPair& tag) {
  AddFlaw(tag, Flaw::kNoQuote, tag.Line);
  const std::size_t end = EndOfLine(at_);
  std::string_view raw = TrimEnd(text_.substr(at_ + 1, end - at_ - 1));
  if (raw.ends_with(']')) raw = TrimEnd(raw.substr(0, raw.size() - 1));
  // The backslash at the end of a folder is no escape: [Site "C:\"].
  if (raw.ends_with('"')) raw.remove_suffix(1);
  tag.Value = WithoutEscapes(raw);
  at_ = end;
}

void PbnImportScanner::ReadBare(PbnTagPair& tag) {
  AddFlaw(tag, Flaw::kBareValue, tag.Line);
  const std::size_t end = std::min(text_.find_first_of("]\n[", at_), text_.size());
  std::string_view raw = TrimEnd(text_.substr(at_, end - at_));
  if (raw.ends_with('"')) raw.remove_suffix(1);
  tag.Value = WithoutEscapes(raw);
  at_ = end;
  if (!AtEnd() && text_[at_] == ']') ++at_;
}

void PbnImportScanner::ReadBracket(PbnTagPair& tag) {
  const int valueLine = line_;
  SkipGap(tag);
  if (!AtEnd() && text_[at_] == ']') {
    ++at_;
    blankLine_ = false;
    return;
  }
  // On a later line it is the tag's section.
  const std::size_t next =
      line_ == valueLine ? text_.find_first_of("]\n[\"", at_) : std::string_view::npos;
  if (next == std::string_view::npos || text_[next] != ']') {
    AddFlaw(tag, Flaw::kNoBracket, tag.Line);
    return;
  }
  AddFlaw(tag, Flaw::kSurplus, tag.Line);
  at_ = next + 1;
}

}  // namespace morvane::files
