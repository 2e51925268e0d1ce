#pragma once

#include <string>

#include "wire/service_replies.h"

namespace morvane::maintenance {

/// What the machine took a card for, as its boxes show it; empty before the first.
struct Verdict {
  std::string Reco_time;
  std::string Threshold;
  std::string Symbol;
  std::string Suit;
  std::string Reco_error;

  void Take(const wire::VerdictReply& reply);
  /// The verdict of the last error of a run: what the machine saw is named although it is one.
  void TakeError(const wire::VerdictReply& reply);
};

}  // namespace morvane::maintenance
