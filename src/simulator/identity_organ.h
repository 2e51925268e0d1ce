#pragma once

#include "simulator/options.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// What kind of machine it is: versions, serial number, hardware, date of manufacture.
class IdentityOrgan {
 public:
  /// `options` outlive it, and may change.
  explicit IdentityOrgan(const Options& options) : options_(options) {}

  /// As `RunOrgan::Answer`.
  bool Answer(const wire::Frame& command, wire::Frame& reply) const;

 private:
  bool AnswerVersion(wire::Frame& reply) const;
  bool AnswerPage(const wire::Frame& command, wire::Frame& reply) const;
  [[nodiscard]] std::uint16_t DayAndMonth() const;
  bool AnswerStoredData(const wire::Frame& command, wire::Frame& reply) const;

  const Options& options_;
};

}  // namespace morvane::simulator
