#include "files/text_scan.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "platform/files.h"
#include "text/box_text.h"
#include "text/text.h"
#include "text/text_encoding.h"
#include "text/text_lines.h"

namespace morvane::files {
namespace {

constexpr std::array<std::string_view, 13> kTokenNames{
    "tokNone",    "tokEof",        "tokEol",    "tokBad",       "tokSpace",
    "tokComment", "tokComStart",   "tokComEnd", "tokSeparator", "tokNumber",
    "tokString",  "tokIdentifier", "tokKeyword"};
constexpr std::string_view kNumericCharacters = "0123456789.";
constexpr std::string_view kLineBreaks = "\r\n\f";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kCapitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kSmallLetters = "abcdefghijklmnopqrstuvwxyz";

/// Where the line that `text` has at `from` ends.
std::size_t LineBreak(std::string_view text, std::size_t from) {
  return std::min(text.find_first_of(kLineBreaks, from), text.size());
}

}  // namespace

void TextScan::SetCurrentText(std::string text) {
  text_ = std::move(text);
  position_ = 0;
  lineEnd_ = LineBreak(text_, 0);
  lineEndPending_ = true;
  unclosed_.clear();
}

void TextScan::SetInputFileName(std::string name) {
  inputFileName_ = std::move(name);
  openPending_ = !inputFileName_.empty();
  fileFailure_.reset();
}

std::int32_t TextScan::AddKeyword(std::string_view keyword, std::int32_t value) {
  std::string name = Trim(keyword);
  if (name.empty()) return value;
  if (UpshiftIdentifiers) name = UpperCase(name);
  const auto number = static_cast<std::int32_t>(keywords_.size()) + 1;
  Keyword& entry = keywords_.try_emplace(std::move(name), Keyword{number, 0}).first->second;
  entry.Value = value == 0 ? entry.Number : value;
  return entry.Value;
}

void TextScan::ClearTokens() {
  characters_.clear();
  identifierBody_.clear();
  inComment_ = false;
}

void TextScan::DefineCharacterSet(std::string_view characters, std::int16_t kind,
                                  std::int32_t value) {
  while (!characters.empty()) {
    const std::string_view character = CharacterAt(characters, 0);
    DefineToken(character, kind, value);
    characters.remove_prefix(character.size());
  }
}

void TextScan::DefineToken(std::string_view text, std::int16_t kind, std::int32_t value) {
  if (kind == kTokBody) {
    for (; !text.empty(); text.remove_prefix(CharacterAt(text, 0).size())) {
      identifierBody_.emplace(CharacterAt(text, 0));
    }
  } else if (!text.empty() && CharacterAt(text, 0) == text) {
    characters_.insert_or_assign(std::string(text), CharacterClass{kind, value});
  }
}

void TextScan::InitPbnScan() {
  ClearTokens();
  ClearKeywords();
  DefineCharacterSet(" \b", kTokSpace, 0);  // backspace and no tab: required
  DefineCharacterSet(kDigits, kTokNumber, 0);
  for (const std::string_view letters : {kCapitals, kSmallLetters}) {
    DefineCharacterSet(letters, kTokIdentifier, 0);
    DefineToken(letters, kTokBody, 0);
  }
  DefineToken(kDigits, kTokBody, 0);
  DefineCharacterSet("+-*/<>=", kTokSeparator, 0);
  DefineCharacterSet(R"(,.;!?(){}[]:|@#$%^&\'")", kTokSeparator, 0);
  // Four of the separators mean more than themselves.
  DefineToken("{", kTokComStart, 0);
  DefineToken("}", kTokComEnd, 0);
  DefineToken("%", kTokComment, 0);
  DefineToken("\"", kTokString, 0);
  position_ = 0;
  unclosed_.clear();
  ReturnLineEnds = true;
  inComment_ = false;
}

Token TextScan::GetToken() {
  Token token;
  bool found = false;
  while (!found) {
    start_ = position_;
    found = position_ < text_.size() ? ScanCharacter(token) : ScanEnd(token);
  }
  token.Raw = Present();
  return token;
}

std::string TextScan::TokenName(std::int16_t kind) {
  constexpr std::size_t kShown = 4;
  if (kind >= 0 && static_cast<std::size_t>(kind) < kTokenNames.size()) {
    return std::string(kTokenNames[static_cast<std::size_t>(kind)]);
  }
  const std::string digits = "000" + std::to_string(std::abs(int{kind}));
  return (kind < 0 ? "Token-" : "Token") + digits.substr(digits.size() - kShown);
}

/// What has been scanned of the present token.
std::string_view TextScan::Present() const {
  return std::string_view(text_).substr(start_, position_ - start_);
}

const TextScan::CharacterClass* TextScan::ClassOf(std::string_view character) const {
  const auto at = characters_.find(character);
  return at == characters_.end() ? nullptr : &at->second;
}

std::int16_t TextScan::KindOf(std::string_view character) const {
  const CharacterClass* const known = ClassOf(character);
  return known == nullptr ? std::int16_t{kTokBad} : known->Kind;
}

/// Where the line at `at` ends. Without characters of kind 2 the line end that is kept falls
/// behind, and going back to it would never come to an end.
std::size_t TextScan::LineEndFrom(std::size_t at) const {
  return lineEnd_ >= at ? lineEnd_ : LineBreak(text_, at);
}

/// The token at the next character. False: spaces, which are not wanted.
bool TextScan::ScanCharacter(Token& token) {
  if (inComment_) {
    token.Kind = kTokComment;
    token.Value = 0;
    SkipComment();
    token.Text = Present();
    return true;
  }
  const std::string_view first = CharacterAt(text_, position_);
  const CharacterClass* const known = ClassOf(first);
  position_ += first.size();
  token.Kind = known == nullptr ? std::int16_t{kTokBad} : known->Kind;
  if (known != nullptr) token.Value = known->Value;
  switch (token.Kind) {
    case kTokSpace:
      SkipWhile([&](std::string_view next) { return KindOf(next) == kTokSpace; });
      if (!ReturnSpaces) return false;
      break;
    case kTokIdentifier:
      ScanIdentifier(token);
      return true;
    case kTokNumber:
      SkipWhile([](std::string_view next) {
        return kNumericCharacters.find(next) != std::string_view::npos;
      });
      break;
    case kTokString:
      token.Text = ScanString(first);
      return true;
    case kTokComment:
      position_ = LineEndFrom(position_);
      break;
    case kTokEol:
      lineEnd_ =
          LineBreak(std::string_view(text_).substr(0, text_.find(first, position_)), position_);
      break;
    case kTokComStart:
      inComment_ = true;
      token.Kind = kTokComment;
      SkipComment();
      break;
    case kTokComEnd:
      token.Kind = kTokComment;
      break;
    default:
      break;
  }
  token.Text = Present();
  return true;
}

/// The token behind the text, or the next line of the file. False: look again.
bool TextScan::ScanEnd(Token& token) {
  if (lineEndPending_) {
    lineEndPending_ = false;
    token.Kind = kTokEol;
    return ReturnLineEnds;
  }
  if (fileOpen_) {
    ReadLine();
    return false;
  }
  if (openPending_) {
    OpenFile();
    return false;
  }
  token.Kind = kTokEof;
  return true;
}

void TextScan::ScanIdentifier(Token& token) {
  SkipWhile([&](std::string_view next) { return identifierBody_.contains(next); });
  token.Text = UpshiftIdentifiers ? UpperCase(Present()) : std::string(Present());
  const auto keyword = keywords_.find(token.Text);
  if (keyword == keywords_.end()) return;
  token.Kind = kTokKeyword;
  token.Value = keyword->second.Value;
}

/// What stands behind `quote` up to the one that closes it, or to the end of the line.
std::string TextScan::ScanString(std::string_view quote) {
  const std::size_t body = position_;
  std::size_t end = unclosed_.contains(quote) ? std::string::npos : text_.find(quote, body);
  // A "/" in front of a quote makes both part of the string, except at the end of the text; a
  // doubled quote ends the string: required.
  while (end < text_.size() - quote.size() && text_[end - 1] == '/') {
    end = text_.find(quote, end + quote.size());
  }
  if (end == std::string::npos) {
    unclosed_.emplace(quote);
    end = position_ = LineEndFrom(body);
  } else {
    position_ = end + quote.size();
  }
  const std::string twice = std::string(quote) + std::string(quote);
  return Fill(text_.substr(body, end - body), twice, quote);
}

/// Moves behind the character that closes the comment, or to the end of the text.
void TextScan::SkipComment() {
  while (inComment_ && position_ < text_.size()) {
    const std::string_view next = CharacterAt(text_, position_);
    position_ += next.size();
    inComment_ = KindOf(next) != kTokComEnd;
  }
}

template <typename Condition>
void TextScan::SkipWhile(Condition condition) {
  while (position_ < text_.size()) {
    const std::string_view next = CharacterAt(text_, position_);
    if (!condition(next)) return;
    position_ += next.size();
  }
}

void TextScan::OpenFile() {
  openPending_ = false;
  std::string bytes;
  fileFailure_ = ReadFile(inputFileName_, bytes);
  if (fileFailure_) return;
  fileOpen_ = true;
  const std::string text = DecodeText(std::move(bytes));
  Lines lines(text);
  for (std::string_view line; lines.Next(line);) fileLines_.emplace_back(line);
}

/// The next line of the file becomes the text; behind the last one the file is closed.
void TextScan::ReadLine() {
  if (!fileLines_.empty()) {
    SetCurrentText(std::move(fileLines_.front()));
    fileLines_.pop_front();
    return;
  }
  fileOpen_ = false;
  text_.clear();
  position_ = 0;
}

}  // namespace morvane::files
