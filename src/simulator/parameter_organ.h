#pragma once

#include "simulator/options.h"
#include "simulator/stored_parameters.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// The numbers of the camera. Blocks that the firmware or the hardware is too old for do not exist.
class ParameterOrgan {
 public:
  /// `options` as in `IdentityOrgan`; `parameters` outlive it too.
  ParameterOrgan(const Options& options, StoredParameters& parameters)
      : options_(options), parameters_(parameters) {}

  /// As `RunOrgan::Answer`, for what is read.
  bool Answer(const wire::Frame& command, wire::Frame& reply) const;
  /// Whether the plain write frame has been obeyed.
  bool Write(const wire::Frame& command);

  [[nodiscard]] const StoredParameters& Parameters() const { return parameters_; }
  /// That of the board switch which is in force: the one on trial until another is written, or the
  /// one that is kept.
  [[nodiscard]] std::uint8_t BoardSensitivity() const {
    return trial_.value_or(parameters_.Video.BoardSen);
  }
  /// The power has gone.
  void Forget() { trial_.reset(); }
  /// Whether there is a record for it.
  [[nodiscard]] bool HasIndex(wire::CardIndex index) const {
    return Has(wire::SubCodeOf<wire::PositionBlock>(index));
  }

 private:
  [[nodiscard]] bool Has(std::uint8_t subCode) const;

  const Options& options_;
  StoredParameters& parameters_;
  std::optional<std::uint8_t> trial_;
};

}  // namespace morvane::simulator
