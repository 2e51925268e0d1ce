#pragma once

#include <ostream>

#include "files/text_scan.h"

namespace morvane::files {

inline void PrintTo(const Token& token, std::ostream* out) {
  *out << TextScan::TokenName(token.Kind) << " '" << token.Text << "' " << token.Value << " raw '"
       << token.Raw << "'";
}

/// All tokens of `scan` up to the end, the end itself left out; fails when there is none.
inline std::vector<Token> TokensOf(TextScan& scan) {
  constexpr std::size_t kMany = 1'000'000;
  std::vector<Token> tokens;
  for (Token token = scan.GetToken(); token.Kind != kTokEof; token = scan.GetToken()) {
    tokens.push_back(token);
    if (tokens.size() == kMany) {
      ADD_FAILURE() << "no end";
      break;
    }
  }
  return tokens;
}

/// The tokens of `text` by the tables of a PBN file.
inline std::vector<Token> PbnTokensOf(const std::string& text) {
  TextScan scan;
  scan.InitPbnScan();
  scan.SetCurrentText(text);
  return TokensOf(scan);
}

inline const Token kPendingLineEnd{kTokEol, "", -1, ""};

}  // namespace morvane::files
