#include "support/frame_list.h"

#include <cctype>
#include <cstdio>
#include <sstream>

namespace morvane::test {
namespace {

constexpr std::size_t kHead = 7;
constexpr std::size_t kPayload = 8;

/// One line of the list.
struct Line {
  std::vector<std::string> Head;
  std::string Digits;  ///< of the payload
  int Times = 1;
};

Line Parsed(const std::string& text) {
  Line line;
  std::istringstream words(text);
  bool payload = false;
  for (std::string word; words >> word;) {
    if (word == "|") {
      payload = true;
    } else if (word[0] == 'x') {
      line.Times = std::stoi(word.substr(1));
    } else if (payload) {
      line.Digits += word;
    } else {
      line.Head.push_back(word);
    }
  }
  return line;
}

bool ByteIs(const std::string& word, std::uint8_t byte, std::uint8_t before) {
  if (word == "..") return byte < 255;
  if (word == "==") return byte == before;
  return std::stoi(word, nullptr, 16) == byte;
}

bool FrameIs(const Line& line, const Bytes& frame, const Bytes& before) {
  if (line.Head.size() != kHead || line.Digits.empty() != (frame.size() == kPayload)) return false;
  for (std::size_t i = 0; i < kHead; ++i) {
    if (!ByteIs(line.Head[i], frame[i], before[i])) return false;
  }
  for (std::size_t i = 0; i < line.Digits.size(); ++i) {
    if (frame.at(kPayload + i) != line.Digits[i] - '0') return false;
  }
  return true;
}

std::string Shown(const Bytes& frame) {
  std::string text;
  for (std::size_t i = 0; i < kHead; ++i) {
    char hex[4];
    std::snprintf(hex, sizeof hex, "%02X ", frame[i]);
    text += hex;
  }
  if (frame.size() == kPayload) return text;
  text += "|";
  for (std::size_t i = kPayload; i < kPayload + 55; ++i) {
    text += ((i - kPayload) % 13 == 0 ? " " : "") + std::to_string(frame[i]);
  }
  return text;
}

std::string ShownAll(const std::vector<Bytes>& sent) {
  std::string text = "\nsent:";
  for (const Bytes& frame : sent) text += "\n  " + Shown(frame);
  return text;
}

}  // namespace

::testing::AssertionResult FramesAre(const std::vector<Bytes>& sent,
                                     const std::vector<std::string>& lines) {
  std::size_t at = 0;
  for (const std::string& text : lines) {
    const Line line = Parsed(text);
    for (int time = 0; time < line.Times; ++time, ++at) {
      const Bytes none(kPayload);
      const bool there = at < sent.size();
      if (there && FrameIs(line, sent[at], at == 0 ? none : sent[at - 1])) continue;
      return ::testing::AssertionFailure()
             << "frame " << at << " is not \"" << text << "\"" << ShownAll(sent);
    }
  }
  if (at == sent.size()) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "more than " << at << " frames" << ShownAll(sent);
}

}  // namespace morvane::test
