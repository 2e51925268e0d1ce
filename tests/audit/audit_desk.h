#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "audit/log_audit.h"
#include "generate/generate_set.h"
#include "generate/seeds.h"
#include "support/fakes.h"

namespace morvane::audit {

inline const std::string kSeedr = "000102030405060708090A0B0C0D0E0F10111213";
inline const std::string kSeedo = "A0A1A2A3A4A5A6A7A8A9AAABACADAEAFB0B1B2B3";

/// A program that makes sets and logs them.
struct AuditDesk : test::TestDesk {
  generate::GenerateEnd Make(int first, int last, generate::RejectionSwitches reject = {},
                             const std::string& seedr = kSeedr) {
    EXPECT_TRUE(generate::UseNumberSeeds(Prog, Gen.Number, seedr, kSeedo));
    return Run(first, last, reject, generate::DealGenerator::kNumber);
  }
  void Shuffle(int first, int last, const std::string& seed = std::string(32, '5')) {
    EXPECT_TRUE(generate::UseLfsrSeed(Prog, Gen.Shuffling, seed));
    Run(first, last, {}, generate::DealGenerator::kShuffling);
  }
  void LeaveEmpty(int first, int last) {
    generate::GenerateRequest request{std::to_string(first), std::to_string(last), false, {}, {}};
    generate::GenerateSet(Prog, Gen, History, request, view_);
  }
  [[nodiscard]] std::string Log() const { return test::Content(Prog.Log.Path()); }

  generate::Generator Gen{Prog};
  history::HistoryRing History;

 private:
  class NoView final : public generate::GenerateView {
   public:
    void RunStarts() override {}
    void BoardsGen(int /*count*/) override {}
  };
  generate::GenerateEnd Run(int first, int last, generate::RejectionSwitches reject,
                            generate::DealGenerator with) {
    const generate::GenerateRequest request{std::to_string(first), std::to_string(last), true, with,
                                            reject};
    return generate::GenerateSet(Prog, Gen, History, request, view_).End;
  }
  NoView view_;
};

/// All that is found in the text of a log.
struct Audited {
  std::vector<SetAudit> Sets;
  int Checked = 0;
  int Same = 0;
  std::vector<std::size_t> UnusedSeeds;
};

inline Audited Audit(std::string_view text) {
  Audited result;
  LogAudit log([&result](const SetAudit& set) { result.Sets.push_back(set); });
  log.Add(text);
  log.End();
  result.Checked = log.Checked();
  result.Same = log.Same();
  result.UnusedSeeds = log.UnusedSeeds();
  return result;
}

/// The one set in a log; fails the test when there is another number of them.
inline SetAudit OnlySet(std::string_view text) {
  auto sets = Audit(text).Sets;
  EXPECT_EQ(sets.size(), 1U);
  return sets.empty() ? SetAudit{} : sets.front();
}

/// The lines of a log, which is to be changed somewhere.
class LogText {
 public:
  explicit LogText(const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = text.find("\r\n", at);
      lines_.push_back(text.substr(at, end - at));
      at = end + 2;
    }
  }
  /// The first line that starts so; throws, which fails the test, when there is none.
  [[nodiscard]] std::size_t Find(const std::string& start, std::size_t from = 0) const {
    for (std::size_t i = from; i < lines_.size(); ++i) {
      if (lines_[i].starts_with(start)) return i;
    }
    throw std::runtime_error("no such line: " + start);
  }
  std::string& operator[](std::size_t line) { return lines_.at(line); }
  std::string& At(const std::string& start) { return lines_[Find(start)]; }
  void Remove(std::size_t line) { lines_.erase(At(line)); }
  void Insert(std::size_t line, const std::string& text) { lines_.insert(At(line), text); }
  void Swap(std::size_t a, std::size_t b) { std::swap(lines_.at(a), lines_.at(b)); }
  [[nodiscard]] std::size_t Size() const { return lines_.size(); }
  [[nodiscard]] std::string Text() const {
    std::string text;
    for (const std::string& line : lines_) text += line + "\r\n";
    return text;
  }

 private:
  std::vector<std::string>::iterator At(std::size_t line) {
    return lines_.begin() + static_cast<std::ptrdiff_t>(line);
  }
  std::vector<std::string> lines_;
};

/// What is wrong with a board, without the line; differences as "hands,number,counter".
inline std::string Told(const BoardFinding& finding) {
  const std::string board = std::to_string(finding.Number);
  switch (finding.Is) {
    case BoardFinding::kMissing:
      return board + " missing";
    case BoardFinding::kTwice:
      return board + " twice";
    case BoardFinding::kNotInRange:
      return board + " not in range";
    case BoardFinding::kOutOfOrder:
      return board + " out of order";
    case BoardFinding::kDiffers:
      break;
  }
  if (finding.CannotBeDealt) return board + " cannot be dealt";
  return board + (finding.Hands ? " hands" : "") + (finding.DealNumber ? " number" : "") +
         (finding.DealCounter ? " counter" : "") + (finding.BeyondReach ? " beyond reach" : "");
}

inline std::vector<std::string> Told(const SetAudit& set) {
  std::vector<std::string> told;
  for (const BoardFinding& finding : set.Findings) told.push_back(Told(finding));
  return told;
}

}  // namespace morvane::audit
