// The first byte of an input chooses; see `Choice`. Without the tables of a PBN file the next byte
// says how many definitions follow, of two bytes each: a character and a kind. The rest is the
// source.

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "files/text_scan.h"
#include "support.h"
#include "text/text_encoding.h"
#include "text/text_lines.h"

namespace {

using namespace morvane;
using namespace morvane::files;

enum Choice : unsigned { kPbnTables = 1, kFromFile = 2, kUpshift = 4, kAgain = 8 };

unsigned TakeByte(std::string_view& input) {
  if (input.empty()) return 0;
  const auto byte = static_cast<unsigned char>(input[0]);
  input.remove_prefix(1);
  return byte;
}

void DefineTables(TextScan& scan, unsigned choice, std::string_view& input) {
  scan.UpshiftIdentifiers = (choice & kUpshift) != 0;
  if ((choice & kPbnTables) != 0) {
    scan.InitPbnScan();
  } else {
    for (unsigned count = TakeByte(input) % 32; count > 0 && input.size() >= 2; --count) {
      const std::string_view character = input.substr(0, 1);
      input.remove_prefix(1);
      // The end must stay the end.
      const auto kind = static_cast<std::int16_t>(TakeByte(input) % 20);
      scan.DefineToken(character, kind == kTokEof ? std::int16_t{kTokSpace} : kind, kind);
    }
  }
  scan.AddKeyword("Board", 7);
  scan.AddKeyword("deal", 0);
}

void CheckToken(const Token& token) {
  if (token.Kind == kTokKeyword && token.Value != 12) Require(token.Value == 7 || token.Value == 2);
  Require(token.Text.size() <= token.Raw.size());
  Require(!TextScan::TokenName(token.Kind).empty());
}

/// The source as the tokens give it back; aborts when they do not end in time.
std::string AllRaw(TextScan& scan, std::size_t mostTokens) {
  std::string raw;
  for (Token token = scan.GetToken(); token.Kind != kTokEof; token = scan.GetToken()) {
    Require(mostTokens > 0);
    --mostTokens;
    CheckToken(token);
    raw += token.Raw;
  }
  Require(scan.GetToken().Kind == kTokEof);
  return raw;
}

void ScanText(TextScan& scan, std::string_view source) {
  scan.SetCurrentText(std::string(source));
  Require(AllRaw(scan, source.size() + 1) == source);
}

/// The path of a file in memory with this content; it goes with the process, also behind a finding.
std::string FileOf(std::string_view content) {
  static const int file = memfd_create("text_scan_fuzz", MFD_CLOEXEC);
  Require(file >= 0 && ftruncate(file, 0) == 0);
  Require(pwrite(file, content.data(), content.size(), 0) == std::ssize(content));
  return "/proc/self/fd/" + std::to_string(file);
}

/// The same as a file, whose lines are scanned one after the other.
void ScanFile(TextScan& scan, std::string_view source) {
  scan.SetInputFileName(FileOf(source));
  const std::string text = DecodeText(std::string(source));
  std::string joined;
  std::size_t count = 0;
  Lines lines(text);
  for (std::string_view line; lines.Next(line); ++count) joined += line;
  Require(AllRaw(scan, joined.size() + count) == joined);
  Require(!scan.FileFailure());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  std::string_view input = bytes;
  const unsigned choice = TakeByte(input);
  TextScan scan;
  DefineTables(scan, choice, input);
  scan.ReturnSpaces = true;
  scan.ReturnLineEnds = true;
  // A comment left open by the first text goes on in the second.
  for (int round = (choice & kAgain) != 0 ? 2 : 1; round > 0; --round) {
    if ((choice & kFromFile) != 0) {
      ScanFile(scan, input);
    } else {
      ScanText(scan, input);
    }
  }
  // Spaces skipped and ends left out, it comes to an end all the same.
  scan.ReturnSpaces = false;
  scan.ReturnLineEnds = false;
  scan.SetCurrentText(std::string(input));
  AllRaw(scan, input.size() + 1);
  return 0;
}
